// The program check of a list of assignments.

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
using testing::Verdict;
using Calls = std::vector<std::string>;

struct AssignmentCheck : ::testing::Test {
    Ref<clsBVTSetVariable> block = make<clsBVTSetVariable>();
    FakeChecker checker;

    /// What a check of block 7 appends.
    std::string records(std::string_view list) {
        block->strVariable = list;
        checker.calls.clear();
        std::string message = "earlier@";
        EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 7, message));
        EXPECT_TRUE(message.starts_with("earlier@"));
        return message.substr(8);
    }
    void variable(const std::string& name, std::int32_t type) {
        checker.verdicts[name] = Verdict{.dataType = type, .isLValue = true};
    }
};

TEST_F(AssignmentCheck, AnEmptyListIsOneRecordWithOneNumber) {
    for (const char* list : {"", "   "}) {
        EXPECT_EQ(records(list), "Error:  (7) Empty expression@");
        EXPECT_EQ(checker.calls, Calls());
        std::string message;
        EXPECT_TRUE(block->PropertiesSyntaxCheck(nullptr, 7, message)) << "no checker is needed";
    }
}

TEST_F(AssignmentCheck, AListWithoutAnEntryHasNoRecord) {
    EXPECT_EQ(records("A=1"), "");
    EXPECT_EQ(checker.calls, Calls());
}

TEST_F(AssignmentCheck, EveryAssignmentLeavesTheTypesOfItsSides) {
    variable("A", 8), variable("B", 4);
    checker.verdicts["x"].dataType = 48;
    EXPECT_EQ(records("A=x;B=2;"), "(7,1)ƒ8ƒ48@(7,2)ƒ4ƒ16@");
    EXPECT_EQ(checker.calls,
              (Calls{"checkexpression(A,7,0)", "GetResult", "GetResult", "checkexpression(x,7,0)", "GetResult",
                     "checkexpression(B,7,1)", "GetResult", "GetResult", "checkexpression(2,7,1)", "GetResult"}))
        << "positions that the checker sees count from 0, those of records from 1";
}

TEST_F(AssignmentCheck, AnEntryBehindTheLastSemicolonIsNotChecked) {
    variable("A", 8);
    EXPECT_EQ(records("A=x;B=2"), "(7,1)ƒ8ƒ16@");
    EXPECT_EQ(checker.checks(), (Calls{"checkexpression(A,7,0)", "checkexpression(x,7,0)"}));
}

TEST_F(AssignmentCheck, AnEntryIsSplitAtItsFirstEqualsSign) {
    variable("A", 8);
    records("A=B=C;");
    EXPECT_EQ(checker.checks(), (Calls{"checkexpression(A,7,0)", "checkexpression(B=C,7,0)"}));
}

TEST_F(AssignmentCheck, WhatCannotBeAssignedIsToldAndTheOtherSideStillChecked) {
    EXPECT_EQ(records("5=x;"), "Error:  (7,1) Expression cannot be assigned a value.@(7,1)ƒ16ƒ16@");
    EXPECT_EQ(checker.checks(), (Calls{"checkexpression(5,7,0)", "checkexpression(x,7,0)"}));
    checker.verdicts["x"] = bad("Unknown name");
    EXPECT_EQ(records("5=x;"),
              "Error:  (7,1) Expression cannot be assigned a value.@Error:  (7,1) Unknown name@(7,1)ƒ16ƒ0@");
}

TEST_F(AssignmentCheck, ABadSideIsToldAndItsTypeIsZero) {
    variable("A", 8);
    checker.verdicts["x +"] = bad("Operand missing");
    EXPECT_EQ(records("A=x +;"), "Error:  (7,1) Operand missing@(7,1)ƒ8ƒ0@");
    EXPECT_EQ(records("x +=y;"), "Error:  (7,1) Operand missing@(7,1)ƒ0ƒ16@");
    EXPECT_EQ(checker.calls,
              (Calls{"checkexpression(x +,7,0)", "GetErrorInfo", "checkexpression(y,7,0)", "GetResult"}));
    EXPECT_EQ(records("A=1;x +=x +;"),
              "(7,1)ƒ8ƒ16@Error:  (7,2) Operand missing@Error:  (7,2) Operand missing@(7,2)ƒ0ƒ0@");
}

TEST_F(AssignmentCheck, AMarkedValueIsToldBeforeTheTypes) {
    checker.verdicts["A"] = {.dataType = 8, .isLValue = true, .value = "ôA is not declared"};
    checker.verdicts["x"] = {.dataType = 4, .value = "x? ô"};
    EXPECT_EQ(records("A=x;"), "(7,1) ôA is not declared@(7,1) x? ô@(7,1)ƒ8ƒ4@");
    checker.verdicts["x"].value = "#1";
    EXPECT_EQ(records("A=x;"), "(7,1) ôA is not declared@(7,1)ƒ8ƒ4@") << "the other mark means nothing here";
    checker.verdicts["A"].value = Null{};
    EXPECT_EQ(records("A=x;"), "(7,1)ƒ8ƒ4@");
}

TEST_F(AssignmentCheck, ALiteralBitFitsABooleanVariable) {
    variable("Flag", 1), variable("Count", 4);
    checker.otherwise.dataType = 4;
    const struct {
        const char* list;
        const char* record;
    } rows[]{
        {"Flag=1;", "(7,1)ƒ1ƒ1@"},  {"Flag=0;", "(7,1)ƒ1ƒ1@"},  {"Flag=2;", "(7,1)ƒ1ƒ4@"},
        {"Flag= 1;", "(7,1)ƒ1ƒ4@"}, {"Flag=01;", "(7,1)ƒ1ƒ4@"}, {"Flag=1.0;", "(7,1)ƒ1ƒ4@"},
        {"Flag=11;", "(7,1)ƒ1ƒ4@"}, {"Flag=;", "(7,1)ƒ1ƒ4@"},   {"Count=1;", "(7,1)ƒ4ƒ4@"},
    };
    for (const auto& row : rows) EXPECT_EQ(records(row.list), row.record) << row.list;
    checker.verdicts["1"] = bad("Not today");
    EXPECT_EQ(records("Flag=1;"), "Error:  (7,1) Not today@(7,1)ƒ1ƒ1@") << "whatever the checker said";
}

TEST_F(AssignmentCheck, AnEmptyEntryIsCheckedLikeAnyOther) {
    checker.verdicts[""] = bad("Empty");
    EXPECT_EQ(records(";"), "Error:  (7,1) Empty@Error:  (7,1) Empty@(7,1)ƒ0ƒ0@");
    EXPECT_EQ(checker.checks(), (Calls{"checkexpression(,7,0)", "checkexpression(,7,0)"}));
}

TEST_F(AssignmentCheck, NeedsNoFilledMatrixAndFillsNone) {
    variable("A", 8);
    records("A=1;");
    EXPECT_EQ(block->GetElementFromMatrix(0, 0), "");
}

TEST_F(AssignmentCheck, ARetryLosesAndDoublesNothing) {
    variable("A", 8);
    checker.verdicts["x +"] = bad("Operand missing");
    const std::string expected = records("A=1;A=x +;5=1;");
    for (const char* operation : {"checkexpression", "GetResult", "GetErrorInfo"}) {
        checker.failures[operation] = 1;
        testing::Answering handler{tracing::Answer::retry};
        EXPECT_EQ(records("A=1;A=x +;5=1;"), expected) << operation;
        EXPECT_EQ(handler.failures.size(), 1u);
        EXPECT_EQ(checker.checks().size(), operation == std::string("checkexpression") ? 7u : 6u) << operation;
    }
}

TEST_F(AssignmentCheck, AFailureThatIsIgnoredLeavesTheNextAssignmentsChecked) {
    variable("A", 8), variable("B", 4);
    for (const char* operation : {"checkexpression", "GetResult"}) {
        checker.failures[operation] = 1;
        testing::Answering handler{tracing::Answer::ignore};
        EXPECT_TRUE(records("A=1;B=2;").ends_with("(7,2)ƒ4ƒ16@")) << operation;
        EXPECT_EQ(handler.failures.size(), 1u);
        EXPECT_EQ(handler.failures[0].module, "clsBVTSetVariable");
    }
}

TEST_F(AssignmentCheck, WithoutACheckerIsAnObjectThatIsNotSet) {
    block->strVariable = "A=1;";
    std::string message;
    EXPECT_EQ(raisedBy([&] { block->PropertiesSyntaxCheck(nullptr, 7, message); }), 91);
    EXPECT_EQ(raisedBy([&] { block->PropertiesSyntaxCheck(make<Composed>(), 7, message); }), 438);
}

}  // namespace
}  // namespace canvas
