#pragma once
// The check of a record store.

#include <string>
#include <vector>

#include "cli/store_rules.h"

namespace canvas::cli {

/// What is wrong with the file, its modules, their values and defaults, and the remote nodes. Error 3024 or 3343 for
/// what is no store at all.
std::vector<StoreFinding> checkStore(const std::string& store);

/// What is wrong with the properties of one module.
std::vector<StoreFinding> propertyFindings(mtModuleType module, const std::vector<StoredProperty>& properties);

}  // namespace canvas::cli
