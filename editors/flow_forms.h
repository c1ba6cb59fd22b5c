#pragma once
// The dialogs of the blocks that wait and branch, of the servo and of faults.

#include "editors/attribute_form.h"

namespace canvas::editors {

extern const AttributeForm::Spec frmOnTime, frmServoOnOff;

Ref<Form> makeIfEvent();
Ref<Form> makeIfFault();
Ref<Form> makeInput();
Ref<Form> makeResetFault();

}  // namespace canvas::editors
