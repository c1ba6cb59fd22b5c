#pragma once
// How `canvas store` prints its answers.

#include <optional>
#include <string>
#include <vector>

#include "cli/store_nodes.h"
#include "cli/store_rules.h"

namespace canvas::cli {

struct ModulePage {
    mtModuleType module = mtNone;
    std::vector<StoredProperty> properties;
};

/// The answer of one command: only the parts that it has.
struct StoreReport {
    std::string store;
    std::string file = {};  ///< the text file of an export or import
    bool dryRun = false;    ///< nothing was written
    std::optional<std::vector<ModulePage>> modules = {};
    std::optional<std::vector<PropertyChange>> changes = {};
    std::optional<std::vector<RemoteNode>> nodes = {};
    std::optional<std::vector<StoreFinding>> findings = {};
    std::string note = {};  ///< a last line for people
};

/// Tables, one line a change or finding.
std::string textOf(const StoreReport& report);
/// One JSON document in the form of docs/store.schema.json, a line feed at its end.
std::string jsonOf(const StoreReport& report);

}  // namespace canvas::cli
