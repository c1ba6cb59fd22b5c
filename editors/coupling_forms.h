#pragma once
// The dialogs of the blocks that couple an axis to another one: gearing, cam, latch.

#include "editors/attribute_form.h"

namespace canvas::editors {

extern const AttributeForm::Spec frmCAMShift, frmGearRatio, frmLatchOnOff, frmLatchTarget, frmScaleCAM;

Ref<Form> makeCAMOnOff();
Ref<Form> makeGearingOnOff();

}  // namespace canvas::editors
