#pragma once
// References from one program to others: subroutines that are called, tasks that are launched.

#include <string_view>

#include "attributes/program_control.h"
#include "document/block_col.h"

namespace canvas {

/// Programs as Readfile reads them, each into a scratch document.
const ProgramLookup& programsOnDisk() noexcept;

bool hasBlockOfType(const clsBVTBlockCol& blocks, std::int16_t type) noexcept;

/// Unticks each task whose status is False in every launch block, and puts its block number back to 1. `status` counts
/// its eight entries from 0; a shorter one is error 9.
void untickAbsentTasks(const clsBVTBlockCol& blocks, const Array& status);

/// Gives a subroutine's new name to every block that calls it, found by file title without regard to case. True when
/// there was one.
bool replaceSubroutine(const clsBVTBlockCol& blocks, std::string_view oldName, std::string_view newName);

}  // namespace canvas
