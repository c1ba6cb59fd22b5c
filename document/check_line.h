#pragma once
// The program check's look at one block line as text.

#include <array>

#include "document/block_line.h"
#include "document/catalogue.h"
#include "document/findings.h"

namespace canvas {

/// What the values of a block class look like in a file, as a new object of it writes them.
struct ValueShape {
    const AttributeClass* table = nullptr;
    std::int32_t values = 0;
    bool firstQuoted = false;
};

/// By type. One object serves one thread.
class ValueShapes {
public:
    /// Null when the type has no class.
    const ValueShape* of(std::int32_t type);

private:
    struct Known {
        bool asked = false;
        ValueShape shape;
    };
    std::array<Known, highestBlockType + 1> m_known{};
};

/// What the text of a line tells before it is read.
struct LineVerdict {
    std::int16_t id = 0;  ///< 0 when there is none
    bool knownType = false;
    /// The line reaches beyond its targets and flags.
    bool linked = false;
    /// Sources and values stand where the line's counts say, so that what is read from them can be judged.
    bool inPlace = false;
};

LineVerdict checkLine(const BlockLine& line, int number, ValueShapes& shapes, Findings& findings);

}  // namespace canvas
