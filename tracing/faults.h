#pragma once
// Machine faults (access violation, division by zero, ...) as run-time errors of the procedure that was running.

#include <atomic>
#include <cstdint>
#include <utility>

namespace canvas::tracing {

/// While one lives on a thread, the exception filter turns a fault on that thread into RuntimeError 440. Nests.
/// Lives on the stack only: its own address tells how much stack is left. When there is too little for an error to be
/// answered, the constructor raises "Exception: Stack Overflow", so that a recursion through procedures ends as an
/// error like any other.
class InLibrary {
public:
    InLibrary() {
        const auto here = reinterpret_cast<std::uintptr_t>(this);
        if (here < stackLimit) [[unlikely]] enter(here);
        ++depth;
        // The handler of a fault reads the depth: the compiler must not take the store for a dead one.
        std::atomic_signal_fence(std::memory_order_seq_cst);
    }
    ~InLibrary() {
        std::atomic_signal_fence(std::memory_order_seq_cst);
        --depth;
    }
    InLibrary(const InLibrary&) = delete;
    InLibrary& operator=(const InLibrary&) = delete;

    static bool running() noexcept { return depth > 0; }

private:
    friend class OutOfLibrary;
    friend class ThreadStack;
    /// Prepares the thread the first time, and looks closer when the stack is nearly used up.
    static void enter(std::uintptr_t here);

    // initial-exec: one instruction to reach them, also from a library that was loaded late
    [[gnu::tls_model("initial-exec")]] static constinit thread_local int depth;
    /// The highest address until the thread is prepared.
    [[gnu::tls_model("initial-exec")]] static constinit thread_local std::uintptr_t stackLimit;
};

/// For calls of what is not the library's: while one lives on a thread, a fault there belongs to the handler that was
/// there before. A call that comes back in from there is the library's again. Lives on the stack only.
class OutOfLibrary {
public:
    OutOfLibrary() noexcept : m_depth(std::exchange(InLibrary::depth, 0)) {
        std::atomic_signal_fence(std::memory_order_seq_cst);  // as above
    }
    ~OutOfLibrary() {
        std::atomic_signal_fence(std::memory_order_seq_cst);
        InLibrary::depth = m_depth;
    }
    OutOfLibrary(const OutOfLibrary&) = delete;
    OutOfLibrary& operator=(const OutOfLibrary&) = delete;

private:
    int m_depth;
};

/// Sets the filter. The handlers that the host had stay in force for every fault outside this library's calls and for
/// every signal that was sent, and come back at `vbwUnHandleException`, unless the host has put others over them
/// since. A fault where no error can pass (a destructor, a noexcept function) still ends the process; the variable
/// report is then written first. Calling either twice is calling it once.
void vbwHandleException();
void vbwUnHandleException();

}  // namespace canvas::tracing
