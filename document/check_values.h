#pragma once
// The program check's look at what a block was read into: its port flags and its settings.

#include "document/block.h"
#include "document/findings.h"

namespace canvas {

/// The flags of the line against those of the type. A type that is not in the catalogue has none to compare with.
void checkPortFlags(const clsBVTBlock& block, int line, Findings& findings);

/// Gives every setting to the panel's own check of a cell, as if it was typed in, and looks every choice up in its
/// list. Expressions are not parsed: a text that is no number passes. The block itself stays as it is.
void checkValues(const clsBVTBlock& block, int line, Findings& findings);

}  // namespace canvas
