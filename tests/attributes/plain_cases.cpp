#include "attributes/plain.h"

#include "block_case.h"

// clang-format off: a setting is read as a whole

namespace canvas::testing {
namespace {

const BlockCase start{
    .name = "clsBVTStart", .create = created<clsBVTStart>,
    .settings = {{.property = "Name", .preset = "", .file = 1, .read = "Main"}},
    .fresh = R"(1 "")", .values = {"Main"}, .line = R"(1 "Main")", .panel = false, .wholePanel = false};

const BlockCase end{
    .name = "clsBVTEnd", .create = created<clsBVTEnd>,
    .settings = {{.property = "Name", .preset = "", .file = 1, .read = "Main"}},
    .fresh = R"(1 "")", .values = {"Main"}, .line = R"(1 "Main")", .panel = false, .wholePanel = false};

const BlockCase ifFault{
    .name = "clsBVTIfFault", .create = created<clsBVTIfFault>,
    .settings = {{.property = "TypeK", .preset = "0", .read = "0"}},
    .fresh = "0 ", .values = {"5"}, .line = "0 ", .panel = false, .wholePanel = false};

const BlockCase resetFault{
    .name = "clsBVTResetFault", .create = created<clsBVTResetFault>,
    .settings = {{.property = "TypeK", .preset = "0", .read = "0"}},
    .fresh = "0 ", .values = {"5"}, .line = "0 ", .panel = false, .wholePanel = false};

const BlockCase nodeText{
    .name = "clsBVTNodeText", .create = created<clsBVTNodeText>,
    .settings = {{.property = "NodeText", .preset = "Untitled", .read = "Untitled"},
                 {.property = "LineCount", .preset = std::int16_t{1}, .read = "1"},
                 {.property = "MaxCharPerLine", .preset = std::int16_t{5}, .read = "5"},
                 {.property = "CharCount", .preset = std::int16_t{8}, .read = "8"}},
    .fresh = "0 ", .values = {"x", "2", "3", "4"}, .line = "0 ", .panel = false, .wholePanel = false};

}  // namespace

const std::vector<BlockCase>& plainCases() {
    static const std::vector<BlockCase> cases{start, end, ifFault, resetFault, nodeText};
    return cases;
}

}  // namespace canvas::testing
