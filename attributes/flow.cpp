#include "attributes/flow.h"

#include <algorithm>
#include <iterator>

#include "host/numbers.h"
#include "tracing/branch.h"

namespace canvas {

namespace if_event {
using Self = clsBVTIfEvent;
constexpr Field fields[]{
    {FIELD(strEvent), .property = "EventK", .row = 0, .label = "Event", .tip = "Returns/sets an event.",
     .type = brxExpression, .position = 1, .file = 1},
};
}  // namespace if_event
const AttributeClass clsBVTIfEvent::table =
    canvas::attributeClass({.name = "clsBVTIfEvent", .fields = if_event::fields, .anyFileNumber = true});

namespace on_time {
using Self = clsBVTOnTime;
constexpr Field fields[]{
    {FIELD(strTimeOut), .property = "TimeOut", .preset = "0", .row = 0, .label = "TimeOut",
     .tip = "Returns/sets a time interval in milliseconds.", .type = brxPositiveWord, .position = 1, .file = 1},
};
}  // namespace on_time
const AttributeClass clsBVTOnTime::table =
    canvas::attributeClass({.name = "clsBVTOnTime", .fields = on_time::fields, .anyFileNumber = true});

namespace input {
using Self = clsBVTInput;
constexpr std::string_view items[]{"Rising Edge", "Falling Edge", "Logic One", "Logic Zero"};
constexpr List choice{"choice", items};
constexpr std::int16_t conditionNumber = 2;
constexpr Field fields[]{
    {FIELD(strInputBlock), .property = "InputBlock", .row = 0, .label = "Input",
     .tip = "Returns/sets an input value.", .type = brxExpression, .position = 1, .file = 1},
    {FIELD(strCondition), .property = "Condition", .preset = "Rising Edge", .row = 1, .label = "Condition",
     .tip = "Returns/sets a condition value.", COMBO(brxChoice, choice), .position = 2, .file = conditionNumber},
};
constexpr Member operations[]{property<&Self::InputType, nullptr>("InputType")};
}  // namespace input
const AttributeClass clsBVTInput::table = canvas::attributeClass(
    {.name = "clsBVTInput", .fields = input::fields, .operations = input::operations, .wholePanel = false});

std::int16_t clsBVTInput::InputType() const {
    const auto* found = std::find(std::begin(input::items), std::end(input::items), strCondition);
    if (found == std::end(input::items)) return -1;
    return static_cast<std::int16_t>(found - std::begin(input::items));
}

/// The file keeps the condition as its place in the list from 1. A condition that is not in the list leaves nothing
/// behind the blank.
void clsBVTInput::appendValue(const Field& field, std::string& line) const {
    if (field.file != input::conditionNumber) Attribute::appendValue(field, line);
    else if (const auto place = InputType(); place >= 0) numbers::append(line, place + 1);
}

void clsBVTInput::AssignFromFile(std::int16_t intVarNum, std::string_view strNewValue) {
    if (intVarNum != input::conditionNumber) return Attribute::AssignFromFile(intVarNum, strNewValue);
    tracing::Procedure run(className(), "AssignFromFile", this, [&](tracing::Locals& l) {
        l("intVarNum", intVarNum);
        l("strNewValue", strNewValue);
    });
    run([&] {
        const std::int32_t place = numbers::toLong(strNewValue);
        if (place < 1 || place > static_cast<std::int32_t>(std::size(input::items))) raise(Error::subscript);
        strCondition = input::items[place - 1];
    });
}

namespace servo {
using Self = clsBVTServoOnOff;
constexpr Field fields[]{
    {FIELD(blnServo), .property = "Servo", .preset = "True", .row = 0, .label = "Enabled",
     .tip = "Sets whether to enable or disable a servo.", COMBO(brxBool, choice), .position = 1, .file = 1},
};
}  // namespace servo
const AttributeClass clsBVTServoOnOff::table =
    canvas::attributeClass({.name = "clsBVTServoOnOff", .fields = servo::fields});

}  // namespace canvas
