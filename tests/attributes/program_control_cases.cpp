// Blocks that launch and suspend tasks, and the call of a subroutine. The current folder is C:\Project.

#include "attributes/program_control.h"

#include "block_case.h"

// clang-format off: a setting is read as a whole

namespace canvas::testing {
namespace {

const BlockCase restartProgram{
    .name = "clsBVTRestartProgram", .create = created<clsBVTRestartProgram>,
    .settings = {
        {.preset = "Program 1", .read = "Program 1", .row = 0, .label = "ProgramList",
         .tip = "Select one of the defined programs.", .builder = 0, .display = 3, .type = brxChoice},
        {.preset = "False", .read = "True", .row = 1, .label = "Launch",
         .tip = "Returns/sets whether to launch selected program.", .builder = 0, .display = 3, .type = brxChoice,
         .items = trueFalse},
        {.preset = "0", .read = "5", .row = 2, .label = "BlockNumber",
         .tip = "Returns/sets the block number for program launch.", .builder = 0, .type = brxPositiveWord},
        {.preset = "Show Detail Window", .read = "Show Detail Window", .row = 3, .label = "Detail",
         .tip = "Shows the detail window.", .builder = 0, .display = 1, .type = brxNotApplicable},
    },
    .fresh = "16 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0",
    .values = {"1", "5", "0", "2", "True", "3", "False", "4", "0", "0", "0", "0", "0", "0", "1", "-8"},
    .line = "16 1 5 0 2 1 3 0 4 0 0 0 0 0 0 1 -8", .ownRules = true};

const BlockCase suspendProgram{
    .name = "clsBVTSuspendProgram", .create = created<clsBVTSuspendProgram>,
    .settings = {
        {.preset = "Program 1", .read = "Program 1", .row = 0, .label = "ProgramList",
         .tip = "Select one of the defined programs.", .builder = 0, .display = 3, .type = brxChoice},
        {.preset = "False", .position = 1, .read = "True", .row = 1, .label = "Suspend",
         .tip = "Returns/sets whether to suspend selected program.", .builder = 0, .display = 3, .type = brxChoice,
         .items = trueFalse},
        {.position = 2, .read = "False"},
        {.position = 3, .read = "True"},
        {.position = 4, .read = "False"},
        {.position = 5, .read = "False"},
        {.position = 6, .read = "False"},
        {.position = 7, .read = "False"},
        {.position = 8, .read = "True"},
    },
    .fresh = "8 0 0 0 0 0 0 0 0", .values = {"1", "0", "True", "False", "0", "0", "0", "1"},
    .line = "8 1 0 1 0 0 0 0 1", .ownRules = true};

const BlockCase superBlock{
    .name = "clsBVTSuperBlock", .create = created<clsBVTSuperBlock>,
    .settings = {
        {.property = "Name", .preset = "", .file = 1, .read = "C:\\Project\\Homing.bpg"},
        {.property = "title", .preset = "", .position = 1, .file = 2, .read = "Homing.bpg", .row = 0,
         .label = "Title", .tip = "Returns/sets a subroutine file title.", .builder = 0, .display = 3,
         .type = brxFilename},
    },
    .fresh = R"(2 "" "")", .values = {".\\Homing.bpa", "Homing.bpa"}, .line = R"(2 ".\Homing.bpa" "Homing.bpa")",
    .ownRules = true};

}  // namespace

const std::vector<BlockCase>& programControlCases() {
    static const std::vector<BlockCase> cases{restartProgram, suspendProgram, superBlock};
    return cases;
}

}  // namespace canvas::testing
