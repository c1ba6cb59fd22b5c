// Set Variable: assignments in a grid, each edit checked at once.

#include "tests/editors/grid_user.h"
#include "tests/tracing/fakes.h"

namespace canvas::editors {
namespace {

struct SetVariable : GridUser {
    SetVariable() : GridUser("frmSetVariable", "VSGridUserVariable") {
        invoke(*form, "SetData", Ref<Object>(host.controller), Ref<Object>(host.data), checking.object());
        checking.otherwise = {.dataType = 16, .isLValue = true};
    }
    bool validation(int row, int col) { return invoke(*form, "Validation", row, col).toBoolean(); }
    std::string saved() { return invoke(*form, "SaveGridContent").toText(); }
};

// Filling

TEST_F(SetVariable, ShowsItsCaptionHeadersAndHint) {
    EXPECT_EQ(form->Caption(), "Set Variable");
    EXPECT_EQ(cell(0, 0), "");
    EXPECT_EQ(cell(0, 1), "Variable");
    EXPECT_EQ(cell(0, 2), "Expression");
    EXPECT_EQ(grid->get("Cols").toLong(), 3);
    EXPECT_EQ(at("lblEdit")->get("Caption").toText(), "Double click on a cell to Edit");
    EXPECT_EQ(static_cast<Grid&>(*grid).columnKind(1), ColumnKind::button);
    EXPECT_EQ(static_cast<Grid&>(*grid).columnKind(2), ColumnKind::button);
}

TEST_F(SetVariable, AnEmptyListOpensWithTenEmptyRows) {
    list("");
    ASSERT_EQ(rows(), 11);
    for (int row = 1; row < 11; ++row) EXPECT_EQ(cell(row, 1) + cell(row, 2), "");
}

TEST_F(SetVariable, WithoutAnAttributeItOpensEmptyToo) {
    show([&] { EXPECT_EQ(rows(), 11); });
    EXPECT_EQ(form->get("BVTAttribute").toObject()->className(), "clsBVTSetVariable");
}

TEST_F(SetVariable, EachAssignmentFillsARowWithItsSidesTrimmed) {
    list(" Speed = 100 ;Torque=Speed = 2;Bare;;=7;");
    EXPECT_EQ(cell(1, 1), "Speed");
    EXPECT_EQ(cell(1, 2), "100");
    EXPECT_EQ(cell(2, 1), "Torque");
    EXPECT_EQ(cell(2, 2), "Speed = 2");
    EXPECT_EQ(cell(3, 1), "Bare");
    EXPECT_EQ(cell(3, 2), "");
    EXPECT_EQ(cell(4, 1) + cell(4, 2), "");
    EXPECT_EQ(cell(5, 1), "");
    EXPECT_EQ(cell(5, 2), "7");
    EXPECT_EQ(rows(), 11);
}

TEST_F(SetVariable, WhatStandsBehindTheLastSemicolonIsNoAssignment) {
    list("a=1;b=2");
    EXPECT_EQ(cell(1, 1), "a");
    EXPECT_EQ(cell(2, 1), "");
}

TEST_F(SetVariable, MoreThanTenAssignmentsMakeTheGridLonger) {
    std::string text;
    for (int i = 0; i < 12; ++i) text += "v=1;";
    list(text);
    EXPECT_EQ(rows(), 13);
    EXPECT_EQ(cell(12, 1), "v");
}

TEST_F(SetVariable, WritingTheAttributeAgainFillsAnew) {
    list("a=1;b=2;");
    list("c=3;");
    EXPECT_EQ(rows(), 11);
    EXPECT_EQ(cell(1, 1), "c");
    EXPECT_EQ(cell(2, 1), "");
}

TEST_F(SetVariable, AnotherClassesAttributeIsATypeMismatch) {
    EXPECT_EQ(raisedBy([&] { form->put("BVTAttribute", makeForm("frmMoveAxis")->get("BVTAttribute")); }), 13);
}

TEST_F(SetVariable, TheStepsOfFillingAreMembers) {
    const Value parts = invoke(*form, "ParseList", "a=1;b=2;");
    EXPECT_EQ(parts.toArray().elements, (std::vector<Value>{Value("a=1"), Value("b=2"), Value("")}));
    list("a=1;");
    invoke(*grid, "Paste", 1, 1, "typed");
    invoke(*form, "FillGrid");
    EXPECT_EQ(cell(1, 1), "a");
    EXPECT_EQ(rows(), 11);
}

// Editing

TEST_F(SetVariable, TheKeyFilterRefusesTheDoubleQuoteAndTheSemicolon) {
    EXPECT_TRUE(edit(1, 1, "Sp\"ee;d"));
    EXPECT_EQ(cell(1, 1), "Speed");
    EXPECT_TRUE(user->boxes.empty());
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

// Picking

TEST_F(SetVariable, ADoubleClickOpensTheEditorAndLeavesTheButton) {
    on("DblClick", 3, 2);
    const Grid& cells = static_cast<Grid&>(*grid);
    EXPECT_TRUE(inEdit());
    EXPECT_EQ(cells.editRow(), 3);
    EXPECT_EQ(cells.editCol(), 2);
    EXPECT_EQ(cells.columnKind(2), ColumnKind::button);
    invoke(*grid, "Cancel", 3, 2);
    on("DblClick", 3, 0);
    EXPECT_FALSE(inEdit());
    on("DblClick", 0, 1);
    EXPECT_FALSE(inEdit());
}

TEST_F(SetVariable, TheButtonOfAVariableOpensTheFiveLists) {
    list("Old=1;");
    show(
        [&] {
            on("ButtonClick", 1, 1);
            EXPECT_EQ(cell(1, 1), "of GetWritableSystemVariableCol");
        },
        [&](Object& opened) {
            EXPECT_EQ(opened.get("Name").toText(), "frmDataList");
            constexpr std::string_view lists[] = {"getuserdefinedvariablecol", "GetWritableSystemVariableCol",
                                                  "GetSystemIOCol", "GetUserDefinedTableCol",
                                                  "GetUserDefinedNetworkCol"};
            const Ref<Object> tabs = control(opened, "SSDataTab");
            for (int tab = 0; tab < 5; ++tab) {
                const Ref<Object> names = control(opened, "lstVariable(" + std::to_string(tab) + ")");
                ASSERT_EQ(names->get("ListCount").toLong(), 1);
                EXPECT_EQ(invoke(*names, "List", 0).toText(), "of " + std::string(lists[tab]));
                EXPECT_TRUE(invoke(*tabs, "TabEnabled", tab).toBoolean());
            }
            tabs->put("Tab", Value(1));
            control(opened, "lstVariable(1)")->put("ListIndex", Value(0));
            invoke(*control(opened, "cmdOK"), "Click");
        });
    EXPECT_EQ(Reported(*form).of("oldData"), Value("Old"));
}

TEST_F(SetVariable, ATableElementComesWithItsIndex) {
    host.data->method("GetTableRange", [](Args args) {
        args[1] = Value(std::int32_t{10});
        return Value(true);
    });
    user->typed = {"3"};
    show([&] { EXPECT_EQ(invoke(*form, "SelectVariable", "Old").toText(), "of GetUserDefinedTableCol[3]"); },
         [&](Object& opened) {
             control(opened, "SSDataTab")->put("Tab", Value(3));
             control(opened, "lstVariable(3)")->put("ListIndex", Value(0));
             invoke(*control(opened, "cmdOK"), "Click");
         });
    ASSERT_EQ(user->asked.size(), 1u);
    EXPECT_EQ(user->asked[0].prompt, "Please enter table index between 0 and 9");
}

TEST_F(SetVariable, CancelInTheListKeepsTheName) {
    list("Old=1;");
    show([&] {
        on("ButtonClick", 1, 1);
        EXPECT_EQ(cell(1, 1), "Old");
    }, [&](Object& opened) {
        control(opened, "lstVariable(0)")->put("ListIndex", Value(0));
        invoke(*control(opened, "cmdCancel"), "Click");
    });
}

TEST_F(SetVariable, TheButtonOfAnExpressionOpensTheBuilderOnItsText) {
    list("Speed=1+1;");
    std::string opening;
    show([&] { on("ButtonClick", 1, 2); },
         [&](Object& opened) {
             EXPECT_EQ(opened.get("Name").toText(), "frmExpressionBuilder");
             opening = control(opened, "txbExpression")->get("Text").toText();
             invoke(*control(opened, "cmdCancel"), "Click");
         });
    EXPECT_EQ(opening, "1+1");
    EXPECT_EQ(cell(1, 2), "1+1");
    EXPECT_EQ(Reported(*form).of("oldData"), Value("1+1"));
}

TEST_F(SetVariable, TheClickThatEndsAnEditOpensNoList) {
    int opened = 0;
    show(
        [&] {
            EXPECT_TRUE(edit(1, 1, "Speed"));
            on("ButtonClick", 1, 1);
            EXPECT_EQ(opened, 0);
            on("ButtonClick", 1, 1);
            EXPECT_EQ(opened, 1);
            // the button of the very cell that is in edit
            on("DblClick", 1, 1);
            on("ButtonClick", 1, 1);
            EXPECT_FALSE(inEdit());
            EXPECT_EQ(opened, 1);
            on("ButtonClick", 1, 1);
            EXPECT_EQ(opened, 2);
        },
        [&](Object&) { ++opened; });
}

TEST_F(SetVariable, AnEditThatFailedSwallowsAClickToo) {
    int opened = 0;
    bad("1+", "Operand expected");
    show(
        [&] {
            edit(1, 2, "1+");
            invoke(*grid, "Cancel", 1, 2);
            on("ButtonClick", 1, 1);
            EXPECT_EQ(opened, 0);
            on("ButtonClick", 1, 1);
            EXPECT_EQ(opened, 1);
        },
        [&](Object&) { ++opened; });
}

// Rows

TEST_F(SetVariable, TheRowHeaderSelectsRowsAndACellSelectsCells) {
    EXPECT_FALSE(grid->get("RowSelection").toBoolean());
    on("Click", 2, 0);
    EXPECT_TRUE(grid->get("RowSelection").toBoolean());
    on("Click", 2, 1);
    EXPECT_FALSE(grid->get("RowSelection").toBoolean());
    current(3, 0);
    EXPECT_TRUE(grid->get("RowSelection").toBoolean());
    current(3, 2);
    EXPECT_FALSE(grid->get("RowSelection").toBoolean());
    on("Click", 4, 0);
    edit(4, 1, "Speed");
    EXPECT_FALSE(grid->get("RowSelection").toBoolean());
}

TEST_F(SetVariable, DeletingARowAsksFirst) {
    list("a=1;b=2;c=3;");
    user->replies = {Reply::no, Reply::cancel, Reply::yes};
    current(2, 0);
    for (int press = 0; press < 2; ++press) {
        key(46);
        EXPECT_EQ(cell(2, 1), "b");
    }
    key(46);
    ASSERT_EQ(user->boxes.size(), 3u);
    expectBox(0, "Do you want to delete selected expression?", Icon::information, {}, Buttons::yesNoCancel);
    EXPECT_EQ(rows(), 10);
    EXPECT_EQ(saved(), "a=1;c=3;");
}

TEST_F(SetVariable, ARowWithOneSideFilledIsAskedAboutToo) {
    list("=1;");
    current(1, 0);
    key(46);
    EXPECT_EQ(user->boxes.size(), 1u);
}

TEST_F(SetVariable, NothingIsDeletedWithoutRowSelectionOrFromABlankRowOrByAnotherKey) {
    list("a=1;");
    user->replies.assign(5, Reply::yes);
    current(1, 1);
    key(46);
    current(2, 0);
    key(46);
    current(1, 0);
    key(8);
    current(0, 0);
    key(46);
    EXPECT_TRUE(user->boxes.empty());
    EXPECT_EQ(rows(), 11);
}

TEST_F(SetVariable, AGridThatLosesItsLastRowGetsAnEmptyOne) {
    list("a=1;");
    user->replies.assign(20, Reply::yes);
    Grid& cells = static_cast<Grid&>(*grid);
    while (cells.Rows() > 2) cells.removeRow(2);
    current(1, 0);
    key(46);
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(cell(1, 1) + cell(1, 2), "");
    EXPECT_EQ(grid->get("Row").toLong(), 1);
}

TEST_F(SetVariable, DeleteInsideAnEditorIsTheEditors) {
    list("a=1;");
    on("DblClick", 1, 1);
    key(46);
    EXPECT_TRUE(user->boxes.empty());
    EXPECT_TRUE(inEdit());
}

// OK and Cancel

TEST_F(SetVariable, OkWritesTheListTrimmedAndDropsIncompleteRowsWithoutAWord) {
    show([&] {
        edit(1, 1, " Speed ");
        edit(1, 2, " 100 ");
        edit(2, 1, "OnlyVariable");
        edit(3, 2, "OnlyExpression");
        edit(4, 1, "Torque");
        edit(4, 2, "Speed=2");
        press("btnOK");
        EXPECT_FALSE(form->Visible());
    });
    EXPECT_EQ(written(), "Speed=100;Torque=Speed=2;");
    EXPECT_TRUE(form->get("OKClicked").toBoolean());
    EXPECT_TRUE(user->boxes.empty());
}

TEST_F(SetVariable, OkWithNothingInTheGridWritesAnEmptyList) {
    list("a=1;");
    show([&] {
        static_cast<Grid&>(*grid).setCell(1, 1, "");
        press("btnOK");
    });
    EXPECT_EQ(written(), "");
}

TEST_F(SetVariable, AListOf768CharactersIsSavedAndOneMoreIsRefused) {
    const std::string longest = "v=" + std::string(765, '1') + ";";
    ASSERT_EQ(longest.size(), 768u);
    show([&] {
        edit(1, 1, "v");
        edit(1, 2, std::string(766, '1'));
        press("btnOK");
        EXPECT_TRUE(form->Visible());
        EXPECT_EQ(written(), "");
        ASSERT_EQ(user->boxes.size(), 1u);
        expectBox(0, "Maximum allowable variable data exceeded.\rReduce length of data.", Icon::information);
        edit(1, 2, std::string(765, '1'));
        press("btnOK");
        EXPECT_FALSE(form->Visible());
    });
    EXPECT_EQ(written(), longest);
}

TEST_F(SetVariable, TheLimitCountsCharactersNotBytes) {
    std::string umlauts;
    for (int i = 0; i < 765; ++i) umlauts += "ü";
    show([&] {
        edit(1, 1, "v");
        edit(1, 2, umlauts);
        press("btnOK");
    });
    EXPECT_EQ(written(), "v=" + umlauts + ";");
}

TEST_F(SetVariable, CancelAndTheCloseBoxLeaveTheAttribute) {
    for (const bool closeBox : {false, true}) {
        list("a=1;");
        show([&] {
            edit(1, 2, "2");
            if (closeBox) form->Close();
            else press("btnCancel");
        });
        EXPECT_EQ(written(), "a=1;");
        EXPECT_FALSE(form->get("OKClicked").toBoolean());
    }
}

// The form by name

TEST_F(SetVariable, ReportsShowItsVariablesInTheirOrder) {
    EXPECT_EQ(Reported(*form).names,
              (std::vector<std::string>{"oldData", "DatatypeCompatibilityTable", "typeNames", "iDataTypeStatus",
                                        "btnOKClicked", "strUserUnit", "tempVariable", "clsAttribute", "clsData",
                                        "clsController", "clsSyntaxValidation"}));
}

TEST_F(SetVariable, OffersTheCommonMembersOfAttributeDialogs) {
    form->put("UserUnit", Value("mm"));
    EXPECT_EQ(Reported(*form).of("strUserUnit"), Value("mm"));
    EXPECT_FALSE(form->get("OKClicked").toBoolean());
    show([&] { EXPECT_EQ(invoke(*form, "ExpressionBuilder", "a+1").toText(), "a+1"); },
         [](Object& opened) { invoke(*control(opened, "cmdCancel"), "Click"); });
}

// Hosts

TEST_F(SetVariable, AHostWithoutAListIsError438AndTheCellKeepsItsText) {
    host.controller->without("GetWritableSystemVariableCol");
    list("Old=1;");
    tracing::ScriptedHandler handler({tracing::Answer::leave});
    on("ButtonClick", 1, 1);
    ASSERT_EQ(handler.asked.size(), 1u);
    EXPECT_EQ(handler.asked[0].number, 438);
    EXPECT_EQ(handler.asked[0].module, "frmSetVariable");
    EXPECT_EQ(handler.asked[0].procedure, "SelectVariable");
    EXPECT_EQ(cell(1, 1), "Old");
}

TEST_F(SetVariable, AMissingListCanBePassedOver) {
    host.controller->without("GetWritableSystemVariableCol");
    tracing::ScriptedHandler handler({tracing::Answer::ignore, tracing::Answer::ignore});
    show([&] { EXPECT_EQ(invoke(*form, "SelectVariable", "Old").toText(), "of GetSystemIOCol"); },
         [&](Object& opened) {
             control(opened, "SSDataTab")->put("Tab", Value(2));
             control(opened, "lstVariable(2)")->put("ListIndex", Value(0));
             invoke(*control(opened, "cmdOK"), "Click");
         });
}

TEST_F(SetVariable, WithoutACheckerAnEditIsError91AndHoldsTheCell) {
    invoke(*form, "SetData", Ref<Object>(host.controller), Ref<Object>(host.data), Ref<Object>());
    EXPECT_EQ(raisedBy([&] { edit(1, 1, "Speed"); }), 91);
    EXPECT_TRUE(inEdit());
    EXPECT_EQ(cell(1, 1), "");
}

TEST_F(SetVariable, ACheckerThatFailsOnceCanBeAskedAgain) {
    checking.failures["GetResult"] = 1;
    tracing::ScriptedHandler handler({tracing::Answer::retry});
    EXPECT_TRUE(edit(1, 1, "Speed"));
    EXPECT_EQ(cell(1, 1), "Speed");
}

TEST_F(SetVariable, ANullComplaintIsError94) {
    auto checker = make<Composed>("Checker");
    checker->method("checkexpression", [](Args) { return Value(std::int32_t{1}); });
    checker->method("GetErrorInfo", [](Args args) {
        args[0] = Value(Null{});
        return Value();
    });
    invoke(*form, "SetData", Ref<Object>(host.controller), Ref<Object>(host.data), Ref<Object>(checker));
    EXPECT_EQ(raisedBy([&] { edit(1, 2, "x"); }), 94);
    EXPECT_TRUE(inEdit());
}

TEST_F(SetVariable, ACheckerThatFillsTheFormAnewEndsTheEdit) {
    auto checker = make<Composed>("Checker");
    checker->method("checkexpression", [&](Args) {
        list("Other=1;");
        return Value(std::int32_t{0});
    });
    checker->method("GetResult", [](Args args) {
        args[1] = Value(true);
        return Value();
    });
    invoke(*form, "SetData", Ref<Object>(host.controller), Ref<Object>(host.data), Ref<Object>(checker));
    EXPECT_TRUE(edit(2, 1, "Speed"));
    EXPECT_FALSE(inEdit());
    EXPECT_EQ(cell(1, 1), "Other");
    EXPECT_EQ(cell(2, 1), "");
}

}  // namespace
}  // namespace canvas::editors
