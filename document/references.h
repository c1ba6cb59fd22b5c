#pragma once
// References from one program to others: subroutines that are called, tasks that are launched.

#include <string_view>

#include "attributes/program_control.h"
#include "document/block_col.h"

namespace canvas {

/// Programs as Readfile reads them, each into a scratch document.
const ProgramLookup& programsOnDisk() noexcept;

bool hasBlockOfType(const clsBVTBlockCol& blocks, std::int16_t type) noexcept;

/// Unticks a task of a launch block when its status is False, and puts its block number back to 1. `status` counts its
/// eight entries from 0, as `task` does; a shorter one is error 9.
void untickAbsentTask(const clsBVTBlock& block, const Array& status, std::int16_t task);

/// Gives a subroutine's new name to a block that calls it, by file title without regard to case. True when it does.
bool replaceSubroutine(const clsBVTBlock& block, std::string_view oldName, std::string_view newName);

}  // namespace canvas
