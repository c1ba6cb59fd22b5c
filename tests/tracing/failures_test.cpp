// Who shows, who asks, who raises: one test for each kind of failure.

#include <gtest/gtest.h>

#include "host/composed.h"
#include "tests/tracing/fakes.h"
#include "tracing/branch.h"

namespace canvas::tracing {
namespace {

/// Fails in its procedure.
void failing() {
    Procedure run("clsInner", "failing", nullptr, [](Locals&) {});
    run([] { raise(Error::objectNotSet); });
}

/// Has a handler of its own, which notes the error where a box would show it.
std::string shown;
bool withOwnHandler() {
    bool done = false;
    onFailure(
        [&] {
            raise(Error::fileNotFound);
            done = true;
        },
        [](const RuntimeError& error) { shown = "Canvas.WriteFile(): " + bracketed(error); });
    return done;
}

/// Raises again under a source text of its own.
void raisingAgain() {
    onFailure([] { raise(Error::noSuchTable); },
              [](const RuntimeError& error) {
                  throw RuntimeError(error.number, error.description, "Network::ImportFromCSV");
              });
}

TEST(Failures, BadUserInputIsAnsweredByTheResultAndNobodyIsAsked) {
    ScriptedHandler handler;
    std::string text = "12";
    bool valid = true;
    Procedure run("clsSample", "Validate", nullptr, [](Locals&) {});
    run([&] { valid = text == "13"; });
    EXPECT_FALSE(valid);
    EXPECT_EQ(text, "12");
    EXPECT_TRUE(handler.asked.empty());
}

TEST(Failures, AnOperationWithAHandlerOfItsOwnShowsItAndItsCallerGoesOn) {
    ScriptedHandler handler;
    std::string trail;
    Procedure run("clsCaller", "Save", nullptr, [](Locals&) {});
    EXPECT_EQ(run([&] { trail += withOwnHandler() ? "done " : "not done "; }, [&] { trail += "next"; }), Flow::next);
    EXPECT_EQ(trail, "not done next");
    EXPECT_EQ(shown, "Canvas.WriteFile(): [53] File not found");
    EXPECT_TRUE(handler.asked.empty());
}

TEST(Failures, AnOperationThatRaisesAgainReachesItsCallerWithNobodyAskedInBetween) {
    ScriptedHandler handler({Answer::ignore});
    try {
        raisingAgain();
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 3078);
        EXPECT_EQ(error.description, "No such table or query");
        EXPECT_EQ(error.source, "Network::ImportFromCSV");
    }
    EXPECT_TRUE(handler.asked.empty());
}

TEST(Failures, AProcedureTreatsWhatItsCalleeRaisesAgainAsAnyFailure) {
    ScriptedHandler handler({Answer::ignore});
    Procedure run("clsCaller", "Import", nullptr, [](Locals&) {});
    EXPECT_EQ(run([] { raisingAgain(); }), Flow::next);
    ASSERT_EQ(handler.asked.size(), 1u);
    EXPECT_EQ(handler.asked[0].number, 3078);
    EXPECT_EQ(handler.asked[0].procedure, "Import");
}

TEST(Failures, EverythingElseIsAskedByTheProcedureThatFailed) {
    ScriptedHandler handler({Answer::ignore});
    failing();
    ASSERT_EQ(handler.asked.size(), 1u);
    EXPECT_EQ(handler.asked[0].procedure, "failing");
}

TEST(Failures, AMemberThatAHostDoesNotHaveIsAskedToo) {
    ScriptedHandler handler({Answer::ignore});
    const auto host = make<Composed>();
    Procedure run("clsSample", "Ask", nullptr, [](Locals&) {});
    run([&] { host->get("currentproject"); });
    ASSERT_EQ(handler.asked.size(), 1u);
    EXPECT_EQ(handler.asked[0].number, 438);
}

TEST(Failures, ThePersonAskedMayAbortRetryIgnoreOrReport) {
    for (const Answer given : {Answer::abort, Answer::retry, Answer::ignore, Answer::report}) {
        Surroundings surroundings;
        ScriptedHandler handler({given, Answer::ignore});
        int runs = 0;
        Procedure run("clsSample", "Person", nullptr, [](Locals&) {});
        run([&] {
            ++runs;
            raise(Error::overflow);
        });
        EXPECT_EQ(surroundings.process->processEnds.size(), given == Answer::abort ? 1u : 0u);
        EXPECT_EQ(runs, given == Answer::retry ? 2 : 1);
        EXPECT_EQ(surroundings.wrote("LOCAL LEVEL VARIABLES"), given == Answer::report);
    }
}

TEST(Failures, WithNobodyToAskTheErrorGoesThroughOuterProceduresToTheBoundary) {
    Procedure outer("clsOuter", "Outer", nullptr, [](Locals&) {});
    try {
        outer([] { failing(); });
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 91);
    }
}

TEST(Failures, WithNobodyToAskTheErrorReachesTheCallersOwnHandler) {
    int caughtNumber = 0;
    onFailure([] { failing(); }, [&](const RuntimeError& error) { caughtNumber = error.number; });
    EXPECT_EQ(caughtNumber, 91);
}

TEST(Failures, AHostThatAnswersLeaveEndsTheProcedureSilently) {
    for (const Answer given : {Answer::leave, Answer::leaveToo}) {
        ScriptedHandler handler({given});
        int result = 1;
        Procedure run("clsSample", "Silent", nullptr, [](Locals&) {});
        EXPECT_EQ(run([&] { result = 2; }, [] { raise(Error::overflow); }, [&] { result = 3; }), Flow::leave);
        EXPECT_EQ(result, 2);
        EXPECT_EQ(handler.asked.size(), 1u);
    }
}

TEST(Failures, InsideAReportTheLineSaysSoAndTheReportGoesOn) {
    Surroundings surroundings;
    ScriptedHandler handler({Answer::report, Answer::ignore});
    Procedure run("clsSample", "Reported", nullptr, [](Locals& l) {
        l("vntBefore", 1);
        l("vntNull", Null{});
        l("vntAfter", 2);
    });
    run([] { raise(Error::overflow); });
    EXPECT_TRUE(surroundings.wrote("vntNull = {Variable Dumping Error}\r\nvntAfter = \"2\" (Long)\r\n"));
    EXPECT_TRUE(surroundings.wrote("* GLOBAL LEVEL VARIABLES *"));
}

}  // namespace
}  // namespace canvas::tracing
