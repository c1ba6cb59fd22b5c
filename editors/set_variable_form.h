#pragma once
// Set Variable: a grid of assignments, a variable and the expression assigned to it in each row.

#include "editors/attribute_form.h"

namespace canvas::editors {

Ref<Form> makeSetVariable();

}  // namespace canvas::editors
