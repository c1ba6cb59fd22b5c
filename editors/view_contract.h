#pragma once
// What this library and its view agree on. The view is a file of its own, so the two may come from different builds.

#include <cstdint>

#include "editors/form.h"
#include "host/ports.h"

namespace canvas::editors {

/// Objects pass between the two as they lie in memory: their sizes tell most builds apart, the first number the rest.
constexpr std::uint64_t viewContract() noexcept {
    std::uint64_t sum = 3;
    for (const std::size_t size : {sizeof(Form), sizeof(Control), sizeof(ControlRow), sizeof(TextControl), sizeof(Label),
                                   sizeof(Toggle), sizeof(Choice), sizeof(Tabs), sizeof(Tree), sizeof(Tree::Node),
                                   sizeof(Grid), sizeof(MessageBox), sizeof(Value)})
        sum = sum * 1000003 + size;
    return sum;
}

/// The one symbol that the view exports. Null for another contract, or where no screen can be reached.
using CanvasView = Interaction* (*)(std::uint64_t contract);
inline constexpr char canvasViewSymbol[] = "canvasView";

}  // namespace canvas::editors
