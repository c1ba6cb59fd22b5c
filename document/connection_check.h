#pragma once
// Checks of a document's wiring. Each block is looked at on its own; paths are not followed.

#include <span>
#include <string>
#include <string_view>

#include "document/block_col.h"

namespace canvas {

/// Whether the ports of one block are connected as its type asks. There are no degrees: a block is right or an error.
bool wellConnected(const clsBVTBlock& block);

/// Appends one record and gives false.
bool TagErrorAndWarning(std::string& strMessage, std::string_view strType, std::int16_t BlockID);

/// Whether a block is a Call Subroutine block that names the document itself, by file titles without their last four
/// characters and without regard to case. A name shorter than four characters is error 5.
bool calls(const clsBVTBlock& block, std::string_view documentName);

/// Walks backward from the End block (ID 2) to the Start block (ID 1) over blocks whose state, indexed by ID, is
/// blockOK. No check uses it.
bool CheckPathConnection(const clsBVTBlockCol& blocks, std::span<const std::int16_t> BlockState);

}  // namespace canvas
