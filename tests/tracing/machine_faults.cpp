#include "tests/tracing/machine_faults.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace canvas::tracing {
namespace {

volatile int zero = 0;
volatile int sink = 0;

[[gnu::noinline, gnu::no_sanitize("address", "undefined")]] int descend(int depth) {
    volatile char room[256];
    room[0] = static_cast<char>(depth);
    if (zero != 0) return depth;
    return descend(depth + 1) + room[0];
}

}  // namespace

[[gnu::noinline, gnu::no_sanitize("address", "undefined")]] void writeThroughNull() {
    int* volatile nowhere = nullptr;
    *nowhere = 1;
}

[[gnu::noinline, gnu::no_sanitize("address", "undefined")]] void divideByZero() { sink = 1 / zero; }

// No __builtin_trap: the compiler takes it for an end from which nothing is thrown.
[[gnu::noinline]] void executeNonsense() { asm volatile("ud2"); }

[[gnu::noinline]] void hitBreakpoint() { asm volatile("int3"); }

void overflowStack() { sink = descend(0); }

int statusOfChild(const std::function<void()>& body) {
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit noCore{0, 0};
        ::setrlimit(RLIMIT_CORE, &noCore);
        body();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

std::string ending(int status) {
    if (WIFEXITED(status)) return "exit " + std::to_string(WEXITSTATUS(status));
    return "signal " + std::to_string(WTERMSIG(status));
}

}  // namespace canvas::tracing
