// A form as scripts see it: filled, typed into, checked, written.

#include <gtest/gtest.h>

#include "tests/editors/playing.h"

namespace canvas::editors {
namespace {

struct MoveAxisForm : testing::Test {
    Playing play;
    std::shared_ptr<Script> user = play.user;
    Ref<Form> form = makeForm("frmMoveAxis");

    Ref<Object> at(std::string_view name) { return control(*form, name); }
};

TEST_F(MoveAxisForm, OkWritesEveryFieldAndHides) {
    form->put("UserUnit", Value("mm"));
    invoke(*form, "SetData", Ref<Object>(), Ref<Object>(), Ref<Object>(checker()));
    user->script = [&](Object&) {
        EXPECT_EQ(at("lblVelocityUnit")->get("Caption").toText(), "mm/sec");
        at("txbVelocity")->put("Text", Value("12.5"));
        at("cmbType")->put("ListIndex", Value(std::int16_t{2}));
        invoke(*at("btnOK"), "Click");
        EXPECT_FALSE(form->Visible());
    };
    form->call("Show");
    EXPECT_TRUE(form->get("OKClicked").toBoolean());
    const Ref<Object> attribute = form->get("BVTAttribute").toObject();
    EXPECT_EQ(attribute->get("Velocity").toText(), "12.5");
    EXPECT_EQ(attribute->get("TypeK").toText(), "Rotary Shortest");
}

TEST_F(MoveAxisForm, AFailedCheckWritesNothingAndStays) {
    invoke(*form, "SetData", Ref<Object>(), Ref<Object>(), Ref<Object>(checker("Position")));
    const std::string before = form->get("BVTAttribute").toObject()->get("Velocity").toText();
    user->script = [&](Object&) {
        at("txbVelocity")->put("Text", Value("99"));
        invoke(*at("btnOK"), "Click");
        EXPECT_TRUE(form->Visible());
    };
    form->call("Show");
    ASSERT_EQ(user->boxes.size(), 1u);
    EXPECT_EQ(user->boxes[0].text, "bad Position");
    EXPECT_EQ(user->boxes[0].icon, Icon::exclamation);
    EXPECT_FALSE(form->get("OKClicked").toBoolean());
    EXPECT_EQ(form->get("BVTAttribute").toObject()->get("Velocity").toText(), before);
}

TEST_F(MoveAxisForm, EnterThatIsRefusedLeavesTheFocusInTheField) {
    invoke(*form, "SetData", Ref<Object>(), Ref<Object>(), Ref<Object>(checker("Position")));
    user->script = [&](Object&) {
        invoke(*at("txbPosition"), "Type", "\r");
        EXPECT_TRUE(form->Visible());
        EXPECT_TRUE(at("txbPosition")->get("HasFocus").toBoolean());
    };
    form->call("Show");
    EXPECT_EQ(user->boxes.size(), 1u);
}

TEST_F(MoveAxisForm, LoadedAgainItsListsAreNotLonger) {
    form->Load();
    form->Unload();
    form->Load();
    EXPECT_EQ(at("cmbType")->get("ListCount"), Value(std::int32_t{3}));
    EXPECT_EQ(at("cmbType")->get("Text").toText(), form->get("BVTAttribute").toObject()->get("TypeK").toText());
}

TEST_F(MoveAxisForm, AVariableReportShowsWhatItsControlsHold) {
    struct Seen final : VariableSink {
        std::map<std::string, Value> values;
        void variable(std::string_view name, const Value& value) override { values[std::string(name)] = value; }
    };
    const auto reported = [&](std::string_view name) {
        Seen seen;
        at(name)->reportVariables(seen);
        EXPECT_EQ(seen.values["Name"].toText(), name);
        return seen.values["Value"];
    };
    form->Load();
    at("txbVelocity")->put("Text", Value("12.5"));
    at("chkWaitForCompletion")->put("Value", Value(true));
    at("cmbType")->put("ListIndex", Value(std::int16_t{1}));
    EXPECT_EQ(reported("txbVelocity"), Value("12.5"));
    EXPECT_EQ(reported("chkWaitForCompletion"), Value(true));
    EXPECT_EQ(reported("cmbType"), Value("Relative"));
    for (const auto* name : {"lblVelocity", "btnOK"}) EXPECT_EQ(reported(name), Value("{No Value Property}")) << name;
}

TEST_F(MoveAxisForm, WithoutAnybodyToShowItOpeningIsAnError) {
    EXPECT_THROW(form->Show(), RuntimeError);
    EXPECT_FALSE(form->Visible());
}

}  // namespace
}  // namespace canvas::editors
