// The tests' stores lie in memory where the machine offers that: what is tested is order and content, not the disk.

#include <cstdlib>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

struct InMemory final : ::testing::Environment {
    void SetUp() override {
        if (::access("/dev/shm", W_OK) == 0) ::setenv("TMPDIR", "/dev/shm", 0);
    }
};

[[maybe_unused]] const ::testing::Environment* const inMemory = ::testing::AddGlobalTestEnvironment(new InMemory);

}  // namespace
