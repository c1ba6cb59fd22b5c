#include "attributes/latch.h"

namespace canvas {

namespace latch {
using Self = clsBVTLatchOnOff;
constexpr std::string_view items[]{"Main", "External"};
constexpr List LatchType{"LatchType", items};
// panel and positions list the two values in opposite orders
constexpr Field fields[]{
    {FIELD(blnLatch), .property = "Latch", .preset = "True", .row = 1, .label = "Enabled",
     .tip = "Sets whether to enable or disable latch.", COMBO(brxBool, choice), .position = 1, .file = 1},
    {FIELD(blnMainLatchAxis), .property = "MainLatchaxis", .preset = "False", .row = 0, .label = "LatchAxis",
     .tip = "Returns/sets the axis type.", COMBO_SHOWN(brxBool, LatchType), .position = 2, .file = 2},
};
}  // namespace latch
const AttributeClass clsBVTLatchOnOff::table = canvas::attributeClass(
    {.name = "clsBVTLatchOnOff", .fields = latch::fields, .listElsewhere = &choice});

namespace latch_target {
using Self = clsBVTLatchTarget;
constexpr Field fields[]{
    {FIELD(strDistanceAfterLatch), .property = "DistanceAfterLatch", .preset = "0.0", .row = 0,
     .label = "DistanceAfterLatch", .tip = "Returns/sets a distance after latch value.", .type = brxFloat,
     .position = 1, .file = 1},
    {FIELD(strDefaultDistance), .property = "DefaultDistance", .preset = "0.0", .row = 1, .label = "DefaultDistance",
     .tip = "Returns/sets default distance value.", .type = brxFloat, .position = 2, .file = 2},
    {FIELD(strVelocity), .property = "Velocity", .preset = "0.0", .row = 2, .label = "Velocity",
     .tip = "Returns/sets a velocity value.", .type = brxFloat, .position = 3, .file = 3},
    // plain reals, unlike those of the motion blocks: a latch move may be given by signed values
    {FIELD(strAcceleration), .property = "Acceleration", .preset = "0.0", .row = 3, .label = "Acceleration",
     .tip = "Returns/sets a acceleration value.", .type = brxFloat, .position = 4, .file = 4},
    {FIELD(strDeceleration), .property = "Deceleration", .preset = "0.0", .row = 4, .label = "Deceleration",
     .tip = "Returns/sets a deceleration value.", .type = brxFloat, .position = 5, .file = 5},
    {FIELD(strLatchStartDistance), .property = "LatchStartDistance", .preset = "0.0", .row = 5,
     .label = "LatchStartDistance", .tip = "Returns/sets a latch start distance value.", .type = brxFloat,
     .position = 6, .file = 6},
    {FIELD(strLatchFinishDistance), .property = "LatchFinishDistance", .preset = "0.0", .row = 6,
     .label = "LatchFinishDistance", .tip = "Returns/sets a latch finish distance value.", .type = brxFloat,
     .position = 7, .file = 7},
    {FIELD(blnWaitForCompletion), .property = "WaitForCompletion", .preset = "True", .row = 7,
     .label = "WaitForCompletion", .tip = "Sets whether to wait for this block to complete.", COMBO(brxBool, choice),
     .position = 8, .file = 8},
};
}  // namespace latch_target
const AttributeClass clsBVTLatchTarget::table =
    canvas::attributeClass({.name = "clsBVTLatchTarget", .fields = latch_target::fields});

}  // namespace canvas
