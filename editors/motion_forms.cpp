#include "editors/motion_forms.h"

namespace canvas::editors {
namespace {

constexpr std::string_view moveTypes[] = {"Absolute", "Relative", "Rotary Shortest"};

constexpr ControlRow moveAxis[] = {
    caption("lblType", "Type:", 0),
    combo("cmbType", moveTypes, "TypeK", 0).writes(3),
    caption("lblPosition", "Position:", 1),
    text("txbPosition", "Position", 1).writes(4).checks(4, "Position", brxFloat),
    unitLabel("lblPositionUnit", Unit::word, 1),
    caption("lblVelocity", "Velocity:", 2),
    text("txbVelocity", "Velocity", 2).writes(5).checks(1, "Velocity", brxFloat),
    unitLabel("lblVelocityUnit", Unit::perSecond, 2),
    caption("lblAcceleration", "Acceleration:", 3),
    text("txbAcceleration", "Acceleration", 3).writes(1).checks(2, "Acceleration", brxPositiveFloat),
    unitLabel("lblAccelerationUnit", Unit::perSecond, 3),
    caption("lblDeceleration", "Deceleration:", 4),
    text("txbDeceleration", "Deceleration", 4).writes(2).checks(3, "Deceleration", brxPositiveFloat),
    unitLabel("lblDecelerationUnit", Unit::perSecond, 4),
    check("chkWaitForCompletion", "Wait for completion", "WaitForCompletion", 5).writes(6),
    okButton(),
    cancelButton(),
    helpButton(),
};

}  // namespace

const AttributeForm::Spec frmMoveAxis{{"frmMoveAxis", "Move Axis", moveAxis}, MOVEAXIS};

}  // namespace canvas::editors
