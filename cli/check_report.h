#pragma once
// How findings are printed.

#include <string>
#include <vector>

#include "cli/check_run.h"

namespace canvas::cli {

/// "file:line: block N: rule: reason" for each finding, without what a finding does not have.
std::string textOf(const FileReport& report);

/// One line over all files.
std::string summaryOf(const std::vector<FileReport>& reports);

/// One JSON document in the form of docs/check.schema.json, a line feed at its end.
std::string jsonOf(const std::vector<FileReport>& reports);

}  // namespace canvas::cli
