// Own rules of the dialogs of motion blocks.

#include "tests/editors/editing.h"

namespace canvas::editors {
namespace {

struct StopMotionForm : Editing {
    StopMotionForm() { open("frmAbortMotion"); }
};

TEST_F(StopMotionForm, TheUnitIsDrawnOnlyWhenTheFormIsShown) {
    EXPECT_EQ(at("lblDecelerationUnit")->get("Caption").toText(), "unit/sec");
    show([&] { EXPECT_EQ(at("lblDecelerationUnit")->get("Caption").toText(), "mm/sec"); });
}

TEST_F(StopMotionForm, TheValueIsThereOnceItIsLoaded) { EXPECT_EQ(text("txbDeceleration"), "0.0"); }

TEST_F(StopMotionForm, EnterMovesToTheNextControlAndPressesNothing) {
    show([&] {
        type("txbDeceleration", "5\r6");
        EXPECT_TRUE(form->Visible());
        EXPECT_FALSE(at("txbDeceleration")->get("HasFocus").toBoolean());
        EXPECT_TRUE(at("btnOK")->get("HasFocus").toBoolean());
        EXPECT_TRUE(form->keyPressed(U'\r')) << "on a button too";
        EXPECT_TRUE(at("btnCancel")->get("HasFocus").toBoolean());
        EXPECT_TRUE(form->Visible());
    });
    EXPECT_FALSE(form->get("OKClicked").toBoolean());
}

TEST_F(StopMotionForm, EscapeStillCancels) {
    show([&] {
        EXPECT_TRUE(form->keyPressed(U'\x1B'));
        EXPECT_FALSE(form->Visible());
    });
}

TEST_F(StopMotionForm, QuoteAndSemicolonNeverReachTheFieldByKey) {
    show([&] {
        put("txbDeceleration", "");
        type("txbDeceleration", "\";1\";2");
        EXPECT_EQ(text("txbDeceleration"), "12");
        put("txbDeceleration", "a\";b");
        EXPECT_EQ(text("txbDeceleration"), "a\";b") << "a program puts what it likes";
    });
}

TEST_F(StopMotionForm, ItsCheckAloneHandsTheCheckerFalse) {
    Value flag;
    auto object = make<Composed>("Checker");
    object->method("ValidateUserInput", [&](Args args) {
        flag = args[3];
        return Value(true);
    });
    open("frmAbortMotion", object);
    show([&] { click("btnOK"); });
    EXPECT_EQ(flag, Value(false));
}

struct ChangeDynamicsForm : Editing {
    std::string refusal(std::string_view sCurve, const Ref<Composed>& checking = checker()) {
        open("frmChangeDynamics", checking);
        user.boxes.clear();
        show([&] {
            put("txbSCurve", sCurve);
            click("btnOK");
        });
        return user.boxes.empty() ? "" : user.boxes[0].text;
    }
    static std::string ofChecker(const std::string& text) {
        return "'" + text +
               "' cannot be assigned to the 'S-Curve' field.\r\r"
               "Expecting a positive integer in the range Of [0 To 255]";
    }
    static std::string ofForm(const std::string& text) {
        return "'" + text +
               "' cannot be assigned to the 'S-Curve' Field.\r\r"
               "Expecting a positive integer in the range of [0 To 255]";
    }
};

TEST_F(ChangeDynamicsForm, SCurvesBelow256AndExpressionsPass) {
    for (const auto* good : {"0", "255", "255.9", "speed * 2", "x256", "", "&HFF"}) {
        EXPECT_EQ(refusal(good), "") << good;
        EXPECT_EQ(stored("SCurve"), good);
    }
}

TEST_F(ChangeDynamicsForm, SCurvesFrom256AreRefusedByTheForm) {
    for (const auto* bad : {"256", "1000", "1E3", " 256 ", "&H100", "1E400"}) EXPECT_EQ(refusal(bad), ofForm(bad));
}

TEST_F(ChangeDynamicsForm, WhatTheCheckerRefusesIsToldInOtherLetters) {
    EXPECT_EQ(refusal("-1", checker("S-Curve")), ofChecker("-1"));
    EXPECT_EQ(refusal("256", checker("S-Curve")), ofChecker("256")) << "the checker speaks first";
}

TEST_F(ChangeDynamicsForm, TheFormsOwnRefusalSelectsTheFieldAndTheCheckersDoesNot) {
    open("frmChangeDynamics");
    show([&] {
        put("txbSCurve", "256");
        click("btnOK");
        EXPECT_TRUE(at("txbSCurve")->get("HasFocus").toBoolean());
        EXPECT_EQ(at("txbSCurve")->get("SelStart").toLong(), 0);
        EXPECT_EQ(at("txbSCurve")->get("SelLength").toLong(), 3);
    });
    open("frmChangeDynamics", checker("S-Curve"));
    show([&] {
        click("btnOK");
        EXPECT_FALSE(at("txbSCurve")->get("HasFocus").toBoolean());
    });
}

TEST_F(ChangeDynamicsForm, TheSCurveIsInMilliseconds) {
    open("frmChangeDynamics");
    EXPECT_EQ(at("lblSCurveUnit")->get("Caption").toText(), "msec");
}

/// Takes texts that do not begin with a digit for no constants.
Ref<Composed> switchChecker(std::string refused = {}) {
    auto object = make<Composed>("Checker");
    object->method("ValidateUserInput", [refused](Args args) {
        if (args.size() == 6) {
            EXPECT_EQ(args[5], Value(false));
            const std::string text = args[0].toObject()->get("Text").toText();
            args[5] = Value(text.empty() || text[0] < '0' || text[0] > '9');
        }
        if (args[1].toText() != refused) return Value(true);
        args[4] = Value("bad " + refused);
        return Value(false);
    });
    return object;
}

struct HomeAxisForm : Editing {
    void enter(std::string_view switchInput, std::string refused = {}) {
        open("frmHomeAxis", switchChecker(std::move(refused)));
        user.boxes.clear();
        show([&] {
            put("txbHomeSwitchInput", switchInput);
            click("btnOK");
        });
    }
};

TEST_F(HomeAxisForm, OneAndZeroAreRewrittenAsStates) {
    enter("1");
    EXPECT_EQ(stored("HomeSwitchInput"), "true");
    enter("0");
    EXPECT_EQ(stored("HomeSwitchInput"), "false");
    EXPECT_TRUE(user.boxes.empty());
}

TEST_F(HomeAxisForm, AnyOtherConstantIsRefused) {
    for (const auto* constant : {"2", "1.0", "01", "10"}) {
        enter(constant);
        ASSERT_EQ(user.boxes.size(), 1u) << constant;
        EXPECT_EQ(user.boxes[0].text, "Constant value cannot be used.");
        EXPECT_EQ(stored("HomeSwitchInput"), "Input Address");
        EXPECT_EQ(text("txbHomeSwitchInput"), constant);
    }
}

TEST_F(HomeAxisForm, AnExpressionStaysAsItIs) {
    enter("input1");
    EXPECT_EQ(stored("HomeSwitchInput"), "input1");
}

TEST_F(HomeAxisForm, WhatTheCheckerRefusesIsNotRewritten) {
    enter("1", "Home Switch Input");
    EXPECT_EQ(text("txbHomeSwitchInput"), "1");
    ASSERT_EQ(user.boxes.size(), 1u);
    EXPECT_EQ(user.boxes[0].text, "bad Home Switch Input");
}

TEST_F(HomeAxisForm, ARewrittenSwitchStaysWhenALaterFieldFails) {
    enter("1", "CreepSpeed");
    EXPECT_EQ(text("txbHomeSwitchInput"), "true");
    EXPECT_EQ(stored("HomeSwitchInput"), "Input Address");
}

TEST_F(HomeAxisForm, ARefusedCreepSpeedHasAMessageOfItsOwn) {
    enter("a", "CreepSpeed");
    ASSERT_EQ(user.boxes.size(), 1u);
    EXPECT_EQ(user.boxes[0].text, "Expecting a postion real number in the range of [0.0 To 10.0].");
}

TEST_F(HomeAxisForm, ACheckerOfFiveArgumentsOnlyFailsTheOk) {
    auto five = make<Composed>("Checker");
    five->method("ValidateUserInput", [](Args args) {
        if (args.size() != 5) raise(Error::argumentCount);
        return Value(true);
    });
    open("frmHomeAxis", five);
    EXPECT_THROW(show([&] { click("btnOK"); }), RuntimeError);
    EXPECT_FALSE(form->get("OKClicked").toBoolean());
}

TEST_F(HomeAxisForm, TheDirectionIsOneOfTwo) {
    open("frmHomeAxis");
    const Ref<Object> direction = at("cmbHomeDirection");
    ASSERT_EQ(direction->get("ListCount").toLong(), 2);
    EXPECT_EQ(invoke(*direction, "List", std::int16_t{0}).toText(), "Positive");
    EXPECT_EQ(invoke(*direction, "List", std::int16_t{1}).toText(), "Negative");
    EXPECT_EQ(direction->get("Text").toText(), "Positive");
    EXPECT_EQ(at("lblTimeOutUnit")->get("Caption").toText(), "sec");
}

TEST_F(HomeAxisForm, ADirectionThatIsNotInTheListSelectsNothing) {
    form = makeForm("frmHomeAxis");
    attribute()->put("HomingDirection", Value("Sideways"));
    form->call("Load");
    EXPECT_EQ(at("cmbHomeDirection")->get("ListIndex").toLong(), -1);
}

TEST_F(HomeAxisForm, ABadCharacterCutsTheSwitchInputBeforeIt) {
    open("frmHomeAxis");
    put("txbHomeSwitchInput", "abcdef");
    invoke(*form, "HandleBadCharacterError", "#", std::int16_t{4});
    ASSERT_EQ(user.boxes.size(), 1u);
    EXPECT_EQ(user.boxes[0].text, "The character # cannot be allowed!\rPlease modify entry!");
    EXPECT_EQ(user.boxes[0].icon, Icon::exclamation);
    EXPECT_EQ(text("txbHomeSwitchInput"), "abc");
    EXPECT_EQ(at("txbHomeSwitchInput")->get("SelStart").toLong(), 3);
    EXPECT_EQ(at("txbHomeSwitchInput")->get("SelLength").toLong(), 0);
}

struct JogAxisForm : Editing {
    JogAxisForm() { open("frmJogAxis"); }
};

TEST_F(JogAxisForm, CheckSelectFocusesAControlAndSelectsAllOfIt) {
    show([&] {
        put("txbDeceleration", "12.75");
        invoke(*form, "CheckSelect", at("txbDeceleration"));
        EXPECT_TRUE(at("txbDeceleration")->get("HasFocus").toBoolean());
        EXPECT_EQ(at("txbDeceleration")->get("SelStart").toLong(), 0);
        EXPECT_EQ(at("txbDeceleration")->get("SelLength").toLong(), 5);
        type("txbDeceleration", "9");
        EXPECT_EQ(text("txbDeceleration"), "9");
    });
}

TEST_F(JogAxisForm, CheckSelectOfNothingOrOfALabelIsAnError) {
    EXPECT_THROW(invoke(*form, "CheckSelect", Ref<Object>()), RuntimeError);
    EXPECT_THROW(invoke(*form, "CheckSelect", at("lblVelocity")), RuntimeError);
}

struct PositionForms : Editing {};

TEST_F(PositionForms, DefinePositionHasTwoFramesWithAChangeBoxEach) {
    open("frmDefinePosition");
    EXPECT_EQ(at("fraMain")->get("Caption").toText(), "Main");
    EXPECT_EQ(at("fraExternal")->get("Caption").toText(), "External");
    EXPECT_EQ(at("chkMain")->get("Caption").toText(), "Change");
    EXPECT_EQ(at("chkExternal")->get("Caption").toText(), "Change");
}

TEST_F(PositionForms, MoveTypesAreThree) {
    open("frmMoveAxis");
    const Ref<Object> types = at("cmbType");
    ASSERT_EQ(types->get("ListCount").toLong(), 3);
    EXPECT_EQ(invoke(*types, "List", std::int16_t{0}).toText(), "Absolute");
    EXPECT_EQ(invoke(*types, "List", std::int16_t{1}).toText(), "Relative");
    EXPECT_EQ(invoke(*types, "List", std::int16_t{2}).toText(), "Rotary Shortest");
    EXPECT_EQ(types->get("Text").toText(), "Absolute");
}

TEST_F(PositionForms, TheOffsetsTimeIsInMillisecondsOrTheUnit) {
    open("frmIncrementPosition");
    EXPECT_EQ(at("lblsec1")->get("Caption").toText(), "msec or mm");
}

TEST_F(PositionForms, ACheckerThatChangesTheFieldItIsAskedAboutHasItsTextWritten) {
    auto changing = make<Composed>("Checker");
    changing->method("ValidateUserInput", [](Args args) {
        args[0].toObject()->put("Text", Value("by " + args[1].toText()));
        return Value(true);
    });
    open("frmTorque", changing);
    show([&] { click("btnOK"); });
    EXPECT_EQ(stored("SpeedLimit"), "by SpeedLimit");
    EXPECT_EQ(stored("Torque"), "by Torque");
}

TEST_F(PositionForms, ACheckerThatSaysNothingKnownOrRaisesKeepsTheAttribute) {
    for (const int kind : {0, 1, 2}) {
        auto bad = make<Composed>("Checker");
        bad->method("ValidateUserInput", [kind](Args args) {
            if (kind == 0) raise(Error::automation);
            if (kind == 1) return Value(Null{});
            args[4] = Value(Null{});  // no text for the message
            return Value(false);
        });
        open("frmTorque", bad);
        EXPECT_THROW(show([&] {
                         put("txbTorque", "7");
                         click("btnOK");
                     }),
                     RuntimeError);
        EXPECT_EQ(stored("Torque"), "0.0");
        EXPECT_EQ(text("txbTorque"), "7");
        EXPECT_FALSE(form->get("OKClicked").toBoolean());
    }
}

TEST_F(PositionForms, ANullUnitIsRefusedAndTheDialogSaysUnit) {
    form = makeForm("frmTorque");
    EXPECT_THROW(form->put("UserUnit", Value(Null{})), RuntimeError);
    form->call("Load");
    EXPECT_EQ(at("lblSpeedLimitUnit")->get("Caption").toText(), "unit/sec");
}

TEST_F(PositionForms, TextOfEveryPlaneIsKept) {
    open("frmTorque");
    const std::string text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x9A\x80";
    show([&] {
        put("txbTorque", "");
        type("txbTorque", text);
        click("btnOK");
    });
    EXPECT_EQ(stored("Torque"), text);
}

}  // namespace
}  // namespace canvas::editors
