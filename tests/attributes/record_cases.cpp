// Plain records without the property panel's protocol.

#include "attributes/cam.h"
#include "attributes/gearing.h"
#include "attributes/plain.h"

#include "block_case.h"

// clang-format off: a setting is read as a whole

namespace canvas::testing {
namespace {

const BlockCase advancedGearing{
    .name = "clsBVTAdvancedGearing", .create = created<clsBVTAdvancedGearing>,
    .settings = {{.property = "FeedForwardGain", .preset = "100", .file = 1, .read = "g"}},
    .fresh = R"(1 "100")", .values = {"g"}, .line = R"(1 "g")", .panel = false, .wholePanel = false,
    .plainRecord = true};

const BlockCase advancedCam{
    .name = "clsBVTAdvancedCAM", .create = created<clsBVTAdvancedCAM>,
    .settings = {{.property = "SpeedFeedForwardAddress", .preset = "CW Address", .file = 1, .read = "Speeds"},
                 {.property = "FeedForwardGain", .preset = "0", .file = 2, .read = "g"},
                 {.property = "MasterAxisMaxCycle", .preset = "300", .file = 3, .read = "c"},
                 {.property = "AngleUnit", .preset = "36000", .file = 4, .read = "u"},
                 {.property = "Cyclical", .preset = false, .file = 5, .read = "True"}},
    .fresh = R"(5 "CW Address" "0" "300" "36000" 0)", .values = {"Speeds", "g", "c", "u", "1"},
    .line = R"(5 "Speeds" "g" "c" "u" 1)", .panel = false, .wholePanel = false, .plainRecord = true};

const BlockCase messageIn{
    .name = "clsBVTMessageIn", .create = created<clsBVTMessageIn>,
    .settings = {{.property = "UserVariable", .preset = "", .file = 1, .read = "Answer"},
                 {.property = "TimeOut", .preset = "", .file = 2, .read = "1500"}},
    .fresh = R"(2 "" "")", .values = {"Answer", "1500"}, .line = R"(2 "Answer" "1500")", .panel = false,
    .wholePanel = false, .plainRecord = true};

const BlockCase messageOut{
    .name = "clsBVTMessageOut", .create = created<clsBVTMessageOut>,
    .settings = {{.property = "Message", .preset = "", .file = 1, .read = "Part ready"},
                 {.property = "SendCR", .preset = false, .file = 2, .read = "True"}},
    .fresh = R"(2 "" 0)", .values = {"Part ready", "1"}, .line = R"(2 "Part ready" 1)", .panel = false,
    .wholePanel = false, .plainRecord = true};

}  // namespace

const std::vector<BlockCase>& recordCases() {
    static const std::vector<BlockCase> cases{advancedGearing, advancedCam, messageIn, messageOut};
    return cases;
}

}  // namespace canvas::testing
