// The program check of a list of limit switches.

#include <gtest/gtest.h>

#include "attributes/lists.h"
#include "fake_checker.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::bad;
using testing::FakeChecker;
using Calls = std::vector<std::string>;

struct SwitchCheck : ::testing::Test {
    Ref<clsBVTProgrammableLimitSwitch> block = make<clsBVTProgrammableLimitSwitch>();
    FakeChecker checker;

    SwitchCheck() { block->strMasterVariable = "Enc"; }
    /// What a check of block 7 appends.
    std::string records(std::string_view list) {
        block->strVariable = list;
        checker.calls.clear();
        std::string message = "earlier@";
        EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 7, message));
        EXPECT_TRUE(message.starts_with("earlier@"));
        return message.substr(8);
    }
};

TEST_F(SwitchCheck, WithoutSwitchesTheEncoderAloneIsChecked) {
    checker.verdicts["Enc"].dataType = 8;
    for (const char* list : {"", "100,50,Out1,1"}) {
        EXPECT_EQ(records(list), "(7,0)ƒ16ƒ8@") << list;
        EXPECT_EQ(checker.calls, (Calls{"checkexpression(Enc,7,-1)", "GetResult"}));
    }
}

TEST_F(SwitchCheck, ABadEncoderIsToldBehindItsRecord) {
    checker.verdicts["Enc"] = bad("Unknown name");
    EXPECT_EQ(records(""), "(7,0)ƒ16ƒ0@Error:  (7,0) Unknown name@");
    checker.verdicts["Enc"] = {.dataType = 4, .value = "ôEnc"};
    EXPECT_EQ(records(""), "(7,0)ƒ16ƒ4@(7,0) ôEnc@");
    checker.verdicts["Enc"].value = "#Enc";
    EXPECT_EQ(records(""), "(7,0)ƒ16ƒ4@") << "the other mark means nothing here";
    block->strMasterVariable = "";
    checker.verdicts[""] = bad("Empty");
    EXPECT_EQ(records(""), "(7,0)ƒ16ƒ0@Error:  (7,0) Empty@");
}

TEST_F(SwitchCheck, EverySwitchLeavesThreeRecords) {
    checker.verdicts["100"].dataType = 4;
    checker.verdicts["50"].dataType = 6;
    checker.verdicts["Out1"].dataType = 1;
    EXPECT_EQ(records("100,50,Out1,1;a,b,c,0;"),
              "(7,0)ƒ16ƒ16@"
              "(7,1)ƒ16ƒ4@(7,1)ƒ16ƒ6@(7,1)ƒ1ƒ1@"
              "(7,2)ƒ16ƒ16@(7,2)ƒ16ƒ16@(7,2)ƒ1ƒ16@");
    EXPECT_EQ(checker.checks(),
              (Calls{"checkexpression(Enc,7,-1)", "checkexpression(100,7,0)", "checkexpression(50,7,0)",
                     "checkexpression(Out1,7,0)", "checkexpression(1,7,1)", "checkexpression(a,7,1)",
                     "checkexpression(b,7,1)", "checkexpression(c,7,1)", "checkexpression(0,7,2)"}))
        << "the state is checked under the next switch's number";
}

TEST_F(SwitchCheck, TextsComeBehindTheRecordsOfTheirSwitch) {
    checker.verdicts["a"] = bad("First");
    checker.verdicts["b"] = {.dataType = 4, .value = "second ô"};
    checker.verdicts["c"] = bad("Third");
    checker.verdicts["1"] = bad("Fourth");
    EXPECT_EQ(records("a,b,c,1;2,3,4,0;"),
              "(7,0)ƒ16ƒ16@"
              "(7,1)ƒ16ƒ0@(7,1)ƒ16ƒ4@(7,1)ƒ1ƒ0@"
              "Error:  (7,1) First@(7,1) second ô@Error:  (7,1) Third@Error:  (7,2) Fourth@"
              "(7,2)ƒ16ƒ16@(7,2)ƒ16ƒ16@(7,2)ƒ1ƒ16@");
}

TEST_F(SwitchCheck, ASwitchBehindTheLastSemicolonIsNotChecked) {
    EXPECT_EQ(records("a,b,c,1;d,e,f,0"), "(7,0)ƒ16ƒ16@(7,1)ƒ16ƒ16@(7,1)ƒ16ƒ16@(7,1)ƒ1ƒ16@");
    EXPECT_EQ(checker.checks().size(), 5u);
}

TEST_F(SwitchCheck, NeedsNoFilledMatrixAndFillsNone) {
    records("a,b,c,1;");
    EXPECT_EQ(block->GetElementFromMatrix(0, 0), "");
}

TEST_F(SwitchCheck, ARetryLosesAndDoublesNothing) {
    checker.verdicts["b"] = bad("Operand missing");
    const std::string expected = records("a,b,c,1;d,e,f,0;");
    for (const char* operation : {"checkexpression", "GetResult", "GetErrorInfo"}) {
        checker.failures[operation] = 1;
        testing::Answering handler{tracing::Answer::retry};
        EXPECT_EQ(records("a,b,c,1;d,e,f,0;"), expected) << operation;
        EXPECT_EQ(handler.failures.size(), 1u);
        EXPECT_EQ(checker.checks().size(), operation == std::string("checkexpression") ? 10u : 9u) << operation;
    }
}

TEST_F(SwitchCheck, AFailureThatIsIgnoredLeavesTheSwitchesChecked) {
    for (const char* operation : {"checkexpression", "GetResult"}) {
        checker.failures[operation] = 1;
        testing::Answering handler{tracing::Answer::ignore};
        EXPECT_TRUE(records("a,b,c,1;").ends_with("(7,1)ƒ16ƒ16@(7,1)ƒ16ƒ16@(7,1)ƒ1ƒ16@")) << operation;
        EXPECT_EQ(handler.failures.size(), 1u);
        EXPECT_EQ(handler.failures[0].module, "clsBVTProgrammableLimitSwitch");
    }
}

TEST_F(SwitchCheck, WithoutACheckerIsAnObjectThatIsNotSet) {
    std::string message;
    EXPECT_EQ(raisedBy([&] { block->PropertiesSyntaxCheck(nullptr, 7, message); }), 91);
    EXPECT_EQ(raisedBy([&] { block->PropertiesSyntaxCheck(make<Composed>(), 7, message); }), 438);
}

}  // namespace
}  // namespace canvas
