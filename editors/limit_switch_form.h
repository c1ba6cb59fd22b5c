#pragma once
// Programmable Limit Switch: an encoder variable, and a grid of outputs that are switched between two values of it.

#include "editors/attribute_form.h"

namespace canvas::editors {

Ref<Form> makeProgrammableLimitSwitch();

}  // namespace canvas::editors
