// The canvas opens the dialog of a block: what the dialog is given, in which order, and what becomes of the attribute.

#include <gtest/gtest.h>

#include "document/canvas.h"
#include "document/catalogue.h"
#include "document/form_dispatch.h"
#include "tests/editors/host_objects.h"

namespace canvas::editors {
namespace {

/// Stands in for every form: writes down what it is given.
class Recorder final : public Object {
public:
    explicit Recorder(std::vector<std::string>& log) : m_log(log) {}
    std::string_view className() const noexcept override { return "Recorder"; }
    std::function<void(Recorder&)> whileShown;
    Ref<Object> attribute;
    bool okClicked = false, createNew = false;
    std::vector<Value> data;

    Value get(std::string_view name, Args) override {
        if (name == "BVTAttribute") return Value(attribute);
        if (name == "OKClicked") return Value(okClicked);
        if (name == "CreateNew") return Value(createNew);
        if (name.starts_with("cmb")) {
            auto box = make<Composed>("Combo");
            box->method("AddItem", [this, name = std::string(name)](Args args) {
                m_log.push_back(name + ".AddItem " + args[0].toText());
                return Value();
            });
            return Value(Ref<Object>(box));
        }
        raise(Error::noSuchMember);
    }
    void put(std::string_view name, const Value& value, Args) override {
        if (name == "BVTAttribute") attribute = value.toObject();
        m_log.push_back(std::string(name) + (value.is(Kind::text) ? " " + value.toText() : ""));
    }
    Value call(std::string_view name, Args args) override {
        m_log.push_back(std::string(name) + (args.empty() ? "" : " " + std::to_string(args.size())));
        if (name == "SetData") data.assign(args.begin(), args.end());
        if (name == "Show" && whileShown) whileShown(*this);
        return {};
    }

private:
    std::vector<std::string>& m_log;
};

struct Dispatch : testing::Test {
    struct Made final : Forms {
        std::vector<std::string> names, log;
        std::function<void(Recorder&)> whileShown;
        Ref<Recorder> last;
        Ref<Object> make(std::string_view name) override {
            names.emplace_back(name);
            last = Ref<Recorder>(new Recorder(log));
            last->whileShown = whileShown;
            return last;
        }
    };
    Playing play;
    std::shared_ptr<Made> made = std::make_shared<Made>();
    WithEnvironment with{Environment{.forms = made}};
    Host host;
    Ref<clsBVTCanvas> canvas = make<clsBVTCanvas>();
    Ref<Object> mainForm{host.form};

    clsBVTBlock& block(std::int16_t type, std::int16_t id = 5) {
        auto fresh = make<clsBVTBlock>();
        fresh->intBlockID = id;
        fresh->setBlockType(type);
        canvas->AddBlock(*fresh);
        return canvas->BlockCollection->byKey(id);
    }
    bool show(std::int16_t id = 5) { return canvas->ShowAttributeFormAndChanged(id, mainForm); }
};

using Strings = std::vector<std::string>;

TEST_F(Dispatch, EachTypeOpensItsDialogAndThoseWithoutOneOpenNothing) {
    const std::map<std::int16_t, std::string> dialogs{
        {0, "frmChangeDynamics"}, {1, "frmHomeAxis"},        {2, "frmMoveAxis"},      {3, "frmGearRatio"},
        {4, "frmJogAxis"},        {5, "frmScaleCAM"},        {6, "frmCAMOnOff"},      {7, "frmServoOnOff"},
        {8, "frmAbortMotion"},    {9, "frmGearingOnOff"},    {11, "frmDefinePosition"}, {12, "frmIncrementPosition"},
        {13, "frmLatchOnOff"},    {14, "frmIfEvent"},        {15, "frmOnTime"},       {16, "frmRestartProgram"},
        {19, "frmSuspendProgram"}, {21, "frmMessageOut"},    {22, "frmMessageIn"},    {23, "frmSetVariable"},
        {24, "frmProgrammableLimitSwitch"}, {25, "frmSuperBlock"}, {26, "frmLatchTarget"}, {27, "frmNodeText"},
        {30, "frmCAMShift"},      {31, "frmInput"},          {32, "frmTorque"}};
    for (const BlockClass& one : catalogue()) {
        made->names.clear();
        block(one.type, static_cast<std::int16_t>(one.type + 100));
        EXPECT_FALSE(show(static_cast<std::int16_t>(one.type + 100)));
        const auto expected = dialogs.find(one.type);
        EXPECT_EQ(made->names, expected == dialogs.end() ? Strings{} : Strings{expected->second}) << one.member;
        EXPECT_EQ(play.user->boxes.size(), 0u) << one.member << ": " << play.user->boxes.back().text;
    }
}

TEST_F(Dispatch, AStartBlockShowsNothingAndKeepsItsAttribute) {
    clsBVTBlock& start = block(PROGRAMSTART);
    const Ref<Object> before = start.vntAttribute;
    EXPECT_FALSE(show());
    EXPECT_EQ(start.vntAttribute.get(), before.get());
}

TEST_F(Dispatch, MoveAxisIsGivenCopyUnitAndDataInThisOrder) {
    clsBVTBlock& move = block(MOVEAXIS);
    const Ref<Object> before = move.vntAttribute;
    made->whileShown = [&](Recorder& form) { EXPECT_NE(form.attribute.get(), before.get()); };
    EXPECT_FALSE(show());
    EXPECT_EQ(made->log, (Strings{"BVTAttribute", "UserUnit mm", "Load", "SetData 3", "Show", "Unload"}));
    ASSERT_EQ(made->last->data.size(), 3u);
    EXPECT_EQ(made->last->data[0].toObject().get(), host.controller.get());
    EXPECT_EQ(made->last->data[1].toObject().get(), host.data.get());
    EXPECT_EQ(made->last->data[2].toObject().get(), host.checking.get());
}

TEST_F(Dispatch, TheHostIsAskedForControllerDataAndCheckerInThisOrder) {
    struct Asked final : Object {
        explicit Asked(Object& real, Strings& log) : m_real(real), m_log(log) {}
        std::string_view className() const noexcept override { return "Asked"; }
        Value get(std::string_view name, Args args) override {
            const Value value = m_real.get(name, args);
            if (name != "currentproject") return m_log.emplace_back(name), value;
            return Value(Ref<Object>(new Asked(*value.toObject(), m_log)));
        }
        Object& m_real;
        Strings& m_log;
    };
    for (const auto& [type, expected] : {std::pair{MOVEAXIS, Strings{"MachineUnits", "MPController", "Data", "syntaxChecking"}},
                                         std::pair{MESSAGEIN, Strings{"MachineUnits", "MPController", "Data"}}}) {
        Strings log;
        mainForm = Ref<Object>(new Asked(*host.form, log));
        const auto id = static_cast<std::int16_t>(type + 40);
        block(type, id);
        EXPECT_FALSE(show(id));
        EXPECT_EQ(log, expected);
    }
}

TEST_F(Dispatch, TheBlockHoldsTheDialogsObjectThoughNothingChanged) {
    clsBVTBlock& move = block(MOVEAXIS);
    const Ref<Object> before = move.vntAttribute;
    EXPECT_FALSE(show());
    EXPECT_NE(move.vntAttribute.get(), before.get());
    EXPECT_EQ(move.vntAttribute.get(), made->last->attribute.get());
    EXPECT_TRUE(invoke(*before, "SameAs", move.vntAttribute).toBoolean());
}

TEST_F(Dispatch, AnAttributeThatDiffersIsAChange) {
    clsBVTBlock& move = block(MOVEAXIS);
    made->whileShown = [](Recorder& form) { form.attribute->put("Velocity", Value("77")); };
    EXPECT_TRUE(show());
    EXPECT_EQ(move.vntAttribute->get("Velocity").toText(), "77");
    EXPECT_FALSE(canvas->blnChanged);
    EXPECT_FALSE(canvas->CanUndo());
}

TEST_F(Dispatch, VariableNamesComeBeforeTheData) {
    for (const std::int16_t type : {HOMEAXIS, INCREMENTPOSITION, ONTIME, CAMSHIFT}) {
        made->log.clear();
        block(type, static_cast<std::int16_t>(type + 100));
        show(static_cast<std::int16_t>(type + 100));
        EXPECT_EQ(made->log, (Strings{"BVTAttribute", "UserUnit mm", "Load", "VariableNameList", "SetData 3", "Show", "Unload"}));
    }
}

TEST_F(Dispatch, MessagesAreGivenNoChecker) {
    for (const std::int16_t type : {MESSAGEOUT, MESSAGEIN}) {
        block(type, static_cast<std::int16_t>(type + 100));
        show(static_cast<std::int16_t>(type + 100));
        EXPECT_EQ(made->last->data.size(), 2u);
    }
}

TEST_F(Dispatch, NodeTextServoAndLatchAreGivenNoData) {
    for (const std::int16_t type : {NodeText, SERVOONOFF, LATCHONOFF}) {
        made->log.clear();
        block(type, static_cast<std::int16_t>(type + 100));
        show(static_cast<std::int16_t>(type + 100));
        EXPECT_EQ(made->log, (Strings{"BVTAttribute", "UserUnit mm", "Load", "Show", "Unload"}));
    }
}

TEST_F(Dispatch, TaskNamesReachTheLiveAttributeBeforeTheCopyIsTakenAgain) {
    for (const std::int16_t type : {RESTARTPROGRAM, SUSPENDPROGRAM}) {
        made->log.clear();
        const auto id = static_cast<std::int16_t>(type + 100);
        clsBVTBlock& tasks = block(type, id);
        const Ref<Object> live = tasks.vntAttribute;
        show(id);
        EXPECT_EQ(made->log, (Strings{"BVTAttribute", "UserUnit mm", "Load", "BVTAttribute", "Show", "Unload"}));
        const char* name = type == RESTARTPROGRAM ? "ArTask" : "ArTaskExist";
        EXPECT_EQ(invoke(*live, name, std::int16_t{3}).toText(), type == RESTARTPROGRAM ? "three.bpg" : "True");
        EXPECT_EQ(invoke(*made->last->attribute, name, std::int16_t{3}).toText(), type == RESTARTPROGRAM ? "three.bpg" : "True");
    }
}

TEST_F(Dispatch, CamTablesGoIntoBothBoxesAndTheSelectionComesLast) {
    host.data->property("GetCAMTableNames", Value(listOf({"cut", "feed"})));
    block(CAMONOFF);
    show();
    EXPECT_EQ(made->log,
              (Strings{"BVTAttribute", "UserUnit mm", "Load", "cmbCAMProfileTable.AddItem cut",
                       "cmbSpeedFFAddress.AddItem cut", "cmbCAMProfileTable.AddItem feed",
                       "cmbSpeedFFAddress.AddItem feed", "VariableNameList", "tableNameList", "SetData 3",
                       "SetCAMProfileTable", "Show", "Unload"}));
}

TEST_F(Dispatch, TheLimitSwitchIsGivenThirteenListsAndTheChecker) {
    block(PROGRAMMABLELIMITSWITCH);
    show();
    EXPECT_EQ(made->log, (Strings{"BVTAttribute", "UserUnit mm", "Load", "BVTAttribute", "SetData 14", "Show", "Unload"}));
    const Strings order{"getuserdefinedvariablecol",  "GetUserDefinedConstantCol",       "GetUserDefinedNetworkCol",
                        "GetReadableSystemVariablecol", "GetReadableSystemBitVariablecol", "GetWritableSystemVariableCol",
                        "GetReadableSystemParameterCol", "getuserdefinedbitvariablecol",   "GetUserDefinedBitNetworkCol",
                        "getallsystembitvariablecol", "GetRWSystemVariableCol",          "GetSystemIOCol",
                        "GetBitSystemIOCol"};
    ASSERT_EQ(made->last->data.size(), 14u);
    for (std::size_t i = 0; i < order.size(); ++i)
        EXPECT_EQ(invoke(*made->last->data[i].toObject(), "Item", std::int16_t{1}).toText(), "of " + order[i]);
    EXPECT_EQ(made->last->data[13].toObject().get(), host.checking.get());
}

struct SubroutineStep : Dispatch {
    clsBVTBlock* call = &block(SUPERBLOCK);
    std::string name = "C:\\p\\pick.bpg";
    bool ok = true, createNew = false;
    void run() {
        made->whileShown = [this](Recorder& form) {
            form.okClicked = ok, form.createNew = createNew;
            form.attribute->put("Name", Value(name));
            form.attribute->put("title", Value("pick.bpg"));
        };
        canvas->strName = "main.bpg";
        show();
    }
};

TEST_F(SubroutineStep, TheDialogIsGivenTheMainWindowAndTheDocumentsName) {
    run();
    EXPECT_EQ(made->log, (Strings{"BVTAttribute", "UserUnit mm", "Load", "MainForm", "CanvasName main.bpg", "Show", "Unload"}));
}

TEST_F(SubroutineStep, AChosenSubroutineIsOpenedUnderACaption) {
    run();
    EXPECT_EQ(host.calls, Strings{"fileopen|0|C:\\p\\pick.bpg|(line.bpj) Subroutine - pick.bpg"});
}

TEST_F(SubroutineStep, CancelOpensNothing) {
    ok = false;
    run();
    EXPECT_EQ(host.calls, Strings{});
}

TEST_F(SubroutineStep, ANewSubroutineIsAddedNamedAndSaved) {
    auto editor = make<Composed>("frmEditor");
    auto document = make<clsBVTCanvas>();
    editor->property("Canvas", Value(Ref<Object>(document)));
    host.form->property("ActiveForm", Value(Ref<Object>(editor)));
    createNew = true;
    run();
    EXPECT_EQ(host.calls, (Strings{"mnuProjectAddSubroutineNew_Click", "SaveAs|C:\\p\\pick.bpg"}));
    EXPECT_EQ(document->strName, "C:\\p\\pick.bpg");
}

TEST_F(Dispatch, AMissingHostMemberIsToldAndTheBlockKeepsItsAttribute) {
    clsBVTBlock& move = block(MOVEAXIS);
    const Ref<Object> before = move.vntAttribute;
    host.project->without("syntaxChecking");
    EXPECT_FALSE(show());
    ASSERT_EQ(play.user->boxes.size(), 1u);
    EXPECT_EQ(play.user->boxes[0].text,
              "Canvas::ShowAttributeFormChanged Object doesn't support this property or method");
    EXPECT_EQ(move.vntAttribute.get(), before.get());
    EXPECT_EQ(made->log.back(), "Unload");
}

TEST_F(Dispatch, ABlockThatIsNotThereIsTold) {
    EXPECT_FALSE(show(77));
    ASSERT_EQ(play.user->boxes.size(), 1u);
    EXPECT_TRUE(play.user->boxes[0].text.starts_with("Canvas::ShowAttributeFormChanged "));
}

TEST(DispatchToForms, ADoubleClickEditsTheBlock) {
    Playing play;
    Host host;
    auto canvas = make<clsBVTCanvas>();
    auto fresh = make<clsBVTBlock>();
    fresh->intBlockID = 3;
    fresh->setBlockType(MOVEAXIS);
    canvas->AddBlock(*fresh);
    play.user->script = [](Object& form) {
        EXPECT_EQ(control(form, "lblPositionUnit")->get("Caption").toText(), "mm");
        control(form, "txbVelocity")->put("Text", Value("8"));
        invoke(*control(form, "btnOK"), "Click");
    };
    Ref<Object> mainForm(host.form);
    EXPECT_TRUE(canvas->ShowAttributeFormAndChanged(3, mainForm));
    EXPECT_EQ(canvas->BlockCollection->byKey(3).vntAttribute->get("Velocity").toText(), "8");
}

}  // namespace
}  // namespace canvas::editors
