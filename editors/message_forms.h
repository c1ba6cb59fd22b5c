#pragma once
// The dialogs of the two message blocks. Their fields are checked by nobody, and a double click empties one.

#include "editors/attribute_form.h"

namespace canvas::editors {

extern const AttributeForm::Spec frmMessageIn, frmMessageOut;

}  // namespace canvas::editors
