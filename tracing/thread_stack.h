#pragma once
// A thread's stack, and the alternate one on which its faults are handled.

#include <csignal>
#include <cstddef>
#include <cstdint>

namespace canvas::tracing {

/// Made when a thread first enters the library, destroyed at the thread's end. An alternate stack that the host has
/// set and that is large enough is used as it is; else the thread gets one, and its own back at the end.
class ThreadStack {
public:
    static ThreadStack& ofThisThread();

    ThreadStack(const ThreadStack&) = delete;
    ThreadStack& operator=(const ThreadStack&) = delete;

    /// False on a stack of another making, such as a fiber's.
    bool contains(std::uintptr_t address) const noexcept { return address >= m_low && address < m_high; }
    /// The lowest address that leaves room to answer an error; 0 when the stack is not known.
    std::uintptr_t limit() const noexcept;
    /// True when an access fell off the end of the stack whose pointer then was `pointer`.
    bool isOverflow(std::uintptr_t address, std::uintptr_t pointer) const noexcept;
    /// True on the alternate stack, where a handler of faults runs.
    bool isAlternate(std::uintptr_t pointer) const noexcept;

private:
    ThreadStack() noexcept;
    ~ThreadStack();
    void findBounds() noexcept;
    void makeAlternate(std::size_t size) noexcept;

    std::uintptr_t m_low = 0;
    std::uintptr_t m_high = 0;
    stack_t m_before{};
    stack_t m_alternate{};
    bool m_made = false;
};

}  // namespace canvas::tracing
