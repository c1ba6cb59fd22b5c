#pragma once
// The check of programs that lie in one folder against each other.

#include <vector>

#include "cli/check_run.h"

namespace canvas::cli {

/// Adds what the programs of each folder say of each other. A file "tasks.txt" beside them stands for the project's task
/// list: line n is the file name of task n's program, or empty. It gets a report of its own when something is wrong with
/// it, behind the reports of its folder.
void checkFolders(std::vector<FileReport>& reports);

}  // namespace canvas::cli
