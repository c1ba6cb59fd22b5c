// What the blocks that wait or branch on a condition do differently, and the servo switch.

#include <gtest/gtest.h>

#include "attributes/flow.h"
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

constexpr const char* positiveInteger = "Expecting a postion integer in the range of [0 To 32767].";

TEST(SingleValueBlocks, StoreWhateverTheFileNumber) {
    for (const int number : {-1, 0, 1, 2, 32767}) {
        const auto event = make<clsBVTIfEvent>();
        event->AssignFromFile(static_cast<std::int16_t>(number), "x > 3");
        EXPECT_EQ(event->strEvent, "x > 3") << number;
        const auto timer = make<clsBVTOnTime>();
        timer->AssignFromFile(static_cast<std::int16_t>(number), "1500");
        EXPECT_EQ(timer->strTimeOut, "1500") << number;
    }
}

TEST(Timer, RefusesMoreThanAWord) {
    const auto block = make<clsBVTOnTime>();
    FakeChecker checker;
    const auto out = commitCell(*block, 0, "70000", checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, positiveInteger);
    EXPECT_EQ(out.selStart, 1);
    EXPECT_EQ(out.selLength, 5);
    EXPECT_EQ(block->strTimeOut, "0");
    EXPECT_FALSE(commitPanel(*block, 0, panelOf({"70000"}), checker.object()).result);
}

TEST(IfEvent, HasNoRange) {
    const auto block = make<clsBVTIfEvent>();
    FakeChecker checker;
    EXPECT_TRUE(commitCell(*block, 0, "-1E300", checker.object()).result);
    EXPECT_EQ(block->strEvent, "[-1E300]");
}

TEST(Input, KeepsItsConditionAsANumberInTheFile) {
    const char* conditions[]{"Rising Edge", "Falling Edge", "Logic One", "Logic Zero"};
    for (std::int16_t i = 0; i < 4; ++i) {
        const auto block = make<clsBVTInput>();
        block->strInputBlock = "IN";
        block->strCondition = conditions[i];
        EXPECT_EQ(block->OutputToFile(""), "2 \"IN\" " + std::to_string(i + 1));
        EXPECT_EQ(block->InputType(), i);
        const auto other = make<clsBVTInput>();
        other->strCondition = "";
        other->AssignFromFile(2, std::to_string(i + 1));
        EXPECT_EQ(other->strCondition, conditions[i]);
    }
}

TEST(Input, AConditionThatIsNotInTheListLeavesABlank) {
    const auto block = make<clsBVTInput>();
    block->strInputBlock = "IN";
    for (const char* condition : {"", "Sometimes", "rising edge", "Logic"}) {
        block->strCondition = condition;
        EXPECT_EQ(block->OutputToFile("X "), "X 2 \"IN\" ") << condition;
        EXPECT_EQ(block->InputType(), -1) << condition;
    }
}

TEST(Input, ANumberWithoutAConditionIsOutOfRange) {
    for (const char* number : {"0", "5", "-1", "100"}) {
        const auto block = make<clsBVTInput>();
        EXPECT_EQ(raisedBy([&] { block->AssignFromFile(2, number); }), 9) << number;
        EXPECT_EQ(block->strCondition, "Rising Edge");
        testing::Answering handler{tracing::Answer::leave};
        block->AssignFromFile(2, number);
        EXPECT_EQ(block->strCondition, "Rising Edge");
        EXPECT_EQ(handler.failures.size(), 1u);
    }
}

TEST(Input, AConditionMustBeANumber) {
    const auto block = make<clsBVTInput>();
    EXPECT_EQ(raisedBy([&] { block->AssignFromFile(2, "Logic One"); }), 13);
    EXPECT_EQ(block->strCondition, "Rising Edge");
}

TEST(Input, InputTypeIsReadOnly) {
    const Ref<Object> block = make<clsBVTInput>();
    EXPECT_EQ(block->get("InputType"), Value(std::int16_t{0}));
    EXPECT_EQ(raisedBy([&] { block->put("InputType", std::int16_t{2}); }), 438);
}

TEST(Servo, ACellIsConvertedWithoutAnyCheck) {
    const auto block = make<clsBVTServoOnOff>();
    const auto out = commitCell(*block, 0, "0", nullptr);
    EXPECT_TRUE(out.result);
    EXPECT_EQ(out.FormattedText, "0");
    EXPECT_FALSE(block->blnServo);
    EXPECT_EQ(raisedBy([&] { commitCell(*block, 0, "on", nullptr); }), 13);
    EXPECT_FALSE(block->blnServo);
}

TEST(Servo, APanelIsChecked) {
    const auto block = make<clsBVTServoOnOff>();
    FakeChecker checker;
    checker.verdicts["False"] = bad("Unknown name");
    EXPECT_FALSE(commitPanel(*block, 0, panelOf({"False"}), checker.object()).result);
    EXPECT_TRUE(block->blnServo);
    EXPECT_TRUE(commitPanel(*block, 0, panelOf({"0"}), checker.object()).result);
    EXPECT_FALSE(block->blnServo);
}

}  // namespace
}  // namespace canvas
