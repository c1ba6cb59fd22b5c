// Set Variable: assignments in a grid, filled, picked, deleted and written.

#include "tests/editors/set_variable_user.h"

namespace canvas::editors {
namespace {

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

}  // namespace
}  // namespace canvas::editors
