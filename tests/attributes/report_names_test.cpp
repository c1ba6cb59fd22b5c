// What a variable report shows of the coupling, list, task and message blocks, and of their procedures.

#include <algorithm>
#include <functional>

#include <gtest/gtest.h>

#include "attributes/cam.h"
#include "attributes/gearing.h"
#include "attributes/latch.h"
#include "attributes/lists.h"
#include "attributes/plain.h"
#include "attributes/program_control.h"
#include "host/array.h"
#include "host/composed.h"
#include "print.h"
#include "tests/tracing/fakes.h"

namespace canvas {
namespace {

using Names = std::vector<std::string>;

/// An object's variables by name; an array's name stands without its parentheses.
struct Variables final : VariableSink {
    std::map<std::string, Value> values;

    explicit Variables(const Object& object) { object.reportVariables(*this); }
    void variable(std::string_view name, const Value& value) override {
        if (name.ends_with("()")) name.remove_suffix(2);
        EXPECT_TRUE(values.emplace(name, value).second) << name << " stands twice";
    }
    Names names() const {
        Names found;
        for (const auto& [name, value] : values)
            if (name != "clsValidate") found.push_back(name);
        return found;
    }
};

TEST(ReportNames, EveryFieldHasItsOwn) {
    const struct {
        Ref<AttributeObject> block;
        Names names;
    } rows[]{
        {make<clsBVTGearRatio>(), {"blockmatrix", "strMaster", "strSlave"}},
        {make<clsBVTGearingOnOff>(), {"blnAdvanced", "blnGearing", "blockmatrix", "choice", "strFeedForwardGain"}},
        {make<clsBVTAdvancedGearing>(), {"strFeedForwardGain"}},
        {make<clsBVTCAMOnOff>(),
         {"CAMType", "blnAdvanced", "blnCAM", "blockmatrix", "choice", "colCAMTableList", "strCAMProfileTable",
          "strFeedForwardGain", "strFirstCAM_X", "strFirstCAM_Y", "strLastCAM_X", "strLastCAM_Y",
          "strMasterAxisMaxCycle", "strMasterPosition", "strSpeedFeedForwardAddress"}},
        {make<clsBVTScaleCAM>(), {"blockmatrix", "strScaleFactor"}},
        {make<clsBVTCAMShift>(), {"blnWaitForCompletion", "blockmatrix", "choice", "strOffset", "strTime"}},
        {make<clsBVTAdvancedCAM>(),
         {"blnCyclical", "strAngleUnit", "strFeedForwardGain", "strMasterAxisMaxCycle", "strSpeedFeedForwardAddress"}},
        {make<clsBVTLatchOnOff>(), {"LatchType", "blnLatch", "blnMainLatchAxis", "blockmatrix", "choice"}},
        {make<clsBVTLatchTarget>(),
         {"blnWaitForCompletion", "blockmatrix", "choice", "strAcceleration", "strDeceleration", "strDefaultDistance",
          "strDistanceAfterLatch", "strLatchFinishDistance", "strLatchStartDistance", "strVelocity"}},
        {make<clsBVTRestartProgram>(),
         {"blnArTask", "blockmatrix", "choice", "iSelected", "intArBlockNumber", "strArTask"}},
        {make<clsBVTSuspendProgram>(), {"blnArTask", "blnArTaskExist", "blockmatrix", "choice", "iSelected"}},
        {make<clsBVTSuperBlock>(),
         {"SubroutineFilenameCol", "SubroutineFiletitleCol", "blockmatrix", "strDocumentName", "strName", "strTitle"}},
        {make<clsBVTSetVariable>(),
         {"arExpressions", "arVariables", "blockmatrix", "iSelected", "strArray", "strVariable"}},
        {make<clsBVTProgrammableLimitSwitch>(),
         {"arSwitches", "blockmatrix", "choice", "iSelected", "strArray", "strMasterVariable", "strVariable"}},
        {make<clsBVTMessageIn>(), {"strTimeOut", "strUserVariable"}},
        {make<clsBVTMessageOut>(), {"blnSendCR", "strMessage"}},
    };
    for (const auto& row : rows) EXPECT_EQ(Variables(*row.block).names(), row.names) << row.block->className();
}

TEST(ReportNames, EightEntriesAreCountedFromOne) {
    const auto launch = make<clsBVTRestartProgram>();
    launch->SetArTask(8, "Rest"), launch->SetArChkTask(1, true), launch->SetArBlockNumber(2, 7);
    Variables shown(*launch);
    for (const char* name : {"strArTask", "blnArTask", "intArBlockNumber"})
        EXPECT_EQ(shown.values[name].toArray().dimensions, (std::vector<Bounds>{{1, 8}})) << name;
    EXPECT_EQ(shown.values["strArTask"].toArray().at(8), Value("Rest"));
    EXPECT_EQ(shown.values["blnArTask"].toArray().at(1), Value(true));
    EXPECT_EQ(shown.values["intArBlockNumber"].toArray().at(2), Value(std::int16_t{7}));
}

TEST(ReportNames, AListIsShownUnpacked) {
    const auto block = make<clsBVTSetVariable>();
    Variables before(*block);
    EXPECT_EQ(before.values["strArray"].toArray().elements.size(), 0u);
    block->strVariable = "A=1;";
    block->FillMatrix();
    Variables shown(*block);
    EXPECT_EQ(shown.values["strArray"].toArray().elements, (std::vector<Value>{"A=1", ""}));
    EXPECT_EQ(shown.values["arVariables"].toArray().elements, (std::vector<Value>{"A", ""}));
    EXPECT_EQ(shown.values["arExpressions"].toArray().elements, (std::vector<Value>{"1", ""}));
}

/// A host's object that fails whatever is asked of it.
Ref<Object> failing() {
    const auto object = make<Composed>("Failing");
    for (const char* name : {"checkexpression", "TaskList", "Add", "Count", "Item"})
        object->method(name, [](Args) -> Value { throw RuntimeError(1000, "Busy"); });
    return object;
}

TEST(ReportNames, AFailingProcedureShowsItsArguments) {
    const auto offer = [](AttributeObject& block, std::int16_t row) {
        Ref<Object> items = failing();
        block.GetComboItem(row, items);
    };
    const auto check = [](AttributeObject& block) {
        std::string message;
        block.PropertiesSyntaxCheck(failing(), 12, message);
    };
    const auto list = make<clsBVTSetVariable>();
    list->strVariable = "A=1;", list->FillMatrix();
    const auto switches = make<clsBVTProgrammableLimitSwitch>();
    switches->strVariable = "1,2,A,1;", switches->FillMatrix();
    const auto cam = make<clsBVTCAMOnOff>();
    const auto names = make<Collection>();
    names->Add("Cam1");
    cam->GetCAMTableList(names);
    const auto launch = make<clsBVTRestartProgram>();
    launch->SetArTask(1, "Main");
    const auto suspend = make<clsBVTSuspendProgram>();
    suspend->SetArTaskExist(1, true);

    const Names checking{"SyntaxValidation", "lngBlockID"},
        asking{"SyntaxValidation", "lngBlockID", "strSyntaxMessage"}, offering{"colItem"};
    const struct {
        const char* what;
        std::function<void()> run;
        Names names;
    } rows[]{
        {"assignments", [&] { check(*list); }, checking},
        {"switches", [&] { check(*switches); }, checking},
        {"launch", [&] { check(*launch); }, asking},
        {"suspend", [&] { check(*suspend); }, asking},
        {"names", [&] { offer(*list, 1); }, offering},
        {"states", [&] { offer(*switches, 2); }, offering},
        {"tables", [&] { offer(*cam, 0); }, offering},
        {"programs", [&] { offer(*launch, 0); }, offering},
        {"stopped", [&] { offer(*suspend, 0); }, offering},
        {"table name", [&] { cam->ValidateTableName(failing(), 5); }, {"tableNameList", "iIndex"}},
        {"table list", [&] { cam->GetCAMTableList(failing()); }, {"tableNameList"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        tracing::Surroundings surroundings;
        std::vector<tracing::Answer> answers(32, tracing::Answer::leave);
        answers.front() = tracing::Answer::report;
        tracing::ScriptedHandler handler(answers);
        row.run();
        EXPECT_GE(handler.asked.size(), 2u) << "once more behind the report";
        for (const std::string& name : row.names) EXPECT_TRUE(surroundings.wrote(name)) << name;
    }
}

}  // namespace
}  // namespace canvas
