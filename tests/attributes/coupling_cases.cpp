// Blocks that couple the main axis to an external one: gearing, cams and latches.

#include "attributes/cam.h"
#include "attributes/gearing.h"
#include "attributes/latch.h"

#include "block_case.h"

// clang-format off: a setting is read as a whole

namespace canvas::testing {
namespace {

const BlockCase gearRatio{
    .name = "clsBVTGearRatio", .create = created<clsBVTGearRatio>,
    .settings = {
        {.property = "Master", .preset = "1", .position = 1, .file = 1, .read = "-3", .row = 0, .label = "External",
         .tip = "Returns/sets an External value.", .type = brxWord},
        {.property = "Slave", .preset = "1", .position = 2, .file = 2, .read = "k", .row = 1, .label = "Main",
         .tip = "Returns/sets a Main value.", .type = brxWord},
    },
    .fresh = R"(2 "1" "1")", .values = {"-3", "k"}, .line = R"(2 "-3" "k")"};

const BlockCase gearingOnOff{
    .name = "clsBVTGearingOnOff", .create = created<clsBVTGearingOnOff>,
    .settings = {
        combo({.property = "Gearing", .preset = true, .position = 1, .file = 1, .read = "False", .row = 0,
               .label = "Enabled", .tip = "Sets whether to enable or disable Gearing.", .type = brxBool,
               .items = trueFalse}),
        {.property = "Advanced", .preset = false, .read = "False"},
        {.property = "FeedForwardGain", .preset = "100", .position = 3, .file = 3, .read = "55"},
    },
    .fresh = R"(3 1 0 "100")", .values = {"0", "1", "55"}, .line = R"(3 0 0 "55")", .otherItems = trueFalse};

const BlockCase camOnOff{
    .name = "clsBVTCAMOnOff", .create = created<clsBVTCAMOnOff>,
    .settings = {
        combo({.property = "CAMProfileTable", .preset = "CWAddress", .position = 1, .file = 1, .read = "Cam1",
               .row = 0, .label = "PositionData", .tip = "Returns/sets position data set.", .type = brxTableName}),
        {.property = "MasterPosition", .preset = "0", .position = 2, .file = 2, .read = "pos", .row = 1,
         .label = "ExternalPosition", .tip = "Returns/sets an external position value.", .type = brxFloat},
        combo({.property = "CAM", .preset = true, .position = 3, .file = 3, .read = "False", .row = 2,
               .label = "Enabled", .tip = "Sets whether to enable or disable cam.", .type = brxChoice,
               .items = trueFalse}),
        {.property = "Advanced", .preset = false, .read = "False"},
        {.property = "SpeedFeedForwardAddress", .preset = "CWAddress", .file = 5, .read = "Speeds"},
        {.property = "FeedForwardGain", .preset = "100.00", .position = 5, .file = 6, .read = "gain",
         .programChecked = false},
        {.property = "MasterAxisMaxCycle", .preset = "300", .file = 7, .read = "cycle"},
        {.property = "LastCAM_X", .preset = std::int32_t{0}, .file = 8, .read = "100000"},
        {.property = "LastCAM_Y", .preset = std::int32_t{0}, .file = 9, .read = "-2"},
        {.property = "FirstCAM_X", .preset = std::int32_t{0}, .file = 10, .read = "3"},
        {.property = "FirstCAM_Y", .preset = std::int32_t{0}, .file = 11, .read = "4"},
    },
    .fresh = R"(11 "CWAddress" "0" 1 0 "CWAddress" "100.00" "300" "0" "0" "0" "0")",
    .values = {"Cam1", "pos", "0", "1", "Speeds", "gain", "cycle", "100000", "-2", "3", "4"},
    .line = R"(11 "Cam1" "pos" 0 0 "Cam1" "gain" "cycle" "100000" "-2" "3" "4")"};

const BlockCase scaleCam{
    .name = "clsBVTScaleCAM", .create = created<clsBVTScaleCAM>,
    .settings = {
        {.property = "ScaleFactor", .preset = "100.00", .position = 1, .file = 1, .read = "s", .row = 0,
         .label = "ScaleFactor", .tip = "Returns/sets a scale factor value.", .type = brxFloat},
    },
    .fresh = R"(1 "100.00")", .values = {"s"}, .line = R"(1 "s")"};

const BlockCase camShift{
    .name = "clsBVTCAMShift", .create = created<clsBVTCAMShift>,
    .settings = {
        {.property = "Offset", .preset = "0.0", .position = 1, .file = 1, .read = "-4.5", .row = 0, .label = "Shift",
         .tip = "Returns/sets an offset value.", .type = brxFloat},
        {.property = "Time", .preset = "0", .position = 2, .file = 2, .read = "250", .row = 1, .label = "Duration",
         .tip = "Returns/sets a duration value.", .type = brxPositiveWord},
        combo({.property = "WaitForCompletion", .preset = true, .position = 3, .file = 3, .read = "False", .row = 2,
               .label = "WaitForCompletion", .tip = "Sets whether to wait for this block to complete.",
               .type = brxBool, .items = trueFalse}),
    },
    .fresh = R"(3 "0.0" "0" 1)", .values = {"-4.5", "250", "0"}, .line = R"(3 "-4.5" "250" 0)",
    .wholePanel = false};

Setting latchAxis() {
    Setting axis = combo({.property = "MainLatchaxis", .preset = false, .position = 2, .file = 2, .read = "True",
                          .row = 0, .label = "LatchAxis", .tip = "Returns/sets the axis type.", .type = brxBool,
                          .items = {"Main", "External"}});
    axis.shows = {"Main", "External"};
    return axis;
}

const BlockCase latchOnOff{
    .name = "clsBVTLatchOnOff", .create = created<clsBVTLatchOnOff>,
    .settings = {
        combo({.property = "Latch", .preset = true, .position = 1, .file = 1, .read = "False", .row = 1,
               .label = "Enabled", .tip = "Sets whether to enable or disable latch.", .type = brxBool,
               .items = trueFalse}),
        latchAxis(),
    },
    .fresh = "2 1 0", .values = {"0", "1"}, .line = "2 0 1", .otherItems = trueFalse};

const BlockCase latchTarget{
    .name = "clsBVTLatchTarget", .create = created<clsBVTLatchTarget>,
    .settings = {
        {.property = "DistanceAfterLatch", .preset = "0.0", .position = 1, .file = 1, .read = "a", .row = 0,
         .label = "DistanceAfterLatch", .tip = "Returns/sets a distance after latch value.", .type = brxFloat},
        {.property = "DefaultDistance", .preset = "0.0", .position = 2, .file = 2, .read = "b", .row = 1,
         .label = "DefaultDistance", .tip = "Returns/sets default distance value.", .type = brxFloat},
        {.property = "Velocity", .preset = "0.0", .position = 3, .file = 3, .read = "c", .row = 2,
         .label = "Velocity", .tip = "Returns/sets a velocity value.", .type = brxFloat},
        {.property = "Acceleration", .preset = "0.0", .position = 4, .file = 4, .read = "d", .row = 3,
         .label = "Acceleration", .tip = "Returns/sets a acceleration value.", .type = brxFloat},
        {.property = "Deceleration", .preset = "0.0", .position = 5, .file = 5, .read = "e", .row = 4,
         .label = "Deceleration", .tip = "Returns/sets a deceleration value.", .type = brxFloat},
        {.property = "LatchStartDistance", .preset = "0.0", .position = 6, .file = 6, .read = "f", .row = 5,
         .label = "LatchStartDistance", .tip = "Returns/sets a latch start distance value.", .type = brxFloat},
        {.property = "LatchFinishDistance", .preset = "0.0", .position = 7, .file = 7, .read = "g", .row = 6,
         .label = "LatchFinishDistance", .tip = "Returns/sets a latch finish distance value.", .type = brxFloat},
        combo({.property = "WaitForCompletion", .preset = true, .position = 8, .file = 8, .read = "False", .row = 7,
               .label = "WaitForCompletion", .tip = "Sets whether to wait for this block to complete.",
               .type = brxBool, .items = trueFalse}),
    },
    .fresh = R"(8 "0.0" "0.0" "0.0" "0.0" "0.0" "0.0" "0.0" 1)",
    .values = {"a", "b", "c", "d", "e", "f", "g", "0"},
    .line = R"(8 "a" "b" "c" "d" "e" "f" "g" 0)"};

}  // namespace

const std::vector<BlockCase>& couplingCases() {
    static const std::vector<BlockCase> cases{gearRatio,  gearingOnOff, camOnOff,   scaleCam,
                                              camShift,   latchOnOff,   latchTarget};
    return cases;
}

}  // namespace canvas::testing
