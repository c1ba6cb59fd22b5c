#pragma once
// The dialog of a block: which form a type has, and what the canvas hands it before it is shown.

#include "document/canvas.h"

namespace canvas {

/// The name of a type's form; empty for a type without one.
std::string_view formOf(std::int16_t blockType) noexcept;

/// Shows the block's dialog on a copy of its attribute, and gives the block that copy afterwards, changed or not. True
/// when it differs from the attribute that the block had. `host` is the host's main window object. Failures, a host's
/// missing member among them, are run-time errors; the block then keeps its attribute.
bool showAttributeForm(clsBVTCanvas& canvas, std::int16_t blockId, const Ref<Object>& host);

}  // namespace canvas
