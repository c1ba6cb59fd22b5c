#include "tracing/thread_stack.h"

#include <algorithm>

#include <pthread.h>
#include <sys/mman.h>

#include "tracing/faults.h"

namespace canvas::tracing {
namespace {

constexpr std::size_t kilobyte = 1024;
/// The unwinder, the machine's saved registers, and what a sanitizer adds.
constexpr std::size_t alternateSize = 128 * kilobyte;
constexpr std::size_t enoughForUnwinding = 32 * kilobyte;
constexpr std::uintptr_t roomForAnswer = 128 * kilobyte;
/// What a call or the red zone touches below the stack pointer.
constexpr std::uintptr_t belowPointer = 4 * kilobyte;
/// A procedure with large variables sets the pointer beyond the end before it touches anything.
constexpr std::uintptr_t largestFrame = 1024 * kilobyte;

std::uintptr_t addressOf(const void* pointer) noexcept { return reinterpret_cast<std::uintptr_t>(pointer); }

}  // namespace

ThreadStack& ThreadStack::ofThisThread() {
    static thread_local ThreadStack stack;
    return stack;
}

ThreadStack::ThreadStack() noexcept {
    findBounds();
    if (sigaltstack(nullptr, &m_before) == -1) return;
    const bool none = (m_before.ss_flags & SS_DISABLE) != 0;
    if (none || m_before.ss_size < enoughForUnwinding) makeAlternate(alternateSize);
    else m_alternate = m_before;
}

ThreadStack::~ThreadStack() {
    InLibrary::stackLimit = 0;  // a later destructor of the thread may still call, and then goes without
    if (!m_made) return;
    stack_t now{};
    const bool ours = sigaltstack(nullptr, &now) == 0 && now.ss_sp == m_alternate.ss_sp;
    if (ours && sigaltstack(&m_before, nullptr) == -1) return;
    munmap(m_alternate.ss_sp, m_alternate.ss_size);
}

void ThreadStack::findBounds() noexcept {
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return;
    void* low = nullptr;
    std::size_t size = 0;
    if (pthread_attr_getstack(&attributes, &low, &size) == 0) {
        m_low = addressOf(low);
        m_high = m_low + size;
    }
    pthread_attr_destroy(&attributes);
}

/// Memory that is only taken when a fault is handled. Where there is none, a stack overflow ends the process.
void ThreadStack::makeAlternate(std::size_t size) noexcept {
    void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK, -1, 0);
    if (memory == MAP_FAILED) return;
    m_alternate.ss_sp = memory;
    m_alternate.ss_size = size;
    m_made = sigaltstack(&m_alternate, nullptr) == 0;
    if (m_made) return;
    munmap(memory, size);
    m_alternate = {};
}

std::uintptr_t ThreadStack::limit() const noexcept {
    return m_low + std::min(roomForAnswer, (m_high - m_low) / 8);
}

bool ThreadStack::isOverflow(std::uintptr_t address, std::uintptr_t pointer) const noexcept {
    const bool known = m_low > largestFrame;
    const bool onStack = pointer >= m_low - largestFrame && pointer < m_high;
    // From the pointer upwards all of a stack is there, unless it has run off its end.
    return known && onStack && address + belowPointer >= pointer && address < m_high;
}

bool ThreadStack::isAlternate(std::uintptr_t pointer) const noexcept {
    return pointer - addressOf(m_alternate.ss_sp) < m_alternate.ss_size;
}

}  // namespace canvas::tracing
