#pragma once
// Checks of a document's wiring. Each block is looked at on its own; paths are not followed.

#include <span>
#include <string>
#include <string_view>

#include "document/block_col.h"

namespace canvas {

/// Appends "Error,ID" for each wrongly connected block, joined by "@" to what `strMessage` holds. True when there was
/// none. Everything found is an error: there are no warnings.
bool checkConnection(const clsBVTBlockCol& blocks, std::string& strMessage);

/// Appends one record and gives false.
bool TagErrorAndWarning(std::string& strMessage, std::string_view strType, std::int16_t BlockID);

/// Whether a Call Subroutine block names the document itself, by file titles without their last four characters and
/// without regard to case. A name shorter than four characters is error 5.
bool callsItself(const clsBVTBlockCol& blocks, std::string_view documentName);

/// Walks backward from the End block (ID 2) to the Start block (ID 1) over blocks whose state, indexed by ID, is
/// blockOK. No check uses it.
bool CheckPathConnection(const clsBVTBlockCol& blocks, std::span<const std::int16_t> BlockState);

}  // namespace canvas
