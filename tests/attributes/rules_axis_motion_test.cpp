// What single blocks that command one axis do differently.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
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

constexpr const char* positiveReal = "Expecting a positive real number in the range of [0.0 To 3.402823E+38].";

TEST(StopMotion, LetsTheIndexBehindItsRowPassACellCommit) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    const auto out = commitCell(*block, 1, "-1", checker.object());
    EXPECT_TRUE(out.result);
    EXPECT_EQ(out.strError, "before");
    EXPECT_EQ(out.FormattedText, "-1");
    EXPECT_EQ(checker.calls, Calls());
    EXPECT_EQ(block->strDeceleration, "0.0");
    EXPECT_TRUE(commitCell(*block, 1, "-1", nullptr).result);
}

TEST(StopMotion, LetsNoOtherIndexPass) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    EXPECT_EQ(raisedBy([&] { commitCell(*block, 2, "1", checker.object()); }), 9);
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 1, panelOf({"1", "2"}), checker.object()); }), 9);
    const auto jog = make<clsBVTJogAxis>();
    EXPECT_EQ(raisedBy([&] { commitCell(*jog, 3, "1", checker.object()); }), 9);
    EXPECT_EQ(block->strDeceleration, "0.0");
}

TEST(Velocity, MayBeNegativeWhereTheAxisIsToldADirection) {
    FakeChecker checker;
    const auto move = make<clsBVTMoveAxis>();
    EXPECT_TRUE(commitCell(*move, 3, "-100", checker.object()).result);
    const auto jog = make<clsBVTJogAxis>();
    EXPECT_TRUE(commitCell(*jog, 2, "-100", checker.object()).result);
    const auto home = make<clsBVTHomeAxis>();
    EXPECT_TRUE(commitCell(*home, 1, "-100", checker.object()).result);
}

TEST(Velocity, MustNotBeNegativeInChangeDynamics) {
    FakeChecker checker;
    const auto block = make<clsBVTChangeDynamics>();
    const auto out = commitCell(*block, 2, "-100", checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, positiveReal);
    EXPECT_EQ(out.selLength, 4);
    EXPECT_EQ(block->strVelocity, "0.0");
}

TEST(WholePanelFlags, AreTrueForTheExactWordOnly) {
    FakeChecker checker;
    for (const char* text : {"true", "TRUE", "1", "-1", "", "False", "True "}) {
        const auto move = make<clsBVTMoveAxis>();
        EXPECT_TRUE(commitPanel(*move, 0, panelOf({"Absolute", "", "", "", "", text}), checker.object()).result);
        EXPECT_FALSE(move->blnWaitForCompletion) << text;
    }
    const auto move = make<clsBVTMoveAxis>();
    move->blnWaitForCompletion = false;
    EXPECT_TRUE(commitPanel(*move, 0, panelOf({"Absolute", "", "", "", "", "True"}), checker.object()).result);
    EXPECT_TRUE(move->blnWaitForCompletion);
}

TEST(WholePanelFlags, OfDefinePositionAreTheThirdAndTheFifthElement) {
    FakeChecker checker;
    const auto block = make<clsBVTDefinePosition>();
    EXPECT_TRUE(commitPanel(*block, 0, panelOf({"1", "True", "2", "true"}), checker.object()).result);
    EXPECT_EQ(block->OutputToFile(""), R"(4 "1" 1 "2" 0)");
    EXPECT_TRUE(commitPanel(*block, 0, panelOf({"1", "1", "2", "True"}), checker.object()).result);
    EXPECT_EQ(block->OutputToFile(""), R"(4 "1" 0 "2" 1)");
}

TEST(CellFlags, TakeAnyTruthValue) {
    const struct {
        const char* text;
        bool flag;
    } rows[]{{"1", true}, {"0", false}, {"true", true}, {"FALSE", false}, {"-1", true}, {"2.5", true}};
    for (const auto& row : rows) {
        const auto move = make<clsBVTMoveAxis>();
        move->blnWaitForCompletion = !row.flag;
        const auto out = commitCell(*move, 5, row.text, nullptr);
        EXPECT_TRUE(out.result);
        EXPECT_EQ(move->blnWaitForCompletion, row.flag) << row.text;
        EXPECT_EQ(out.FormattedText, row.text);
    }
}

TEST(MoveAxis, WritesItsTypeAsItStands) {
    const auto block = make<clsBVTMoveAxis>();
    block->strType = "Rotary Shortest";
    EXPECT_EQ(block->OutputToFile(""), R"(6 "0.0" "0.0" "0.0" "0.0" "Rotary Shortest" 1)");
    block->strType = "no such type";
    EXPECT_EQ(block->OutputToFile(""), R"(6 "0.0" "0.0" "0.0" "0.0" "no such type" 1)");
}

TEST(HomeAxis, TurnsASwitchInputOfOneAndZeroIntoWords) {
    const struct {
        const char* text;
        const char* stored;
    } rows[]{{"1", "true"}, {"0", "false"}, {"True", "True"}, {"IN1", "IN1"}, {" 1", " 1"}, {"2", "2"}};
    for (const auto& row : rows) {
        const auto block = make<clsBVTHomeAxis>();
        FakeChecker checker;
        const auto out = commitCell(*block, 4, row.text, checker.object());
        EXPECT_TRUE(out.result);
        EXPECT_EQ(checker.checks(), Calls{std::string("checkexpression(") + row.stored + ",1,1)"});
        EXPECT_EQ(block->strHomeSwitchInput, row.stored);
        EXPECT_EQ(out.FormattedText, row.stored);
    }
}

TEST(HomeAxis, TurnsNoOtherRowsDigitsIntoWords) {
    const auto block = make<clsBVTHomeAxis>();
    FakeChecker checker;
    EXPECT_TRUE(commitCell(*block, 0, "1", checker.object()).result);
    EXPECT_EQ(block->strTimeOut, "[1]");
    EXPECT_TRUE(commitCell(*block, 5, "1", checker.object()).result);
    EXPECT_EQ(block->strHomingDirection, "1");
    EXPECT_TRUE(commitCell(*block, 6, "1", checker.object()).result);
    EXPECT_EQ(block->strCreepSpeed, "1");
}

TEST(HomeAxis, KeepsASwitchInputOfWrongSyntax) {
    const auto block = make<clsBVTHomeAxis>();
    FakeChecker checker;
    checker.verdicts["false"] = bad("No constants here", 1, 5);
    const auto out = commitCell(*block, 4, "0", checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, "No constants here");
    EXPECT_EQ(out.selLength, 5);
    EXPECT_EQ(block->strHomeSwitchInput, "false");
}

TEST(HomeAxis, KeepsTheLastThreeRowsAsTyped) {
    const auto block = make<clsBVTHomeAxis>();
    FakeChecker checker;
    for (const int row : {4, 6}) {
        const auto out = commitCell(*block, row, "a+b", checker.object());
        EXPECT_EQ(out.FormattedText, "a+b") << row;
        EXPECT_EQ(out.dataType, 16) << "the checks run all the same";
    }
    EXPECT_EQ(block->strHomeSwitchInput, "a+b");
    EXPECT_EQ(block->strCreepSpeed, "a+b");
    const auto out = commitCell(*block, 5, "Negative", nullptr);
    EXPECT_EQ(out.FormattedText, "Negative");
    EXPECT_EQ(block->strHomingDirection, "Negative");
}

TEST(HomeAxis, ChecksTheCreepSpeed) {
    const auto block = make<clsBVTHomeAxis>();
    FakeChecker checker;
    const auto out = commitCell(*block, 6, "-1", checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, positiveReal);
    EXPECT_EQ(out.FormattedText, "before");
    EXPECT_EQ(block->strCreepSpeed, "0.0");
}

TEST(HomeAxis, AProgramCheckLeavesOutTheDirectionOnly) {
    const auto block = make<clsBVTHomeAxis>();
    FakeChecker checker;
    std::string message;
    EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 9, message));
    EXPECT_EQ(message, "(9,1)ƒ6ƒ16@(9,2)ƒ16ƒ16@(9,3)ƒ18ƒ16@(9,4)ƒ18ƒ16@(9,5)ƒ1ƒ16@(9,7)ƒ18ƒ16@");
    EXPECT_EQ(checker.checks()[4], "checkexpression(Input Address,9,5)");
}

TEST(SlaveOffset, UpdateTimeValueNests) {
    const auto block = make<clsBVTIncrementPosition>();
    block->strTime = "2.5";
    EXPECT_FALSE(block->UpdateTimeValue()) << "its result says nothing";
    EXPECT_EQ(block->strTime, "(2.5) * 1000");
    const Ref<Object> byName = block;
    EXPECT_EQ(byName->call("updatetimevalue"), Value(false));
    EXPECT_EQ(block->strTime, "((2.5) * 1000) * 1000");
}

TEST(SlaveOffset, UpdateTimeValueTakesAnyText) {
    const auto block = make<clsBVTIncrementPosition>();
    block->strTime = "";
    block->UpdateTimeValue();
    EXPECT_EQ(block->strTime, "() * 1000");
}

TEST(DefinePosition, AProgramCheckSeesTheExternalPositionOnly) {
    const auto block = make<clsBVTDefinePosition>();
    FakeChecker checker;
    block->strMain = "broken +";
    checker.verdicts["broken +"] = bad("Operand missing");
    std::string message;
    EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 12, message));
    EXPECT_EQ(message, "(12,3)ƒ16ƒ16@");
    EXPECT_EQ(checker.checks(), Calls{"checkexpression(0.0,12,3)"});
}

TEST(DefinePosition, ACellCommitChecksBothPositions) {
    const auto block = make<clsBVTDefinePosition>();
    FakeChecker checker;
    checker.verdicts["broken +"] = bad("Operand missing");
    EXPECT_FALSE(commitCell(*block, 0, "broken +", checker.object()).result);
    EXPECT_FALSE(commitCell(*block, 2, "broken +", checker.object()).result);
}

TEST(DefinePosition, GivesItsChoiceForAnyRow) {
    const auto block = make<clsBVTDefinePosition>();
    for (const int row : {-7, 0, 1, 2, 3, 99})
        EXPECT_EQ(testing::comboItems(*block, row), (std::vector<std::string>{"True", "False"})) << row;
}

TEST(Torque, FileAndPanelHaveOppositeOrders) {
    const auto block = make<clsBVTTorque>();
    block->AssignFromFile(1, "7");
    block->AssignFromFile(2, "9");
    EXPECT_EQ(block->strTorque, "7");
    EXPECT_EQ(block->strSpeedLimit, "9");
    EXPECT_EQ(block->GetPropertyAt(1), "9");
    EXPECT_EQ(block->GetPropertyAt(2), "7");
    EXPECT_EQ(block->OutputToFile(""), R"(2 "7" "9")");
}

}  // namespace
}  // namespace canvas
