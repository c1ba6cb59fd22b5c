#pragma once
// What the import of a text file would do, line by line.

#include <optional>
#include <string>
#include <vector>

#include "cli/store_nodes.h"
#include "cli/store_rules.h"

namespace canvas::cli {

struct ImportPlan {
    std::vector<PropertyChange> changes;
    std::optional<std::vector<RemoteNode>> nodes;  ///< in place of those of the store
    std::vector<StoreFinding> findings;
    bool readable = true;  ///< false: the module would refuse the file, or end in the middle of it
};

/// Reads the bytes of a file as the module would, and writes nothing. Errors of the store.
ImportPlan planImport(mtModuleType module, const std::string& store, std::string bytes);

}  // namespace canvas::cli
