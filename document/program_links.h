#pragma once
// What a program says of other programs: the subroutines it calls, the tasks it launches and suspends.

#include <cstdint>
#include <string>
#include <vector>

#include "document/block_line.h"
#include "document/canvas.h"

namespace canvas {

/// A call as its line spells it, before a reader changes the name.
struct SubroutineCall {
    int line = 0;
    std::int16_t block = 0;
    std::string name;   ///< ".\home.bpa"
    std::string title;  ///< "home.bpa"
};

/// What a Launch or Suspend Program block says of one task.
struct TaskUse {
    int line = 0;
    std::int16_t block = 0;
    std::int16_t task = 0;  ///< from 1
    bool launches = false;  ///< else suspends
    bool ticked = false;
    std::int16_t blockNumber = 0;  ///< where a launch begins
};

struct ProgramLinks {
    std::vector<SubroutineCall> calls;
    std::vector<TaskUse> tasks;
    std::vector<std::int16_t> blocks;  ///< IDs that the program has

    /// Takes what a block that was read from a line says.
    void take(int line, const clsBVTBlock& block, const BlockLine& text);
    void takeBlocks(const clsBVTBlockCol& all);
    bool hasBlock(std::int16_t id) const noexcept;
};

}  // namespace canvas
