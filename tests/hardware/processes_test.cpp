// Two processes work on one store at a time: nothing that either has written is lost.

#include <array>

#include "fixture.h"

namespace canvas {
namespace {

using namespace fixture;
using namespace std::string_view_literals;

#ifdef __SANITIZE_ADDRESS__
constexpr int changes = 2'000;
#else
constexpr int changes = 10'000;
#endif

/// Runs `act` in two child processes at a time; what each exits with.
template <class Act>
std::array<int, 2> inTwoProcesses(Act act) {
    std::array<pid_t, 2> children{};
    for (int which = 0; which < 2; ++which) {
        children[static_cast<std::size_t>(which)] = ::fork();
        if (children[static_cast<std::size_t>(which)] == 0) {
            int exitCode = 254;
            try {
                act(which);
                exitCode = 0;
            } catch (const RuntimeError& error) {
                exitCode = error.number & 0xFF;
            } catch (...) {
            }
            ::_exit(exitCode);
        }
    }
    std::array<int, 2> exits{};
    for (std::size_t i = 0; i < 2; ++i) {
        int status = 0;
        ::waitpid(children[i], &status, 0);
        exits[i] = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    return exits;
}

/// Goes to a property's row and writes a value.
void change(store::Recordset& rows, int g, int n, const std::function<Value(const Value&)>& next) {
    rows.findFirst({{"groupID"sv, Value(g)}, {"PropertyNumber"sv, Value(n)}});
    ASSERT_FALSE(rows.noMatch());
    rows.edit();
    rows.put("Value", next(rows.field("Value")));
    rows.update();
}

TEST(TwoProcesses, ThatCountInOneRowLoseNoCount) {
    const Store store;
    store.set(1, 40, "Value", "0");
    const auto exits = inTwoProcesses([&](int) {
        const auto database = store::engine().open(store.path);
        for (int i = 0; i < changes; ++i) {
            const auto transaction = database->begin(store::Access::write);
            const auto rows = database->openDynaset("tblSystemProperties");
            change(*rows, 1, 40, [](const Value& value) { return Value(value.toLong() + 1); });
            transaction->commit();
        }
    });
    EXPECT_EQ(exits, (std::array<int, 2>{0, 0}));
    EXPECT_EQ(store.property(1, 40), std::to_string(2 * changes) + ",0");
    EXPECT_TRUE(store.isSound());
}

TEST(TwoProcesses, ThatEachWriteARowOfTheirOwnLoseNoWrite) {
    const Store store;
    const Texts others = store.otherProperties(1);
    const auto exits = inTwoProcesses([&](int which) {
        const auto database = store::engine().open(store.path);
        for (int i = 1; i <= changes; ++i) {
            const auto transaction = database->begin(store::Access::write);
            const auto rows = database->openDynaset("tblSystemProperties");
            change(*rows, 1, 10 + which, [&](const Value& value) {
                if (i > 1 && value != Value(std::to_string(i - 1))) raise(Error::invalidCall);  // a write was lost
                return Value(i);
            });
            transaction->commit();
        }
    });
    EXPECT_EQ(exits, (std::array<int, 2>{0, 0}));
    EXPECT_EQ(store.property(1, 10), std::to_string(changes) + ",0");
    EXPECT_EQ(store.property(1, 11), std::to_string(changes) + ",0");
    EXPECT_EQ(store.property(1, 12), "1012,0");
    EXPECT_EQ(store.otherProperties(1), others);
    EXPECT_TRUE(store.isSound());
}

TEST(TwoProcesses, ThatSaveTwoModulesKeepBoth) {
    const Store store;
    constexpr int saves = changes / 20;
    const auto exits = inTwoProcesses([&](int which) {
        const Ref<Object> module = which == 0 ? Ref<Object>(make<clsBVTKX410>()) : Ref<Object>(make<clsBVTCOM1>());
        invoke(*module, "SetDBPath", store.path);
        for (int i = 1; i <= saves; ++i) {
            invoke(*module, "SetBlockMatrix", 1, 3, std::to_string(i));
            invoke(*module, "SaveToDB");
        }
    });
    EXPECT_EQ(exits, (std::array<int, 2>{0, 0}));
    EXPECT_EQ(store.property(2, 4), std::to_string(saves) + ",1");
    EXPECT_EQ(store.property(3, 4), std::to_string(saves) + ",1");
    EXPECT_TRUE(store.isSound());
}

TEST(TwoProcesses, ThatAddNodesKeepAllOfThem) {
    const Store store;
    constexpr int nodes = changes / 20;
    const auto exits = inTwoProcesses([&](int which) {
        const Ref<Object> module = make<clsBVTRemoteIO>();
        invoke(*module, "SetDBPath", store.path);
        for (int i = 0; i < nodes; ++i)
            invoke(*module, "SaveData", std::to_string(which * 100'000 + i + 1), "n", "t", "0", "0", "1", 0, "N/A");
    });
    EXPECT_EQ(exits, (std::array<int, 2>{0, 0}));
    EXPECT_EQ(store.one("SELECT COUNT(*), COUNT(DISTINCT Node) FROM tblRemoteIO"),
              std::to_string(2 * nodes) + "," + std::to_string(2 * nodes));
}

TEST(AForkedProcess, OpensAConnectionOfItsOwn) {
    const Store store;
    const Ref<Object> module = make<clsBVTKX410>();
    invoke(*module, "SetDBPath", store.path);
    EXPECT_EQ(scratch::inChild([&] {
                  return raisedBy([&] {
                      const Ref<Object> own = make<clsBVTKX410>();
                      invoke(*own, "SetDBPath", store.path);
                      invoke(*own, "SetBlockMatrix", 1, 0, "child");
                      invoke(*own, "SaveToDB");
                  });
              }),
              0);
    EXPECT_EQ(store.property(2, 1), "child,1");
    invoke(*module, "SaveToDB");
    EXPECT_EQ(store.property(2, 1), "2001,1");
    EXPECT_TRUE(store.isSound());
}

}  // namespace
}  // namespace canvas
