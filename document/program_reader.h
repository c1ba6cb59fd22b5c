#pragma once
// Reading program files. One walk over the file's text serves the library and the command line: the sink hears of every
// line, and of the line and token at which a reading failed.

#include <cstdint>
#include <string>
#include <string_view>

#include "host/errors.h"

namespace canvas {

class clsBVTBlock;
class clsBVTCanvas;

/// Where in a file: lines from 1, tokens from 1 (0 is the line as a whole).
struct FilePlace {
    int line = 0;
    int token = 0;
};

class ReadSink {
public:
    virtual ~ReadSink() = default;
    /// A line is about to be read; its text without the line end. `line` counts from 1.
    virtual void line(int /*line*/, std::string_view /*text*/) {}
    /// A block line was read to its end. The block is stored next, unless its ID is 0 or the document is full; an empty
    /// line gives a block without an ID. `declaredValues` is what the line says of its count of values, and `values` how
    /// many followed.
    virtual void block(int /*line*/, const clsBVTBlock& /*block*/, std::string_view /*declaredValues*/,
                       int /*values*/) {}
    virtual void failed(FilePlace /*place*/, const RuntimeError& /*error*/) {}
};

/// Larger files are refused before they are read: 32,767 blocks of 2 KB each fit in.
inline constexpr std::uint64_t largestProgram = 64U << 20U;

/// Reads the program named `fileName`, whose last four characters are taken as its extension and replaced by ".bpa".
/// False after a failure (told in a box "File Error", blocks read so far stay) and for a file of the three header lines
/// alone; any further line, an empty one too, makes it true.
bool readProgram(clsBVTCanvas& document, std::string_view fileName, ReadSink* sink = nullptr);

/// The same for a text in memory: decodes and reads it. Raises what failed, after telling the sink.
bool readProgramText(clsBVTCanvas& document, std::string bytes, ReadSink& sink);

}  // namespace canvas
