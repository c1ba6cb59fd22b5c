// Blocks that hold a list of entries in one text, and show one entry at a time.

#include "attributes/lists.h"

#include "block_case.h"

// clang-format off: a setting is read as a whole

namespace canvas::testing {
namespace {

constexpr const char* detailTip =
    "Click on button to show detail window. Definitions can be added and deleted from there.";

const BlockCase setVariable{
    .name = "clsBVTSetVariable", .create = created<clsBVTSetVariable>,
    .settings = {
        {.property = "Variable", .preset = "", .file = 1, .read = "Speed=100;Torque=Speed*2;"},
        {.preset = "0", .read = "2", .row = 0, .label = "VariablesDefined",
         .tip = "Returns number of variables defined in current block.", .access = 0, .builder = 0,
         .type = brxPositiveWord},
        {.preset = "", .read = "Speed", .row = 1, .label = "VariableName", .tip = "Returns a defined variable name.",
         .builder = 0, .display = 3, .type = brxChoice},
        {.preset = "", .read = "100", .row = 2, .label = "Expression",
         .tip = "Returns the expression for selected variable.", .type = brxExpression},
        {.preset = "New", .read = "New", .row = 3, .label = "Add", .tip = detailTip, .builder = 0, .display = 1,
         .type = brxNotApplicable},
    },
    .fresh = R"(1 "")", .values = {"Speed=100;Torque=Speed*2;"}, .line = R"(1 "Speed=100;Torque=Speed*2;")",
    .ownRules = true};

const BlockCase limitSwitch{
    .name = "clsBVTProgrammableLimitSwitch", .create = created<clsBVTProgrammableLimitSwitch>,
    .settings = {
        {.property = "Variable", .preset = "", .file = 2, .read = "100,50,Out1,1;200,150,Out2,0;"},
        {.property = "MasterVariable", .preset = "", .file = 1, .read = "Encoder1", .row = 0,
         .label = "Encoder Variable", .tip = "Returns encoder variable.", .builder = 0, .display = 1,
         .type = brxNotApplicable},
        {.preset = "0", .read = "2", .row = 1, .label = "SwitchesDefined",
         .tip = "Returns the number of switches defined.", .access = 0, .builder = 0, .type = brxWord},
        {.preset = "", .read = "Switch 1", .row = 2, .label = "CurrentSwitch",
         .tip = "Returns a list of defined switches.", .builder = 0, .display = 3, .type = brxChoice},
        {.preset = "", .read = "100", .row = 3, .label = "GreaterThan(>)",
         .tip = "Returns the greater than value for current switch.", .builder = 0, .type = brxFloat},
        {.preset = "", .read = "50", .row = 4, .label = "LessThan(<)",
         .tip = "Returns the less than value for current switch.", .builder = 0, .type = brxFloat},
        {.preset = "", .read = "Out1", .row = 5, .label = "Output", .tip = "Returns the output for current switch.",
         .builder = 0, .display = 1, .type = brxNotApplicable},
        {.preset = "", .read = "ON", .row = 6, .label = "State", .tip = "Returns the state for current switch.",
         .builder = 0, .display = 3, .type = brxChoice, .items = {"ON", "OFF"}},
        {.preset = "New", .read = "New", .row = 7, .label = "Add", .tip = detailTip, .builder = 0, .display = 1,
         .type = brxNotApplicable},
    },
    .fresh = R"(2 "" "")", .values = {"Encoder1", "100,50,Out1,1;200,150,Out2,0;"},
    .line = R"(2 "Encoder1" "100,50,Out1,1;200,150,Out2,0;")", .ownRules = true};

}  // namespace

const std::vector<BlockCase>& listCases() {
    static const std::vector<BlockCase> cases{setVariable, limitSwitch};
    return cases;
}

}  // namespace canvas::testing
