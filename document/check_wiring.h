#pragma once
// The program check's look at the connections of a whole document.

#include <cstdint>
#include <map>

#include "document/block_col.h"
#include "document/findings.h"

namespace canvas {

/// Where a block ID was met in the file.
struct BlockPlace {
    int line = 0;
    bool linked = true;   ///< its targets are as the line wants them
    bool sourced = true;  ///< and its list of incoming connections
};

/// By block ID; also blocks that could not be read are among them.
using BlockPlaces = std::map<std::int32_t, BlockPlace>;

/// Checks targets, ports and in-ports from both sides, the marks of the connection check, and the Start and End
/// blocks. What follows from a fault told already (a line that was dropped, a list that was read askew) is left out.
void checkWiring(const clsBVTBlockCol& blocks, const BlockPlaces& places, Findings& findings);

}  // namespace canvas
