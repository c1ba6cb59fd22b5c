// Values in files, comparison, and the blocks that answer the protocol with nothing.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "attributes/plain.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::Answering;
using tracing::Answer;

TEST(FileValues, FollowWhatTheLineHolds) {
    const auto block = make<clsBVTAbortMotion>();
    EXPECT_EQ(block->OutputToFile("1 8 "), "1 8 1 \"0.0\"");
    block->strDeceleration = "say \"5\"";
    EXPECT_EQ(block->OutputToFile(""), "1 \"say \"5\"\"") << "a quote inside is not escaped";
}

TEST(FileValues, ANumberBeyondTheClassIsIgnored) {
    const auto block = make<clsBVTAbortMotion>();
    for (const int number : {0, 2, -1, 17}) block->AssignFromFile(static_cast<std::int16_t>(number), "9");
    EXPECT_EQ(block->strDeceleration, "0.0");
    block->AssignFromFile(1, "9");
    EXPECT_EQ(block->strDeceleration, "9");
}

TEST(FileValues, AFlagTakesDigitsAndWords) {
    const struct {
        const char* text;
        bool flag;
    } rows[]{{"1", true},    {"0", false},     {"True", true}, {"False", false},
             {"true", true}, {"FALSE", false}, {"-1", true}};
    for (const auto& row : rows) {
        const auto block = make<clsBVTMoveAxis>();
        block->blnWaitForCompletion = !row.flag;
        block->AssignFromFile(6, row.text);
        EXPECT_EQ(block->blnWaitForCompletion, row.flag) << row.text;
    }
}

TEST(FileValues, AFlagThatIsNoTruthValueDoesNotFit) {
    const auto block = make<clsBVTMoveAxis>();
    EXPECT_EQ(raisedBy([&] { block->AssignFromFile(6, "maybe"); }), 13);
    EXPECT_TRUE(block->blnWaitForCompletion);
    Answering handler{Answer::ignore};
    block->AssignFromFile(6, "maybe");
    EXPECT_TRUE(block->blnWaitForCompletion);
    EXPECT_EQ(handler.failures.size(), 1u);
}

TEST(SameAs, ComparesTextExactly) {
    const auto one = make<clsBVTAbortMotion>();
    const auto other = make<clsBVTAbortMotion>();
    one->strDeceleration = "abc";
    for (const char* text : {"ABC", "abc ", "", "ab"}) {
        other->strDeceleration = text;
        EXPECT_FALSE(one->SameAs(other)) << text;
    }
    one->strDeceleration = "1";
    other->strDeceleration = "1.0";
    EXPECT_FALSE(one->SameAs(other)) << "equal numbers are not equal texts";
    other->strDeceleration = "1";
    EXPECT_TRUE(one->SameAs(other));
}

TEST(IBlockAttribute, DoesNothing) {
    const auto block = make<IBlockAttribute>();
    EXPECT_FALSE(block->FillMatrix());
    EXPECT_EQ(block->MatrixRow(), 0);
    EXPECT_EQ(block->MatrixCol(), 0);
    EXPECT_EQ(block->GetElementFromMatrix(0, 0), "");
    EXPECT_EQ(block->GetElementFromMatrix(-1, -1), "");
    EXPECT_EQ(testing::comboItems(*block, 0), std::vector<std::string>());
    EXPECT_EQ(block->GetNumOfProperties(), 0);
    EXPECT_EQ(block->GetPropertyAt(1), "");

    const auto cell = testing::commitCell(*block, 0, "x", nullptr);
    EXPECT_FALSE(cell.result);
    EXPECT_EQ(cell.strError, "before");
    EXPECT_EQ(cell.FormattedText, "before");
    EXPECT_FALSE(testing::commitPanel(*block, 0, nullptr, nullptr).result);
    std::string message = "earlier@";
    EXPECT_FALSE(block->PropertiesSyntaxCheck(nullptr, 1, message));
    EXPECT_EQ(message, "earlier@");
}

TEST(IBlockAttribute, OffersItsTenOperationsInSlotOrder) {
    const char* expected[]{
        "FillMatrix", "UpdateMatrix", "UpdateElementInMatrix", "GetElementFromMatrix", "MatrixRow",
        "MatrixCol",  "GetComboItem", "GetNumOfProperties",    "GetPropertyAt",        "PropertiesSyntaxCheck"};
    const auto table = IBlockAttribute::table();
    ASSERT_EQ(table.size(), std::size(expected));
    for (std::size_t i = 0; i < table.size(); ++i) EXPECT_EQ(table[i].name, expected[i]);
    const Ref<Object> block = make<IBlockAttribute>();
    EXPECT_EQ(block->className(), "IBlockAttribute");
    EXPECT_EQ(block->call("FillMatrix"), Value(false));
    EXPECT_EQ(block->call("MatrixRow"), Value(std::int16_t{0}));
    EXPECT_EQ(raisedBy([&] { block->call("Deceleration"); }), 438);
}

TEST(PlainBlocks, AnswerTheProtocolWithNothing) {
    const auto block = make<clsBVTStart>();
    EXPECT_EQ(block->GetElementFromMatrix(-1, 0), "") << "the body is empty, so that nothing can fail";
    const auto cell = testing::commitCell(*block, 0, "x", nullptr);
    EXPECT_FALSE(cell.result);
    EXPECT_EQ(cell.FormattedText, "before");
    std::string message = "earlier@";
    EXPECT_FALSE(block->PropertiesSyntaxCheck(nullptr, 1, message));
    EXPECT_EQ(message, "earlier@");
}

}  // namespace
}  // namespace canvas
