#pragma once
// Plays the user of a dialog with a grid.

#include <gtest/gtest.h>

#include "tests/attributes/fake_checker.h"
#include "tests/editors/host_objects.h"
#include "tests/host/raised.h"

namespace canvas::editors {

constexpr std::int32_t red = 255, yellow = 65535, white = 16777215, untouched = -1;

struct GridUser : ::testing::Test {
    Playing play;
    std::shared_ptr<Script> user = play.user;
    testing::FakeChecker checking;
    Host host;
    Ref<Form> form;
    Ref<Object> grid;

    GridUser(std::string_view formName, std::string_view gridName)
        : form(makeForm(formName)), grid(control(*form, gridName)) {}

    Ref<Object> at(std::string_view name) { return control(*form, name); }
    /// Shows the form; nested forms are `nested`'s.
    void show(std::function<void()> script, std::function<void(Object&)> nested = {}) {
        user->script = [this, script, nested](Object& shown) {
            if (&shown == form.get()) script();
            else if (nested) nested(shown);
            else ADD_FAILURE() << shown.get("Name").toText() << " opened";
        };
        form->Show();
    }
    void list(std::string_view text) {
        const Ref<Object> attribute = form->get("BVTAttribute").toObject();
        attribute->put("Variable", Value(text));
        form->put("BVTAttribute", Value(attribute));
    }
    std::string written() { return form->get("BVTAttribute").toObject()->get("Variable").toText(); }

    bool edit(int row, int col, std::string_view text) { return invoke(*grid, "Edit", row, col, text).toBoolean(); }
    bool paste(int row, int col, std::string_view text) { return invoke(*grid, "Paste", row, col, text).toBoolean(); }
    void on(std::string_view event, int row, int col) { invoke(*grid, event, row, col); }
    void key(int code) { invoke(*grid, "KeyDown", code); }
    void current(int row, int col) {
        grid->put("Row", Value(row));
        grid->put("Col", Value(col));
    }
    std::string cell(int row, int col) { return invoke(*grid, "Cell", row, col).toText(); }
    int color(int row, int col) { return invoke(*grid, "CellBackColor", row, col).toLong(); }
    int rows() { return grid->get("Rows").toLong(); }
    bool inEdit() { return static_cast<Grid&>(*grid).editing(); }
    void press(std::string_view button) { invoke(*at(button), "Click"); }

    /// A good text of a type. The variable report knows more of it.
    void good(const std::string& text, int type, bool isLValue = true, Value value = {}) {
        checking.verdicts[text] = {.dataType = type, .isLValue = isLValue, .value = std::move(value)};
    }
    void bad(const std::string& text, std::string complaint) {
        checking.verdicts[text] = testing::bad(std::move(complaint));
    }

    void expectBox(std::size_t index, std::string_view text, Icon icon, std::string_view title = {},
                   Buttons buttons = Buttons::ok) {
        ASSERT_LT(index, user->boxes.size());
        EXPECT_EQ(user->boxes[index].text, text);
        EXPECT_EQ(user->boxes[index].icon, icon);
        EXPECT_EQ(user->boxes[index].title, title);
        EXPECT_EQ(user->boxes[index].buttons, buttons);
    }
};

/// The variables that a report shows, by name in their order, without the controls.
struct Reported final : VariableSink {
    explicit Reported(const Object& object) { object.reportVariables(*this); }
    void variable(std::string_view name, const Value& value) override {
        if (name == "Controls") return;
        names.emplace_back(name);
        values.push_back(value);
    }
    Value of(std::string_view name) const {
        for (std::size_t i = 0; i < names.size(); ++i)
            if (names[i] == name) return values[i];
        return Value("absent");
    }
    std::vector<std::string> names;
    std::vector<Value> values;
};

}  // namespace canvas::editors
