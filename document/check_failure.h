#pragma once
// Why a file could not be read, in words.

#include <string>
#include <string_view>

#include "document/block_line.h"
#include "document/program_reader.h"

namespace canvas {

/// A file that cannot be opened, or is no program file at all.
std::string whyNotOpened(const RuntimeError& error);

/// Lines 1 to 3. `text` is the line's; empty when it is missing.
std::string whyHeaderFailed(FilePlace place, std::string_view text, const RuntimeError& error);

/// A block line. `firstPlace` is what its first token was taken for: 1, or 3 behind a line with ID 0. `values` are those
/// of the block's class and may be null.
std::string whyBlockFailed(FilePlace place, const BlockLine& line, std::int32_t firstPlace, const AttributeClass* values,
                           const RuntimeError& error);

}  // namespace canvas
