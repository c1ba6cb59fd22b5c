#pragma once
// The files that a command line names.

#include <string>
#include <vector>

namespace canvas::cli {

struct Inputs {
    std::vector<std::string> files;      ///< sorted by bytes, each once
    std::vector<std::string> unmatched;  ///< patterns and folders that give no file
};

/// Each of `paths` is a file, a folder (all *.bpa in it and below, not through linked folders), or a pattern (cli/
/// pattern.h) when nothing of that name is there. A name ending in .bpg, as users see programs, means the file .bpa.
/// A file that is not there, and a folder below that cannot be listed, are among the files: opening them fails.
Inputs findInputs(const std::vector<std::string>& paths);

/// The file behind the name that a user gives a program.
std::string fileOf(const std::string& name);

}  // namespace canvas::cli
