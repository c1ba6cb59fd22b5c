#include "tracing/branch.h"

#include <gtest/gtest.h>

#include <new>
#include <thread>

#include "tests/tracing/fakes.h"

namespace canvas::tracing {
namespace {

/// A procedure of three steps that note themselves; the second fails `failures` times.
struct ThreeSteps {
    std::string trail;
    int failures = 1;

    Flow run() {
        Procedure run("clsSample", "ThreeSteps", nullptr, [](Locals&) {});
        return run([&] { trail += '1'; },
                   [&] {
                       trail += '2';
                       if (failures-- > 0) raise(Error::subscript);
                       trail += '!';
                   },
                   [&] { trail += '3'; });
    }
};

TEST(Branch, StepsRunInTheirOrderAndNobodyIsAskedWhenNothingFails) {
    ScriptedHandler handler;
    ThreeSteps procedure{.trail = {}, .failures = 0};
    EXPECT_EQ(procedure.run(), Flow::next);
    EXPECT_EQ(procedure.trail, "12!3");
    EXPECT_TRUE(handler.asked.empty());
}

TEST(Branch, TheHandlerIsToldWhatFailedAndWhere) {
    ScriptedHandler handler({Answer::ignore});
    ThreeSteps().run();
    ASSERT_EQ(handler.asked.size(), 1u);
    const Failure& failure = handler.asked[0];
    EXPECT_EQ(failure.number, 9);
    EXPECT_EQ(failure.description, "Subscript out of range");
    EXPECT_EQ(failure.project, "Classes");
    EXPECT_EQ(failure.module, "clsSample");
    EXPECT_EQ(failure.procedure, "ThreeSteps");
    EXPECT_EQ(failure.line, 0);
}

struct Course {
    const char* name;
    std::vector<Answer> answers;
    int failures;
    const char* trail;
    Flow flow;
};

class BranchAnswers : public testing::TestWithParam<Course> {};

TEST_P(BranchAnswers, DecideHowTheProcedureGoesOn) {
    const Course& course = GetParam();
    Surroundings surroundings;
    ScriptedHandler handler(course.answers);
    ThreeSteps procedure{.trail = {}, .failures = course.failures};
    EXPECT_EQ(procedure.run(), course.flow);
    EXPECT_EQ(procedure.trail, course.trail);
    EXPECT_EQ(handler.asked.size(), course.answers.size());
    EXPECT_EQ(vbwErrHandler.vbwRetCode, static_cast<int>(course.answers.back()));
}

INSTANTIATE_TEST_SUITE_P(
    All, BranchAnswers,
    testing::Values(Course{"RetryRepeatsTheFailingStep", {Answer::retry}, 1, "122!3", Flow::next},
                    Course{"RetryRepeatsAsOftenAsItIsGiven", {Answer::retry, Answer::retry}, 2, "1222!3", Flow::next},
                    Course{"IgnoreGoesOnWithTheNextStep", {Answer::ignore}, 1, "123", Flow::next},
                    Course{"RetryThenIgnore", {Answer::retry, Answer::ignore}, 9, "1223", Flow::next},
                    Course{"SixLeaves", {Answer{6}}, 1, "12", Flow::leave},
                    Course{"SevenLeaves", {Answer{7}}, 1, "12", Flow::leave},
                    Course{"ReportAsksAgain", {Answer::report, Answer::ignore}, 1, "123", Flow::next},
                    Course{"ReportThenRetry", {Answer::report, Answer::retry}, 1, "122!3", Flow::next},
                    Course{"AbortLeavesWhereTheProcessGoesOn", {Answer::abort}, 1, "12", Flow::leave}),
    [](const auto& info) { return info.param.name; });

TEST(Branch, TheAnswersHaveTheNumbersOfTheDialog) {
    EXPECT_EQ(static_cast<int>(Answer::abort), 3);
    EXPECT_EQ(static_cast<int>(Answer::retry), 4);
    EXPECT_EQ(static_cast<int>(Answer::ignore), 5);
    EXPECT_EQ(static_cast<int>(Answer::report), 8);
}

TEST(Branch, AbortEndsTheProcess) {
    Surroundings surroundings;
    ScriptedHandler handler({Answer::abort});
    ThreeSteps().run();
    EXPECT_EQ(surroundings.process->processEnds, std::vector{1});
}

TEST(Branch, AbortAfterAReportStillEndsTheProcess) {
    Surroundings surroundings;
    ScriptedHandler handler({Answer::report, Answer::abort});
    ThreeSteps().run();
    EXPECT_EQ(surroundings.process->processEnds, std::vector{1});
}

TEST(Branch, AfterAReportTheHandlerSeesMinusOneAndTheSameDescription) {
    Surroundings surroundings;
    ScriptedHandler handler({Answer::report, Answer::ignore});
    ThreeSteps().run();
    ASSERT_EQ(handler.asked.size(), 2u);
    EXPECT_EQ(handler.asked[1].number, -1);
    EXPECT_EQ(handler.asked[1].description, "Subscript out of range");
}

TEST(Branch, AFailureAfterTheReportedOneHasItsOwnNumberAgain) {
    Surroundings surroundings;
    ScriptedHandler handler({Answer::report, Answer::retry, Answer::ignore});
    ThreeSteps procedure{.trail = {}, .failures = 2};
    procedure.run();
    ASSERT_EQ(handler.asked.size(), 3u);
    EXPECT_EQ(handler.asked[2].number, 9);
}

TEST(Branch, WithNobodyToAskTheErrorReachesTheCallerAsItWas) {
    ThreeSteps procedure;
    try {
        procedure.run();
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 9);
        EXPECT_EQ(error.description, "Subscript out of range");
    }
    EXPECT_EQ(procedure.trail, "12");
}

TEST(Branch, AnErrorHandedOnAfterAReportKeepsItsNumber) {
    Surroundings surroundings;
    ScriptedHandler handler({Answer::report, Answer::handOn});
    try {
        ThreeSteps().run();
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 9);
    }
}

TEST(Branch, TheLastStepIgnoredEndsTheProcedureOrdinarily) {
    ScriptedHandler handler({Answer::ignore});
    Procedure run("clsSample", "Last", nullptr, [](Locals&) {});
    EXPECT_EQ(run([] { raise(Error::overflow); }), Flow::next);
}

TEST(Branch, AStepThatLeavesEndsTheProcedure) {
    std::string trail;
    Procedure run("clsSample", "Leaving", nullptr, [](Locals&) {});
    EXPECT_EQ(run([&] { trail += '1'; },
                  [&] {
                      trail += '2';
                      return Flow::leave;
                  },
                  [&] { trail += '3'; }),
              Flow::leave);
    EXPECT_EQ(trail, "12");
}

/// A loop over four places inside a step; each body fails at place 2 for the first `failures` times.
struct Loop {
    std::string trail;
    int failures = 1;

    Flow run() {
        Procedure run("clsSample", "Loop", nullptr, [](Locals&) {});
        return run(
            [&] {
                for (int place = 0; place < 4; ++place) {
                    const Flow flow = run([&] { trail += static_cast<char>('a' + place); },
                                          [&] {
                                              if (place == 2 && failures-- > 0) raise(Error::subscript);
                                              trail += static_cast<char>('A' + place);
                                          });
                    if (flow == Flow::leave) return Flow::leave;
                }
                return Flow::next;
            },
            [&] { trail += '.'; });
    }
};

TEST(Branch, RetryInTheMiddleOfALoopRepeatsOnlyTheFailingStatement) {
    ScriptedHandler handler({Answer::retry});
    Loop loop;
    EXPECT_EQ(loop.run(), Flow::next);
    EXPECT_EQ(loop.trail, "aAbBcCdD.");
}

TEST(Branch, IgnoreInTheMiddleOfALoopGoesOnWithTheLoop) {
    ScriptedHandler handler({Answer::ignore});
    Loop loop;
    EXPECT_EQ(loop.run(), Flow::next);
    EXPECT_EQ(loop.trail, "aAbBcdD.");
}

TEST(Branch, LeaveInANestedRunLeavesTheProcedure) {
    ScriptedHandler handler({Answer::leave});
    Loop loop;
    EXPECT_EQ(loop.run(), Flow::leave);
    EXPECT_EQ(loop.trail, "aAbBc");
    EXPECT_EQ(handler.asked.size(), 1u);
}

TEST(Branch, AnErrorHandedOnByANestedRunIsNotAskedTwice) {
    ScriptedHandler handler({Answer::handOn, Answer::ignore});
    Loop loop;
    EXPECT_THROW(loop.run(), RuntimeError);
    EXPECT_EQ(handler.asked.size(), 1u);
}

TEST(Branch, AFailureAfterOneThatWasHandedOnAndCaughtIsAskedAgain) {
    ScriptedHandler handler({Answer::handOn, Answer::ignore});
    std::string trail;
    Procedure run("clsSample", "Twice", nullptr, [](Locals&) {});
    run(
        [&] {
            try {
                run([] { raise(Error::subscript); });
            } catch (const RuntimeError&) {
                trail += 'c';
            }
            raise(Error::overflow);
        },
        [&] { trail += '2'; });
    EXPECT_EQ(trail, "c2");
    ASSERT_EQ(handler.asked.size(), 2u);
    EXPECT_EQ(handler.asked[1].number, 6);
}

TEST(Branch, AnOuterProceduresBranchIsAskedAgain) {
    ScriptedHandler handler({Answer::handOn, Answer::ignore});
    std::string trail;
    Procedure outer("clsOuter", "Outer", nullptr, [](Locals&) {});
    outer([&] { ThreeSteps().run(); }, [&] { trail += 'o'; });
    EXPECT_EQ(trail, "o");
    ASSERT_EQ(handler.asked.size(), 2u);
    EXPECT_EQ(handler.asked[0].procedure, "ThreeSteps");
    EXPECT_EQ(handler.asked[1].procedure, "Outer");
}

TEST(Branch, MemoryThatRanOutIsErrorSeven) {
    ScriptedHandler handler({Answer::ignore});
    Procedure run("clsSample", "Memory", nullptr, [](Locals&) {});
    run([] { throw std::bad_alloc(); });
    ASSERT_EQ(handler.asked.size(), 1u);
    EXPECT_EQ(handler.asked[0].number, 7);
    EXPECT_EQ(handler.asked[0].description, "Out of memory");
}

TEST(Branch, AContractViolationIsNeverAnswered) {
    ScriptedHandler handler({Answer::ignore});
    Procedure run("clsSample", "Mistake", nullptr, [](Locals&) {});
    EXPECT_THROW(run([] { throw ContractViolation("table out of order"); }), ContractViolation);
    EXPECT_TRUE(handler.asked.empty());
}

TEST(Branch, WhatIsNoErrorAtAllPassesThrough) {
    ScriptedHandler handler({Answer::ignore});
    Procedure run("clsSample", "Other", nullptr, [](Locals&) {});
    EXPECT_THROW(run([] { throw 1; }), int);
    EXPECT_TRUE(handler.asked.empty());
}

TEST(Branch, WhatTheHandlerItselfRaisesReachesTheCaller) {
    class Failing final : public ErrorHandler {
        Answer ask(const Failure&) override { raise(Error::deviceIO); }
    } failing;
    const WithErrorHandler inForce(failing);
    try {
        ThreeSteps().run();
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 57);
    }
}

TEST(Branch, AHandlerMayEndTheThreadThroughAllItsProcedures) {
    class Ending final : public ErrorHandler {
        Answer ask(const Failure&) override {
            vbwExitThread();
            return Answer::ignore;
        }
    } ending;
    std::string trail;
    std::thread([&] {
        const WithErrorHandler inForce(ending);
        Procedure outer("clsOuter", "Outer", nullptr, [](Locals&) {});
        outer([&] { ThreeSteps().run(); }, [&] { trail += "went on"; });
    }).join();
    EXPECT_EQ(trail, "");
}

TEST(ErrorHandler, TheInnermostIsAskedUntilItsScopeEnds) {
    ScriptedHandler outer({Answer::ignore, Answer::ignore});
    {
        ScriptedHandler inner({Answer::ignore});
        ThreeSteps().run();
        EXPECT_EQ(inner.asked.size(), 1u);
    }
    ThreeSteps().run();
    EXPECT_EQ(outer.asked.size(), 1u);
}

TEST(OnFailure, GivesTheErrorToItsHandlerAndNobodyIsAsked) {
    ScriptedHandler asked({Answer::ignore});
    std::string trail;
    onFailure(
        [&] {
            trail += '1';
            throw RuntimeError(3022, "Duplicate key", "Network::Save");
        },
        [&](const RuntimeError& error) { trail += bracketed(error) + error.source; });
    EXPECT_EQ(trail, "1[3022] Duplicate keyNetwork::Save");
    EXPECT_TRUE(asked.asked.empty());
}

TEST(OnFailure, LeavesItsHandlerAloneWhenNothingFails) {
    bool handled = false;
    onFailure([] {}, [&](const RuntimeError&) { handled = true; });
    EXPECT_FALSE(handled);
}

TEST(OnFailure, LetsAContractViolationPass) {
    EXPECT_THROW(onFailure([] { throw ContractViolation("mistake"); }, [](const RuntimeError&) {}), ContractViolation);
}

}  // namespace
}  // namespace canvas::tracing
