// Forms and controls as late-bound callers see them: the members of each form by number, and every member of every
// control of every form, also of those that no public class opens.

#include <map>
#include <set>

#include <gtest/gtest.h>

#include "component/asking.h"
#include "component/class_list.h"
#include "component/interaction.h"
#include "editors/attribute_form.h"
#include "tests/component/fake_host.h"
#include "tests/document/fixture.h"
#include "tests/editors/conventions_cases.h"
#include "tests/editors/playing.h"

namespace canvas::component::testing {
namespace {

using editors::Form;
using editors::FormEntry;
using editors::makeForm;
using editors::Playing;

/// "name kind arguments", put together as the listings of the classes.
std::string line(const NumberedMember& row) {
    const char* kind = !row.isProperty() ? "method" : !row.isWritable() ? "get" : row.isReadable() ? "get/put" : "put";
    return row.name + " " + kind + " " + std::to_string(row.arguments());
}

using Lines = std::vector<std::string>;

const Lines everyForm = {"Name get 0",         "Caption get 0", "Visible get 0", "Close method 0", "Control method 1",
                         "ControlNames get 0", "Load method 0", "Show method 0", "Hide method 0",  "Unload method 0",
                         "Controls get 0"};

/// What forms offer of their own, in slot order.
const std::map<std::string_view, Lines> own = {
    {"frmCompileOptions", {"CompileOption get/put 0"}},
    {"frmDataList",
     {"DisplayType method 1", "Data put 0", "Selected get 0", "TableIndex get 0", "VariableAddressList get/put 0",
      "SystemIOAddressList get/put 0", "bOKButtonClick get/put 0"}},
    {"frmEditNodeName", {"NodeLabel get/put 0"}},
    {"frmExpressionBuilder", {"SyntaxValidation put 0", "Expression get/put 0", "AssignDataList method 7"}},
    {"frmListSubroutine", {"ClickedOK get 0", "ProgramName get 0", "ProgramTitle get 0"}},
    {"frmMoveAxis",
     {"UserUnit put 0", "BVTAttribute get/put 0", "OKClicked get 0", "SetData method 3", "ExpressionBuilder method 1",
      "CheckParameter method 1"}},
    {"frmGearingOnOff",
     {"UserUnit put 0", "BVTAttribute get/put 0", "OKClicked get 0", "SetData method 3", "VariableNameList put 0",
      "CheckParameter method 1"}},
    {"frmMessageIn",
     {"UserUnit put 0", "BVTAttribute get/put 0", "OKClicked get 0", "SetData method 2", "ExpressionBuilder method 1"}},
    {"frmNodeText", {"NodeName get/put 0", "UserUnit put 0", "BVTAttribute get/put 0"}},
    {"vbwFrmErrHandler", {"vbwRetCode get 0"}},
};

TEST(FormMembers, AreNumberedFromTheCommonOnesToTheControls) {
    for (const FormEntry& entry : editors::forms()) {
        SCOPED_TRACE(entry.name);
        const Ref<Form> form = entry.make();
        const MemberList& members = membersOf(*form);
        EXPECT_EQ(&members, &membersOf(*entry.make())) << "the same for each form of the name";
        Lines lines;
        for (DISPID number = 1; number <= members.count(); ++number) {
            lines.push_back(line(members[number]));
            EXPECT_EQ(members.numberOf(members[number].name), number) << "each name stands once";
        }
        const auto controls = static_cast<std::ptrdiff_t>(form->controls().size());
        const auto behindCommon = lines.begin() + static_cast<std::ptrdiff_t>(everyForm.size());
        EXPECT_EQ(Lines(lines.begin(), behindCommon), everyForm);
        if (own.contains(entry.name)) {
            EXPECT_EQ(Lines(behindCommon, lines.end() - controls), own.at(entry.name));
        }
        for (std::ptrdiff_t i = 0; i < controls; ++i)
            EXPECT_EQ(lines.end()[i - controls], form->controls()[static_cast<std::size_t>(i)]->Name() + " get 0");
    }
}

TEST(FormMembers, OfAttributeDialogsEndWithThoseThatTheyShare) {
    for (const editors::FormCase& row : editors::formCases()) {
        SCOPED_TRACE(row.name);
        Lines shared = {"UserUnit put 0", "BVTAttribute get/put 0", "OKClicked get 0",
                        row.checker ? "SetData method 3" : "SetData method 2"};
        if (row.lists) shared.push_back("VariableNameList put 0");
        if (row.builder) shared.push_back("ExpressionBuilder method 1");
        if (row.asksChecker) shared.push_back("CheckParameter method 1");
        const Ref<Form> form = makeForm(row.name);
        const MemberList& members = membersOf(*form);
        const auto last = members.count() - static_cast<DISPID>(form->controls().size());
        Lines lines;
        for (DISPID number = last - static_cast<DISPID>(shared.size()) + 1; number <= last; ++number)
            lines.push_back(line(members[number]));
        EXPECT_EQ(lines, shared);
    }
}

TEST(FormMembers, ResultsComeInTheKindsOfTheirDeclarations) {
    const auto form = dispatchOf(makeForm("frmMoveAxis"));
    for (const auto& [member, kind] : std::map<const char*, int>{{"Name", VT_BSTR},
                                                                 {"Caption", VT_BSTR},
                                                                 {"Visible", VT_BOOL},
                                                                 {"Close", VT_EMPTY},
                                                                 {"ControlNames", VT_ARRAY | VT_BSTR},
                                                                 {"OKClicked", VT_BOOL},
                                                                 {"BVTAttribute", VT_DISPATCH},
                                                                 {"txbVelocity", VT_DISPATCH}})
        EXPECT_EQ(kindOf(form.get(), member), kind) << member;
    const Outcome control = call(form.get(), "Control", {"TXBVELOCITY"});
    EXPECT_EQ(control.value, call(form.get(), "txbVelocity").value) << "asked twice, the same object";
    EXPECT_EQ(call(form.get(), "Control", {"txbNothing"}).scode, static_cast<SCODE>(0x800A0005u));
    EXPECT_EQ(call(form.get(), "txbVelocity", {1}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(put(form.get(), "txbVelocity", "1").result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(put(form.get(), "Caption", "mine").result, DISP_E_MEMBERNOTFOUND) << "read-only";
    EXPECT_EQ(put(form.get(), "NoSuchName", 1).result, DISP_E_MEMBERNOTFOUND);
}

/// What each member of a control gives for arguments that every control of the kind takes.
struct Call {
    const char* member;
    std::vector<Value> arguments;
    int kind;
};
const std::vector<Call> everyControl = {{"Name", {}, VT_BSTR},     {"Kind", {}, VT_BSTR},      {"Visible", {}, VT_BOOL},
                                        {"Enabled", {}, VT_BOOL},  {"HasFocus", {}, VT_BOOL},  {"SetFocus", {}, VT_EMPTY},
                                        {"BackColor", {}, VT_I4}};
const std::vector<Call> choice = {
    {"ListCount", {}, VT_I4}, {"List", {0}, VT_BSTR}, {"ListIndex", {}, VT_I4}, {"Text", {}, VT_BSTR}};
const std::vector<Call> toggle = {{"Caption", {}, VT_BSTR}, {"Value", {}, VT_BOOL}};
const std::map<std::string, std::vector<Call>> byKind = {
    {"text", {{"Text", {}, VT_BSTR}, {"SelStart", {}, VT_I4}, {"SelLength", {}, VT_I4}, {"Type", {"1"}, VT_EMPTY},
              {"DblClick", {}, VT_EMPTY}, {"Leave", {}, VT_EMPTY}}},
    {"label", {{"Caption", {}, VT_BSTR}}},
    {"button", {{"Caption", {}, VT_BSTR}, {"Click", {}, VT_EMPTY}}},
    {"check", toggle},
    {"option", toggle},
    {"combo", choice},
    {"list", choice},
    {"tabs", {{"TabCount", {}, VT_I4}, {"TabCaption", {0}, VT_BSTR}, {"TabEnabled", {0}, VT_BOOL}, {"Tab", {}, VT_I4}}},
    {"tree", {{"NodeCount", {}, VT_I4}, {"NodeKey", {0}, VT_BSTR}, {"NodeText", {0}, VT_BSTR},
              {"NodeParent", {0}, VT_BSTR}, {"NodeExpanded", {0}, VT_BOOL}, {"NodeClick", {"Variables"}, VT_EMPTY}}},
    {"grid", {{"Rows", {}, VT_I4}, {"Cols", {}, VT_I4}, {"Row", {}, VT_I4}, {"Col", {}, VT_I4}, {"Cell", {1, 2}, VT_BSTR},
              {"CellBackColor", {1, 2}, VT_I4}, {"Edit", {1, 1, "a"}, VT_BOOL}, {"Cancel", {1, 1}, VT_EMPTY},
              {"Paste", {1, 1, "a"}, VT_BOOL}, {"Cancel", {1, 1}, VT_EMPTY}, {"Click", {1, 1}, VT_EMPTY},
              {"DblClick", {1, 1}, VT_EMPTY}, {"ButtonClick", {1, 1}, VT_EMPTY}, {"KeyDown", {40}, VT_EMPTY},
              {"RowSelection", {}, VT_BOOL}}},
};

TEST(EveryForm, AnswersWithEveryMemberOfEveryControl) {
    const LONG held = Held::objects;
    std::set<std::string> kinds;
    for (const FormEntry& entry : editors::forms()) {
        SCOPED_TRACE(entry.name);
        Playing play;
        bool inside = false;
        play.user->script = [&](Object& shown) {
            if (std::exchange(inside, true)) return;  // a form that a control opened
            const auto form = dispatchOf(Ref<Object>(&shown));
            const Value names = call(form.get(), "ControlNames").value;
            for (const Value& name : names.toArray().elements) {
                SCOPED_TRACE(name.toText());
                const auto control = dispatchOf(call(form.get(), "Control", {name}).value.toObject());
                const std::string kind = call(control.get(), "Kind").value.toText();
                kinds.insert(kind);
                for (const Call& row : everyControl) EXPECT_EQ(kindOf(control.get(), row.member, row.arguments), row.kind);
                const bool isEmpty = call(control.get(), "ListCount").value == Value(0);
                for (const Call& row : byKind.at(kind))
                    EXPECT_EQ(kindOf(control.get(), row.member, row.arguments),
                              isEmpty && row.member == std::string_view("List") ? -1 : row.kind)
                        << row.member;
            }
        };
        entry.make()->Show();
    }
    EXPECT_EQ(kinds.size(), byKind.size());
    EXPECT_EQ(Held::objects, held) << "nothing stays";
}

TEST(EveryForm, LeavesControlsBehindThatDoNothingMore) {
    for (const FormEntry& entry : editors::forms()) {
        SCOPED_TRACE(entry.name);
        const Playing play;
        std::vector<Com<IDispatch>> controls;
        {
            const Ref<Form> form = entry.make();
            form->Load();
            for (const auto& control : form->controls()) controls.push_back(dispatchOf(control));
        }
        for (const auto& control : controls) {
            const std::string kind = call(control.get(), "Kind").value.toText();
            for (const auto* rows : {&everyControl, &byKind.at(kind)})
                for (const Call& row : *rows) {
                    const HRESULT result = call(control.get(), row.member, row.arguments).result;
                    EXPECT_TRUE(result == S_OK || result == DISP_E_EXCEPTION) << kind << "." << row.member;
                }
        }
    }
}

// Asking

TEST(Asking, HoldsFromTheOutermostCallToItsEnd) {
    tracing::ErrorHandler* const before = &tracing::errorHandler();
    {
        const Asking outer;
        tracing::ErrorHandler* const inForce = &tracing::errorHandler();
        EXPECT_NE(inForce, before);
        {
            const Asking inner;
            EXPECT_EQ(&tracing::errorHandler(), inForce);
        }
        EXPECT_EQ(&tracing::errorHandler(), inForce);
    }
    EXPECT_EQ(&tracing::errorHandler(), before);
}

TEST(Asking, TheChoiceReachesTheFailingStatement) {
    const auto document = dispatchOf(make<clsBVTCanvas>());
    struct Row {
        const char* button;
        int failures;
        int calls;
        HRESULT result;
    };
    for (const Row& row : {Row{"cmdAction(1)", 2, 3, S_OK}, Row{"cmdAction(2)", 9, 1, S_OK}}) {
        SCOPED_TRACE(row.button);
        Playing play;
        play.user->script = [&](Object& form) { call(dispatchOf(Ref<Object>(editors::control(form, row.button))).get(), "Click"); };
        int calls = 0;
        const auto host = makeHost();
        host.get()->members["writemodelfile"] = [&](const HostCall& call) {
            return ++calls <= row.failures ? fail(call, 70, "locked") : S_OK;
        };
        EXPECT_EQ(call(document.get(), "WriteModelFile", {Value(asObject(host)), "a.bpg"}).result, row.result);
        EXPECT_EQ(calls, row.calls);
    }
}

TEST(Asking, AHostThatTakesNoFormsHearsNothing) {
    const auto host = makeHost();
    int beeps = 0;
    host.get()->members["beep"] = [&](const HostCall&) { return ++beeps, S_OK; };
    const WithEnvironment with{Environment{.interaction = std::make_shared<HostInteraction>(asObject(host), environment().interaction)}};
    const auto document = dispatchOf(make<clsBVTCanvas>());
    EXPECT_EQ(call(document.get(), "BlockName", {99}).result, DISP_E_EXCEPTION);
    EXPECT_EQ(beeps, 0);
    host.get()->members["showform"] = [](const HostCall& call) { return call.answer(true); };
    EXPECT_EQ(call(document.get(), "BlockName", {99}).result, S_OK) << "True without an answer is Ignore";
    EXPECT_EQ(beeps, 1);
    host.get()->members["showform"] = [](const HostCall& call) { return call.answer(false); };
    EXPECT_EQ(call(document.get(), "BlockName", {99}).result, DISP_E_EXCEPTION);
}

}  // namespace
}  // namespace canvas::component::testing
