// Programmable Limit Switch: filled, picked, deleted and written.

#include "tests/editors/limit_switch_user.h"

namespace canvas::editors {
namespace {

// Filling

TEST_F(LimitSwitch, ShowsItsCaptionsAndHeaders) {
    EXPECT_EQ(form->Caption(), "Programmable Limit Switch");
    EXPECT_EQ(cell(0, 0), "");
    EXPECT_EQ(cell(0, 1), "Value >");
    EXPECT_EQ(cell(0, 2), "Value <");
    EXPECT_EQ(cell(0, 3), "Output");
    EXPECT_EQ(cell(0, 4), "On/Off");
    EXPECT_EQ(at("lblMasterVariable")->get("Caption").toText(), "Encoder Variable:");
    EXPECT_EQ(at("cmdSelectMasterVariable")->get("Caption").toText(), "...");
    const Grid& cells = static_cast<Grid&>(*grid);
    EXPECT_EQ(cells.columnKind(1), ColumnKind::text);
    EXPECT_EQ(cells.columnKind(2), ColumnKind::text);
    EXPECT_EQ(cells.columnKind(3), ColumnKind::button);
    EXPECT_EQ(cells.columnKind(4), ColumnKind::check);
}

TEST_F(LimitSwitch, AnEmptyListOpensWithEightEmptyRows) {
    list("");
    EXPECT_EQ(rows(), 9);
    for (int row = 1; row < 9; ++row) EXPECT_EQ(cell(row, 1) + cell(row, 2) + cell(row, 3) + cell(row, 4), "False");
}

TEST_F(LimitSwitch, EachSwitchFillsARow) {
    form->get("BVTAttribute").toObject()->put("MasterVariable", Value("Encoder"));
    list(" 100 , 50,Out1 , 1 ;200,150,Out2,0;300,250,Out3,2;lost,1,2,1");
    EXPECT_EQ(master()->get("Text").toText(), "Encoder");
    EXPECT_EQ(cell(1, 1), "100");
    EXPECT_EQ(cell(1, 2), "50");
    EXPECT_EQ(cell(1, 3), "Out1");
    EXPECT_EQ(cell(1, 4), "True");
    EXPECT_EQ(cell(2, 1), "200");
    EXPECT_EQ(cell(2, 4), "False");
    EXPECT_EQ(cell(3, 4), "False");
    EXPECT_EQ(cell(4, 1), "");
    EXPECT_EQ(rows(), 9);
}

TEST_F(LimitSwitch, AShortEntryHasEmptyFieldsAndALongOneLosesItsRest) {
    list("100;1,2,3,1,5;");
    EXPECT_EQ(cell(1, 1), "100");
    EXPECT_EQ(cell(1, 2), "");
    EXPECT_EQ(cell(1, 4), "False");
    EXPECT_EQ(cell(2, 3), "3");
    EXPECT_EQ(cell(2, 4), "True");
}

TEST_F(LimitSwitch, MoreThanEightSwitchesMakeTheGridLonger) {
    std::string text;
    for (int i = 0; i < 9; ++i) text += "1,2,o,1;";
    list(text);
    EXPECT_EQ(rows(), 10);
    EXPECT_EQ(cell(9, 3), "o");
}

// Picking

TEST_F(LimitSwitch, TheEncoderIsPickedFromAllVariablesButTables) {
    show([&] {
        press("cmdSelectMasterVariable");
        EXPECT_EQ(master()->get("Text").toText(), "localSystemIOCol");
    }, picks(2, allLists));
}

TEST_F(LimitSwitch, AnOutputIsPickedFromTheBits) {
    list("1,2,Old,1;");
    show([&] {
        on("ButtonClick", 1, 3);
        EXPECT_EQ(cell(1, 3), "localUserDefniedBitNetworkCol");
    }, picks(4, bitLists));
}

TEST_F(LimitSwitch, CancelInTheListKeepsWhatThereWas) {
    list("1,2,Old,1;");
    master()->put("Text", Value("Encoder"));
    const auto cancels = [](Object& opened) {
        control(opened, "lstVariable(0)")->put("ListIndex", Value(0));
        invoke(*control(opened, "cmdCancel"), "Click");
    };
    show([&] {
        on("ButtonClick", 1, 3);
        press("cmdSelectMasterVariable");
        EXPECT_EQ(invoke(*form, "SelectVariable", "Mine", 1).toText(), "Mine");
    }, cancels);
    EXPECT_EQ(cell(1, 3), "Old");
    EXPECT_EQ(master()->get("Text").toText(), "Encoder");
}

TEST_F(LimitSwitch, OnlyTheOutputHasAButton) {
    show([&] {
        on("ButtonClick", 1, 1);
        on("ButtonClick", 1, 4);
        on("ButtonClick", 0, 3);
    });
}

TEST_F(LimitSwitch, TheButtonActsOnTheFirstClickAfterAnEdit) {
    show([&] {
        EXPECT_TRUE(edit(1, 1, "5"));
        on("ButtonClick", 1, 3);
        EXPECT_EQ(cell(1, 3), "localUserDefinedBitVariableCol");
    }, picks(0, bitLists));
}

TEST_F(LimitSwitch, AClickOnAValueOpensItsEditorAndOneOnTheOthersDoesNot) {
    on("Click", 2, 1);
    EXPECT_TRUE(inEdit());
    invoke(*grid, "Cancel", 2, 1);
    on("Click", 2, 2);
    EXPECT_TRUE(inEdit());
    invoke(*grid, "Cancel", 2, 2);
    on("Click", 2, 3);
    EXPECT_FALSE(inEdit());
    on("Click", 2, 4);
    EXPECT_FALSE(inEdit());
    on("Click", 2, 0);
    EXPECT_FALSE(inEdit());
    on("Click", 0, 1);
    EXPECT_FALSE(inEdit());
}

TEST_F(LimitSwitch, AClickOnTheCheckBoxTogglesIt) {
    on("Click", 1, 4);
    EXPECT_EQ(cell(1, 4), "True");
    on("Click", 1, 4);
    EXPECT_EQ(cell(1, 4), "False");
    EXPECT_FALSE(edit(1, 4, "True"));
    EXPECT_TRUE(checking.calls.empty());
}

// Rows

TEST_F(LimitSwitch, DeletingARowAsksFirst) {
    list("1,2,a,1;3,4,b,0;");
    user->replies = {Reply::no, Reply::cancel, Reply::yes};
    on("Click", 1, 0);
    EXPECT_TRUE(grid->get("RowSelection").toBoolean());
    for (int press = 0; press < 3; ++press) key(46);
    ASSERT_EQ(user->boxes.size(), 3u);
    expectBox(2, "Do you want to delete selected expression?", Icon::information, {}, Buttons::yesNoCancel);
    EXPECT_EQ(rows(), 8);
    EXPECT_EQ(invoke(*form, "SaveGridContent").toText(), "3,4,b,0;");
}

TEST_F(LimitSwitch, ABlankRowIsNotAskedAboutButOneThatIsTickedIs) {
    on("Click", 1, 0);
    key(46);
    EXPECT_TRUE(user->boxes.empty());
    on("Click", 1, 4);
    on("Click", 1, 0);
    key(46);
    EXPECT_EQ(user->boxes.size(), 1u);
}

// OK and Cancel

TEST_F(LimitSwitch, OkWritesEncoderAndSwitchesAndDropsShortRowsWithoutAWord) {
    for (const char* name : {"Out1", "Out2", " Out2 "}) good(name, 1);
    show([&] {
        invoke(*master(), "Type", "Encoder");
        edit(1, 1, " 100 ");
        edit(1, 2, "50");
        edit(1, 3, "Out1");
        on("Click", 1, 4);
        edit(2, 1, "100");
        edit(2, 2, "50");
        on("Click", 2, 4);
        edit(3, 1, "200");
        edit(3, 2, "150");
        edit(3, 3, " Out2 ");
        edit(4, 2, "150");
        edit(4, 3, "Out2");
        press("btnOK");
        EXPECT_FALSE(form->Visible());
    });
    const Ref<Object> attribute = form->get("BVTAttribute").toObject();
    EXPECT_EQ(attribute->get("MasterVariable").toText(), "Encoder");
    EXPECT_EQ(written(), "100,50,Out1,1;200,150,Out2,0;");
    EXPECT_TRUE(form->get("OKClicked").toBoolean());
    EXPECT_TRUE(user->boxes.empty());
}

TEST_F(LimitSwitch, TheListMayBeOfAnyLength) {
    show([&] {
        edit(1, 1, std::string(2000, '1'));
        static_cast<Grid&>(*grid).setCell(1, 2, "2");
        static_cast<Grid&>(*grid).setCell(1, 3, "o");
        press("btnOK");
    });
    EXPECT_EQ(written(), std::string(2000, '1') + ",2,o,0;");
}

TEST_F(LimitSwitch, CancelLeavesTheAttribute) {
    list("1,2,o,1;");
    show([&] {
        invoke(*master(), "Type", "Encoder");
        edit(1, 1, "5");
        press("btnCancel");
    });
    EXPECT_EQ(written(), "1,2,o,1;");
    EXPECT_EQ(form->get("BVTAttribute").toObject()->get("MasterVariable").toText(), "");
    EXPECT_FALSE(form->get("OKClicked").toBoolean());
}

// The form by name

TEST_F(LimitSwitch, ReportsShowItsVariablesInTheirOrder) {
    std::vector<std::string> names{"DatatypeCompatibilityTable", "typeNames",    "iDataTypeStatus",    "btnOKClicked",
                                   "strUserUnit",                "clsAttribute", "clsSyntaxValidation"};
    names.insert(names.end(), kept.begin(), kept.end());
    EXPECT_EQ(Reported(*form).names, names);
}

TEST_F(LimitSwitch, SetDataKeepsEachArgumentUnderItsOwnName) {
    const Reported reported(*form);
    for (const std::string& name : kept)
        EXPECT_EQ(invoke(*reported.of(name).toObject(), "Item", 1).toText(), name);
    EXPECT_EQ(reported.of("clsSyntaxValidation").toObject(), checking.object());
}

TEST_F(LimitSwitch, SetDataWithThreeArgumentsIsRefused) {
    EXPECT_EQ(raisedBy([&] { invoke(*form, "SetData", Ref<Object>(), Ref<Object>(), Ref<Object>()); }), 450);
}

TEST_F(LimitSwitch, UnloadingReleasesTheLists) {
    list("1,2,o,1;");
    form->Unload();
    const Reported reported(*form);
    for (const std::string& name : kept) EXPECT_EQ(reported.of(name).toObject().get(), nullptr) << name;
}

// Hosts

TEST_F(LimitSwitch, WithoutListsPickingIsError91) {
    form = makeForm("frmProgrammableLimitSwitch");
    grid = control(*form, "VSPLSGrid");
    tracing::ScriptedHandler handler({tracing::Answer::leave});
    on("ButtonClick", 1, 3);
    ASSERT_EQ(handler.asked.size(), 1u);
    EXPECT_EQ(handler.asked[0].number, 91);
    EXPECT_EQ(handler.asked[0].module, "frmProgrammableLimitSwitch");
    EXPECT_EQ(handler.asked[0].procedure, "SelectVariable");
    EXPECT_EQ(cell(1, 3), "");
}

TEST_F(LimitSwitch, ACheckerThatFailsOnTheEncoderEndsTheHandlerThere) {
    checking.failures["checkexpression"] = 1;
    tracing::ScriptedHandler handler({tracing::Answer::leave});
    show([&] {
        invoke(*master(), "Type", "Encoder");
        invoke(*master(), "Leave");
        EXPECT_EQ(masterColor(), untouched);
    });
    ASSERT_EQ(handler.asked.size(), 1u);
    EXPECT_EQ(handler.asked[0].procedure, "txbMasterVariable_LostFocus");
    EXPECT_TRUE(user->boxes.empty());
}

}  // namespace
}  // namespace canvas::editors
