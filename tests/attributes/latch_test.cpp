// Latch blocks: the switch, whose rows and positions run in opposite order, and the move by a latch.

#include "attributes/latch.h"

#include <gtest/gtest.h>

#include "fake_checker.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::bad;
using testing::commitCell;
using testing::commitPanel;
using testing::FakeChecker;
using testing::panelOf;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

TEST(Latch, ANewOneIsOnForTheExternalAxis) {
    const auto block = make<clsBVTLatchOnOff>();
    block->FillMatrix();
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "External");
    EXPECT_EQ(block->GetElementFromMatrix(1, 1), "True");
    EXPECT_EQ(block->OutputToFile(""), "2 1 0");
}

TEST(Latch, PositionsRunAgainstTheRows) {
    const auto block = make<clsBVTLatchOnOff>();
    block->AssignFromFile(1, "0");
    block->AssignFromFile(2, "1");
    EXPECT_FALSE(block->blnLatch);
    EXPECT_TRUE(block->blnMainLatchAxis);
    EXPECT_EQ(block->GetPropertyAt(1), "False") << "the flag of row 1";
    EXPECT_EQ(block->GetPropertyAt(2), "True") << "the axis of row 0";
    block->FillMatrix();
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "Main");
    EXPECT_EQ(block->GetElementFromMatrix(1, 1), "False");
    EXPECT_EQ(block->OutputToFile(""), "2 0 1");
}

TEST(Latch, AnyTextButMainIsTheExternalAxis) {
    for (const char* text : {"External", "main", "MAIN", " Main", "Main ", "True", "1", ""}) {
        const auto block = make<clsBVTLatchOnOff>();
        EXPECT_TRUE(commitCell(*block, 0, "Main", nullptr).result);
        EXPECT_TRUE(block->blnMainLatchAxis);
        const auto out = commitCell(*block, 0, text, nullptr);
        EXPECT_TRUE(out.result);
        EXPECT_EQ(out.FormattedText, text);
        EXPECT_FALSE(block->blnMainLatchAxis) << text;
        EXPECT_TRUE(block->blnLatch);
    }
}

TEST(Latch, ACellOfTheFlagIsConvertedUnchecked) {
    const auto block = make<clsBVTLatchOnOff>();
    EXPECT_TRUE(commitCell(*block, 1, "0", nullptr).result);
    EXPECT_FALSE(block->blnLatch);
    EXPECT_EQ(raisedBy([&] { commitCell(*block, 1, "Main", nullptr); }), 13);
    EXPECT_FALSE(block->blnLatch);
}

TEST(Latch, APanelComparesBothTexts) {
    const struct {
        const char* axis;
        const char* enabled;
        bool main;
        bool latch;
    } rows[]{
        {"Main", "True", true, true}, {"External", "False", false, false}, {"main", "true", false, false},
        {"True", "1", false, false},  {"Main", "False", true, false},      {"", "True", false, true},
    };
    for (const auto& row : rows) {
        const auto block = make<clsBVTLatchOnOff>();
        FakeChecker checker;
        EXPECT_TRUE(commitPanel(*block, 1, panelOf({row.axis, row.enabled}), checker.object()).result);
        EXPECT_EQ(checker.checks(), Calls{std::string("checkexpression(") + row.enabled + ",1,1)"});
        EXPECT_EQ(block->blnMainLatchAxis, row.main) << row.axis;
        EXPECT_EQ(block->blnLatch, row.latch) << row.enabled;
    }
}

TEST(Latch, APanelIsRefusedByTheChecker) {
    const auto block = make<clsBVTLatchOnOff>();
    FakeChecker checker;
    checker.verdicts["Main"] = bad("Unknown name");
    const auto out = commitPanel(*block, 0, panelOf({"Main", "False"}), checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, "Unknown name");
    EXPECT_EQ(block->OutputToFile(""), "2 1 0");
}

TEST(Latch, AProgramCheckAsksNobody) {
    const auto block = make<clsBVTLatchOnOff>();
    std::string message = "(1,1)@";
    EXPECT_TRUE(block->PropertiesSyntaxCheck(nullptr, 12, message));
    EXPECT_EQ(message, "(1,1)@");
}

TEST(Latch, EveryRowButTheFirstOffersTrueAndFalse) {
    const auto block = make<clsBVTLatchOnOff>();
    EXPECT_EQ(testing::comboItems(*block, 0), (Texts{"Main", "External"}));
    for (const int row : {-1, 1, 2, 7}) EXPECT_EQ(testing::comboItems(*block, row), (Texts{"True", "False"})) << row;
}

TEST(LatchTarget, TakesNegativeNumbersEverywhere) {
    const auto block = make<clsBVTLatchTarget>();
    FakeChecker checker;
    for (int row = 0; row < 7; ++row) EXPECT_TRUE(commitCell(*block, row, "-2.5", checker.object()).result) << row;
    EXPECT_EQ(block->OutputToFile(""), R"(8 "[-2.5]" "[-2.5]" "[-2.5]" "[-2.5]" "[-2.5]" "[-2.5]" "[-2.5]" 1)");
}

TEST(LatchTarget, RefusesWhatNoRealHolds) {
    const auto block = make<clsBVTLatchTarget>();
    for (int row = 0; row < 7; ++row) {
        const auto out = commitCell(*block, row, "-3.5E38", nullptr);
        EXPECT_FALSE(out.result) << row;
        EXPECT_EQ(out.strError, "Expecting a real number in the range of [-3.402823E+38 To 3.402823E+38]");
        EXPECT_EQ(out.selLength, 7);
    }
    EXPECT_TRUE(commitCell(*block, 7, "0", nullptr).result) << "the wait flag is not checked";
    EXPECT_EQ(block->OutputToFile(""), R"(8 "0.0" "0.0" "0.0" "0.0" "0.0" "0.0" "0.0" 0)");
}

}  // namespace
}  // namespace canvas
