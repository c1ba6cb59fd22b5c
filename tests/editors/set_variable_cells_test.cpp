// Set Variable: what may be typed into a cell, and when a cell can be left.

#include "tests/editors/set_variable_user.h"

namespace canvas::editors {
namespace {

// Editing

TEST_F(SetVariable, TheKeyFilterRefusesTheDoubleQuoteAndTheSemicolon) {
    EXPECT_TRUE(edit(1, 1, "Sp\"ee;d"));
    EXPECT_EQ(cell(1, 1), "Speed");
    EXPECT_TRUE(user->boxes.empty());
}

TEST_F(SetVariable, CharactersOfEveryPlaneGoIn) {
    EXPECT_TRUE(edit(1, 1, "Größe;Скорость\"速度😀"));
    EXPECT_EQ(cell(1, 1), "GrößeСкорость速度😀");
}

TEST_F(SetVariable, BackspaceErasesAndEnterLeavesTheCell) {
    EXPECT_TRUE(edit(1, 1, "Speet😀\b\bd\rlost"));
    EXPECT_EQ(cell(1, 1), "Speed");
    EXPECT_FALSE(edit(2, 1, "a\b"));
    EXPECT_TRUE(inEdit());
}

TEST_F(SetVariable, KeysThatAreAllRefusedLeaveTheTextAsItWas) {
    list("Speed=1;");
    EXPECT_TRUE(edit(1, 1, "\";"));
    EXPECT_EQ(cell(1, 1), "Speed");
}

TEST_F(SetVariable, PastedDelimitersAreToldAndGoInWhereTheCheckerTakesThem) {
    EXPECT_TRUE(paste(1, 1, "a;b"));
    EXPECT_EQ(cell(1, 1), "a;b");
    ASSERT_EQ(user->boxes.size(), 1u);
    expectBox(0, "Input cannot contain ; or \".", Icon::exclamation, "Data Entry");
    EXPECT_TRUE(paste(1, 2, "\"x\""));
    expectBox(1, "Input cannot contain ; or \".", Icon::exclamation, "Data Entry");
}

TEST_F(SetVariable, ThePasteMessageComesBeforeTheCheckers) {
    bad("a;b", "Unexpected ;");
    EXPECT_FALSE(paste(1, 2, "a;b"));
    ASSERT_EQ(user->boxes.size(), 2u);
    EXPECT_EQ(user->boxes[0].title, "Data Entry");
    expectBox(1, "Unexpected ;", Icon::exclamation);
    EXPECT_TRUE(inEdit());
}

TEST_F(SetVariable, ABlankTextStaysInEditWithoutAWord) {
    EXPECT_FALSE(edit(1, 1, ""));
    EXPECT_TRUE(inEdit());
    EXPECT_FALSE(edit(1, 1, "   "));
    EXPECT_TRUE(checking.calls.empty());
    EXPECT_TRUE(user->boxes.empty());
    EXPECT_EQ(color(1, 1), untouched);
    EXPECT_TRUE(edit(1, 1, "Speed"));
    EXPECT_FALSE(inEdit());
}

TEST_F(SetVariable, TheTextGoesToTheCheckerAsItWasTypedWithZeros) {
    edit(1, 2, " 1 + 2 ");
    EXPECT_EQ(checking.calls, (std::vector<std::string>{"checkexpression( 1 + 2 ,0,0)", "GetResult"}));
    EXPECT_EQ(cell(1, 2), " 1 + 2 ");
}

TEST_F(SetVariable, AnExpressionIsNoTarget) {
    good("a+b", 16, false);
    EXPECT_FALSE(edit(1, 1, "a+b"));
    ASSERT_EQ(user->boxes.size(), 1u);
    expectBox(0, "An expression cannot be assigned to \"a+b\".\r\nPlease enter another name.", Icon::exclamation);
    EXPECT_EQ(color(1, 1), untouched);
    EXPECT_TRUE(edit(1, 1, "Speed"));
    EXPECT_TRUE(edit(1, 2, "a+b"));
}

TEST_F(SetVariable, ABadTextTurnsTheCellRed) {
    bad("1+", "Operand expected");
    EXPECT_FALSE(edit(2, 2, "1+"));
    ASSERT_EQ(user->boxes.size(), 1u);
    expectBox(0, "Operand expected", Icon::exclamation);
    EXPECT_EQ(color(2, 2), red);
    EXPECT_EQ(checking.calls.back(), "GetErrorInfo");
    EXPECT_TRUE(inEdit());
    EXPECT_TRUE(edit(2, 2, "1+1"));
    EXPECT_EQ(color(2, 2), white);
}

TEST_F(SetVariable, ABadTargetIsToldByTheCheckersTextNotAsAnExpression) {
    bad("1+", "Operand expected");
    EXPECT_FALSE(edit(1, 1, "1+"));
    ASSERT_EQ(user->boxes.size(), 1u);
    expectBox(0, "Operand expected", Icon::exclamation);
}

TEST_F(SetVariable, ARefusalWithoutATextIsTakenForAnExpressionOnTheLeftAndForGoodOnTheRight) {
    bad("?", "");
    EXPECT_FALSE(edit(1, 1, "?"));
    expectBox(0, "An expression cannot be assigned to \"?\".\r\nPlease enter another name.", Icon::exclamation);
    invoke(*grid, "Cancel", 1, 1);
    EXPECT_TRUE(edit(1, 2, "?"));
    EXPECT_EQ(color(1, 2), white);
}

TEST_F(SetVariable, AMarkedValueTurnsTheCellYellow) {
    good("Old", 16, true, Value("ôOldôrenamed"));
    EXPECT_TRUE(edit(1, 1, "Old"));
    EXPECT_EQ(color(1, 1), yellow);
    EXPECT_TRUE(edit(1, 1, "New"));
    EXPECT_EQ(color(1, 1), white);
    good("Nothing", 16, true, Value(Null{}));
    EXPECT_TRUE(edit(1, 1, "Nothing"));
    EXPECT_EQ(color(1, 1), white);
    EXPECT_TRUE(user->boxes.empty());
}

// Types

TEST_F(SetVariable, WithTheOtherCellBlankNoTypeIsChecked) {
    good("Flag", 1);
    invoke(*grid, "Paste", 1, 2, "x");
    list("=  ;");
    checking.calls.clear();
    EXPECT_TRUE(edit(1, 1, "Flag"));
    EXPECT_EQ(checking.calls.size(), 2u);
}

TEST_F(SetVariable, TheOtherCellIsCheckedForItsTypeBehindTheEditedOne) {
    list("Speed=100;");
    checking.calls.clear();
    EXPECT_TRUE(edit(1, 2, "200"));
    EXPECT_EQ(checking.calls, (std::vector<std::string>{"checkexpression(200,0,0)", "GetResult",
                                                        "checkexpression(Speed,0,0)", "GetResult"}));
}

TEST_F(SetVariable, EveryPairOfTypesIsJudgedFromBothSides) {
    constexpr int types[] = {0, 1, 2, 4, 6, 8, 10, 14, 16, 18, 32, 48, 62, 64};
    const auto refused = [](int target, int source) {
        constexpr int sources[] = {4, 6, 8, 10, 14, 16, 18, 48, 62};
        return target == 1 && std::find(std::begin(sources), std::end(sources), source) != std::end(sources);
    };
    for (const int target : types) {
        for (const int source : types) {
            SCOPED_TRACE(std::to_string(target) + " from " + std::to_string(source));
            good("Left", target);
            good("Right", source);
            list("Left=;");
            user->boxes.clear();
            EXPECT_EQ(edit(1, 2, "Right"), !refused(target, source));
            EXPECT_EQ(color(1, 2), refused(target, source) ? red : white);
            EXPECT_EQ(user->boxes.size(), refused(target, source) ? 1u : 0u);
            list("=Right;");
            EXPECT_EQ(edit(1, 1, "Left"), !refused(target, source));
            EXPECT_EQ(color(1, 1), refused(target, source) ? red : white);
        }
    }
}

TEST_F(SetVariable, ARefusedAssignmentIsToldWithBothTypes) {
    good("Flag", 1);
    good("2.5", 16, false);
    list("Flag=;");
    EXPECT_FALSE(edit(1, 2, "2.5"));
    ASSERT_EQ(user->boxes.size(), 1u);
    expectBox(0, "Cannot assign a float value to a bit variable.", Icon::critical);
    EXPECT_EQ(Reported(*form).of("iDataTypeStatus"), Value(std::int16_t{2}));
}

TEST_F(SetVariable, ALossOfDataPassesInSilence) {
    good("Count", 4);
    good("100000", 8, false);
    list("Count=;");
    EXPECT_TRUE(edit(1, 2, "100000"));
    EXPECT_TRUE(user->boxes.empty());
    EXPECT_EQ(color(1, 2), white);
    EXPECT_EQ(Reported(*form).of("iDataTypeStatus"), Value(std::int16_t{1}));
}

TEST_F(SetVariable, ABitCanBeGivenToAWordButNotAWordToABit) {
    good("Flag", 1);
    good("Count", 4);
    list("Count=;Flag=;");
    EXPECT_TRUE(edit(1, 2, "Flag"));
    EXPECT_FALSE(edit(2, 2, "Count"));
    expectBox(0, "Cannot assign an integer value to a bit variable.", Icon::critical);
}

TEST_F(SetVariable, TheConstants0And1AreGoodForABitThoughTheyAreWords) {
    good("Flag", 1);
    for (const char* constant : {"0", "1", "2", " 1", "01"}) good(constant, 4, false);
    list("Flag=;");
    EXPECT_TRUE(edit(1, 2, "0"));
    EXPECT_TRUE(edit(1, 2, "1"));
    EXPECT_EQ(Reported(*form).of("iDataTypeStatus"), Value(std::int16_t{0}));
    for (const char* other : {"2", " 1", "01"}) {
        EXPECT_FALSE(edit(1, 2, other)) << other;
        invoke(*grid, "Cancel", 1, 2);
    }
    list("=1;");
    EXPECT_TRUE(edit(1, 1, "Flag"));
}

TEST_F(SetVariable, TheConstantsHaveToBeWordsForTheTableToBePassedOver) {
    good("Flag", 1);
    good("1", 8, false);
    list("Flag=;");
    EXPECT_FALSE(edit(1, 2, "1"));
}

TEST_F(SetVariable, AnotherCellThatIsBadHasNoType) {
    good("Flag", 1);
    bad("1+", "Operand expected");
    list("Flag=;=1+;");
    EXPECT_TRUE(edit(2, 1, "Flag"));
    EXPECT_EQ(checking.calls.back(), "checkexpression(1+,0,0)");
    EXPECT_TRUE(user->boxes.empty());
    EXPECT_EQ(color(2, 2), untouched);
}

TEST_F(SetVariable, ATypeOutsideTheTableIsError9AndHoldsTheCell) {
    good("Odd", 65);
    list("Speed=;");
    EXPECT_EQ(raisedBy([&] { edit(1, 2, "Odd"); }), 9);
    EXPECT_TRUE(inEdit());
}

TEST_F(SetVariable, ValidationOutsideAnEditLooksAtTheCellItself) {
    bad("1+", "Operand expected");
    list("Speed=1+;");
    EXPECT_TRUE(validation(1, 1));
    EXPECT_FALSE(validation(1, 2));
    EXPECT_EQ(color(1, 2), red);
    EXPECT_FALSE(validation(5, 1));
    EXPECT_EQ(raisedBy([&] { validation(99, 1); }), 9);
}

// A cell held in edit

TEST_F(SetVariable, ABadCellHoldsTheUser) {
    bad("1+", "Operand expected");
    list("Speed=100;Torque=5;");
    show([&] {
        EXPECT_FALSE(edit(1, 2, "1+"));
        EXPECT_FALSE(edit(2, 2, "6"));
        EXPECT_EQ(cell(2, 2), "5");
        on("Click", 2, 1);
        on("DblClick", 2, 1);
        on("ButtonClick", 2, 1);
        current(2, 0);
        EXPECT_EQ(grid->get("Row").toLong(), 1);
        EXPECT_EQ(grid->get("Col").toLong(), 2);
        EXPECT_FALSE(grid->get("RowSelection").toBoolean());
        press("btnOK");
        EXPECT_TRUE(form->Visible());
        EXPECT_TRUE(inEdit());
        EXPECT_EQ(cell(1, 2), "100");
        for (const MessageBox& box : user->boxes) EXPECT_EQ(box.text, "Operand expected");
        EXPECT_TRUE(edit(1, 2, "101"));
        press("btnOK");
        EXPECT_FALSE(form->Visible());
    });
    EXPECT_EQ(written(), "Speed=101;Torque=5;");
}

TEST_F(SetVariable, EscapeGivesTheCellItsOldTextBack) {
    bad("1+", "Operand expected");
    list("Speed=100;");
    edit(1, 2, "1+");
    invoke(*grid, "Cancel", 1, 2);
    EXPECT_FALSE(inEdit());
    EXPECT_EQ(cell(1, 2), "100");
    EXPECT_EQ(color(1, 2), red);
    EXPECT_TRUE(edit(2, 1, "Torque"));
}

TEST_F(SetVariable, CancelClosesWithABadCell) {
    bad("1+", "Operand expected");
    list("Speed=100;");
    show([&] {
        edit(1, 2, "1+");
        press("btnCancel");
        EXPECT_FALSE(form->Visible());
    });
    EXPECT_EQ(written(), "Speed=100;");
    EXPECT_FALSE(form->get("OKClicked").toBoolean());
}

}  // namespace
}  // namespace canvas::editors
