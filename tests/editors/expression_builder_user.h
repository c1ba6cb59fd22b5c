#pragma once
// The expression builder between a host and a user.

#include "editors/expression_builder.h"

#include <gtest/gtest.h>

#include "tests/editors/name_lists.h"

namespace canvas::editors {

using Names = std::vector<std::string>;

struct ExpressionBuilder : testing::Test {
    Playing play;
    std::shared_ptr<Script> user = play.user;
    Ref<Composed> data = listsNamed({"getuserdefinedvariablecol", "GetUserDefinedConstantCol",
                                     "GetUserDefinedNetworkCol", "GetUserDefinedTableCol", "GetSystemIOCol"});
    Ref<Composed> controller = listsNamed({"GetReadableSystemVariablecol", "GetReadableSystemParameterCol"});
    Ref<Composed> checker = make<Composed>("Checker");
    std::string complaint;  ///< empty: every text is good
    std::int32_t complaintStart = 0, complaintLength = 0;
    Names checked;
    Ref<Object> builder = make<clsBVTExpressionBuilder>();
    Ref<Form> form;  ///< the one shown last

    ExpressionBuilder() {
        checker->method("checkexpression", [this](Args args) {
            EXPECT_EQ(args[1].toLong(), 1);
            EXPECT_EQ(args[2].toLong(), 1);
            checked.push_back(args[0].toText());
            return Value(complaint.empty() ? 0 : 7);
        });
        checker->method("GetErrorInfo", [this](Args args) {
            args[0] = Value(complaint);
            args[1] = Value(complaintStart);
            args[2] = Value(complaintLength);
            return Value(1);
        });
    }

    /// Opens the builder on a text, has the user do `steps`, and gives what comes back.
    std::string run(std::string_view opening, std::function<void()> steps) {
        user->script = [this, steps = std::move(steps)](Object& shown) {
            form = Ref<Form>(&dynamic_cast<Form&>(shown));
            steps();
        };
        builder->put("Expression", Value(opening));
        invoke(*builder, "Show_ExpressionBuilder", Ref<Object>(controller), Ref<Object>(data), Ref<Object>(checker));
        return builder->get("Expression").toText();
    }
    Ref<Object> at(std::string_view name) { return control(*form, name); }
    void click(std::string_view button) { invoke(*at(button), "Click"); }
    std::string text() { return at("txbExpression")->get("Text").toText(); }
    void put(std::string_view newText) { at("txbExpression")->put("Text", Value(newText)); }
    void select(std::int32_t start, std::int32_t length = 0) {
        at("txbExpression")->put("SelStart", Value(start));
        at("txbExpression")->put("SelLength", Value(length));
    }
    std::pair<std::int32_t, std::int32_t> selection() {
        return {at("txbExpression")->get("SelStart").toLong(), at("txbExpression")->get("SelLength").toLong()};
    }
    void node(std::string_view key) { invoke(*at("tvData"), "NodeClick", key); }
    Names names() { return shownIn(*at("lstVariable")); }
    void insertName(std::int32_t index = 0) {
        at("lstVariable")->put("ListIndex", Value(index));
        invoke(*at("lstVariable"), "DblClick");
    }
    void insertOperator(std::int32_t row) {
        at("lstOperator")->put("ListIndex", Value(row));
        invoke(*at("lstOperator"), "DblClick");
    }
};

}  // namespace canvas::editors
