#pragma once
// The program check's look at the three header lines.

#include <string>
#include <string_view>

#include "document/findings.h"
#include "document/program_reader.h"

namespace canvas {

inline constexpr int headerLines = 3;

/// One header line, `number` from 1 to 3. What the reader fails at is left to it.
void checkHeaderLine(int number, std::string_view text, std::string_view currentVersion, Findings& findings);

/// NUM_BLOCKS against the block lines that follow. A line that begins otherwise has been told already.
void checkBlockCount(std::string_view countLine, std::int32_t blockLines, Findings& findings);

/// Whether blocks can be read under a version.
bool isVersion(std::string_view version);

/// The version in the first line; empty when there is none.
std::string_view versionIn(std::string_view line);

/// Why the reading of a header line failed. `text` is the line's; empty when it is missing.
std::string whyHeaderFailed(FilePlace place, std::string_view text, const RuntimeError& error);

}  // namespace canvas
