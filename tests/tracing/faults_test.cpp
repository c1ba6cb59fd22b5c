// Real faults inside procedures.

#include "tracing/faults.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <ucontext.h>
#include <unistd.h>

#include <cstdio>
#include <thread>
#include <vector>

#include "tests/tracing/fakes.h"
#include "tests/tracing/machine_faults.h"
#include "tracing/branch.h"

#if !defined(__x86_64__)
#error "these faults are made by the instructions of x86-64"
#endif

namespace canvas::tracing {
namespace {

struct Fault {
    const char* name;
    void (*raise)();
    const char* text;
};

void useBeyondTheEndOfAFile() {
    std::FILE* file = std::tmpfile();
    void* page = ::mmap(nullptr, 4096, PROT_READ, MAP_SHARED, ::fileno(file), 0);
    std::fclose(file);
    try {
        [[maybe_unused]] const char seen = *static_cast<volatile char*>(page);
    } catch (...) {
        ::munmap(page, 4096);
        throw;
    }
}

class Faults : public testing::TestWithParam<Fault> {
protected:
    void SetUp() override { vbwHandleException(); }
    void TearDown() override { vbwUnHandleException(); }

    /// A procedure whose second step fails `failures` times.
    Flow run(int failures = 1) {
        Procedure run("clsSample", "Faulting", nullptr, [](Locals&) {});
        return run([&] { trail += '1'; },
                   [&] {
                       trail += '2';
                       if (failures-- > 0) GetParam().raise();
                       trail += '!';
                   },
                   [&] { trail += '3'; });
    }

    std::string trail;
};

TEST_P(Faults, AreErrors440WithTheTextOfTheException) {
    ScriptedHandler handler({Answer::ignore});
    run();
    ASSERT_EQ(handler.asked.size(), 1u);
    EXPECT_EQ(handler.asked[0].number, 440);
    EXPECT_EQ(handler.asked[0].description, GetParam().text);
}

TEST_P(Faults, CanBeRetried) {
    ScriptedHandler handler({Answer::retry, Answer::retry});
    EXPECT_EQ(run(2), Flow::next);
    EXPECT_EQ(trail, "1222!3");
}

TEST_P(Faults, CanBeIgnored) {
    ScriptedHandler handler({Answer::ignore});
    EXPECT_EQ(run(), Flow::next);
    EXPECT_EQ(trail, "123");
}

TEST_P(Faults, CanEndTheProcedure) {
    ScriptedHandler handler({Answer::leave});
    EXPECT_EQ(run(), Flow::leave);
    EXPECT_EQ(trail, "12");
}

TEST_P(Faults, CanEndTheProcess) {
    Surroundings surroundings;
    ScriptedHandler handler({Answer::abort});
    run();
    EXPECT_EQ(surroundings.process->processEnds, std::vector{1});
}

TEST_P(Faults, CanBeReported) {
    Surroundings surroundings;
    ScriptedHandler handler({Answer::report, Answer::ignore});
    EXPECT_EQ(run(), Flow::next);
    EXPECT_TRUE(surroundings.wrote("Err.Number = \"440\" (Long)"));
    EXPECT_TRUE(surroundings.wrote(std::string("Err.Description = \"") + GetParam().text + "\" (String)"));
}

TEST_P(Faults, ReachTheCallerWhenNobodyCanBeAsked) {
    try {
        run();
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 440);
        EXPECT_EQ(error.description, GetParam().text);
    }
}

TEST_P(Faults, ReachAHandlerOfTheProceduresOwn) {
    std::string told;
    onFailure([] { GetParam().raise(); }, [&](const RuntimeError& error) { told = bracketed(error); });
    EXPECT_EQ(told, std::string("[440] ") + GetParam().text);
}

TEST_P(Faults, CanHappenManyTimes) {
    ScriptedHandler handler(std::vector(100, Answer::ignore));
    for (int i = 0; i < 100; ++i) run();
    EXPECT_EQ(handler.asked.size(), 100u);
}

INSTANTIATE_TEST_SUITE_P(Machine, Faults,
                         testing::Values(Fault{"NullWrite", writeThroughNull, "Exception: Access Violation"},
                                         Fault{"DivisionByZero", divideByZero, "Exception: Integer Divide By Zero"},
                                         Fault{"IllegalInstruction", executeNonsense, "Exception: Illegal Instruction"},
                                         Fault{"Breakpoint", hitBreakpoint, "Exception: Breakpoint"},
                                         Fault{"LostPage", useBeyondTheEndOfAFile, "Exception: In Page Error"},
                                         Fault{"StackOverflow", overflowStack, "Exception: Stack Overflow"}),
                         [](const auto& info) { return info.param.name; });

class Filter : public testing::Test {
protected:
    void SetUp() override { vbwHandleException(); }
    void TearDown() override { vbwUnHandleException(); }
};

TEST_F(Filter, ServesEveryThread) {
    std::vector<std::size_t> asked(4);
    std::vector<std::thread> threads;
    for (std::size_t& count : asked)
        threads.emplace_back([&count] {
            ScriptedHandler handler(std::vector(50, Answer::ignore));
            for (int i = 0; i < 50; ++i) {
                Procedure run("clsSample", "Thread", nullptr, [](Locals&) {});
                run([&] { i % 2 ? writeThroughNull() : divideByZero(); });
            }
            count = handler.asked.size();
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(asked, (std::vector<std::size_t>{50, 50, 50, 50}));
}

TEST_F(Filter, ServesAThreadThatUsesUpItsStack) {
    std::string description;
    std::thread([&] {
        onFailure([] { overflowStack(); }, [&](const RuntimeError& error) { description = error.description; });
    }).join();
    EXPECT_EQ(description, "Exception: Stack Overflow");
}

TEST_F(Filter, TakesNoAlternateStackFromAThreadThatHasOne) {
    std::thread([] {
        std::vector<char> memory(256 * 1024);
        stack_t own{}, before{}, during{};
        own.ss_sp = memory.data();
        own.ss_size = memory.size();
        sigaltstack(&own, &before);
        onFailure([] { writeThroughNull(); }, [](const RuntimeError&) {});
        sigaltstack(&before, &during);
        EXPECT_EQ(during.ss_sp, own.ss_sp);
    }).join();
}

/// Each level is a procedure; the deepest one that still has room meets the end.
int recursions = 0;
void recurse() {
    Procedure run("clsSample", "recurse", nullptr, [](Locals&) {});
    run([] {
        ++recursions;
        recurse();
    });
}

TEST_F(Filter, ARecursionThroughProceduresIsAnErrorWithRoomToAnswerIt) {
    ScriptedHandler handler;
    recursions = 0;
    std::thread([&] {
        ScriptedHandler asked({Answer::leave});
        recurse();
        ASSERT_EQ(asked.asked.size(), 1u);
        EXPECT_EQ(asked.asked[0].description, "Exception: Stack Overflow");
    }).join();
    EXPECT_GT(recursions, 1000);
}

TEST_F(Filter, ARecursionIsHandedOnThroughAllItsProcedures) {
    std::string description;
    std::thread([&] {
        onFailure([] { recurse(); }, [&](const RuntimeError& error) { description = error.description; });
    }).join();
    EXPECT_EQ(description, "Exception: Stack Overflow");
}

TEST_F(Filter, AProcedureRunsOnAStackOfTheHostsMaking) {
    static std::string trail;
    trail.clear();
    static ucontext_t caller, fiber;
    std::vector<char> memory(512 * 1024);
    getcontext(&fiber);
    fiber.uc_stack.ss_sp = memory.data();
    fiber.uc_stack.ss_size = memory.size();
    fiber.uc_link = &caller;
    makecontext(&fiber, [] {
        Procedure run("clsSample", "Fiber", nullptr, [](Locals&) {});
        run([] { trail += '1'; }, [] { trail += '2'; });
    }, 0);
    swapcontext(&caller, &fiber);
    EXPECT_EQ(trail, "12");
}

/// A member that cannot even be looked at.
class clsBroken final : public Object {
public:
    std::string_view className() const noexcept override { return "clsBroken"; }
    void reportVariables(VariableSink& sink) const override {
        sink.variable("a", "1");
        writeThroughNull();
    }
};

TEST_F(Filter, AFaultInsideAReportDoesNotEndTheReport) {
    Surroundings surroundings;
    ScriptedHandler handler({Answer::report, Answer::ignore});
    const auto broken = make<clsBroken>();
    Procedure run("clsBroken", "Work", broken.get(), [](Locals&) {});
    EXPECT_EQ(run([] { writeThroughNull(); }), Flow::next);
    EXPECT_TRUE(surroundings.wrote("a = \"1\" (String)\r\nclsBroken = {Variable Dumping Error}\r\n"));
    EXPECT_TRUE(surroundings.dump().ends_with("**** Printer Printer ****\r\n"));
}

TEST_F(Filter, AFaultInTheErrorHandlerReachesTheCaller) {
    class Faulting final : public ErrorHandler {
        Answer ask(const Failure&) override {
            writeThroughNull();
            return Answer::ignore;
        }
    } faulting;
    const WithErrorHandler inForce(faulting);
    Procedure run("clsSample", "Asking", nullptr, [](Locals&) {});
    try {
        run([] { raise(Error::overflow); });
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.description, "Exception: Access Violation");
    }
}

TEST_F(Filter, TheRunIsCountedAlsoWhenItEndsInAFault) {
    EXPECT_FALSE(InLibrary::running());
    onFailure(
        [] {
            EXPECT_TRUE(InLibrary::running());
            writeThroughNull();
        },
        [](const RuntimeError&) { EXPECT_FALSE(InLibrary::running()); });
    EXPECT_FALSE(InLibrary::running());
}

}  // namespace
}  // namespace canvas::tracing
