#pragma once
// A program in the order in which people read it.

#include <string>
#include <vector>

#include "document/canvas.h"

namespace canvas::cli {

struct Outline {
    std::vector<const clsBVTBlock*> flow;       ///< from Start on, each block once, top ports before bottom ports
    std::vector<const clsBVTBlock*> unreached;  ///< in the order of the file
    std::vector<const clsBVTBlock*> notes;
};

/// Points into the document.
Outline outlineOf(const clsBVTCanvas& document);

struct Setting {
    std::string label;  ///< of the panel; a setting that no panel shows goes by its property's name
    std::string value;
};

/// What the panel shows of a block, row by row, then what the file keeps besides.
std::vector<Setting> settingsOf(const clsBVTBlock& block);

}  // namespace canvas::cli
