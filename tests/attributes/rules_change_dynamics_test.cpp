// The limit of the S curve: above the common range check, with a message and a way back of its own.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "fake_checker.h"
#include "panel.h"
#include "print.h"

namespace canvas {
namespace {

using testing::commitCell;
using testing::commitPanel;
using testing::FakeChecker;
using testing::panelOf;
using Calls = std::vector<std::string>;

constexpr const char* sCurveRange = "Expecting an integer in the range of [0 To 255].";
constexpr const char* positiveReal = "Expecting a positive real number in the range of [0.0 To 3.402823E+38].";
constexpr const char* positiveInteger = "Expecting a postion integer in the range of [0 To 32767].";

TEST(SCurve, ACellTakesUpTo255) {
    const auto block = make<clsBVTChangeDynamics>();
    FakeChecker checker;
    checker.verdicts["255"].formatted = "255";
    EXPECT_TRUE(commitCell(*block, 3, "255", checker.object()).result);
    EXPECT_EQ(block->strSCurve, "255");
}

TEST(SCurve, ACellRefuses256AndKeepsTheOldValue) {
    const auto block = make<clsBVTChangeDynamics>();
    FakeChecker checker;
    block->strSCurve = "17";
    checker.verdicts["+256"].formatted = "256";
    const auto out = commitCell(*block, 3, "+256", checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(checker.calls, (Calls{"checkexpression(+256,1,1)", "GetResult"})) << "the common checks let it pass";
    EXPECT_EQ(out.strError, sCurveRange);
    EXPECT_EQ(out.selStart, 1);
    EXPECT_EQ(out.selLength, 3) << "the length of the normal form";
    EXPECT_EQ(out.FormattedText, "256");
    EXPECT_EQ(block->strSCurve, "17");
}

TEST(SCurve, TheLimitIsForTheNormalForm) {
    const auto block = make<clsBVTChangeDynamics>();
    FakeChecker checker;
    checker.verdicts["limit"].formatted = "300";
    EXPECT_FALSE(commitCell(*block, 3, "limit", checker.object()).result);
    EXPECT_EQ(block->strSCurve, "0");
    checker.verdicts["limit"].formatted = "1E200";
    const auto out = commitCell(*block, 3, "limit", checker.object());
    EXPECT_FALSE(out.result) << "too large is out of range, not an overflow";
    EXPECT_EQ(out.strError, sCurveRange);
    checker.verdicts["300"].formatted = "limit";
    EXPECT_TRUE(commitCell(*block, 3, "300", checker.object()).result);
    EXPECT_EQ(block->strSCurve, "limit");
}

TEST(SCurve, ACellStoresAnExpressionWhateverItsValue) {
    const auto block = make<clsBVTChangeDynamics>();
    FakeChecker checker;
    checker.verdicts["myCurve"] = {.value = std::int32_t{1000}, .formatted = "MyCurve"};
    EXPECT_TRUE(commitCell(*block, 3, "myCurve", checker.object()).result);
    EXPECT_EQ(block->strSCurve, "MyCurve");
}

TEST(SCurve, TheCommonRangeComesFirst) {
    const auto block = make<clsBVTChangeDynamics>();
    FakeChecker checker;
    for (const char* text : {"-1", "40000", "1.5"}) {
        const auto out = commitCell(*block, 3, text, checker.object());
        EXPECT_FALSE(out.result);
        EXPECT_EQ(out.strError, positiveInteger) << text;
    }
    EXPECT_EQ(checker.calls, Calls());
}

TEST(SCurve, OtherRowsHaveNoSuchLimit) {
    const auto block = make<clsBVTChangeDynamics>();
    FakeChecker checker;
    checker.verdicts["1000"].formatted = "1000";
    for (const int row : {0, 1, 2}) EXPECT_TRUE(commitCell(*block, row, "1000", checker.object()).result);
    EXPECT_EQ(block->OutputToFile(""), R"(4 "1000" "1000" "1000" "0")");
}

TEST(SCurve, APanelRefuses256WhateverRowIsCurrentAndStoresNothing) {
    for (const int row : {0, 3}) {
        const auto block = make<clsBVTChangeDynamics>();
        FakeChecker checker;
        const auto out = commitPanel(*block, row, panelOf({"1", "2", "3", " 256"}), checker.object());
        EXPECT_FALSE(out.result);
        EXPECT_EQ(checker.calls.back(), "GetResult") << "the limit comes behind the common checks";
        EXPECT_EQ(out.iIndex, 4);
        EXPECT_EQ(out.selStart, 1);
        EXPECT_EQ(out.selLength, 4);
        EXPECT_EQ(out.strError, sCurveRange);
        EXPECT_EQ(block->OutputToFile(""), R"(4 "0.0" "0.0" "0.0" "0")");
    }
}

TEST(SCurve, APanelTakes255AndExpressions) {
    const auto block = make<clsBVTChangeDynamics>();
    FakeChecker checker;
    for (const char* text : {"255", "0", "a + 1000", "-5", "255.4"}) {
        const auto out = commitPanel(*block, 0, panelOf({"1", "2", "3", text}), checker.object());
        EXPECT_TRUE(out.result) << text;
        EXPECT_EQ(out.iIndex, 77);
        EXPECT_EQ(block->strSCurve, text);
    }
}

TEST(SCurve, APanelsLimitIsForTheNearestWholeNumber) {
    const auto block = make<clsBVTChangeDynamics>();
    FakeChecker checker;
    for (const char* text : {"255.6", "70000", "1E200"}) {
        EXPECT_FALSE(commitPanel(*block, 0, panelOf({"1", "2", "3", text}), checker.object()).result) << text;
        EXPECT_EQ(block->strSCurve, "0");
    }
}

TEST(SCurve, APanelsCurrentRowFailsBeforeTheLimit) {
    const auto block = make<clsBVTChangeDynamics>();
    FakeChecker checker;
    const auto out = commitPanel(*block, 0, panelOf({"-1", "2", "3", "256"}), checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, positiveReal);
    EXPECT_EQ(out.iIndex, 77);
}

}  // namespace
}  // namespace canvas
