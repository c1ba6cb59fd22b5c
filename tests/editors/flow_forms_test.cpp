// Own rules of the dialogs that wait and branch, of the servo and of faults.

#include "tests/editors/editing.h"

namespace canvas::editors {
namespace {

struct IfEventForm : Editing {
    /// A checker that takes every expression.
    static Ref<Composed> builderChecker() {
        auto object = checker();
        object->method("CheckSyntaxDetails", [](Args) { return Value(std::int32_t{0}); });
        return object;
    }
};

TEST_F(IfEventForm, TheEventIsThereBeforeLoadingAndAfter) {
    form = makeForm("frmIfEvent");
    EXPECT_EQ(text("txbEvent"), "");
    EXPECT_EQ(attribute()->className(), "clsBVTIfEvent") << "made when the form is";
    attribute()->put("EventK", Value("a == 1"));
    form->call("Load");
    EXPECT_EQ(text("txbEvent"), "a == 1");
}

TEST_F(IfEventForm, AQuoteIsRefusedASemicolonGoesIn) {
    open("frmIfEvent");
    show([&] {
        type("txbEvent", "a\"; b");
        EXPECT_EQ(text("txbEvent"), "a; b");
    });
}

TEST_F(IfEventForm, TheButtonBuildsAsADoubleClickDoes) {
    open("frmIfEvent");
    std::vector<std::string> opened;
    user.script = [&](Object& shown) {
        if (&shown == form.get()) {
            put("txbEvent", "one");
            click("cmdExpBuilder");
            EXPECT_EQ(text("txbEvent"), "built 1");
            invoke(*at("txbEvent"), "DblClick");
            EXPECT_EQ(text("txbEvent"), "built 2");
            click("btnCancel");
            return;
        }
        opened.push_back(control(shown, "txbExpression")->get("Text").toText());
        // what the last Clear left is what closing the window gives
        control(shown, "txbExpression")->put("Text", Value("built " + std::to_string(opened.size())));
        shown.put("Expression", control(shown, "txbExpression")->get("Text"));
    };
    form->call("Show");
    EXPECT_EQ(opened, (std::vector<std::string>{"one", "built 1"}));
    EXPECT_EQ(stored("EventK"), "") << "Cancel after a double click leaves the attribute";
}

TEST_F(IfEventForm, CancellingTheBuilderKeepsTheText) {
    open("frmIfEvent");
    user.script = [&](Object& shown) {
        if (&shown == form.get()) {
            put("txbEvent", "one");
            invoke(*at("txbEvent"), "DblClick");
            EXPECT_EQ(text("txbEvent"), "one");
            return;
        }
        control(shown, "txbExpression")->put("Text", Value("other"));
        invoke(*control(shown, "cmdCancel"), "Click");
    };
    form->call("Show");
}

TEST_F(IfEventForm, AnEmptyProjectFailsTheBuilderInItsOwnBoxAndKeepsTheText) {
    form = makeForm("frmIfEvent");
    show([&] {
        put("txbEvent", "one");
        invoke(*at("txbEvent"), "DblClick");
        EXPECT_EQ(text("txbEvent"), "one");
        EXPECT_TRUE(form->Visible());
    });
    EXPECT_EQ(user.boxes.size(), 1u);
}

TEST_F(IfEventForm, AFormThatItsHostClosesUnderTheBuilderStillTakesTheText) {
    open("frmIfEvent");
    user.script = [&](Object& shown) {
        if (&shown == form.get()) {
            put("txbEvent", "one");
            invoke(*at("txbEvent"), "DblClick");
            return;
        }
        form->Close();
        EXPECT_FALSE(form->Visible());
    };
    form->call("Show");
    EXPECT_EQ(text("txbEvent"), "one");
    EXPECT_FALSE(form->get("OKClicked").toBoolean());
    EXPECT_EQ(stored("EventK"), "");
}

TEST_F(IfEventForm, TheLabelReadsEvent) {
    open("frmIfEvent");
    EXPECT_EQ(at("lblEvent")->get("Caption").toText(), "Event:");
}

struct FlowForms : Editing {};

TEST_F(FlowForms, InputConditionsAreFour) {
    open("frmInput");
    const Ref<Object> condition = at("cmbCondition");
    ASSERT_EQ(condition->get("ListCount").toLong(), 4);
    const char* names[] = {"Rising Edge", "Falling Edge", "Logic One", "Logic Zero"};
    for (std::int16_t i = 0; i < 4; ++i) EXPECT_EQ(invoke(*condition, "List", i).toText(), names[i]);
    EXPECT_EQ(condition->get("Text").toText(), "Rising Edge");
}

TEST_F(FlowForms, ABadCharacterCutsTheInput) {
    const struct {
        std::int16_t place;
        const char* left;
    } cases[] = {{1, ""}, {2, "a"}, {4, "a\xF0\x9F\x9A\x80"}, {100, "a\xF0\x9F\x9A\x80z"}};
    for (const auto& c : cases) {
        open("frmInput");
        put("txbInput", "a\xF0\x9F\x9A\x80z");
        user.boxes.clear();
        invoke(*form, "HandleBadCharacterError", "\"", c.place);
        ASSERT_EQ(user.boxes.size(), 1u);
        EXPECT_EQ(user.boxes[0].text, "The character \" cannot be allowed!\rPlease modify entry!");
        EXPECT_EQ(user.boxes[0].icon, Icon::exclamation);
        EXPECT_EQ(text("txbInput"), c.left);
    }
}

TEST_F(FlowForms, APlaceBelowOneIsAnErrorAndKeepsTheField) {
    open("frmInput");
    put("txbInput", "abc");
    EXPECT_THROW(invoke(*form, "HandleBadCharacterError", "x", std::int16_t{0}), RuntimeError);
    EXPECT_EQ(text("txbInput"), "abc");
}

TEST_F(FlowForms, TheTimerCountsMilliseconds) {
    open("frmOnTime");
    EXPECT_EQ(at("lblTimeOutUnit")->get("Caption").toText(), "msec");
}

TEST_F(FlowForms, ServoIsAPairOfOptionsFilledWhenShown) {
    open("frmServoOnOff");
    attribute()->put("Servo", Value(false));
    EXPECT_EQ(at("OptEnable")->get("Caption").toText(), "Enabled");
    EXPECT_EQ(at("OptDisable")->get("Caption").toText(), "Disabled");
    show([&] {
        EXPECT_TRUE(at("OptDisable")->get("Value").toBoolean());
        at("OptEnable")->put("Value", Value(true));
        click("btnOK");
    });
    EXPECT_EQ(stored("Servo"), "True");
    EXPECT_TRUE(user.boxes.empty());
}

TEST_F(FlowForms, FaultDialogsAnswerOnlyToHelp) {
    const auto help = std::make_shared<HelpCount>();
    const WithEnvironment with{Environment{.help = help}};
    for (const auto* name : {"frmIfFault", "frmResetFault"}) {
        form = makeForm(name);
        help->shown = 0;
        show([&] {
            EXPECT_EQ(at("lblAnyFault")->get("Caption").toText(), "Any Fault");
            click("btnOK");
            EXPECT_TRUE(form->Visible());
            click("btnCancel");
            EXPECT_TRUE(form->Visible());
            form->keyPressed(U'\r');
            form->keyPressed(U'\x1B');
            EXPECT_TRUE(form->Visible());
            click("btnHelp");
            EXPECT_EQ(help->shown, 1);
            form->Close();
            EXPECT_FALSE(form->Visible());
        });
        for (const auto* member : {"OKClicked", "BVTAttribute", "CheckParameter"})
            EXPECT_THROW(form->get(member), RuntimeError) << member;
    }
}

TEST_F(FlowForms, HelpWithoutAHostsHelpDoesNothing) {
    open("frmOnTime");
    show([&] { EXPECT_NO_THROW(click("btnHelp")); });
}

}  // namespace
}  // namespace canvas::editors
