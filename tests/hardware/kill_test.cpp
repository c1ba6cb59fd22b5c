// Saves are cut off by SIGKILL at random moments: the store is then sound, and each group is as before or as saved.

#include <charconv>
#include <csignal>
#include <cstring>
#include <random>

#include "fixture.h"
#include "tests/host/kills.h"

namespace canvas {
namespace {

using namespace fixture;

constexpr int atOnce = 2;  // as many as the smallest machine runs
constexpr unsigned longestWait = 2500;  // microseconds

#ifdef __SANITIZE_ADDRESS__
constexpr int usualKills = 100;  // a fork costs ten times as much there
#else
constexpr int usualKills = 1000;
#endif

void editAll(Object& module, const std::string& value) {
    for (int row = 0; row < 71; ++row) invoke(module, "SetBlockMatrix", 1, row, value);
}

/// Saves two contents by turns for ever; tells through `started` when it begins.
[[noreturn]] void saveInALoop(const std::string& path, int started) {
    const Ref<Object> module = make<clsBVTRVQD>();
    invoke(*module, "SetDBPath", path);
    if (::write(started, "", 1) != 1) ::_exit(1);
    for (int turn = 0;; ++turn) {
        editAll(*module, turn % 2 ? "second" : "first");
        invoke(*module, "SaveToDB");
    }
}

struct Saver {
    explicit Saver(const std::string& path) {
        int ends[2];
        if (::pipe(ends) != 0) return;
        process = ::fork();
        if (process == 0) saveInALoop(path, ends[1]);
        char byte;
        ::close(ends[1]);
        begun = ::read(ends[0], &byte, 1) == 1;
        ::close(ends[0]);
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

struct Seen {
    int before = 0, first = 0, second = 0, torn = 0, journals = 0;
};

/// What a killed saver left: all 70 rows of one content.
void look(const Store& store, Seen& seen) {
    seen.journals += std::filesystem::exists(store.path + "-journal") ? 1 : 0;
    ASSERT_TRUE(store.isSound());
    const Texts found = store.rows("SELECT DISTINCT CASE WHEN Dirty = 0 THEN 'before' ELSE Value END, Dirty FROM "
                                   "tblSystemProperties WHERE groupID = 1 AND PropertyNumber > 1");
    if (found == Texts{"before,0"}) ++seen.before;
    else if (found == Texts{"first,1"}) ++seen.first;
    else if (found == Texts{"second,1"}) ++seen.second;
    else ++seen.torn;
}

TEST(AKilledModule, LeavesASoundStoreWithOneContentWhole) {
    std::mt19937 random(20240229);  // the same waits every time
    std::uniform_int_distribution<unsigned> wait(0, longestWait);
    const Store stores[atOnce];
    Seen seen;
    int kills = 0;
    for (const int wanted = kills::wanted(usualKills); kills < wanted;) {
        std::vector<Saver> savers;
        for (const Store& store : stores) {
            savers.emplace_back(store.path);
            ASSERT_TRUE(savers.back().begun);
        }
        for (int i = 0; i < atOnce; ++i, ++kills) {
            ::usleep(wait(random));
            ASSERT_TRUE(savers[static_cast<std::size_t>(i)].kill()) << "the saver ended by itself";
            look(stores[i], seen);
            ASSERT_EQ(seen.torn, 0) << "after " << kills << " kills";
            ASSERT_FALSE(HasFatalFailure());
        }
    }
    RecordProperty("kills", kills);
    RecordProperty("journals", seen.journals);
    EXPECT_GT(seen.first, 0);
    EXPECT_GT(seen.second, 0);
    EXPECT_GT(seen.journals, 0) << "no kill met a save half done";
    const auto module = make<clsBVTRVQD>();
    invoke(*module, "SetDBPath", stores[0].path);
    editAll(*module, "after the kills");
    invoke(*module, "SaveToDB");
    EXPECT_EQ(stores[0].property(1, 71), "after the kills,1");
}

}  // namespace
}  // namespace canvas
