#include "attributes/axis_motion.h"

#include "host/numbers.h"

namespace canvas {
namespace {

constexpr std::string_view accelerationTip = "Returns/sets an acceleration value.";
constexpr std::string_view decelerationTip = "Returns/sets a deceleration value.";
constexpr std::string_view velocityTip = "Returns/sets a velocity value.";
constexpr std::string_view waitTip = "Sets whether to wait for this block to complete.";

}  // namespace

namespace abort_motion {
using Self = clsBVTAbortMotion;
constexpr Field fields[]{
    {FIELD(strDeceleration), .property = "Deceleration", .preset = "0.0", .row = 0, .label = "Deceleration",
     .tip = decelerationTip, .type = brxPositiveFloat, .position = 1, .file = 1},
};
}  // namespace abort_motion
// Index 1 is exempt although there is no such row: panels commit it behind the last row, and nothing may happen.
const AttributeClass clsBVTAbortMotion::table =
    canvas::attributeClass({.name = "clsBVTAbortMotion", .fields = abort_motion::fields, .exemptIndexes = 1U << 1});

namespace change_dynamics {
using Self = clsBVTChangeDynamics;
constexpr std::int16_t sCurveRow = 3;
constexpr Field fields[]{
    {FIELD(strAcceleration), .property = "Acceleration", .preset = "0.0", .row = 0, .label = "Acceleration",
     .tip = accelerationTip, .type = brxPositiveFloat, .position = 1, .file = 1},
    {FIELD(strDeceleration), .property = "Deceleration", .preset = "0.0", .row = 1, .label = "Deceleration",
     .tip = decelerationTip, .type = brxPositiveFloat, .position = 2, .file = 2},
    {FIELD(strVelocity), .property = "Velocity", .preset = "0.0", .row = 2, .label = "Velocity", .tip = velocityTip,
     .type = brxPositiveFloat, .position = 3, .file = 3},
    {FIELD(strSCurve), .property = "SCurve", .preset = "0", .row = sCurveRow, .label = "SCurve",
     .tip = "Returns/sets a S Curve value.", .type = brxPositiveWord, .position = 4, .file = 4},
};
}  // namespace change_dynamics
const AttributeClass clsBVTChangeDynamics::table =
    canvas::attributeClass({.name = "clsBVTChangeDynamics", .fields = change_dynamics::fields});

std::int16_t clsBVTChangeDynamics::limitedRow() const { return change_dynamics::sCurveRow; }

/// The S-curve is a word to the type check, and a byte to the controller.
std::string_view clsBVTChangeDynamics::refusal(std::string_view text) const {
    const auto number = numbers::parse(text);
    const bool tooLarge = number && *number >= 255.5;  // which rounds half to even, to 256
    return tooLarge ? "Expecting an integer in the range of [0 To 255]." : std::string_view();
}

namespace move_axis {
using Self = clsBVTMoveAxis;
constexpr std::string_view items[]{"Absolute", "Relative", "Rotary Shortest"};
constexpr List moveType{"moveType", items};
constexpr Field fields[]{
    {FIELD(strAcceleration), .property = "Acceleration", .preset = "0.0", .row = 1, .label = "Acceleration",
     .tip = accelerationTip, .type = brxPositiveFloat, .position = 2, .file = 1},
    {FIELD(strDeceleration), .property = "Deceleration", .preset = "0.0", .row = 2, .label = "Deceleration",
     .tip = decelerationTip, .type = brxPositiveFloat, .position = 3, .file = 2},
    {FIELD(strType), .property = "TypeK", .preset = "Absolute", .row = 0, .label = "Type",
     .tip = "Returns/sets a movement type.", COMBO(brxChoice, moveType), .position = 1, .file = 5},
    {FIELD(strPosition), .property = "Position", .preset = "0.0", .row = 4, .label = "Position",
     .tip = "Returns/sets a position value.", .type = brxFloat, .position = 5, .file = 4},
    {FIELD(strVelocity), .property = "Velocity", .preset = "0.0", .row = 3, .label = "Velocity", .tip = velocityTip,
     .type = brxFloat, .position = 4, .file = 3},
    {FIELD(blnWaitForCompletion), .property = "WaitForCompletion", .preset = "True", .row = 5,
     .label = "WaitForCompletion", .tip = waitTip, COMBO(brxBool, choice), .position = 6, .file = 6},
};
}  // namespace move_axis
const AttributeClass clsBVTMoveAxis::table =
    canvas::attributeClass({.name = "clsBVTMoveAxis", .fields = move_axis::fields});

namespace jog_axis {
using Self = clsBVTJogAxis;
constexpr Field fields[]{
    {FIELD(strAcceleration), .property = "Acceleration", .preset = "0.0", .row = 0, .label = "Acceleration",
     .tip = accelerationTip, .type = brxPositiveFloat, .position = 1, .file = 1},
    {FIELD(strDeceleration), .property = "Deceleration", .preset = "0.0", .row = 1, .label = "Deceleration",
     .tip = decelerationTip, .type = brxPositiveFloat, .position = 2, .file = 2},
    {FIELD(strVelocity), .property = "Velocity", .preset = "0.0", .row = 2, .label = "Velocity", .tip = velocityTip,
     .type = brxFloat, .position = 3, .file = 3},
};
}  // namespace jog_axis
const AttributeClass clsBVTJogAxis::table =
    canvas::attributeClass({.name = "clsBVTJogAxis", .fields = jog_axis::fields});

namespace home_axis {
using Self = clsBVTHomeAxis;
constexpr std::int16_t switchRow = 4;
constexpr std::string_view items[]{"Positive", "Negative"};
constexpr List moveType{"moveType", items};
constexpr Field fields[]{
    {FIELD(strTimeOut), .property = "TimeOut", .preset = "0", .row = 0, .label = "TimeOut",
     .tip = "Returns/sets a time out value.", .type = brxPositiveWord, .position = 1, .file = 1},
    {FIELD(strApproachVelocity), .property = "ApproachVelocity", .preset = "0.0", .row = 1,
     .label = "ApproachVelocity", .tip = "Returns/sets an approach velocity value.", .type = brxFloat, .position = 2,
     .file = 2},
    {FIELD(strAcceleration), .property = "Acceleration", .preset = "0.0", .row = 2, .label = "Acceleration",
     .tip = accelerationTip, .type = brxPositiveFloat, .position = 3, .file = 3},
    {FIELD(strDeceleration), .property = "Deceleration", .preset = "0.0", .row = 3, .label = "Deceleration",
     .tip = decelerationTip, .type = brxPositiveFloat, .position = 4, .file = 4},
    // rows 4 to 6 keep what was typed: the controller's homing takes addresses, not the checker's normal form
    {FIELD(strCreepSpeed), .property = "CreepSpeed", .preset = "0.0", .row = 6, .label = "CreepSpeed",
     .tip = "Returns/sets the creep speed.", .type = brxPositiveFloat, .storesTyped = true, .position = 7, .file = 7},
    {FIELD(strHomeSwitchInput), .property = "HomeSwitchInput", .preset = "Input Address", .row = switchRow,
     .label = "HomeSwitchInput", .tip = "Returns/sets the home switch input.", .type = brxBool, .storesTyped = true,
     .position = 5, .file = 5},
    {FIELD(strHomingDirection), .property = "HomingDirection", .preset = "Positive", .row = 5,
     .label = "HomingDirection", .tip = "Returns/sets the homing direction.", COMBO(brxChoice, moveType),
     .storesTyped = true, .position = 6, .file = 6},
};
}  // namespace home_axis
const AttributeClass clsBVTHomeAxis::table = canvas::attributeClass(
    {.name = "clsBVTHomeAxis", .fields = home_axis::fields, .wholePanel = false});

/// A switch that is a constant is spelled as a boolean, so that the field never holds a plain number.
void clsBVTHomeAxis::adjustCell(std::int16_t row, std::string& text) const {
    if (row != home_axis::switchRow) return;
    if (text == "1") text = "true";
    else if (text == "0") text = "false";
}

namespace increment_position {
using Self = clsBVTIncrementPosition;
constexpr Field fields[]{
    {FIELD(strOffset), .property = "Offset", .preset = "0.0", .row = 0, .label = "Offset",
     .tip = "Returns/sets an offset value.", .type = brxFloat, .position = 1, .file = 1},
    {FIELD(strTime), .property = "Time", .preset = "0", .row = 1, .label = "Duration",
     .tip = "Returns/sets a duration value.", .type = brxPositiveWord, .position = 2, .file = 2},
    {FIELD(blnWaitForCompletion), .property = "WaitForCompletion", .preset = "True", .row = 2,
     .label = "WaitForCompletion", .tip = waitTip, COMBO(brxBool, choice), .position = 3, .file = 3},
};
constexpr Member operations[]{method<&Self::UpdateTimeValue>("UpdateTimeValue")};
}  // namespace increment_position
const AttributeClass clsBVTIncrementPosition::table =
    canvas::attributeClass({.name = "clsBVTIncrementPosition",
                            .fields = increment_position::fields,
                            .operations = increment_position::operations,
                            .wholePanel = false});

bool clsBVTIncrementPosition::UpdateTimeValue() {
    strTime = "(" + strTime + ") * 1000";
    return false;
}

namespace define_position {
using Self = clsBVTDefinePosition;
constexpr Field fields[]{
    // the main position never goes to the program's checker, unlike the external one: controllers take it as it is
    {FIELD(strMain), .property = "Main", .preset = "0.0", .row = 0, .label = "Main",
     .tip = "Returns/sets a main position value.", .type = brxFloat, .programChecked = false, .position = 1, .file = 1},
    {FIELD(strExternal), .property = "External", .preset = "0.0", .row = 2, .label = "External",
     .tip = "Returns/sets an external position value.", .type = brxFloat, .position = 3, .file = 3},
    {FIELD(blnMainChanged), .property = "MainChanged", .preset = "False", .row = 1, .label = "MainChanged",
     .tip = "Sets whether to change main.", COMBO(brxChoice, choice), .position = 2, .file = 2},
    {FIELD(blnExternalChanged), .property = "ExternalChanged", .preset = "False", .row = 3,
     .label = "ExternalChanged", .tip = "Sets whether to change external.", COMBO(brxChoice, choice), .position = 4,
     .file = 4},
};
}  // namespace define_position
const AttributeClass clsBVTDefinePosition::table = canvas::attributeClass(
    {.name = "clsBVTDefinePosition", .fields = define_position::fields, .listElsewhere = &choice});

namespace torque {
using Self = clsBVTTorque;
// panel and file list the two values in opposite orders
constexpr Field fields[]{
    {FIELD(strSpeedLimit), .property = "SpeedLimit", .preset = "0.0", .row = 0, .label = "SpeedLimit",
     .tip = "Returns/sets an SpeedLimit value.", .type = brxPositiveFloat, .position = 1, .file = 2},
    {FIELD(strTorque), .property = "Torque", .preset = "0.0", .row = 1, .label = "Torque",
     .tip = "Returns/sets a Torque value.", .type = brxPositiveFloat, .position = 2, .file = 1},
};
}  // namespace torque
const AttributeClass clsBVTTorque::table = canvas::attributeClass(
    {.name = "clsBVTTorque", .fields = torque::fields, .wholePanel = false});

}  // namespace canvas
