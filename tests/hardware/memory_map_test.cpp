#include "hardware/memory_map.h"

#include <gtest/gtest.h>

#include "host/convert.h"
#include "tests/host/raised.h"

using namespace canvas;

namespace {

class DefaultMap : public ::testing::Test {
protected:
    std::string take(std::int32_t words, std::int16_t kind = 0, std::string letter = "W") {
        return inputs->GetAddresses(letter, words, kind);
    }
    Ref<MemoryMap> inputs = make<MemoryMap>(WordArea{256, 16});
};

}  // namespace

TEST_F(DefaultMap, GivesKindNetworkAndFourDigits) {
    EXPECT_EQ(take(1), "IW0256");
    EXPECT_EQ(take(1, 1), "OW0257");
    EXPECT_EQ(take(1, 0, "O"), "IO0258");
    EXPECT_EQ(take(1, 1, "O"), "OO0259");
    EXPECT_EQ(take(1, 0, ""), "I0260");
}

TEST_F(DefaultMap, GivesTheFirstBlockThatIsLargeEnough) {
    EXPECT_EQ(take(4), "IW0256");
    EXPECT_EQ(take(4), "IW0260");
    EXPECT_EQ(take(4), "IW0264");
    inputs->FreeAddresses("IW0260", 4);
    EXPECT_EQ(raisedBy([&] { take(5); }), 5);
    EXPECT_EQ(take(3), "IW0260");
}

TEST_F(DefaultMap, FillsAGapThatWasFreed) {
    take(4);
    take(4);
    take(4);
    inputs->FreeAddresses("IW0256", 4);
    inputs->FreeAddresses("IW0260", 4);
    EXPECT_EQ(take(7), "IW0256");
    EXPECT_EQ(take(2), "IW0268");
    EXPECT_EQ(take(1), "IW0263");
}

TEST_F(DefaultMap, IsFullWhenNoBlockIsLargeEnough) {
    take(10);
    try {
        take(7);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 5);
        EXPECT_EQ(error.description, "The input area (256 to 271) has no room for 7 more words in a row");
    }
    EXPECT_EQ(take(6), "IW0266");
    try {
        take(1, 1);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.description, "The output area (256 to 271) has no room for 1 more word");
    }
}

TEST_F(DefaultMap, RefusesRequestsThatCannotBe) {
    EXPECT_EQ(raisedBy([&] { take(0); }), 5);
    EXPECT_EQ(raisedBy([&] { take(-1); }), 5);
    EXPECT_EQ(raisedBy([&] { take(1, 2); }), 5);
    EXPECT_EQ(raisedBy([&] { take(1, -1); }), 5);
    EXPECT_EQ(raisedBy([&] { take(2147483647); }), 5);
    EXPECT_EQ(raisedBy([&] { inputs->AllocateAddresses("here", "W", 1); }), 13);
    EXPECT_EQ(raisedBy([] { make<MemoryMap>(WordArea{9999, 2}); }), 5);
    EXPECT_EQ(raisedBy([] { make<MemoryMap>(WordArea{9999, 1}); }), 0);
}

TEST_F(DefaultMap, PassesOverBlocksThatAreKnown) {
    inputs->AllocateAddresses("IW0258", "W", 2);
    EXPECT_EQ(take(2), "IW0256");
    EXPECT_EQ(take(1), "IW0260");
}

TEST_F(DefaultMap, KeepsAWordUntilAllItsHoldersGiveItBack) {
    inputs->AllocateAddresses("IW0256", "W", 4);
    inputs->AllocateAddresses("IO0258", "O", 4);
    inputs->FreeAddresses("IW0256", 4);
    EXPECT_EQ(take(3), "IW0262");
    EXPECT_EQ(take(2), "IW0256");
}

TEST_F(DefaultMap, TakesBlocksPartlyOrWhollyOutsideItsArea) {
    inputs->AllocateAddresses("IW0250", "W", 8);
    inputs->AllocateAddresses("IW0270", "W", 2147483647);
    inputs->AllocateAddresses("IW9000", "W", 5);
    EXPECT_EQ(take(12), "IW0258");
    EXPECT_EQ(raisedBy([&] { take(1); }), 5);
}

TEST_F(DefaultMap, FreesNothingForABlockThatNobodyHolds) {
    take(2);
    inputs->FreeAddresses("IW0260", 4);
    inputs->FreeAddresses("", 4);
    inputs->FreeAddresses("IW0256", -4);
    EXPECT_EQ(take(1), "IW0258");
}

TEST_F(DefaultMap, IsEmptiedAtOnce) {
    take(16);
    inputs->EmptyMap();
    EXPECT_EQ(take(16), "IW0256");
}

TEST_F(DefaultMap, AnswersByName) {
    Object& map = *inputs;
    std::string letter = "W";
    EXPECT_EQ(invoke(map, "getaddresses", std::ref(letter), 2, std::int16_t{0}), Value("IW0256"));
    invoke(map, "AllocateAddresses", "IW0258", "W", 1);
    invoke(map, "FreeAddresses", "IW0256", 2);
    EXPECT_EQ(invoke(map, "GetAddresses", std::ref(letter), 2, std::int16_t{0}), Value("IW0256"));
    invoke(map, "EmptyMap");
    EXPECT_EQ(invoke(map, "GetAddresses", std::ref(letter), 3, std::int16_t{0}), Value("IW0256"));
    EXPECT_EQ(raisedBy([&] { invoke(map, "Anything"); }), 438);
}

TEST(AddressText, IsKindLetterAndFourDigits) {
    Address address;
    EXPECT_TRUE(readAddress("OW0512", address));
    EXPECT_EQ(address.kind, 'O');
    EXPECT_EQ(address.first, 512);
    EXPECT_TRUE(readAddress("I0256", address));
    for (const char* text : {"", "IW256", "IW02567", "XW0256", "IW02 6", "IW-256", "0256", "IWW0256"})
        EXPECT_FALSE(readAddress(text, address)) << text;
}
