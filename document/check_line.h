#pragma once
// The program check's look at one block line as text.

#include <array>

#include "document/block_line.h"
#include "document/catalogue.h"
#include "document/findings.h"

namespace canvas {

/// The attribute classes by type. One object serves one thread.
class AttributeClasses {
public:
    /// Null when the type has none.
    const AttributeClass* of(std::int32_t type);

private:
    struct Known {
        bool asked = false;
        const AttributeClass* table = nullptr;
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

LineVerdict checkLine(const BlockLine& line, int number, AttributeClasses& classes, Findings& findings);

}  // namespace canvas
