// The expression builder: lists, insertion, undo, the check on OK, and what comes back.

#include <gtest/gtest.h>

#include "tests/editors/expression_builder_user.h"
#include "tests/host/raised.h"

namespace canvas::editors {
namespace {

constexpr std::int32_t plus = 2;

TEST_F(ExpressionBuilder, HasItsCaptionsAndButtons) {
    run("", [&] {
        EXPECT_EQ(form->Name(), "frmExpressionBuilder");
        EXPECT_EQ(form->Caption(), "Expression Builder");
        EXPECT_EQ(at("lblVariable")->get("Caption").toText(), "Variable:");
        EXPECT_EQ(at("lblVariableType")->get("Caption").toText(), "Variable Type:");
        EXPECT_EQ(at("lblOperator")->get("Caption").toText(), "Operator:");
        EXPECT_EQ(at("cmdUndo")->get("Caption").toText(), "&Undo");
        EXPECT_EQ(at("cmdClear")->get("Caption").toText(), "CLEAR");
        EXPECT_TRUE(at("txbExpression")->get("HasFocus").toBoolean());
    });
}

TEST_F(ExpressionBuilder, OperatorsAreInsertedByTheirPlace) {
    const std::pair<std::string, std::string> rows[] = {
        {"true", "true"},
        {"false", "false"},
        {"Plus", "+"},
        {"Minus", "-"},
        {"Divide", "/"},
        {"Multiply", "*"},
        {"Modulus", "%"},
        {"Equal to", "=="},
        {"Greater than", ">"},
        {"Greater than or Equal to", ">="},
        {"Less than", "<"},
        {"Less than or Equal to", "<="},
        {"Logical And", "&&"},
        {"Logical Or", "||"},
        {"Logical Not", "!="},
        {"Bitwise And", "&"},
        {"Bitwise Or", "|"},
        {"Bitwise Not", "!"},
        {"(", "("},
        {")", ")"},
        {"[", "["},
        {"]", "]"},
        {"sin", "sin"},
        {"cos", "cos"},
        {"tan", "tan"},
        {"arctan", "arctan"},
        {"Square Root", "sqrt"},
        {"Absolute Value", "abs"},
    };
    run("", [&] {
        Names shown;
        for (const auto& row : rows) shown.push_back(row.first);
        EXPECT_EQ(shownIn(*at("lstOperator")), shown);
        for (std::int32_t i = 0; i < 28; ++i) {
            put("");
            insertOperator(i);
            EXPECT_EQ(text(), rows[i].second + " ") << i;
        }
    });
}

TEST_F(ExpressionBuilder, ADoubleClickBesideTheOperatorsIsAnErrorAndBesideTheNamesInsertsABlank) {
    run("", [&] {
        EXPECT_EQ(raisedBy([&] { invoke(*at("lstOperator"), "DblClick"); }), 9);
        EXPECT_EQ(text(), "");
        invoke(*at("lstVariable"), "DblClick");
        EXPECT_EQ(text(), " ");
    });
}

TEST_F(ExpressionBuilder, TheTreeStandsInItsOrder) {
    const struct {
        std::string key, text, parent;
    } nodes[] = {
        {"Data", "Data", ""},
        {"Constants", "Constants", "Data"},
        {"Network", "Network", "Data"},
        {"Tables", "Tables", "Data"},
        {"Variables", "Variables", "Data"},
        {"I/O", "I/O", "Data"},
        {"SystemVariables", "System Variables", "Data"},
        {"Configuration", "Configuration", ""},
        {"SystemParameters", "System Parameters", "Configuration"},
    };
    const auto look = [&] {
        const Ref<Object> tree = at("tvData");
        ASSERT_EQ(tree->get("NodeCount").toLong(), 9);
        for (std::int32_t i = 0; i < 9; ++i) {
            EXPECT_EQ(invoke(*tree, "NodeKey", i).toText(), nodes[i].key);
            EXPECT_EQ(invoke(*tree, "NodeText", i).toText(), nodes[i].text);
            EXPECT_EQ(invoke(*tree, "NodeParent", i).toText(), nodes[i].parent);
            EXPECT_EQ(invoke(*tree, "NodeExpanded", i).toBoolean(), nodes[i].parent.empty());
        }
    };
    run("", look);
    run("", look);  // the second showing has them once, too
}

TEST_F(ExpressionBuilder, ANodeListsItsNamesInPlaceOfThoseBefore) {
    const std::pair<std::string, std::string> lists[] = {
        {"Variables", "getuserdefinedvariablecol"},
        {"Network", "GetUserDefinedNetworkCol"},
        {"Constants", "GetUserDefinedConstantCol"},
        {"SystemVariables", "GetReadableSystemVariablecol"},
        {"I/O", "GetSystemIOCol"},
        {"Tables", "GetUserDefinedTableCol"},
        {"SystemParameters", "GetReadableSystemParameterCol"},
    };
    run("", [&] {
        EXPECT_EQ(names(), Names{});
        for (const auto& [tag, member] : lists) {
            node(tag);
            EXPECT_EQ(names(), Names{member});
            for (const std::string parent : {"Data", "Configuration"}) {
                node(parent);
                EXPECT_EQ(names(), Names{member}) << "a parent leaves the list as it is";
            }
        }
        EXPECT_EQ(raisedBy([&] { node("No such node"); }), 5);
    });
}

TEST_F(ExpressionBuilder, NamesStandInTheHostsOrder) {
    data->method("GetSystemIOCol", [](Args) { return Value(listOf({"b", "a", "b", "Ä", "日本", "😀"})); });
    data->method("GetUserDefinedTableCol", [](Args) { return Value(countedNames(2)); });
    run("", [&] {
        node("I/O");
        EXPECT_EQ(names(), (Names{"b", "a", "b", "Ä", "日本", "😀"}));
        insertName(5);
        EXPECT_EQ(text(), "😀 ");
        EXPECT_EQ(selection().first, 3);
        node("Tables");
        EXPECT_EQ(names(), (Names{"Item1", "Item2"}));
    });
}

TEST_F(ExpressionBuilder, TenThousandNamesComeAsOneChange) {
    struct Counting final : FormWatcher {
        int lists = 0;
        void controlChanged(Control& control) override { lists += control.Name() == "lstVariable"; }
        void focusMoved(Control*) override {}
        void formChanged() override {}
    } watcher;
    data->method("GetSystemIOCol", [](Args) { return Value(manyNames(10000)); });
    run("", [&] {
        form->setWatcher(&watcher);
        node("I/O");
        form->setWatcher(nullptr);
        EXPECT_EQ(names().size(), 10000u);
        EXPECT_LE(watcher.lists, 2);  // emptied, filled
    });
}

TEST_F(ExpressionBuilder, InsertingKeepsTheNameApart) {
    const struct {
        std::string before;
        std::int32_t start, length;
        std::string after;
        std::int32_t point;
    } rows[] = {
        {"", 0, 0, "X ", 2},  // at the start: always a blank behind, none before
        {"a", 0, 0, "X a", 2},        {" a", 0, 0, "X  a", 2},      {"ab", 1, 0, "a X b", 4},  // between two characters
        {"a b", 1, 0, "a X b", 3},                                                             // before a blank
        {"a b", 2, 0, "a X b", 4},                                                             // behind a blank
        {"a  b", 2, 0, "a X b", 3},                                                            // between two blanks
        {"ab", 2, 0, "ab X ", 5},                                 // the end counts as no blank
        {"ab ", 3, 0, "ab X ", 5},    {"abc", 1, 1, "a X c", 4},  // over a selection; what counts is the character
                                                                  // behind the insertion point
        {"a b c", 2, 1, "a X  c", 4}, {"a b c", 1, 1, "a Xb c", 3}, {"abc", 0, 3, "X ", 2},
        {"a\tb", 2, 0, "a\t X b", 5},  // a tab is no blank
        {"😀b", 2, 0, "😀 X b", 5},      // a character outside the basic plane is two units
        {"ä日", 1, 0, "ä X 日", 4},
    };
    data->method("GetSystemIOCol", [](Args) { return Value(listOf({"X"})); });
    run("", [&] {
        node("I/O");
        for (const auto& row : rows) {
            put(row.before);
            select(row.start, row.length);
            insertName();
            EXPECT_EQ(text(), row.after) << row.before << " at " << row.start;
            EXPECT_EQ(selection(), std::pair(row.point, 0)) << row.before << " at " << row.start;
        }
    });
}

TEST_F(ExpressionBuilder, AnOperatorIsInsertedLikeAName) {
    run("ab", [&] {
        select(1);
        insertOperator(plus);
        EXPECT_EQ(text(), "a + b");
    });
}

// Undo

TEST_F(ExpressionBuilder, UndoRightAfterOpeningChangesNothing) {
    run("a + b", [&] {
        click("cmdUndo");
        EXPECT_EQ(text(), "a + b");
    });
}

TEST_F(ExpressionBuilder, UndoAfterClearBringsTheTextBackAndASecondOneClearsItAgain) {
    run("a + b", [&] {
        click("cmdClear");
        EXPECT_EQ(text(), "");
        click("cmdUndo");
        EXPECT_EQ(text(), "a + b");
        click("cmdUndo");
        EXPECT_EQ(text(), "");
    });
}

TEST_F(ExpressionBuilder, UndoTakesTheLastInsertionBackAndNoMore) {
    run("", [&] {
        insertOperator(plus);
        insertOperator(plus);
        EXPECT_EQ(text(), "+ + ");
        for (int twice = 0; twice < 2; ++twice) {
            click("cmdUndo");
            EXPECT_EQ(text(), "+ ");
            click("cmdUndo");
            EXPECT_EQ(text(), "+ + ");
        }
    });
}

TEST_F(ExpressionBuilder, UndoAfterTypingGoesBackToTheLastInsertion) {
    run("a", [&] {
        select(1);
        insertOperator(plus);
        invoke(*at("txbExpression"), "Type", "b");
        EXPECT_EQ(text(), "a + b");
        click("cmdUndo");
        EXPECT_EQ(text(), "a + ");
        click("cmdUndo");
        EXPECT_EQ(text(), "a");
    });
}

TEST_F(ExpressionBuilder, UndoAfterTypingAloneBringsTheOpeningTextBack) {
    run("a", [&] {
        put("typed");
        click("cmdUndo");
        EXPECT_EQ(text(), "a");
        click("cmdUndo");
        EXPECT_EQ(text(), "a");
    });
}

// OK

TEST_F(ExpressionBuilder, AGoodTextComesBackTrimmedOfBlanks) {
    EXPECT_EQ(run("",
                  [&] {
                      put("  \ta + b \t  ");
                      click("cmdOK");
                      EXPECT_FALSE(form->Visible());
                  }),
              "\ta + b \t");
    EXPECT_EQ(checked, Names{"  \ta + b \t  "});  // the checker sees the text as it stands
    EXPECT_TRUE(user->boxes.empty());
}

TEST_F(ExpressionBuilder, ABadTextKeepsTheDialogOpenWithTheStretchMarked) {
    complaint = "Unknown name";
    complaintStart = 3, complaintLength = 4;
    EXPECT_EQ(run("old",
                  [&] {
                      put("a bcde f ");
                      click("cmdOK");
                      EXPECT_TRUE(form->Visible());
                      EXPECT_EQ(text(), "a bcde f ");
                      EXPECT_EQ(selection(), std::pair(2, 4));
                      EXPECT_TRUE(at("txbExpression")->get("HasFocus").toBoolean());
                      complaint.clear();
                      click("cmdOK");
                  }),
              "a bcde f");
    ASSERT_EQ(user->boxes.size(), 1u);
    EXPECT_EQ(user->boxes[0].text, "Unknown name");
    EXPECT_EQ(user->boxes[0].icon, Icon::exclamation);
    EXPECT_EQ(user->boxes[0].title, "Syntax Error");
    EXPECT_EQ(user->boxes[0].buttons, Buttons::ok);
}

TEST_F(ExpressionBuilder, ABlankTextIsToldInTwoLines) {
    complaint = "Null pointer";
    run("", [&] {
        put("   ");
        click("cmdOK");
        EXPECT_TRUE(form->Visible());
        EXPECT_EQ(selection(), std::pair(0, 0));
    });
    ASSERT_EQ(user->boxes.size(), 1u);
    EXPECT_EQ(user->boxes[0].text,
              "An expression cannot be blank.\r\nPlease enter a valid expression or select Cancel.");
    EXPECT_EQ(user->boxes[0].title, "Syntax Error");
    EXPECT_EQ(user->boxes[0].icon, Icon::exclamation);
}

TEST_F(ExpressionBuilder, OnlyThatVeryMessageMeansABlankText) {
    complaint = "null pointer";
    run("", [&] { click("cmdOK"); });
    EXPECT_EQ(user->boxes.at(0).text, "null pointer");
}

TEST_F(ExpressionBuilder, AStretchWithoutPlaceOrLengthMarksNothing) {
    complaint = "bad";
    const std::pair<std::int32_t, std::int32_t> nowhere[] = {{0, 0}, {0, 2}, {2, 0}, {-1, 2}, {2, -1}};
    run("abcdef", [&] {
        for (const auto& [start, length] : nowhere) {
            complaintStart = start, complaintLength = length;
            select(3);
            click("cmdOK");
            EXPECT_EQ(selection(), std::pair(3, 0));
        }
        complaintStart = 1, complaintLength = 1;
        click("cmdOK");
        EXPECT_EQ(selection(), std::pair(0, 1));
        complaintStart = 5, complaintLength = 1000;  // beyond the text
        click("cmdOK");
        EXPECT_EQ(selection(), std::pair(4, 2));
    });
}

// Cancel and the close box

TEST_F(ExpressionBuilder, CancelGivesTheOpeningTextUnchecked) {
    complaint = "bad";
    EXPECT_EQ(run("  a ",
                  [&] {
                      insertOperator(plus);
                      put("typed");
                      click("cmdCancel");
                      EXPECT_FALSE(form->Visible());
                  }),
              "  a ");
    EXPECT_TRUE(checked.empty());
}

TEST_F(ExpressionBuilder, ClosingTheWindowGivesTheLastInsertionAndNothingTyped) {
    EXPECT_EQ(run("a",
                  [&] {
                      insertOperator(plus);
                      invoke(*at("txbExpression"), "Type", "typed");
                      form->Close();
                  }),
              "+ a");
    EXPECT_EQ(run("a", [&] { put("typed"); }), "a");
}

TEST_F(ExpressionBuilder, HelpLeavesTheDialogOpen) {
    run("a", [&] {
        click("cmdHelp");
        EXPECT_TRUE(form->Visible());
    });
}

// Keys

TEST_F(ExpressionBuilder, QuotesAndSemicolonsCannotBeTypedButComeInByOtherWays) {
    run("open;\"", [&] {
        EXPECT_EQ(text(), "open;\"");
        put("");
        invoke(*at("txbExpression"), "Type", "a\"b;c'");
        EXPECT_EQ(text(), "abc'");
        put("pasted;\"");
        EXPECT_EQ(text(), "pasted;\"");
    });
}

// Late-bound use of the form alone

TEST_F(ExpressionBuilder, TheFormsMembersAnswerByName) {
    const Ref<Object> alone = makeForm("frmExpressionBuilder");
    alone->put("SyntaxValidation", Value(Ref<Object>(checker)));
    EXPECT_EQ(raisedBy([&] { alone->get("SyntaxValidation"); }), 438);
    alone->put("Expression", Value("a"));
    EXPECT_EQ(alone->get("expression").toText(), "a");
    invoke(*alone, "AssignDataList", listOf({"variable"}), listOf({"constant"}), listOf({"system"}),
           listOf({"parameter"}), listOf({"io"}), listOf({"table"}), listOf({"network"}));
    user->script = [&](Object& shown) {
        form = Ref<Form>(&dynamic_cast<Form&>(shown));
        const std::pair<std::string, std::string> lists[] = {
            {"Variables", "variable"},
            {"Constants", "constant"},
            {"SystemVariables", "system"},
            {"SystemParameters", "parameter"},
            {"I/O", "io"},
            {"Tables", "table"},
            {"Network", "network"},
        };
        for (const auto& [tag, name] : lists) {
            node(tag);
            EXPECT_EQ(names(), Names{name});
        }
        put("b");
        click("cmdOK");
    };
    invoke(*alone, "Show");
    EXPECT_EQ(alone->get("Expression").toText(), "b");
}

TEST_F(ExpressionBuilder, EachShowingBeginsAfresh) {
    run("a", [&] {
        node("I/O");
        insertName();
        click("cmdOK");
    });
    run("second", [&] {
        EXPECT_EQ(text(), "second");
        EXPECT_EQ(names(), Names{});
        EXPECT_EQ(at("lstOperator")->get("ListCount").toLong(), 28);
        EXPECT_TRUE(at("txbExpression")->get("HasFocus").toBoolean());
        click("cmdUndo");
        EXPECT_EQ(text(), "second");
    });
}

// From an attribute's dialog

TEST_F(ExpressionBuilder, ADoubleClickOnAFieldOpensItOnTheFieldsText) {
    const Ref<Object> moveAxis = makeForm("frmMoveAxis");
    invoke(*moveAxis, "SetData", Ref<Object>(controller), Ref<Object>(data), Ref<Object>(checker));
    int shown = 0;
    user->script = [&](Object& opened) {
        if (++shown == 1) {
            control(opened, "txbVelocity")->put("Text", Value("12"));
            invoke(*control(opened, "txbVelocity"), "DblClick");
            EXPECT_EQ(control(opened, "txbVelocity")->get("Text").toText(), "12 + 3");
            invoke(*control(opened, "txbVelocity"), "DblClick");
            EXPECT_EQ(control(opened, "txbVelocity")->get("Text").toText(), "12 + 3");
            return;
        }
        EXPECT_EQ(opened.get("Name").toText(), "frmExpressionBuilder");
        EXPECT_EQ(control(opened, "txbExpression")->get("Text").toText(), shown == 2 ? "12" : "12 + 3");
        control(opened, "txbExpression")->put("Text", Value(shown == 2 ? " 12 + 3 " : "lost"));
        invoke(*control(opened, shown == 2 ? "cmdOK" : "cmdCancel"), "Click");
    };
    invoke(*moveAxis, "Show");
    EXPECT_EQ(shown, 3);
}

TEST_F(ExpressionBuilder, AFormClosedByItsHostWhileItIsOpenStillTakesTheResult) {
    const Ref<Form> moveAxis = makeForm("frmMoveAxis");
    invoke(*moveAxis, "SetData", Ref<Object>(controller), Ref<Object>(data), Ref<Object>(checker));
    user->script = [&](Object& opened) {
        if (opened.get("Name").toText() == "frmMoveAxis") {
            invoke(*control(opened, "txbVelocity"), "DblClick");
            EXPECT_FALSE(moveAxis->Visible());
            return;
        }
        moveAxis->Close();
        control(opened, "txbExpression")->put("Text", Value("7"));
        invoke(*control(opened, "cmdOK"), "Click");
    };
    invoke(*moveAxis, "Show");
    EXPECT_EQ(control(*moveAxis, "txbVelocity")->get("Text").toText(), "7");
    EXPECT_FALSE(moveAxis->get("OKClicked").toBoolean());
}

}  // namespace
}  // namespace canvas::editors
