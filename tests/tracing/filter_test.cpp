// What the filter leaves to the host: faults outside procedures, signals that were sent, ends of the process.

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <exception>

#include "tests/tracing/fakes.h"
#include "tests/tracing/machine_faults.h"
#include "tracing/branch.h"
#include "tracing/faults.h"

namespace canvas::tracing {
namespace {

void setHandler(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    sigaction(signal, &action, nullptr);
}

void setHandler(int signal, void (*handler)(int, siginfo_t*, void*), int flags = 0) {
    struct sigaction action {};
    action.sa_sigaction = handler;
    action.sa_flags = SA_SIGINFO | flags;
    sigaction(signal, &action, nullptr);
}

void exit41(int) { ::_exit(41); }
void exit42WithInfo(int signal, siginfo_t* info, void*) {
    ::_exit(signal == SIGSEGV && info->si_code == SEGV_MAPERR && !info->si_addr ? 42 : 1);
}

template <class Body>
void inProcedure(Body&& body) {
    Procedure run("clsSample", "Filtered", nullptr, [](Locals&) {});
    run(body);
}

volatile sig_atomic_t received = 0;
void count(int) { received = received + 1; }

TEST(FaultsOutsideProcedures, ReachTheHostsHandler) {
    EXPECT_EQ(ending(statusOfChild([] {
        setHandler(SIGSEGV, exit41);
        vbwHandleException();
        writeThroughNull();
    })), "exit 41");
}

TEST(FaultsOutsideProcedures, ReachTheHostsHandlerWithTheirInformation) {
    EXPECT_EQ(ending(statusOfChild([] {
        setHandler(SIGSEGV, exit42WithInfo);
        vbwHandleException();
        writeThroughNull();
    })), "exit 42");
}

TEST(FaultsOutsideProcedures, ReachItAlsoAfterProceduresRan) {
    EXPECT_EQ(ending(statusOfChild([] {
        setHandler(SIGSEGV, exit41);
        vbwHandleException();
        ScriptedHandler handler({Answer::ignore});
        inProcedure([] { writeThroughNull(); });
        writeThroughNull();
    })), "exit 41");
}

TEST(FaultsOutsideProcedures, FindTheirSignalBlockedAsTheKernelBlocksIt) {
    EXPECT_EQ(ending(statusOfChild([] {
        setHandler(SIGFPE, [](int) {
            sigset_t mask;
            pthread_sigmask(SIG_BLOCK, nullptr, &mask);
            ::_exit(sigismember(&mask, SIGFPE) ? 43 : 1);
        });
        vbwHandleException();
        divideByZero();
    })), "exit 43");
}

TEST(FaultsOutsideProcedures, EndTheProcessAsTheyWouldHave) {
    struct { void (*fault)(); int signal; } const rows[] = {
        {writeThroughNull, SIGSEGV}, {divideByZero, SIGFPE}, {executeNonsense, SIGILL}, {hitBreakpoint, SIGTRAP}};
    for (const auto& row : rows)
        EXPECT_EQ(ending(statusOfChild([&] {
            ::signal(row.signal, SIG_DFL);
            vbwHandleException();
            row.fault();
        })), "signal " + std::to_string(row.signal));
}

TEST(FaultsOutsideProcedures, CannotBeIgnored) {
    EXPECT_EQ(ending(statusOfChild([] {
        ::signal(SIGSEGV, SIG_IGN);
        vbwHandleException();
        writeThroughNull();
    })), "signal " + std::to_string(SIGSEGV));
}

TEST(FaultsOutsideProcedures, ServeAHandlerForOneTimeOnce) {
    EXPECT_EQ(ending(statusOfChild([] {
        setHandler(SIGSEGV, [](int, siginfo_t*, void*) { received = received + 1; }, static_cast<int>(SA_RESETHAND));
        vbwHandleException();
        writeThroughNull();  // comes again after the handler, and is then nobody's
    })), "signal " + std::to_string(SIGSEGV));
}

TEST(SentSignals, AreNotErrors) {
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP})
        EXPECT_EQ(ending(statusOfChild([&] {
            ::signal(signal, SIG_DFL);
            vbwHandleException();
            ScriptedHandler handler({Answer::ignore});
            inProcedure([&] { ::raise(signal); });
        })), "signal " + std::to_string(signal));
}

TEST(SentSignals, FromOutsideEndAProcedureWithItsProcess) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const int status = statusOfChild([&] {
        // The sender: waits until its own child, inside a procedure, is ready.
        const pid_t child = ::fork();
        if (child == 0) {
            ::signal(SIGSEGV, SIG_DFL);
            vbwHandleException();
            ScriptedHandler handler({Answer::ignore});
            inProcedure([&] {
                if (::write(ready[1], "r", 1) != 1) ::_exit(2);
                ::pause();
            });
            ::_exit(3);
        }
        char seen = 0;
        if (::read(ready[0], &seen, 1) != 1) ::_exit(4);
        ::kill(child, SIGSEGV);
        int ended = 0;
        ::waitpid(child, &ended, 0);
        ::_exit(WIFSIGNALED(ended) && WTERMSIG(ended) == SIGSEGV ? 44 : 5);
    });
    ::close(ready[0]);
    ::close(ready[1]);
    EXPECT_EQ(ending(status), "exit 44");
}

TEST(SentSignals, ReachTheHostsHandlerAndTheProcedureGoesOn) {
    EXPECT_EQ(ending(statusOfChild([] {
        setHandler(SIGSEGV, count);
        vbwHandleException();
        ScriptedHandler handler;
        inProcedure([] { ::raise(SIGSEGV); });
        ::_exit(received == 1 && handler.asked.empty() ? 45 : 1);
    })), "exit 45");
}

TEST(SentSignals, ThatTheHostIgnoresStayIgnored) {
    EXPECT_EQ(ending(statusOfChild([] {
        ::signal(SIGSEGV, SIG_IGN);
        vbwHandleException();
        inProcedure([] { ::raise(SIGSEGV); });
        ::raise(SIGSEGV);
    })), "exit 0");
}

TEST(HandlerChain, ComesBackAtTheEnd) {
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP}) {
        struct sigaction before {}, during {}, after {};
        sigaction(signal, nullptr, &before);
        setHandler(signal, count);
        vbwHandleException();
        vbwHandleException();
        sigaction(signal, nullptr, &during);
        EXPECT_NE(during.sa_handler, &count);
        vbwUnHandleException();
        vbwUnHandleException();
        sigaction(signal, &before, &after);
        EXPECT_EQ(after.sa_handler, &count);
        EXPECT_EQ(after.sa_flags & SA_SIGINFO, 0);
    }
}

/// A handler that the host sets over the filter, and that hands on what it does not want.
struct sigaction under;
void handingOn(int signal, siginfo_t* info, void* context) {
    received = received + 1;
    under.sa_sigaction(signal, info, context);
}
void setOver(int signal) {
    sigaction(signal, nullptr, &under);
    setHandler(signal, handingOn, SA_ONSTACK | SA_NODEFER);
}

TEST(HandlerChain, WorksBelowAHandlerThatTheHostSetLater) {
    EXPECT_EQ(ending(statusOfChild([] {
        vbwHandleException();
        setOver(SIGSEGV);
        ScriptedHandler handler({Answer::ignore});
        inProcedure([] { writeThroughNull(); });
        ::_exit(received == 1 && handler.asked.size() == 1 ? 46 : 1);
    })), "exit 46");
}

TEST(HandlerChain, LeavesAHandlerThatTheHostSetLaterInForce) {
    EXPECT_EQ(ending(statusOfChild([] {
        setHandler(SIGSEGV, exit41);
        vbwHandleException();
        setOver(SIGSEGV);
        vbwUnHandleException();
        struct sigaction now {};
        sigaction(SIGSEGV, nullptr, &now);
        if (now.sa_sigaction != &handingOn) ::_exit(1);
        inProcedure([] { writeThroughNull(); });  // over the filter, which is off, to the first handler
    })), "exit 41");
}

TEST(HandlerChain, TakesUpItsOldPlaceBelowAHandlerThatTheHostSetLater) {
    EXPECT_EQ(ending(statusOfChild([] {
        vbwHandleException();
        setOver(SIGSEGV);
        vbwUnHandleException();
        vbwHandleException();
        ScriptedHandler handler({Answer::ignore});
        inProcedure([] { writeThroughNull(); });
        ::_exit(received == 1 && handler.asked.size() == 1 ? 47 : 1);
    })), "exit 47");
}

TEST(WithoutTheFilter, AFaultInAProcedureEndsTheProcess) {
    EXPECT_EQ(ending(statusOfChild([] {
        ::signal(SIGSEGV, SIG_DFL);
        ScriptedHandler handler({Answer::ignore});
        inProcedure([] { writeThroughNull(); });
    })), "signal " + std::to_string(SIGSEGV));
}

Surroundings* inChild = nullptr;
/// The host's own end: tells by its exit code whether the report was there already.
[[noreturn]] void hostsEnd() {
    const bool reported = inChild->wrote("* GLOBAL LEVEL VARIABLES *") &&
                          inChild->wrote("Err.Description = \"Exception: Access Violation\" (String)");
    ::_exit(reported ? 48 : 49);
}
void faultWhereNothingMayPass() noexcept { writeThroughNull(); }
struct FaultsAtItsEnd {
    ~FaultsAtItsEnd() { writeThroughNull(); }
};

int endOf(void (*body)()) {
    return statusOfChild([body] {
        Surroundings surroundings;
        inChild = &surroundings;
        std::set_terminate(hostsEnd);
        vbwHandleException();
        ScriptedHandler handler({Answer::ignore});
        body();
    });
}

TEST(WhereNoErrorCanPass, TheReportIsWrittenBeforeTheHostsEnd) {
    EXPECT_EQ(ending(endOf([] { inProcedure([] { faultWhereNothingMayPass(); }); })), "exit 48");
    EXPECT_EQ(ending(endOf([] { inProcedure([] { const FaultsAtItsEnd ends; }); })), "exit 48");
}

TEST(WhereNoErrorCanPass, OutsideAProcedureTheHostsEndComesAlone) {
    EXPECT_EQ(ending(endOf([] { std::terminate(); })), "exit 49");
}

TEST(WhereNoErrorCanPass, TheHostsEndComesBackWithItsHandlers) {
    const std::terminate_handler before = std::get_terminate();
    vbwHandleException();
    EXPECT_NE(std::get_terminate(), before);
    vbwUnHandleException();
    EXPECT_EQ(std::get_terminate(), before);
}

}  // namespace
}  // namespace canvas::tracing
