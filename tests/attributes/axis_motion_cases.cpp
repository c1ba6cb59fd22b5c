#include "attributes/axis_motion.h"

#include "block_case.h"

// clang-format off: a setting is read as a whole

namespace canvas::testing {
namespace {

const BlockCase abortMotion{
    .name = "clsBVTAbortMotion", .create = created<clsBVTAbortMotion>,
    .settings = {
        {.property = "Deceleration", .preset = "0.0", .position = 1, .file = 1, .read = "a*2", .row = 0,
         .label = "Deceleration", .tip = "Returns/sets a deceleration value.", .type = brxPositiveFloat},
    },
    .fresh = R"(1 "0.0")", .values = {"a*2"}, .line = R"(1 "a*2")"};

const BlockCase changeDynamics{
    .name = "clsBVTChangeDynamics", .create = created<clsBVTChangeDynamics>,
    .settings = {
        {.property = "Acceleration", .preset = "0.0", .position = 1, .file = 1, .read = "1.5", .row = 0,
         .label = "Acceleration", .tip = "Returns/sets an acceleration value.", .type = brxPositiveFloat},
        {.property = "Deceleration", .preset = "0.0", .position = 2, .file = 2, .read = "2.5", .row = 1,
         .label = "Deceleration", .tip = "Returns/sets a deceleration value.", .type = brxPositiveFloat},
        {.property = "Velocity", .preset = "0.0", .position = 3, .file = 3, .read = "3.5", .row = 2,
         .label = "Velocity", .tip = "Returns/sets a velocity value.", .type = brxPositiveFloat},
        {.property = "SCurve", .preset = "0", .position = 4, .file = 4, .read = "999", .row = 3,
         .label = "SCurve", .tip = "Returns/sets a S Curve value.", .type = brxPositiveWord},
    },
    .fresh = R"(4 "0.0" "0.0" "0.0" "0")", .values = {"1.5", "2.5", "3.5", "999"},
    .line = R"(4 "1.5" "2.5" "3.5" "999")"};

const BlockCase moveAxis{
    .name = "clsBVTMoveAxis", .create = created<clsBVTMoveAxis>,
    .settings = {
        combo({.property = "TypeK", .preset = "Absolute", .position = 1, .file = 5, .read = "Rotary Shortest",
               .row = 0, .label = "Type", .tip = "Returns/sets a movement type.", .type = brxChoice,
               .items = {"Absolute", "Relative", "Rotary Shortest"}}),
        {.property = "Acceleration", .preset = "0.0", .position = 2, .file = 1, .read = "acc", .row = 1,
         .label = "Acceleration", .tip = "Returns/sets an acceleration value.", .type = brxPositiveFloat},
        {.property = "Deceleration", .preset = "0.0", .position = 3, .file = 2, .read = "dec", .row = 2,
         .label = "Deceleration", .tip = "Returns/sets a deceleration value.", .type = brxPositiveFloat},
        {.property = "Velocity", .preset = "0.0", .position = 4, .file = 3, .read = "vel", .row = 3,
         .label = "Velocity", .tip = "Returns/sets a velocity value.", .type = brxFloat},
        {.property = "Position", .preset = "0.0", .position = 5, .file = 4, .read = "pos", .row = 4,
         .label = "Position", .tip = "Returns/sets a position value.", .type = brxFloat},
        combo({.property = "WaitForCompletion", .preset = true, .position = 6, .file = 6, .read = "False", .row = 5,
               .label = "WaitForCompletion", .tip = "Sets whether to wait for this block to complete.",
               .type = brxBool, .items = trueFalse}),
    },
    .fresh = R"(6 "0.0" "0.0" "0.0" "0.0" "Absolute" 1)",
    .values = {"acc", "dec", "vel", "pos", "Rotary Shortest", "0"},
    .line = R"(6 "acc" "dec" "vel" "pos" "Rotary Shortest" 0)"};

const BlockCase jogAxis{
    .name = "clsBVTJogAxis", .create = created<clsBVTJogAxis>,
    .settings = {
        {.property = "Acceleration", .preset = "0.0", .position = 1, .file = 1, .read = "1", .row = 0,
         .label = "Acceleration", .tip = "Returns/sets an acceleration value.", .type = brxPositiveFloat},
        {.property = "Deceleration", .preset = "0.0", .position = 2, .file = 2, .read = "2", .row = 1,
         .label = "Deceleration", .tip = "Returns/sets a deceleration value.", .type = brxPositiveFloat},
        {.property = "Velocity", .preset = "0.0", .position = 3, .file = 3, .read = "-3", .row = 2,
         .label = "Velocity", .tip = "Returns/sets a velocity value.", .type = brxFloat},
    },
    .fresh = R"(3 "0.0" "0.0" "0.0")", .values = {"1", "2", "-3"}, .line = R"(3 "1" "2" "-3")"};

const BlockCase homeAxis{
    .name = "clsBVTHomeAxis", .create = created<clsBVTHomeAxis>,
    .settings = {
        {.property = "TimeOut", .preset = "0", .position = 1, .file = 1, .read = "t", .row = 0, .label = "TimeOut",
         .tip = "Returns/sets a time out value.", .type = brxPositiveWord},
        {.property = "ApproachVelocity", .preset = "0.0", .position = 2, .file = 2, .read = "v", .row = 1,
         .label = "ApproachVelocity", .tip = "Returns/sets an approach velocity value.", .type = brxFloat},
        {.property = "Acceleration", .preset = "0.0", .position = 3, .file = 3, .read = "a", .row = 2,
         .label = "Acceleration", .tip = "Returns/sets an acceleration value.", .type = brxPositiveFloat},
        {.property = "Deceleration", .preset = "0.0", .position = 4, .file = 4, .read = "d", .row = 3,
         .label = "Deceleration", .tip = "Returns/sets a deceleration value.", .type = brxPositiveFloat},
        {.property = "HomeSwitchInput", .preset = "Input Address", .position = 5, .file = 5, .read = "1", .row = 4,
         .label = "HomeSwitchInput", .tip = "Returns/sets the home switch input.", .type = brxBool,
         .storesTyped = true},
        combo({.property = "HomingDirection", .preset = "Positive", .position = 6, .file = 6, .read = "Negative",
               .row = 5, .label = "HomingDirection", .tip = "Returns/sets the homing direction.", .type = brxChoice,
               .items = {"Positive", "Negative"}}),
        {.property = "CreepSpeed", .preset = "0.0", .position = 7, .file = 7, .read = "c", .row = 6,
         .label = "CreepSpeed", .tip = "Returns/sets the creep speed.", .type = brxPositiveFloat,
         .storesTyped = true},
    },
    .fresh = R"(7 "0" "0.0" "0.0" "0.0" "Input Address" "Positive" "0.0")",
    .values = {"t", "v", "a", "d", "1", "Negative", "c"},
    .line = R"(7 "t" "v" "a" "d" "1" "Negative" "c")", .wholePanel = false};

const BlockCase incrementPosition{
    .name = "clsBVTIncrementPosition", .create = created<clsBVTIncrementPosition>,
    .settings = {
        {.property = "Offset", .preset = "0.0", .position = 1, .file = 1, .read = "-4.5", .row = 0,
         .label = "Offset", .tip = "Returns/sets an offset value.", .type = brxFloat},
        {.property = "Time", .preset = "0", .position = 2, .file = 2, .read = "250", .row = 1, .label = "Duration",
         .tip = "Returns/sets a duration value.", .type = brxPositiveWord},
        combo({.property = "WaitForCompletion", .preset = true, .position = 3, .file = 3, .read = "False", .row = 2,
               .label = "WaitForCompletion", .tip = "Sets whether to wait for this block to complete.",
               .type = brxBool, .items = trueFalse}),
    },
    .fresh = R"(3 "0.0" "0" 1)", .values = {"-4.5", "250", "False"}, .line = R"(3 "-4.5" "250" 0)",
    .wholePanel = false};

const BlockCase definePosition{
    .name = "clsBVTDefinePosition", .create = created<clsBVTDefinePosition>,
    .settings = {
        {.property = "Main", .preset = "0.0", .position = 1, .file = 1, .read = "m", .row = 0, .label = "Main",
         .tip = "Returns/sets a main position value.", .type = brxFloat, .programChecked = false},
        combo({.property = "MainChanged", .preset = false, .position = 2, .file = 2, .read = "True", .row = 1,
               .label = "MainChanged", .tip = "Sets whether to change main.", .type = brxChoice,
               .items = trueFalse}),
        {.property = "External", .preset = "0.0", .position = 3, .file = 3, .read = "e", .row = 2,
         .label = "External", .tip = "Returns/sets an external position value.", .type = brxFloat},
        combo({.property = "ExternalChanged", .preset = false, .position = 4, .file = 4, .read = "True", .row = 3,
               .label = "ExternalChanged", .tip = "Sets whether to change external.", .type = brxChoice,
               .items = trueFalse}),
    },
    .fresh = R"(4 "0.0" 0 "0.0" 0)", .values = {"m", "1", "e", "True"}, .line = R"(4 "m" 1 "e" 1)",
    .otherItems = trueFalse};

const BlockCase torque{
    .name = "clsBVTTorque", .create = created<clsBVTTorque>,
    .settings = {
        {.property = "SpeedLimit", .preset = "0.0", .position = 1, .file = 2, .read = "9", .row = 0,
         .label = "SpeedLimit", .tip = "Returns/sets an SpeedLimit value.", .type = brxPositiveFloat},
        {.property = "Torque", .preset = "0.0", .position = 2, .file = 1, .read = "7", .row = 1, .label = "Torque",
         .tip = "Returns/sets a Torque value.", .type = brxPositiveFloat},
    },
    .fresh = R"(2 "0.0" "0.0")", .values = {"7", "9"}, .line = R"(2 "7" "9")", .wholePanel = false};

}  // namespace

const std::vector<BlockCase>& axisMotionCases() {
    static const std::vector<BlockCase> cases{abortMotion, changeDynamics,    moveAxis,       jogAxis,
                                              homeAxis,    incrementPosition, definePosition, torque};
    return cases;
}

}  // namespace canvas::testing
