#pragma once
// A program in the order in which people read it.

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

}  // namespace canvas::cli
