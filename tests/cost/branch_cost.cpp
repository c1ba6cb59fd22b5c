// Calls a procedure a hundred thousand times, with its error branch or without: the difference in instructions is what
// the branch costs while nothing fails.

#include <cstdio>
#include <string_view>

#include "tracing/branch.h"

namespace {

struct Work {
    volatile int sum = 0;

    [[gnu::noinline]] void plain(int value) { sum = sum + value; }

    [[gnu::noinline]] void branched(int value) {
        canvas::tracing::Procedure run("Work", "branched", nullptr,
                                       [&](canvas::tracing::Locals& l) { l("value", std::int32_t{value}); });
        run([&] { sum = sum + value; });
    }
};

}  // namespace

int main(int count, char** words) {
    const bool branched = count > 1 && std::string_view(words[1]) == "branched";
    Work work;
    work.branched(1);  // the start routine
    for (int i = 0; i < 100'000; ++i) {
        if (branched) work.branched(i);
        else work.plain(i);
    }
    return work.sum == 0;
}
