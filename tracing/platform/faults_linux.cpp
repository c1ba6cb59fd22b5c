#include "tracing/faults.h"

#include <csignal>
#include <cstdlib>
#include <exception>
#include <mutex>

#include <ucontext.h>

#include "host/errors.h"
#include "tracing/branch.h"
#include "tracing/exceptions.h"
#include "tracing/options.h"
#include "tracing/report.h"
#include "tracing/thread_stack.h"

namespace canvas::tracing {
namespace {

/// One of the signals that faults arrive as, and the handler that was there before.
struct Filtered {
    int signal;
    struct sigaction before {};
    /// Ours is in force, or some handler that was set later may still call it.
    bool chained = false;
};

constinit Filtered filtered[] = {{SIGSEGV}, {SIGBUS}, {SIGFPE}, {SIGILL}, {SIGTRAP}};
constinit std::atomic<bool> active = false;
constinit std::terminate_handler terminateBefore = nullptr;
constinit std::mutex setting;

[[noreturn]] void raiseException(Exception exception) { raise(Error::automation, std::string(textOf(exception))); }

std::uintptr_t stackPointer([[maybe_unused]] const void* context) noexcept {
#if defined(__x86_64__)
    return static_cast<std::uintptr_t>(static_cast<const ucontext_t*>(context)->uc_mcontext.gregs[REG_RSP]);
#elif defined(__aarch64__)
    return static_cast<const ucontext_t*>(context)->uc_mcontext.sp;
#else
    return 0;  // a stack overflow then shows as an access violation
#endif
}

/// Calls a handler with the signals blocked that the kernel would have blocked for it.
void callBefore(const struct sigaction& before, int signal, siginfo_t* info, void* context) {
    sigset_t blocked = before.sa_mask, mask;
    if (!(before.sa_flags & SA_NODEFER)) sigaddset(&blocked, signal);
    pthread_sigmask(SIG_BLOCK, &blocked, &mask);
    if (before.sa_flags & SA_SIGINFO) before.sa_sigaction(signal, info, context);
    else before.sa_handler(signal);
    pthread_sigmask(SIG_SETMASK, &mask, nullptr);
}

/// Does what would have happened without the filter.
void handOn(Filtered& row, siginfo_t* info, void* context) {
    const bool sent = info->si_code <= 0;
    const bool takesInfo = (row.before.sa_flags & SA_SIGINFO) != 0;
    if (!takesInfo && row.before.sa_handler == SIG_IGN && sent) return;  // the machine's own faults cannot be ignored
    if (takesInfo || (row.before.sa_handler != SIG_DFL && row.before.sa_handler != SIG_IGN)) {
        struct sigaction before = row.before;
        if (static_cast<unsigned>(before.sa_flags) & SA_RESETHAND) {
            row.before.sa_handler = SIG_DFL;
            row.before.sa_flags &= ~SA_SIGINFO;
        }
        return callBefore(before, row.signal, info, context);
    }
    struct sigaction byDefault {};
    byDefault.sa_handler = SIG_DFL;
    sigaction(row.signal, &byDefault, nullptr);
    // Back at the failing instruction the fault comes again, and a core file then shows that place. What was sent,
    // and a breakpoint that has been passed, would not come again.
    if (sent || row.signal == SIGTRAP) ::raise(row.signal);
}

void filter(int signal, siginfo_t* info, void* context) {
    Filtered* row = filtered;
    while (row->signal != signal) ++row;
    const bool sent = info->si_code <= 0;
    if (sent || !active || !InLibrary::running()) return handOn(*row, info, context);
    const ThreadStack& stack = ThreadStack::ofThisThread();
    const std::uintptr_t pointer = stackPointer(context);
    if (stack.isAlternate(pointer)) return handOn(*row, info, context);  // a fault while a fault was being raised
    const auto address = reinterpret_cast<std::uintptr_t>(info->si_addr);
    const bool overflow = (signal == SIGSEGV || signal == SIGBUS) && stack.isOverflow(address, pointer);
    raiseException(overflow ? Exception::stackOverflow : exceptionOf(signal, info->si_code));
}

bool isOurs(const struct sigaction& action) {
    return (action.sa_flags & SA_SIGINFO) != 0 && action.sa_sigaction == &filter;
}

void chain(Filtered& row) {
    if (row.chained) return;
    struct sigaction ours {};
    ours.sa_sigaction = &filter;
    // The error is thrown out of the handler: the signal must not stay blocked, and a stack must be left to do it on.
    ours.sa_flags = SA_SIGINFO | SA_ONSTACK | SA_NODEFER;
    sigemptyset(&ours.sa_mask);
    sigaction(row.signal, nullptr, &row.before);  // known before ours can be called
    row.chained = sigaction(row.signal, &ours, nullptr) == 0;
}

void unchain(Filtered& row) {
    struct sigaction now {};
    // A handler set after ours may have kept ours as the one to hand on to, so it stays in the chain.
    if (!row.chained || sigaction(row.signal, nullptr, &now) == -1 || !isOurs(now)) return;
    row.chained = sigaction(row.signal, &row.before, nullptr) == -1;
}

/// The error that could not pass, when it was one.
RuntimeError lastError() {
    try {
        if (std::current_exception()) return caught();
    } catch (...) {
    }
    return RuntimeError(Error::automation, std::string(textOf(Exception::unknown)));
}

/// Where the process must end inside one of our procedures, the report comes first.
[[noreturn]] void reportAndTerminate() {
    static thread_local bool reporting = false;
    if (active && InLibrary::running() && !std::exchange(reporting, true)) detail::writeReport({}, lastError());
    if (terminateBefore) terminateBefore();
    std::abort();
}

}  // namespace

constinit thread_local int InLibrary::depth = 0;
constinit thread_local std::uintptr_t InLibrary::stackLimit = UINTPTR_MAX;

void InLibrary::enter(std::uintptr_t here) {
    vbwInitialize();  // the library's first use
    const ThreadStack& stack = ThreadStack::ofThisThread();
    stackLimit = stack.limit();
    if (active && here < stackLimit && stack.contains(here)) raiseException(Exception::stackOverflow);
}

void vbwHandleException() {
    const std::lock_guard lock(setting);
    if (active.exchange(true)) return;
    for (Filtered& row : filtered) chain(row);
    if (std::get_terminate() != &reportAndTerminate) terminateBefore = std::set_terminate(&reportAndTerminate);
}

void vbwUnHandleException() {
    const std::lock_guard lock(setting);
    if (!active.exchange(false)) return;
    for (Filtered& row : filtered) unchain(row);
    if (std::get_terminate() == &reportAndTerminate) std::set_terminate(terminateBefore);
}

}  // namespace canvas::tracing
