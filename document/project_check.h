#pragma once
// The check of a folder of programs against each other: subroutines that are missing or call each other in a circle,
// launches of blocks and tasks that do not exist, names that lead out of the folder.

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "attributes/program_control.h"
#include "document/findings.h"
#include "document/program_links.h"

namespace canvas {

/// One program of the folder; its findings are added to.
struct ProjectProgram {
    std::string_view fileName;  ///< without the folder
    const ProgramLinks* links;
    std::vector<Finding>* findings;
};

/// The project's tasks, counted from 0: the program file of each, empty for a task that is not defined.
struct TaskFiles {
    std::array<std::string, taskCount> files;
    std::vector<Finding>* findings;  ///< of the list itself; line n stands for task n
};

/// Whether the folder has a file of that name, which is never one that leads out of it.
using HasFile = std::function<bool(const std::string& fileName)>;

/// File names match without regard to case. Without a task list, launches are not looked at.
void checkProject(std::span<const ProjectProgram> programs, const std::optional<TaskFiles>& tasks, const HasFile& hasFile);

/// Why a name inside a program file could lead out of its folder, or name no file at all: absolute names, "..", drives,
/// devices, streams. Empty for a name that stays inside. Names are judged as Windows takes them, on every platform.
std::string_view whyOutside(std::string_view name);

}  // namespace canvas
