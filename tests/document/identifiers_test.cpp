#include "document/identifiers.h"

#include <gtest/gtest.h>

#include "tests/host/raised.h"

namespace canvas {
namespace {

using Ids = std::initializer_list<std::int16_t>;

TEST(Identifiers, TheLowestFreeOneIsTaken) {
    Identifiers table;
    EXPECT_EQ(table.takeLowest(1023), 1);
    EXPECT_EQ(table.takeLowest(1023), 2);
    table.take(3);
    EXPECT_EQ(table.takeLowest(1023), 4);
    table.give(2);
    EXPECT_EQ(table.takeLowest(1023), 2);
    EXPECT_EQ(table.takeLowest(1023), 5);
}

TEST(Identifiers, WhenAllAreUsedNoneIsGiven) {
    Identifiers table;
    for (std::int16_t id = 1; id <= 1023; ++id) EXPECT_EQ(table.takeLowest(1023), id);
    EXPECT_EQ(table.takeLowest(1023), -1);
    EXPECT_EQ(table.takeLowest(1), -1);
}

TEST(Identifiers, AMaximumBelowOneGivesZero) {
    Identifiers table;
    EXPECT_EQ(table.takeLowest(0), 0);
    EXPECT_EQ(table.takeLowest(-5), 0);
    EXPECT_EQ(table.takeLowest(1), 1);
}

TEST(Identifiers, IndexesOutsideTheTableAreASubscriptError) {
    Identifiers table;
    for (const std::int16_t id : Ids{-1, 0, 1024, 32767}) {
        EXPECT_EQ(raisedBy([&] { table.take(id); }), 9) << id;
        EXPECT_EQ(raisedBy([&] { table.give(id); }), 9) << id;
        EXPECT_EQ(raisedBy([&] { static_cast<void>(table.used(id)); }), 9) << id;
    }
    table.take(1), table.take(1023);
    EXPECT_TRUE(table.used(1) && table.used(1023));
    EXPECT_FALSE(table.used(2));
}

TEST(Identifiers, AHighMaximumRunsOutOfTheTable) {
    Identifiers table;
    for (std::int16_t id = 1; id <= 1023; ++id) table.take(id);
    EXPECT_EQ(raisedBy([&] { table.takeLowest(2000); }), 9);
}

TEST(Identifiers, ClearedAllAreFree) {
    Identifiers table;
    table.take(1), table.take(1023);
    table.clear();
    EXPECT_FALSE(table.used(1) || table.used(1023));
    EXPECT_EQ(table.takeLowest(10), 1);
}

}  // namespace
}  // namespace canvas
