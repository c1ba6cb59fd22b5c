// The expression builder with hosts and checkers that fail.

#include <gtest/gtest.h>

#include "tests/editors/expression_builder_user.h"
#include "tests/host/raised.h"
#include "tests/tracing/fakes.h"

namespace canvas::editors {
namespace {

TEST_F(ExpressionBuilder, AHostThatLacksAListIsToldOfAndTheTextStays) {
    data->without("GetUserDefinedNetworkCol");
    EXPECT_EQ(run("a", [&] { FAIL() << "shown"; }), "a");
    ASSERT_EQ(user->boxes.size(), 1u);
    EXPECT_EQ(user->boxes[0].text,
              "ExpressionBuilder.Show_ExpressionBuilder(): [438] Object doesn't support this property or method");
    EXPECT_EQ(user->boxes[0].buttons, Buttons::ok);
}

TEST_F(ExpressionBuilder, AHostsOwnErrorIsToldWithItsNumberAndDescription) {
    controller->method("GetReadableSystemParameterCol",
                       [](Args) -> Value { throw RuntimeError(-2147220991, "no controller", "Host"); });
    EXPECT_EQ(run("a", [&] { FAIL() << "shown"; }), "a");
    EXPECT_EQ(user->boxes.at(0).text, "ExpressionBuilder.Show_ExpressionBuilder(): [-2147220991] no controller");
}

TEST_F(ExpressionBuilder, NothingInPlaceOfAHostsObjectIsToldOf) {
    builder->put("Expression", Value("a"));
    user->script = [](Object&) { FAIL() << "shown"; };
    invoke(*builder, "Show_ExpressionBuilder", Ref<Object>(), Ref<Object>(), Ref<Object>());
    EXPECT_EQ(user->boxes.at(0).text, "ExpressionBuilder.Show_ExpressionBuilder(): [91] Object variable not set");
    EXPECT_EQ(builder->get("Expression").toText(), "a");
}

TEST_F(ExpressionBuilder, NobodyIsAskedAboutAFailureThatItTellsItself) {
    data->without("GetSystemIOCol");
    tracing::ScriptedHandler handler({tracing::Answer::retry});
    run("a", [&] {});
    EXPECT_TRUE(handler.asked.empty());
    EXPECT_EQ(user->boxes.size(), 1u);
}

TEST_F(ExpressionBuilder, AListThatIsNothingFailsWhenItsNodeIsClicked) {
    data->method("GetSystemIOCol", [](Args) { return Value(Ref<Object>()); });
    run("a", [&] {
        node("Tables");
        EXPECT_EQ(raisedBy([&] { node("I/O"); }), 91);
        EXPECT_EQ(names(), Names{});
        EXPECT_TRUE(form->Visible());
    });
}

TEST_F(ExpressionBuilder, AListThatBreaksOffCanBeUsedWithoutTheBrokenName) {
    data->method("GetSystemIOCol", [](Args) { return Value(countedNames(4, 2)); });
    tracing::ScriptedHandler handler({tracing::Answer::ignore});
    run("a", [&] {
        node("I/O");
        EXPECT_EQ(names(), (Names{"Item1", "Item3", "Item4"}));
    });
    ASSERT_EQ(handler.asked.size(), 1u);
    EXPECT_EQ(handler.asked[0].module, "frmExpressionBuilder");
    EXPECT_EQ(handler.asked[0].procedure, "tvData_NodeClick");
}

TEST_F(ExpressionBuilder, ANullInPlaceOfANameIsError94) {
    data->method("GetSystemIOCol", [](Args) {
        auto list = make<Collection>();
        list->Add(Value(Null{}));
        return Value(list);
    });
    run("a", [&] { EXPECT_EQ(raisedBy([&] { node("I/O"); }), 94); });
}

TEST_F(ExpressionBuilder, AFailingCheckerKeepsTheTypedText) {
    checker->method("checkexpression", [](Args) -> Value { throw RuntimeError(1234, "checker is broken", "Host"); });
    {
        tracing::ScriptedHandler handler({tracing::Answer::leave});
        run("a", [&] {
            put("typed");
            click("cmdOK");
            EXPECT_TRUE(form->Visible());
            EXPECT_EQ(text(), "typed");
        });
        ASSERT_EQ(handler.asked.size(), 1u);
        EXPECT_EQ(handler.asked[0].procedure, "cmdOK_Click");
    }
    EXPECT_TRUE(user->boxes.empty());
    // where nobody can be asked, the failure ends the showing
    EXPECT_EQ(run("a",
                  [&] {
                      put("typed");
                      click("cmdOK");
                  }),
              "a");
    EXPECT_EQ(user->boxes.at(0).text, "ExpressionBuilder.Show_ExpressionBuilder(): [1234] checker is broken");
}

TEST_F(ExpressionBuilder, ACheckerThatSaysNothingMarksNothing) {
    checker->method("checkexpression", [](Args) { return Value(1); });
    checker->method("GetErrorInfo", [](Args) { return Value(); });
    run("a", [&] {
        click("cmdOK");
        EXPECT_TRUE(form->Visible());
    });
    EXPECT_EQ(user->boxes.at(0).text, "");
    EXPECT_EQ(user->boxes.at(0).title, "Syntax Error");
}

TEST_F(ExpressionBuilder, WithoutACheckerOKIsAnErrorAndTheDialogStays) {
    const Ref<Object> alone = makeForm("frmExpressionBuilder");
    user->script = [&](Object& shown) {
        EXPECT_EQ(raisedBy([&] { invoke(*control(shown, "cmdOK"), "Click"); }), 91);
        EXPECT_TRUE(shown.get("Visible").toBoolean());
    };
    invoke(*alone, "Show");
}

TEST_F(ExpressionBuilder, TheSameBuilderCannotBeOpenedWhileItIsOpen) {
    EXPECT_EQ(run("a",
                  [&] {
                      put("typed");
                      invoke(*builder, "Show_ExpressionBuilder", Ref<Object>(controller), Ref<Object>(data),
                             Ref<Object>(checker));
                      EXPECT_TRUE(form->Visible());
                      EXPECT_EQ(text(), "typed");
                      click("cmdOK");
                  }),
              "typed");
    ASSERT_EQ(user->boxes.size(), 1u);
    EXPECT_EQ(user->boxes[0].text,
              "ExpressionBuilder.Show_ExpressionBuilder(): [5] Invalid procedure call or argument");
}

TEST_F(ExpressionBuilder, FailingOnceItOpensTheNextTime) {
    data->without("GetSystemIOCol");
    run("a", [&] { FAIL() << "shown"; });
    data->method("GetSystemIOCol", [](Args) { return Value(listOf({"x"})); });
    EXPECT_EQ(run("b",
                  [&] {
                      EXPECT_EQ(at("tvData")->get("NodeCount").toLong(), 9);
                      node("I/O");
                      insertName();
                      click("cmdOK");
                  }),
              "x b");
}

}  // namespace
}  // namespace canvas::editors
