#include "attributes/tasks.h"
#include "host/ports.h"

namespace canvas {

using namespace tasks;
using tracing::Locals;
using tracing::Procedure;

namespace restart_program {
using Self = clsBVTRestartProgram;
enum Row : std::int16_t { program, launch, blockNumber, detail };
constexpr Field fields[]{
    {.row = program, .label = "ProgramList", .tip = "Select one of the defined programs.",
     .builder = brxDisableBuilder, .display = brxComboBox, .type = brxChoice, .cellChecked = false},
    {.row = launch, .label = "Launch", .tip = "Returns/sets whether to launch selected program.",
     .builder = brxDisableBuilder, .display = brxComboBox, .type = brxChoice, .list = &choice, .cellChecked = false},
    {.row = blockNumber, .label = "BlockNumber", .tip = "Returns/sets the block number for program launch.",
     .builder = brxDisableBuilder, .type = brxPositiveWord},
    {.row = detail, .label = "Detail", .tip = "Shows the detail window.", .builder = brxDisableBuilder,
     .display = brxEditButton, .type = brxNotApplicable, .cellChecked = false},
};
constexpr Member operations[]{
    property<nullptr, &Self::setTaskName>("TaskName"),
    property<&Self::TaskCount, nullptr>("TaskCount"),
    method<&Self::ArChkTask>("ArChkTask"),
    method<&Self::SetArChkTask>("SetArChkTask"),
    method<&Self::ArTask>("ArTask"),
    method<&Self::SetArTask>("SetArTask"),
    method<&Self::ArBlockNumber>("ArBlockNumber"),
    method<&Self::SetArBlockNumber>("SetArBlockNumber"),
    method<static_cast<bool (Self::*)(std::int16_t)>(&Self::UpdateMatrix)>("UpdateMatrix"),
};
}  // namespace restart_program
const AttributeClass clsBVTRestartProgram::table = canvas::attributeClass({.name = "clsBVTRestartProgram",
                                                                           .fields = restart_program::fields,
                                                                           .operations = restart_program::operations});

void clsBVTRestartProgram::setTaskName(Ref<Object> names) {
    takeNames(*this, names, [&](std::int16_t i, std::string name) { strArTask[i] = std::move(name); });
}

bool clsBVTRestartProgram::ArChkTask(std::int16_t Index) const {
    bool result = false;
    entry(*this, "ArChkTask", Index, [&] { result = blnArTask[Index]; });
    return result;
}
void clsBVTRestartProgram::SetArChkTask(std::int16_t Index, bool chkValue) {
    entry(*this, "SetArChkTask", Index, [&] { blnArTask[Index] = chkValue; });
}
std::string clsBVTRestartProgram::ArTask(std::int16_t Index) const {
    std::string result;
    entry(*this, "ArTask", Index, [&] { result = strArTask[Index]; });
    return result;
}
void clsBVTRestartProgram::SetArTask(std::int16_t Index, std::string_view content) {
    entry(*this, "SetArTask", Index, [&] { strArTask[Index] = content; });
}
std::int16_t clsBVTRestartProgram::ArBlockNumber(std::int16_t Index) const {
    std::int16_t result = 0;
    entry(*this, "ArBlockNumber", Index, [&] { result = intArBlockNumber[Index]; });
    return result;
}
void clsBVTRestartProgram::SetArBlockNumber(std::int16_t Index, std::int16_t intBlockNumber) {
    entry(*this, "SetArBlockNumber", Index, [&] { intArBlockNumber[Index] = intBlockNumber; });
}
bool clsBVTRestartProgram::UpdateMatrix(std::int16_t i) {
    iSelected = i;
    return false;
}

std::string clsBVTRestartProgram::rowText(std::int16_t row) const {
    switch (row) {
        case restart_program::program: return std::string(programWord) + decimal(iSelected + 1);
        case restart_program::launch: return std::string(flagText(blnArTask[iSelected + 1]));
        case restart_program::blockNumber: return decimal(intArBlockNumber[iSelected + 1]);
        default: return "Show Detail Window";
    }
}

/// The launch flag does not change by the cell: only the whole panel and the dialog set it.
void clsBVTRestartProgram::storeCell(std::int16_t row, std::string_view text) {
    if (row == restart_program::blockNumber) intArBlockNumber[iSelected + 1] = numbers::toInteger(text);
}

void clsBVTRestartProgram::storePanel(std::int16_t row, std::string_view text) {
    if (row == restart_program::launch) blnArTask[iSelected + 1] = text == choiceItems[0];
    else storeCell(row, text);
}

bool clsBVTRestartProgram::GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) {
    if (iIndex != restart_program::program) return Attribute::GetComboItem(iIndex, colItem);
    addPrograms(*this, colItem, [&](std::int16_t i) { return !strArTask[i].empty(); });
    return false;
}

/// Pairs of launch flag and block number; the names come from the host.
void clsBVTRestartProgram::appendTo(std::string& line) const {
    numbers::append(line, 2 * taskCount);
    for (std::int16_t i = 1; i <= taskCount; ++i) {
        line += blnArTask[i] ? " 1 " : " 0 ";
        numbers::append(line, intArBlockNumber[i]);
    }
}

void clsBVTRestartProgram::AssignFromFile(std::int16_t intVarNum, std::string_view strNewValue) {
    if (intVarNum < 1 || intVarNum > 2 * taskCount) return;
    entry(*this, "AssignFromFile", intVarNum, [&] {
        const std::int32_t task = (intVarNum + 1) / 2;
        if (intVarNum % 2 == 1) blnArTask[task] = numbers::toBoolean(strNewValue);
        else intArBlockNumber[task] = numbers::toInteger(strNewValue);
    });
}

/// A task that is being edited has a ".tmp" file beside the project, which is newer than its own.
void clsBVTRestartProgram::checkTask(Object& project, Object& task, std::int16_t index, std::int32_t lngBlockID,
                                     std::string& strSyntaxMessage) const {
    if (!programs) raise(Error::actionNotSupported);
    const std::string taskName = task.get("TaskName").toText();
    const std::string edited = project.get("WorkingDirectory").toText() + "\\" +
                               environment().utility->FileTitleOf(taskName) + ".tmp";
    const std::int16_t block = intArBlockNumber[index];
    if (programs->hasBlock(environment().files->exists(edited) ? edited : taskName, block)) return;
    strSyntaxMessage += "  (" + decimal(lngBlockID) + "," + decimal(index) + ") Error: BlockID " + decimal(block) +
                        " does not exist in '" + task.get("TaskTitle").toText() + "'.@";
}

bool clsBVTRestartProgram::PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
                                                 std::string& strSyntaxMessage) {
    bool result = true;
    std::int16_t i = 0;
    Procedure run(className(), "PropertiesSyntaxCheck", this, [&](Locals& l) {
        l("SyntaxValidation", SyntaxValidation);
        l("lngBlockID", lngBlockID);
        l("strSyntaxMessage", strSyntaxMessage);
        l("i", i);
    });
    const auto checkOne = [&] {
        Object& project = required(SyntaxValidation);
        const Ref<Object> task = taskAt(project, i);
        if (task->get("IsTaskDefined").toBoolean()) {
            checkTask(project, *task, static_cast<std::int16_t>(i + 1), lngBlockID, strSyntaxMessage);
        } else if (blnArTask[i + 1]) {
            blnArTask[i + 1] = false;
            result = false;
        }
    };
    run([&] { return eachTask(run, i, 0, checkOne); });
    return result;
}

bool clsBVTRestartProgram::sameProperties(Object& other) const {
    for (std::int16_t i = 1; i <= taskCount; ++i)
        if (invoke(other, "ArChkTask", i).toBoolean() != blnArTask[i] ||
            invoke(other, "ArTask", i).toText() != strArTask[i] ||
            invoke(other, "ArBlockNumber", i).toInteger() != intArBlockNumber[i])
            return false;
    return true;
}

void clsBVTRestartProgram::reportVariables(VariableSink& sink) const {
    sink.variable("strArTask", Value(arrayOf("String", strArTask.entries(), 1)));
    sink.variable("blnArTask", Value(arrayOf("Boolean", blnArTask.entries(), 1)));
    sink.variable("intArBlockNumber", Value(arrayOf("Integer", intArBlockNumber.entries(), 1)));
    sink.variable("iSelected", iSelected);
    Attribute::reportVariables(sink);
}

}  // namespace canvas
