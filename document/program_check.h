#pragma once
// The program check: everything that is wrong with one program file, found in one reading of it.
//
//     const CheckedProgram checked = checkProgramFile("homing.bpa");
//     for (const Finding& f : checked.findings) show(f.line, f.block, nameOf(f.rule), f.reason);
//
// Nothing is shown and nobody is asked: message boxes of the library become findings.

#include <string>
#include <vector>

#include "document/canvas.h"
#include "document/findings.h"
#include "document/program_links.h"

namespace canvas {

struct CheckedProgram {
    Ref<clsBVTCanvas> document;  ///< never null; after a failed reading it holds the blocks before the failure
    bool readable = true;
    std::vector<Finding> findings;  ///< by line
    ProgramLinks links;             ///< for the check of a folder, document/project_check.h
};

/// Checks the bytes of a program file. When the reading fails, blocks are not compared with each other, and lines
/// behind the failing one are not looked at. Raises only what is no fault of the file (memory that ran out, a machine
/// fault).
CheckedProgram checkProgram(std::string bytes);

/// The same for a file, opened through this thread's `Files`; the name is used as it stands. A file that cannot be
/// opened is a finding without a line.
CheckedProgram checkProgramFile(const std::string& path);

}  // namespace canvas
