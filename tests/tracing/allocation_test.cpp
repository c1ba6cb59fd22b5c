// A procedure in which nothing fails takes no memory.

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "tests/tracing/fakes.h"
#include "tracing/branch.h"

namespace {
thread_local std::size_t allocations = 0;

void* counted(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size ? size : 1)) return memory;
    throw std::bad_alloc();
}
}  // namespace

void* operator new(std::size_t size) { return counted(size); }
void* operator new[](std::size_t size) { return counted(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace canvas::tracing {
namespace {

[[gnu::noinline]] int work(const std::string& text, int count) {
    int result = 0;
    Procedure run("clsSample", "work", nullptr, [&](Locals& l) {
        l("text", text);
        l("count", count);
        l("result", result);
    });
    run([&] { result += count; },
        [&] {
            for (int i = 0; i < count; ++i)
                if (run([&] { result += i; }) == Flow::leave) return Flow::leave;
            return Flow::next;
        });
    return result;
}

TEST(Allocation, ARunWithNothingFailingAllocatesNothing) {
    const std::string text(100, 'x');
    work(text, 1);  // the thread's first run prepares it
    const std::size_t before = allocations;
    for (int i = 0; i < 1000; ++i) work(text, 10);
    EXPECT_EQ(allocations, before);
}

TEST(Allocation, OnFailureWithNothingFailingAllocatesNothing) {
    const std::size_t before = allocations;
    int runs = 0;
    for (int i = 0; i < 1000; ++i) onFailure([&] { ++runs; }, [](const RuntimeError&) {});
    EXPECT_EQ(allocations, before);
    EXPECT_EQ(runs, 1000);
}

TEST(Allocation, TheCountIsTrue) {
    const std::size_t before = allocations;
    const std::string text(100, 'x');
    EXPECT_EQ(allocations, before + 1);
}

}  // namespace
}  // namespace canvas::tracing
