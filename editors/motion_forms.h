#pragma once
// The dialogs of the blocks that move an axis.

#include "editors/attribute_form.h"

namespace canvas::editors {

extern const AttributeForm::Spec frmMoveAxis;

}  // namespace canvas::editors
