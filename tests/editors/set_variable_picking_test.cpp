// Set Variable: names and expressions picked by the buttons of the cells, and hosts that fail.

#include "tests/editors/set_variable_user.h"

namespace canvas::editors {
namespace {

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
