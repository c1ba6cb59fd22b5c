#pragma once
// The dialogs of the blocks that move one axis.

#include "editors/attribute_form.h"

namespace canvas::editors {

extern const AttributeForm::Spec frmDefinePosition, frmIncrementPosition, frmMoveAxis, frmTorque;

Ref<Form> makeAbortMotion();
Ref<Form> makeChangeDynamics();
Ref<Form> makeHomeAxis();
Ref<Form> makeJogAxis();

}  // namespace canvas::editors
