#pragma once
// The program check over many files.

#include <functional>
#include <string>
#include <vector>

#include "document/findings.h"
#include "document/program_links.h"

namespace canvas::cli {

struct FileReport {
    std::string file;
    bool readable = true;
    std::vector<Finding> findings;
    ProgramLinks links;
    std::string internalError;  ///< what ended the check of this file; empty when nothing did

    bool isGood() const noexcept { return findings.empty() && internalError.empty(); }
};

/// Is told how many files are done; called from several threads, one at a time.
using Progress = std::function<void(std::size_t done)>;

/// Checks each file on one of `jobs` threads. The reports stand in the order of the files.
std::vector<FileReport> checkFiles(const std::vector<std::string>& files, unsigned jobs, const Progress& progress);

/// The highest of what the files ask for.
int exitCodeOf(const std::vector<FileReport>& reports) noexcept;

}  // namespace canvas::cli
