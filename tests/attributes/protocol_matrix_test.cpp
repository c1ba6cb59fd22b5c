// The block matrix, its lists, the values by position, and what happens when an index is no good.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "fake_checker.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::Answering;
using testing::FakeChecker;
using tracing::Answer;

TEST(BlockMatrix, HasOneRowOfSevenCells) {
    const auto block = make<clsBVTAbortMotion>();
    EXPECT_EQ(block->MatrixRow(), 0);
    EXPECT_EQ(block->MatrixCol(), 6);
    EXPECT_FALSE(block->FillMatrix()) << "its result says nothing";
    const char* expected[]{"Deceleration", "0.0", "Returns/sets a deceleration value.", "1", "1", "0", "18"};
    for (std::int16_t column = 0; column <= 6; ++column)
        EXPECT_EQ(block->GetElementFromMatrix(0, column), expected[column]);
}

TEST(BlockMatrix, IsEmptyBeforeItIsFilled) {
    const auto block = make<clsBVTAbortMotion>();
    for (std::int16_t column = 0; column <= 6; ++column) EXPECT_EQ(block->GetElementFromMatrix(0, column), "");
}

TEST(BlockMatrix, ACellAboveTheBoundsIsEmpty) {
    const auto block = make<clsBVTAbortMotion>();
    block->FillMatrix();
    EXPECT_EQ(block->GetElementFromMatrix(1, 0), "");
    EXPECT_EQ(block->GetElementFromMatrix(0, 7), "");
    EXPECT_EQ(block->GetElementFromMatrix(32767, 32767), "");
}

TEST(BlockMatrix, AnIndexAboveItsBoundIsSeenBeforeANegativeOne) {
    const auto block = make<clsBVTAbortMotion>();
    block->FillMatrix();
    EXPECT_EQ(block->GetElementFromMatrix(-1, 7), "");
    EXPECT_EQ(block->GetElementFromMatrix(1, -1), "");
}

TEST(BlockMatrix, ShowsAChangeAfterTheNextFillOnly) {
    const auto block = make<clsBVTAbortMotion>();
    block->FillMatrix();
    block->strDeceleration = "5";
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "0.0");
    block->AssignFromFile(1, "6");
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "0.0");
    FakeChecker checker;
    ASSERT_TRUE(testing::commitPanel(*block, 0, testing::panelOf({"7"}), checker.object()).result);
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "0.0");
    ASSERT_TRUE(testing::commitCell(*block, 0, "8", checker.object()).result);
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "0.0");
    block->FillMatrix();
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "[8]");
}

TEST(BlockMatrix, IsFilledByAProgramCheckThatWritesATypeRecord) {
    const auto block = make<clsBVTAbortMotion>();
    FakeChecker checker;
    std::string message;
    checker.verdicts["5"].value = "5#";
    block->strDeceleration = "5";
    block->PropertiesSyntaxCheck(checker.object(), 1, message);
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "") << "a marked value writes no type record";
    block->strDeceleration = "6";
    block->PropertiesSyntaxCheck(checker.object(), 1, message);
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "6");
}

TEST(BlockMatrix, OfACopyIsEmptyUntilItIsFilled) {
    const auto block = make<clsBVTAbortMotion>();
    block->FillMatrix();
    const auto copy = block->IsTheSame();
    EXPECT_EQ(copy->GetElementFromMatrix(0, 0), "");
    copy->put("Deceleration", "5");
    copy->FillMatrix();
    EXPECT_EQ(copy->GetElementFromMatrix(0, 1), "5");
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "0.0");
}

TEST(BlockMatrix, ANegativeIndexIsOutOfRange) {
    const auto block = make<clsBVTAbortMotion>();
    for (const bool filled : {false, true}) {
        if (filled) block->FillMatrix();
        EXPECT_EQ(raisedBy([&] { block->GetElementFromMatrix(-1, 0); }), 9);
        EXPECT_EQ(raisedBy([&] { block->GetElementFromMatrix(0, -1); }), 9);
    }
}

TEST(BlockMatrix, ANegativeIndexReachesTheErrorHandler) {
    const auto block = make<clsBVTAbortMotion>();
    block->FillMatrix();
    for (const Answer answer : {Answer::ignore, Answer::leave, Answer::leaveToo}) {
        Answering handler{answer};
        EXPECT_EQ(block->GetElementFromMatrix(-1, 0), "");
        ASSERT_EQ(handler.failures.size(), 1u);
        EXPECT_EQ(handler.failures[0].number, 9);
        EXPECT_EQ(handler.failures[0].description, "Subscript out of range");
        EXPECT_EQ(handler.failures[0].project, "Classes");
        EXPECT_EQ(handler.failures[0].module, "clsBVTAbortMotion");
        EXPECT_EQ(handler.failures[0].line, 0);
    }
}

TEST(BlockMatrix, ARetryAsksAgain) {
    const auto block = make<clsBVTAbortMotion>();
    Answering handler{Answer::retry, Answer::retry, Answer::leave};
    EXPECT_EQ(block->GetElementFromMatrix(0, -1), "");
    EXPECT_EQ(handler.failures.size(), 3u);
}

TEST(BlockValues, ArePositionsFromOne) {
    const auto block = make<clsBVTAbortMotion>();
    EXPECT_EQ(block->GetNumOfProperties(), 1);
    EXPECT_EQ(block->GetPropertyAt(1), "0.0");
    for (const int outside : {-32768, -1, 0, 2, 32767})
        EXPECT_EQ(block->GetPropertyAt(static_cast<std::int16_t>(outside)), "") << outside;
}

TEST(BlockValues, AFlagComesAsTrueOrFalse) {
    const auto block = make<clsBVTMoveAxis>();
    EXPECT_EQ(block->GetPropertyAt(6), "True");
    block->blnWaitForCompletion = false;
    EXPECT_EQ(block->GetPropertyAt(6), "False");
}

TEST(ComboItems, AreAddedOneByOneWithoutAKey) {
    const auto block = make<clsBVTMoveAxis>();
    std::vector<std::vector<Value>> added;
    const auto host = make<Composed>("HostCollection");
    host->method("Add", [&](Args args) {
        added.emplace_back(args.begin(), args.end());
        return Value();
    });
    Ref<Object> items = host;
    std::int16_t row = 0;
    EXPECT_FALSE(block->GetComboItem(row, items)) << "its result says nothing";
    EXPECT_EQ(added, (std::vector<std::vector<Value>>{{"Absolute"}, {"Relative"}, {"Rotary Shortest"}}));
    EXPECT_EQ(row, 0);
    EXPECT_EQ(items, Ref<Object>(host));
}

TEST(ComboItems, FollowWhatTheCollectionHolds) {
    const auto block = make<clsBVTMoveAxis>();
    const auto items = make<Collection>();
    items->Add("before", "key");
    Ref<Object> target = items;
    std::int16_t row = 5;
    block->GetComboItem(row, target);
    ASSERT_EQ(items->Count(), 3);
    EXPECT_EQ(items->at(1), Value("before"));
    EXPECT_EQ(items->at(2), Value("True"));
    EXPECT_EQ(items->at(3), Value("False"));
}

TEST(ComboItems, AnIgnoredFailureSkipsOneItem) {
    const auto block = make<clsBVTMoveAxis>();
    std::vector<std::string> added;
    const auto host = make<Composed>("HostCollection");
    host->method("Add", [&](Args args) {
        if (args[0] == Value("Relative")) throw RuntimeError(457, "Not that one");
        added.push_back(args[0].toText());
        return Value();
    });
    Ref<Object> items = host;
    std::int16_t row = 0;
    {
        Answering handler{Answer::ignore};
        block->GetComboItem(row, items);
        EXPECT_EQ(added, (std::vector<std::string>{"Absolute", "Rotary Shortest"}));
        EXPECT_EQ(handler.failures.size(), 1u);
    }
    added.clear();
    Answering handler{Answer::handOn};
    EXPECT_EQ(raisedBy([&] { block->GetComboItem(row, items); }), 457);
    EXPECT_EQ(added, std::vector<std::string>{"Absolute"});
    EXPECT_EQ(handler.failures.size(), 1u) << "asked once, not once more by the loop around";
}

TEST(ComboItems, ARowWithoutAListNeedsNoCollection) {
    const auto block = make<clsBVTAbortMotion>();
    Ref<Object> nothing;
    for (std::int16_t row = -1; row <= 1; ++row) EXPECT_EQ(raisedBy([&] { block->GetComboItem(row, nothing); }), 0);
}

TEST(ComboItems, AListWithNowhereToGoIsAnObjectThatIsNotSet) {
    const auto block = make<clsBVTMoveAxis>();
    Ref<Object> nothing;
    std::int16_t row = 0;
    EXPECT_EQ(raisedBy([&] { block->GetComboItem(row, nothing); }), 91);
}

}  // namespace
}  // namespace canvas
