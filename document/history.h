#pragma once
// The undo and redo stacks: edit records on their way between two lists. Nothing here applies an edit.

#include <cstdint>
#include <utility>
#include <vector>

#include "host/array.h"
#include "host/object.h"

namespace canvas {

class History {
public:
    struct Step {
        std::int16_t mode;
        Ref<Object> record;
    };
    using Stack = std::vector<Step>;

    Stack undo;
    Stack redo;

    /// A new edit ends the redo history.
    void push(std::int16_t mode, Ref<Object> record) {
        undo.push_back({mode, std::move(record)});
        const Stack ended = std::exchange(redo, {});  // a record's end may be a host's, and come back here
    }

    /// Moves the top of one stack onto the other and gives its record. An empty stack is error 9.
    static Ref<Object> move(Stack& from, Stack& to) {
        if (from.empty()) raise(Error::subscript);
        to.push_back(std::move(from.back()));
        from.pop_back();
        return to.back().record;
    }

    /// The mode on top, -1 for an empty stack.
    static std::int16_t topMode(const Stack& stack) noexcept { return stack.empty() ? std::int16_t{-1} : stack.back().mode; }
};

}  // namespace canvas
