// Committing one cell.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "fake_checker.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::Answering;
using testing::bad;
using testing::commitCell;
using testing::FakeChecker;
using tracing::Answer;
using Calls = std::vector<std::string>;

constexpr const char* positiveReal = "Expecting a positive real number in the range of [0.0 To 3.402823E+38].";

TEST(CellCommit, StoresTheNormalFormAndHandsOutTheAnalysis) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.verdicts["a+b"] = {.dataType = 32, .isLValue = true, .value = 2.5, .formatted = "a + b"};
    const auto out = commitCell(*block, 0, "a+b", checker.object());
    EXPECT_TRUE(out.result);
    EXPECT_EQ(checker.calls, (Calls{"checkexpression(a+b,1,1)", "GetResult"}));
    EXPECT_EQ(block->strDeceleration, "a + b");
    EXPECT_EQ(out.FormattedText, "a + b");
    EXPECT_EQ(out.dataType, 32);
    EXPECT_TRUE(out.isLValue);
    EXPECT_EQ(out.value, Value(2.5));
    EXPECT_EQ(out.strError, "before");
    EXPECT_EQ(out.selStart, -5);
    EXPECT_EQ(out.selLength, -6);
}

TEST(CellCommit, ATextOutOfRangeIsNotStoredAndNotChecked) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    const auto out = commitCell(*block, 0, " -1.5 ", checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, positiveReal);
    EXPECT_EQ(out.selStart, 1);
    EXPECT_EQ(out.selLength, 6) << "all of the text is marked";
    EXPECT_EQ(out.FormattedText, "before");
    EXPECT_EQ(checker.calls, Calls());
    EXPECT_EQ(block->strDeceleration, "0.0");
}

TEST(CellCommit, ATextOfWrongSyntaxIsStoredAllTheSame) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.verdicts["größe +"] = bad("Operand missing", 8, 1);
    const auto out = commitCell(*block, 0, "größe +", checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(checker.calls, (Calls{"checkexpression(größe +,1,1)", "GetErrorInfo"}));
    EXPECT_EQ(out.strError, "Operand missing");
    EXPECT_EQ(out.selStart, 8);
    EXPECT_EQ(out.selLength, 1);
    EXPECT_EQ(out.FormattedText, "größe +");
    EXPECT_EQ(out.dataType, -7);
    EXPECT_EQ(block->strDeceleration, "größe +");
}

TEST(CellCommit, AnyStatusButZeroIsAFailure) {
    for (const Value& status : {Value(std::int16_t{-1}), Value(std::int32_t{1000}), Value(0.5)}) {
        const auto block = make<clsBVTAbortMotion>();
        FakeChecker checker;
        checker.otherwise = bad("no");
        checker.otherwise.status = status;
        EXPECT_FALSE(commitCell(*block, 0, "x", checker.object()).result);
        EXPECT_EQ(checker.calls.back(), "GetErrorInfo");
    }
}

TEST(CellCommit, WithoutARowNothingHappens) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    for (const int row : {-1, -2, -32768}) {
        const auto out = commitCell(*block, row, "-1", checker.object());
        EXPECT_TRUE(out.result);
        EXPECT_EQ(out.strError, "before");
        EXPECT_EQ(out.FormattedText, "before");
    }
    EXPECT_EQ(checker.calls, Calls());
    EXPECT_EQ(block->strDeceleration, "0.0");
    EXPECT_TRUE(commitCell(*block, -1, "x", nullptr).result) << "no checker is needed";
}

TEST(CellCommit, WorksBeforeTheMatrixIsFilled) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    EXPECT_FALSE(commitCell(*block, 0, "-1", checker.object()).result);
    EXPECT_TRUE(commitCell(*block, 0, "1", checker.object()).result);
    EXPECT_EQ(block->strDeceleration, "[1]");
}

TEST(CellCommit, TheTabIsIgnored) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    EXPECT_FALSE(commitCell(*block, 0, "-1", checker.object(), false).result);
    EXPECT_TRUE(commitCell(*block, 0, "1", checker.object(), false).result);
    EXPECT_EQ(block->strDeceleration, "[1]");
}

TEST(CellCommit, AComboRowIsStoredAsItIs) {
    const auto block = make<clsBVTMoveAxis>();
    const auto out = commitCell(*block, 0, "Sideways", nullptr);
    EXPECT_TRUE(out.result);
    EXPECT_EQ(out.FormattedText, "Sideways");
    EXPECT_EQ(block->strType, "Sideways");
}

TEST(CellCommit, AFlagThatDoesNotConvertGoesToTheErrorHandler) {
    const auto block = make<clsBVTMoveAxis>();
    EXPECT_EQ(raisedBy([&] { commitCell(*block, 5, "maybe", nullptr); }), 13);
    EXPECT_TRUE(block->blnWaitForCompletion);
    Answering handler{Answer::ignore};
    EXPECT_TRUE(commitCell(*block, 5, "maybe", nullptr).result);
    EXPECT_TRUE(block->blnWaitForCompletion);
    ASSERT_EQ(handler.failures.size(), 1u);
    EXPECT_EQ(handler.failures[0].module, "clsBVTMoveAxis");
}

TEST(CellCommit, WithoutACheckerIsAnObjectThatIsNotSet) {
    const auto block = make<clsBVTAbortMotion>();
    EXPECT_EQ(raisedBy([&] { commitCell(*block, 0, "x", nullptr); }), 91);
    EXPECT_EQ(raisedBy([&] { commitCell(*block, 0, "x", make<Composed>()); }), 438);
    EXPECT_EQ(block->strDeceleration, "0.0");
}

TEST(CellCommit, ACheckersOwnErrorReachesTheCaller) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.failures["checkexpression"] = 1;
    try {
        commitCell(*block, 0, "x", checker.object());
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 1000);
        EXPECT_EQ(error.description, "The checker is not at home");
    }
    EXPECT_EQ(block->strDeceleration, "0.0");
}

TEST(CellCommit, ARetryRepeatsTheFailingStatementAlone) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.failures["GetResult"] = 2;
    Answering handler{Answer::retry};
    EXPECT_TRUE(commitCell(*block, 0, "x", checker.object()).result);
    EXPECT_EQ(checker.calls, (Calls{"checkexpression(x,1,1)", "GetResult", "GetResult", "GetResult"}));
    EXPECT_EQ(block->strDeceleration, "[x]");
}

TEST(CellCommit, IgnoringAMissingAnalysisStoresTheTextAsItStands) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.failures["GetResult"] = 1;
    Answering handler{Answer::ignore};
    EXPECT_TRUE(commitCell(*block, 0, "x", checker.object()).result);
    EXPECT_EQ(block->strDeceleration, "before") << "the formatted text that the caller handed in";
}

TEST(CellCommit, LeavingKeepsTheResultReachedAndStoresNothing) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    checker.failures["checkexpression"] = 1;
    Answering handler{Answer::leave};
    EXPECT_TRUE(commitCell(*block, 0, "x", checker.object()).result);
    EXPECT_EQ(block->strDeceleration, "0.0");
}

}  // namespace
}  // namespace canvas
