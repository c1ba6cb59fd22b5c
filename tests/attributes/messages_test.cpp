// Message blocks and the other plain records, which have no part in the property panel.

#include <gtest/gtest.h>

#include "attributes/cam.h"
#include "attributes/gearing.h"
#include "attributes/plain.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

TEST(MessageOut, WritesItsFlagAsABareDigit) {
    const auto block = make<clsBVTMessageOut>();
    EXPECT_EQ(block->OutputToFile(""), R"(2 "" 0)");
    block->strMessage = "Part ready";
    block->blnSendCR = true;
    EXPECT_EQ(block->OutputToFile("8 "), R"(8 2 "Part ready" 1)");
    block->strMessage = R"(say "go")";
    EXPECT_EQ(block->OutputToFile(""), R"(2 "say "go"" 1)") << "a quote inside is not escaped";
}

TEST(MessageOut, ReadsItsFlagAsDigitOrWord) {
    const auto block = make<clsBVTMessageOut>();
    block->AssignFromFile(1, "Größe: 5 mm");
    EXPECT_EQ(block->strMessage, "Größe: 5 mm");
    for (const char* text : {"1", "True", "true", "-1"}) {
        block->blnSendCR = false;
        block->AssignFromFile(2, text);
        EXPECT_TRUE(block->blnSendCR) << text;
    }
    EXPECT_EQ(raisedBy([&] { block->AssignFromFile(2, ""); }), 13);
    EXPECT_EQ(raisedBy([&] { block->AssignFromFile(2, "maybe"); }), 13);
    EXPECT_TRUE(block->blnSendCR);
    block->AssignFromFile(2, "0");
    EXPECT_FALSE(block->blnSendCR);
}

TEST(MessageIn, KeepsAVariableAndATimeAsTyped) {
    const auto block = make<clsBVTMessageIn>();
    block->AssignFromFile(1, "Answer");
    block->AssignFromFile(2, "2 * t");
    EXPECT_EQ(block->strUserVariable, "Answer");
    EXPECT_EQ(block->strTimeOut, "2 * t");
    EXPECT_EQ(block->OutputToFile(""), R"(2 "Answer" "2 * t")");
}

TEST(PlainRecords, AreNoPartOfThePanel) {
    for (const Ref<Object>& block :
         {Ref<Object>(make<clsBVTMessageIn>()), Ref<Object>(make<clsBVTMessageOut>()),
          Ref<Object>(make<clsBVTAdvancedGearing>()), Ref<Object>(make<clsBVTAdvancedCAM>())}) {
        SCOPED_TRACE(std::string(block->className()));
        for (const char* operation : {"FillMatrix", "MatrixRow", "MatrixCol", "GetNumOfProperties", "IsAdvancedOn"}) {
            EXPECT_EQ(raisedBy([&] { block->call(operation); }), 438) << operation;
            EXPECT_EQ(raisedBy([&] { block->call("IBlockAttribute_" + std::string(operation)); }), 438) << operation;
        }
        const Ref<Object> copy = block->call("IsTheSame").toObject();
        EXPECT_NE(copy, block);
        EXPECT_EQ(invoke(*block, "SameAs", copy), Value(true));
    }
}

TEST(AdvancedCam, ItsAddressHasABlankThatTheCamBlocksHasNot) {
    EXPECT_EQ(make<clsBVTAdvancedCAM>()->strSpeedFeedForwardAddress, "CW Address");
    EXPECT_EQ(make<clsBVTCAMOnOff>()->strSpeedFeedForwardAddress, "CWAddress");
}

}  // namespace
}  // namespace canvas
