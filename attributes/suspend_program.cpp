#include "attributes/tasks.h"

namespace canvas {

using namespace tasks;
using tracing::Locals;
using tracing::Procedure;

namespace suspend_program {
using Self = clsBVTSuspendProgram;
enum Row : std::int16_t { program, suspend };
constexpr Field fields[]{
    {.row = program, .label = "ProgramList", .tip = "Select one of the defined programs.",
     .builder = brxDisableBuilder, .display = brxComboBox, .type = brxChoice, .cellChecked = false},
    {.row = suspend, .label = "Suspend", .tip = "Returns/sets whether to suspend selected program.",
     .builder = brxDisableBuilder, .display = brxComboBox, .type = brxChoice, .list = &choice, .cellChecked = false},
};
constexpr Member operations[]{
    property<&Self::TaskCount, nullptr>("TaskCount"),
    property<nullptr, &Self::setTaskName>("TaskName"),
    method<&Self::ArTaskExist>("ArTaskExist"),
    method<&Self::SetArTaskExist>("SetArTaskExist"),
    method<&Self::ArTask>("ArTask"),
    method<&Self::SetArTask>("SetArTask"),
    method<static_cast<bool (Self::*)(std::int16_t)>(&Self::UpdateMatrix)>("UpdateMatrix"),
};
}  // namespace suspend_program
const AttributeClass clsBVTSuspendProgram::table = canvas::attributeClass({.name = "clsBVTSuspendProgram",
                                                                           .fields = suspend_program::fields,
                                                                           .operations = suspend_program::operations});

void clsBVTSuspendProgram::setTaskName(Ref<Object> names) {
    takeNames(*this, names, [&](std::int16_t i, const std::string& name) { blnArTaskExist[i] = !name.empty(); });
}

bool clsBVTSuspendProgram::ArTaskExist(std::int16_t Index) const {
    bool result = false;
    entry(*this, "ArTaskExist", Index, [&] { result = blnArTaskExist[Index]; });
    return result;
}
void clsBVTSuspendProgram::SetArTaskExist(std::int16_t Index, bool state) {
    entry(*this, "SetArTaskExist", Index, [&] { blnArTaskExist[Index] = state; });
}
bool clsBVTSuspendProgram::ArTask(std::int16_t Index) const {
    bool result = false;
    entry(*this, "ArTask", Index, [&] { result = blnArTask[Index]; });
    return result;
}
void clsBVTSuspendProgram::SetArTask(std::int16_t Index, bool state) {
    entry(*this, "SetArTask", Index, [&] { blnArTask[Index] = state; });
}
bool clsBVTSuspendProgram::UpdateMatrix(std::int16_t i) {
    iSelected = i;
    return false;
}

std::string clsBVTSuspendProgram::rowText(std::int16_t row) const {
    if (row == suspend_program::program) return std::string(programWord) + decimal(iSelected + 1);
    return std::string(flagText(blnArTask[iSelected + 1]));
}

void clsBVTSuspendProgram::storePanel(std::int16_t row, std::string_view text) {
    if (row == suspend_program::suspend) blnArTask[iSelected + 1] = text == choiceItems[0];
}

bool clsBVTSuspendProgram::GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) {
    if (iIndex != suspend_program::program) return Attribute::GetComboItem(iIndex, colItem);
    addPrograms(*this, colItem, [&](std::int16_t i) { return blnArTaskExist[i]; });
    return false;
}

std::string clsBVTSuspendProgram::GetPropertyAt(std::int16_t iIndex) {
    return iIndex < 1 || iIndex > taskCount ? std::string() : std::string(flagText(blnArTask[iIndex]));
}

void clsBVTSuspendProgram::appendTo(std::string& line) const {
    numbers::append(line, taskCount);
    for (const bool suspends : blnArTask.entries()) line += suspends ? " 1" : " 0";
}

void clsBVTSuspendProgram::AssignFromFile(std::int16_t intVarNum, std::string_view strNewValue) {
    if (intVarNum < 1 || intVarNum > taskCount) return;
    entry(*this, "AssignFromFile", intVarNum, [&] { blnArTask[intVarNum] = numbers::toBoolean(strNewValue); });
}

bool clsBVTSuspendProgram::PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
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
        const bool defined = taskAt(required(SyntaxValidation), i)->get("IsTaskDefined").toBoolean();
        if (defined || !blnArTask[i + 1]) return;
        blnArTask[i + 1] = false;
        result = false;
    };
    run([&] { return eachTask(run, i, 0, checkOne); });
    return result;
}

bool clsBVTSuspendProgram::sameProperties(Object& other) const {
    for (std::int16_t i = 1; i <= taskCount; ++i)
        if (invoke(other, "ArTask", i).toBoolean() != blnArTask[i] ||
            invoke(other, "ArTaskExist", i).toBoolean() != blnArTaskExist[i])
            return false;
    return true;
}

void clsBVTSuspendProgram::reportVariables(VariableSink& sink) const {
    sink.variable("blnArTask", Value(arrayOf("Boolean", blnArTask.entries(), 1)));
    sink.variable("blnArTaskExist", Value(arrayOf("Boolean", blnArTaskExist.entries(), 1)));
    sink.variable("iSelected", iSelected);
    Attribute::reportVariables(sink);
}

}  // namespace canvas
