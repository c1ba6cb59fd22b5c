#include "attributes/flow.h"

#include "block_case.h"

// clang-format off: a setting is read as a whole

namespace canvas::testing {
namespace {

const BlockCase ifEvent{
    .name = "clsBVTIfEvent", .create = created<clsBVTIfEvent>,
    .settings = {
        {.property = "EventK", .preset = "", .position = 1, .file = 1, .read = "x > 3", .row = 0, .label = "Event",
         .tip = "Returns/sets an event.", .type = brxExpression},
    },
    .fresh = R"(1 "")", .values = {"x > 3"}, .line = R"(1 "x > 3")", .anyFileNumber = true};

const BlockCase onTime{
    .name = "clsBVTOnTime", .create = created<clsBVTOnTime>,
    .settings = {
        {.property = "TimeOut", .preset = "0", .position = 1, .file = 1, .read = "1500", .row = 0,
         .label = "TimeOut", .tip = "Returns/sets a time interval in milliseconds.", .type = brxPositiveWord},
    },
    .fresh = R"(1 "0")", .values = {"1500"}, .line = R"(1 "1500")", .anyFileNumber = true};

const BlockCase input{
    .name = "clsBVTInput", .create = created<clsBVTInput>,
    .settings = {
        {.property = "InputBlock", .preset = "", .position = 1, .file = 1, .read = "IN_7", .row = 0,
         .label = "Input", .tip = "Returns/sets an input value.", .type = brxExpression},
        combo({.property = "Condition", .preset = "Rising Edge", .position = 2, .file = 2, .read = "Logic One",
               .row = 1, .label = "Condition", .tip = "Returns/sets a condition value.", .type = brxChoice,
               .items = {"Rising Edge", "Falling Edge", "Logic One", "Logic Zero"}}),
    },
    .fresh = R"(2 "" 1)", .values = {"IN_7", "3"}, .line = R"(2 "IN_7" 3)", .wholePanel = false};

const BlockCase servoOnOff{
    .name = "clsBVTServoOnOff", .create = created<clsBVTServoOnOff>,
    .settings = {
        combo({.property = "Servo", .preset = true, .position = 1, .file = 1, .read = "False", .row = 0,
               .label = "Enabled", .tip = "Sets whether to enable or disable a servo.", .type = brxBool,
               .items = trueFalse}),
    },
    .fresh = "1 1", .values = {"0"}, .line = "1 0"};

}  // namespace

const std::vector<BlockCase>& flowCases() {
    static const std::vector<BlockCase> cases{ifEvent, onTime, input, servoOnOff};
    return cases;
}

}  // namespace canvas::testing
