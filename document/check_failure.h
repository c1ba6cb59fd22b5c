#pragma once
// Why a file could not be read, in words.

#include <string>

#include "document/block_line.h"
#include "document/program_reader.h"

namespace canvas {

/// A file that cannot be opened.
std::string whyNotOpened(const RuntimeError& error);

/// A block line that could not be read. `firstPlace` is what its first token was taken for: 1, or 3 behind a line with
/// ID 0. `values` are those of the block's class and may be null.
std::string whyBlockFailed(FilePlace place, const BlockLine& line, std::int32_t firstPlace,
                           const AttributeClass* values, const RuntimeError& error);

/// "is no number (Type mismatch)" and the like, behind a token.
std::string numberFault(const RuntimeError& error);

bool isOutOfMemory(const RuntimeError& error) noexcept;
std::string tooLong(const RuntimeError& error);

}  // namespace canvas
