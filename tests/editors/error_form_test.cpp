// The error dialog: what it shows, and what each choice does to the failing statement.

#include "tests/editors/error_user.h"

namespace canvas::editors {
namespace {

TEST_F(ErrorDialogTest, TellsTheErrorLineByLineAndAsksForAReport) {
    user->clicks = {"cmdAction(2)"};
    user->look = [](Object& form) {
        EXPECT_EQ(control(form, "lblReport")->get("Caption").toText(),
                  "We are very sorry for this inconvenience and we would like to provide a fix for this error. You may "
                  "help us a great deal by reporting this error via email. If you allow this, please fill the text box "
                  "below and press the Report Error button. Thanks for your time.");
        EXPECT_EQ(control(form, "txtDescribe")->get("Text").toText(),
                  "\r\n< Please describe here what you were doing exactly when this error occurred >");
        EXPECT_EQ(control(form, "cmdSendMail")->get("Caption").toText(), "Report &Error");
        EXPECT_EQ(control(form, "cmdAction(0)")->get("Caption").toText(), "&Abort");
        EXPECT_EQ(control(form, "cmdAction(1)")->get("Caption").toText(), "&Retry");
        EXPECT_EQ(control(form, "cmdAction(2)")->get("Caption").toText(), "&Ignore");
    };
    procedure();
    EXPECT_EQ(user->shown, Strings{std::string(message)});
    EXPECT_EQ(user->beeps, 1);
}

TEST_F(ErrorDialogTest, ThePlaceholderIsSelectedWholeOnFocus) {
    user->look = [](Object& form) {
        const Ref<Object> describe = control(form, "txtDescribe");
        invoke(*control(form, "cmdSendMail"), "SetFocus");
        invoke(*describe, "SetFocus");
        EXPECT_EQ(describe->get("SelStart"), Value(std::int32_t{0}));
        EXPECT_EQ(describe->get("SelLength").toLong(), static_cast<std::int32_t>(describe->get("Text").toText().size()));
        invoke(*describe, "Type", "drilling");
        EXPECT_EQ(describe->get("Text").toText(), "drilling");
    };
    procedure();
}

TEST_F(ErrorDialogTest, IgnoreGoesOnBehindTheFailingStatement) {
    user->clicks = {"cmdAction(2)"};
    EXPECT_EQ(procedure(), (Strings{"first", "third"}));
}

TEST_F(ErrorDialogTest, RetryRepeatsTheFailingStatementAlone) {
    user->clicks = {"cmdAction(1)", "cmdAction(1)"};
    EXPECT_EQ(procedure(2), (Strings{"first", "second", "third"}));
    EXPECT_EQ(user->shown.size(), 2u);
}

TEST_F(ErrorDialogTest, AbortEndsTheProcess) {
    user->clicks = {"cmdAction(0)"};
    EXPECT_THROW(procedure(), Ended);
}

TEST_F(ErrorDialogTest, AShowingWithoutAChoiceCountsAsIgnore) {
    user->look = [](Object& form) { form.call("Close"); };
    EXPECT_EQ(procedure(), (Strings{"first", "third"}));
}

TEST_F(ErrorDialogTest, WithNobodyToAskTheErrorGoesToTheCaller) {
    struct Nobody final : Interaction {
        Reply messageBox(const MessageBox&) override { return Reply::ok; }
        std::string inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
        void beep() override {}
        std::int32_t openAddress(std::string_view) override { return 0; }
        void setClipboard(std::string_view) override {}
        bool showForm(Object&) override { raise(Error::actionNotSupported); }
    };
    const WithEnvironment nobody{Environment{.interaction = std::make_shared<Nobody>()}};
    try {
        procedure();
        FAIL() << "no error came";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 6);
    }
}

TEST_F(ErrorDialogTest, MachineFaultsAreRepeatedSkippedAndGivenUp) {
    int* volatile nowhere = nullptr;
    int here = 7;
    int read = 0;
    user->look = [&](Object&) { nowhere = &here; };
    for (const auto& [click, expected] : {std::pair{"cmdAction(1)", 7}, std::pair{"cmdAction(2)", 0}}) {
        nowhere = nullptr, read = 0;
        user->clicks = {click};
        Procedure run("clsTest", "Fault", nullptr, [](Locals&) {});
        run([&] { read = readThrough(nowhere); });
        EXPECT_EQ(read, expected) << click;
    }
    nowhere = nullptr;
    user->clicks = {"cmdAction(0)"};
    Procedure run("clsTest", "Fault", nullptr, [](Locals&) {});
    EXPECT_THROW(run([&] { read = readThrough(nowhere); }), Ended);
    EXPECT_NE(user->shown.back().find("Description: Exception: Access Violation"), std::string::npos);
}

TEST_F(ErrorDialogTest, ASecondErrorDuringAReportAsksAgainAndAbortEnds) {
    // the failing object is a local of the procedure: its report runs a procedure that fails too
    struct Bad final : Object {
        std::string_view className() const noexcept override { return "Bad"; }
        void reportVariables(VariableSink&) const override {
            Procedure run("Bad", "reportVariables", nullptr, [](Locals&) {});
            run([] { raise(Error::divisionByZero); });
        }
    };
    const Ref<Object> bad(new Bad);
    user->clicks = {"cmdSendMail", "cmdAction(0)"};
    Procedure run("clsTest", "Work", nullptr, [&](Locals& l) { l("bad", bad); });
    FakeProcess::ends = 0;
    run([] { raise(Error::overflow); });  // the real process does not come back; a report outlives what is thrown in it
    EXPECT_EQ(FakeProcess::ends, 1);
    ASSERT_GE(user->shown.size(), 2u);
    EXPECT_NE(user->shown[1].find("Error 11"), std::string::npos);
}

TEST_F(ErrorDialogTest, ASecondErrorLeavesTheReportToTheFirst) {
    struct Bad final : Object {
        std::string_view className() const noexcept override { return "Bad"; }
        void reportVariables(VariableSink&) const override {
            Procedure run("Bad", "reportVariables", nullptr, [](Locals&) {});
            run([] { raise(Error::divisionByZero); });
        }
    };
    const Ref<Object> bad(new Bad);
    user->clicks = {"cmdSendMail", "cmdAction(2)", "cmdAction(2)"};
    user->describe = "drilling";
    Procedure run("clsTest", "Work", nullptr, [&](Locals& l) { l("bad", bad); });
    run([] { raise(Error::overflow); });
    ASSERT_EQ(user->shown.size(), 3u);
    EXPECT_NE(user->shown[1].find("Error 11"), std::string::npos);
    EXPECT_EQ(user->shown[2], message);
    EXPECT_EQ(file("Error.txt"), std::string(message) + "\r\n\r\nCircumstances:\r\ndrilling");
}

TEST_F(ErrorDialogTest, TimersThatFailDoNotStopTheChoice) {
    struct Broken final : Timers {
        int calls = 0;
        std::vector<std::string> enabled() override { return {"tmrGone", "tmrPoll"}; }
        void enable(const std::string& name, bool) override {
            ++calls;
            if (name == "tmrGone") raise(Error::invalidCall);
        }
    };
    const auto timers = std::make_shared<Broken>();
    const WithEnvironment withTimers{Environment{.timers = timers}};
    user->clicks = {"cmdAction(1)"};
    EXPECT_EQ(procedure(1), (Strings{"first", "second", "third"}));
    EXPECT_EQ(timers->calls, 4);
}

TEST_F(ErrorDialogTest, TimersAreOffWhileAsking) {
    struct Clockwork final : Timers {
        std::map<std::string, bool> on{{"tmrPoll", true}, {"tmrBlink", true}, {"tmrIdle", false}};
        std::vector<std::string> enabled() override {
            Strings names;
            for (const auto& [name, runs] : on)
                if (runs) names.push_back(name);
            return names;
        }
        void enable(const std::string& name, bool state) override { on[name] = state; }
    };
    const auto timers = std::make_shared<Clockwork>();
    const WithEnvironment withTimers{Environment{.timers = timers}};
    user->look = [&](Object&) {
        for (const auto& [name, runs] : timers->on) EXPECT_FALSE(runs) << name;
    };
    user->clicks = {"cmdAction(2)"};
    procedure();
    EXPECT_EQ(timers->on, (std::map<std::string, bool>{{"tmrPoll", true}, {"tmrBlink", true}, {"tmrIdle", false}}));
}

TEST_F(ErrorDialogTest, AHostsOwnMinusOneIsAnErrorLikeAnyOther) {
    user->clicks = {"cmdAction(2)"};
    Procedure run("clsTest", "Work", nullptr, [](Locals&) {});
    run([] { throw RuntimeError(-1, "of the host's own"); });
    ASSERT_EQ(user->shown.size(), 1u);
    EXPECT_NE(user->shown[0].find("Error -1\r\nDescription: of the host's own"), std::string::npos);
}

TEST_F(ErrorDialogTest, TheDialogHasNoCloseBoxAndStaysOnTop) {
    const Ref<Form> form = makeForm("vbwFrmErrHandler");
    EXPECT_FALSE(form->design().closeBox);
    EXPECT_TRUE(form->design().topmost);
}

TEST_F(ErrorDialogTest, ADialogThatFailsItselfHandsTheErrorOn) {
    user->look = [](Object&) { raise(Error::deviceIO); };
    EXPECT_THROW(procedure(), RuntimeError);
}

}  // namespace
}  // namespace canvas::editors
