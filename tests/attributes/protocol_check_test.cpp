// The check of a whole program: records of what the checker found, one after the other.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "attributes/flow.h"
#include "fake_checker.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::Answering;
using testing::bad;
using testing::FakeChecker;
using tracing::Answer;
using Calls = std::vector<std::string>;

/// What a check of block 12, an aborted motion, appends when the checker gives `value`.
std::string recordOf(const Value& value) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.otherwise.value = value;
    std::string message;
    EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 12, message));
    return message;
}

TEST(ProgramCheck, AGoodValueLeavesATypeRecord) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.otherwise.dataType = 4;
    std::string message = "(11,1)ƒ4ƒ4@";
    EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 12, message));
    EXPECT_EQ(message, "(11,1)ƒ4ƒ4@(12,1)ƒ18ƒ4@");
    EXPECT_EQ(checker.calls, (Calls{"checkexpression(0.0,12,1)", "GetResult"}));
}

TEST(ProgramCheck, EveryPositionHasItsRecord) {
    const auto block = make<clsBVTChangeDynamics>();
    FakeChecker checker;
    block->strDeceleration = "x";
    block->strVelocity = "y +";
    checker.verdicts["x"].dataType = 16;
    checker.verdicts["y +"] = bad("Operand missing", 4, 1);
    checker.verdicts["0"].dataType = -3;
    std::string message;
    EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 12, message));
    EXPECT_EQ(message, "(12,1)ƒ18ƒ16@(12,2)ƒ18ƒ16@Error:  (12,3) Operand missing@(12,4)ƒ6ƒ-3@");
    EXPECT_EQ(checker.calls,
              (Calls{"checkexpression(0.0,12,1)", "GetResult", "checkexpression(x,12,2)", "GetResult",
                     "checkexpression(y +,12,3)", "GetErrorInfo", "checkexpression(0,12,4)", "GetResult"}));
}

TEST(ProgramCheck, ABlockNumberMayBeLong) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    std::string message;
    block->PropertiesSyntaxCheck(checker.object(), 100000, message);
    EXPECT_EQ(message, "(100000,1)ƒ18ƒ16@");
    EXPECT_EQ(checker.checks(), Calls{"checkexpression(0.0,100000,1)"});
}

TEST(ProgramCheck, ABadValueIsStillTrue) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.otherwise = bad("");
    std::string message;
    EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), -5, message));
    EXPECT_EQ(message, "Error:  (-5,1) @");
}

TEST(ProgramCheck, AMarkedValueIsHandedOnAsText) {
    EXPECT_EQ(recordOf("ôVar is not declared"), "(12,1) ôVar is not declared@");
    EXPECT_EQ(recordOf("at the end ô"), "(12,1) at the end ô@");
    EXPECT_EQ(recordOf("#12"), "(12,1) #12@");
    EXPECT_EQ(recordOf("both # and ô"), "(12,1) both # and ô@") << "one record for both marks";
}

TEST(ProgramCheck, AnyOtherValueLeavesATypeRecord) {
    const char* typed = "(12,1)ƒ18ƒ16@";
    EXPECT_EQ(recordOf(""), typed);
    EXPECT_EQ(recordOf("Ô"), typed) << "case counts";
    EXPECT_EQ(recordOf("o\u0302"), typed) << "an o and a combining circumflex is another text";
    EXPECT_EQ(recordOf("o"), typed);
    EXPECT_EQ(recordOf(5.5), typed);
    EXPECT_EQ(recordOf(true), typed);
    EXPECT_EQ(recordOf(Value()), typed);
}

TEST(ProgramCheck, ANullHoldsNoMark) { EXPECT_EQ(recordOf(Null{}), "(12,1)ƒ18ƒ16@"); }

TEST(ProgramCheck, NeedsACheckerOnlyWhereAPositionIsChecked) {
    const auto checked = make<clsBVTAbortMotion>();
    std::string message = "earlier@";
    EXPECT_EQ(raisedBy([&] { checked->PropertiesSyntaxCheck(nullptr, 12, message); }), 91);
    EXPECT_EQ(message, "earlier@");
    const auto servo = make<clsBVTServoOnOff>();
    EXPECT_TRUE(servo->PropertiesSyntaxCheck(nullptr, 12, message));
    EXPECT_EQ(message, "earlier@");
}

TEST(ProgramCheck, GoesOnAfterAnIgnoredFailure) {
    const auto block = make<clsBVTJogAxis>();
    FakeChecker checker;
    checker.failures["GetErrorInfo"] = 1;
    block->strAcceleration = "y +";
    checker.verdicts["y +"] = bad("Operand missing");
    Answering handler{Answer::ignore};
    std::string message;
    EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 12, message));
    EXPECT_EQ(message, "Error:  (12,1) @(12,2)ƒ18ƒ16@(12,3)ƒ16ƒ16@");
    ASSERT_EQ(handler.failures.size(), 1u);
    EXPECT_EQ(handler.failures[0].number, 1000);
}

TEST(ProgramCheck, ARetryRepeatsNoPositionThatWentWell) {
    const auto block = make<clsBVTJogAxis>();
    FakeChecker checker;
    checker.failures["GetResult"] = 1;
    Answering handler{Answer::retry};
    std::string message;
    EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 12, message));
    EXPECT_EQ(message, "(12,1)ƒ18ƒ16@(12,2)ƒ18ƒ16@(12,3)ƒ16ƒ16@");
    EXPECT_EQ(checker.checks().size(), 3u);
}

TEST(ProgramCheck, IsReachedByName) {
    const Ref<Object> block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    for (const char* name : {"PropertiesSyntaxCheck", "IBlockAttribute_PropertiesSyntaxCheck"}) {
        std::string message = "earlier@";
        EXPECT_EQ(invoke(*block, name, checker.object(), std::int32_t{12}, std::ref(message)), Value(true));
        EXPECT_EQ(message, "earlier@(12,1)ƒ18ƒ16@");
    }
}

}  // namespace
}  // namespace canvas
