#pragma once
// The settings of a block in words.

#include <string>
#include <vector>

#include "document/block.h"

namespace canvas::cli {

struct Setting {
    std::string label;
    std::string value;
};

/// What the panel shows of a block, row by row under the panel's labels, then under its property's name what the file
/// keeps besides. Of lists and tasks every entry that is set is told, not only the one that the panel would show.
std::vector<Setting> settingsOf(const clsBVTBlock& block);

}  // namespace canvas::cli
