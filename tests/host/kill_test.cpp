// Saves are cut off by SIGKILL at random moments: the file is then always one of the two contents, whole.

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <csignal>
#include <cstring>
#include <random>

#include "host/files.h"
#include "scratch.h"
#include "tests/host/kills.h"

using namespace canvas;

namespace {

constexpr std::size_t atOnce = 8;
constexpr unsigned longestWait = 3000;  // microseconds

#ifdef __SANITIZE_ADDRESS__
constexpr int usualKills = 200;  // a fork costs ten times as much there
#else
constexpr int usualKills = 1000;
#endif

std::string content(std::string_view word, std::size_t size) {
    std::string bytes;
    while (bytes.size() < size) bytes += std::string(word) + " " + std::to_string(bytes.size()) + "\r\n";
    return bytes;
}

const std::array<std::string, 2> contents{content("short", 190000), content("longer", 210000)};

/// Saves for ever; tells through `started` when it begins.
[[noreturn]] void saveInALoop(const std::string& path, int started) {
    const auto files = makeDisk();
    if (::write(started, "", 1) != 1) ::_exit(1);
    for (std::size_t turn = 0;; ++turn) files->replace(path)->commit(contents[turn % 2]);
}

struct Saver {
    explicit Saver(const std::string& path) {
        int ends[2];
        if (::pipe(ends) != 0) return;
        process = ::fork();
        if (process == 0) saveInALoop(path, ends[1]);
        char byte;
        begun = ::read(ends[0], &byte, 1) == 1;
        ::close(ends[0]);
        ::close(ends[1]);
    }
    /// False when it had ended by itself.
    bool kill() const {
        int status = 0;
        ::kill(process, SIGKILL);
        ::waitpid(process, &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }
    pid_t process = -1;
    bool begun = false;
};

std::size_t removeStrays(const scratch::Folder& folder) {
    std::size_t strays = 0;
    for (const std::string& name : folder.entries())
        if (name.ends_with(".tmp")) strays += std::filesystem::remove(folder / name) ? 1 : 0;
    return strays;
}

}  // namespace

TEST(AKilledSave, LeavesOneOfTheTwoContentsWhole) {
    const scratch::Folder folder;
    const auto files = makeDisk();
    std::mt19937 random(20240229);  // the same waits every time
    std::uniform_int_distribution<unsigned> wait(0, longestWait);
    std::array<int, 2> seen{};
    std::size_t strays = 0;
    int kills = 0;
    for (const int wanted = kills::wanted(usualKills); kills < wanted;) {
        std::vector<Saver> savers;
        for (std::size_t i = 0; i < atOnce; ++i) {
            const std::string path = folder / std::to_string(i);
            scratch::put(path, contents[i % 2]);
            savers.emplace_back(path);
            ASSERT_TRUE(savers.back().begun);
        }
        for (std::size_t i = 0; i < atOnce; ++i, ++kills) {
            ::usleep(wait(random));
            ASSERT_TRUE(savers[i].kill()) << "the saver ended by itself";
            const std::string left = scratch::bytesOf(folder / std::to_string(i));
            ASSERT_TRUE(left == contents[0] || left == contents[1]) << "after " << kills << " kills";
            ++seen[left == contents[1] ? 1 : 0];
        }
        files->replace(folder / "0")->commit("saved after the kill");
        ASSERT_EQ(scratch::bytesOf(folder / "0"), "saved after the kill");
        strays += removeStrays(folder);
    }
    RecordProperty("kills", kills);
    RecordProperty("strays", static_cast<int>(strays));
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
    EXPECT_GT(strays, 0U) << "no kill met a save half done";
}
