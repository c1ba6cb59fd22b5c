// What all attribute dialogs have in common, walked form by form.

#include <gtest/gtest.h>

#include <map>

#include "tests/editors/conventions_cases.h"
#include "tests/editors/editing.h"

namespace canvas::editors {
namespace {

using Texts = std::vector<std::string>;

/// An attribute that keeps what it is given and writes down each change.
struct Kept {
    Ref<Composed> object;
    std::map<std::string, Value> values;
    Texts writes;

    explicit Kept(const FormCase& form) : object(make<Composed>(form.attribute)) {
        for (const WriteCase& write : form.writes) add(write.property, opening(form, write));
        add("Advanced", Value(false));
    }
    void add(const std::string& property, Value value) {
        values[property] = std::move(value);
        object->property(
            property, [this, property](Args) { return values[property]; },
            [this, property](const Value& written) {
                writes.push_back(property + "=" + written.toText());
                values[property] = written;
            });
    }

    static Value opening(const FormCase& form, const WriteCase& write) {
        const std::string control = write.control;
        if (control.starts_with("chk") || control.starts_with("Opt") || control.starts_with("opt")) return Value(true);
        if (control == "cmbType") return Value("Relative");
        if (control == "cmbHomeDirection") return Value("Negative");
        if (control == "cmbCondition") return Value("Logic One");
        if (control.starts_with("cmb")) return Value("table B");
        return Value(std::string(form.name) + "." + write.property);
    }
};

struct CheckLog {
    std::shared_ptr<Texts> log = std::make_shared<Texts>();  // the object may outlive this
    Texts& asked = *log;
    Ref<Composed> object = make<Composed>("Checker");
    explicit CheckLog(std::string refused = {}) {
        object->method("ValidateUserInput", [log = log, refused](Args args) {
            log->push_back(args[0].toObject()->get("Name").toText() + "|" + args[1].toText() + "|" + args[2].toText() +
                            "|" + args[3].toText() + "|" + args[4].typeName() + "|" + std::to_string(args.size()));
            if (args.size() == 6) args[5] = Value(true);
            if (args[1].toText() != refused) return Value(true);
            args[4] = Value("refused");
            return Value(false);
        });
    }
};

struct Names final : VariableSink {
    Texts names;
    void variable(std::string_view name, const Value&) override { names.emplace_back(name); }
};

class Conventions : public testing::TestWithParam<FormCase> {
protected:
    const FormCase& c = GetParam();
    Playing play;
    Script& user = *play.user;
    std::shared_ptr<HelpCount> help = std::make_shared<HelpCount>();
    WithEnvironment withHelp{Environment{.help = help}};
    Kept attribute{c};
    Host host;
    Ref<Form> form = makeForm(c.name);

    Ref<Object> at(std::string_view name) { return control(*form, name); }
    std::string shownBy(std::string_view label) { return at(label)->get("Caption").toText(); }
    /// As the canvas does it.
    void prepare(const Ref<Composed>& checker) {
        form->put("BVTAttribute", Value(attribute.object));
        form->put("UserUnit", Value("mm"));
        form->call("Load");
        for (const auto* name : {"cmbCAMProfileTable", "cmbSpeedFFAddress"})
            if (form->find(name))
                for (const auto* table : {"table A", "table B"}) invoke(*at(name), "AddItem", table);
        if (c.lists) form->put("VariableNameList", Value(listOf({"a", "b"})));
        if (form->find("cmbCAMProfileTable")) form->put("tableNameList", Value(listOf({"table A", "table B"})));
        const Value done = c.checker ? invoke(*form, "SetData", host.controller, host.data, checker)
                                     : invoke(*form, "SetData", host.controller, host.data);
        EXPECT_EQ(done, Value(true));
        if (form->find("cmbCAMProfileTable")) form->call("SetCAMProfileTable");
    }
    void show(const std::function<void()>& script) {
        user.script = [&](Object& shown) {
            if (&shown == form.get()) script();
        };
        form->call("Show");
    }
    bool offers(std::string_view member, std::size_t arguments, bool write = false) {
        std::vector<Value> args(arguments, Value("x"));
        try {
            if (write) form->put(member, Value(Ref<Object>()));
            else form->get(member, args);
        } catch (const RuntimeError& error) {
            return error.number != static_cast<int>(Error::noSuchMember);
        }
        return true;
    }
    Texts expectedChecks(std::size_t count) const {
        const std::string flag = std::string(c.name) == "frmAbortMotion" ? "False" : "True";
        Texts all;
        for (std::size_t i = 0; i < count; ++i) {
            const CheckCase& check = c.checks[i];
            const bool six = c.sixthArgument && std::string(check.name) == "Home Switch Input";
            all.push_back(std::string(check.control) + "|" + check.name + "|" + std::to_string(check.type) + "|" +
                          flag + "|String|" + (six ? "6" : "5"));
        }
        return all;
    }
    Texts openingWrites() const {
        Texts all;
        for (const WriteCase& write : c.writes)
            all.push_back(std::string(write.property) + "=" + Kept::opening(c, write).toText());
        return all;
    }
};

TEST_P(Conventions, TheFormHasItsNameAndCaption) {
    EXPECT_EQ(form->get("Name").toText(), c.name);
    EXPECT_EQ(form->get("Caption").toText(), c.caption);
    EXPECT_EQ(form->className(), c.name);
}

TEST_P(Conventions, EachControlShowsItsPropertyUnchanged) {
    prepare(CheckLog().object);
    show([&] {
        for (const WriteCase& write : c.writes) {
            const Ref<Object> shown = at(write.control);
            const std::string kind = shown->get("Kind").toText();
            const char* member = kind == "check" || kind == "option" ? "Value" : "Text";
            EXPECT_EQ(shown->get(member), Kept::opening(c, write)) << write.control;
        }
    });
}

TEST_P(Conventions, OkChecksThenWritesInOrderAndHides) {
    const CheckLog checks;
    prepare(checks.object);
    show([&] {
        EXPECT_TRUE(form->get("Visible").toBoolean());
        invoke(*at(buttonOf(*form, "OK")), "Click");
        EXPECT_FALSE(form->get("Visible").toBoolean());
    });
    EXPECT_EQ(checks.asked, expectedChecks(c.checks.size()));
    EXPECT_EQ(attribute.writes, openingWrites());
    EXPECT_EQ(form->get("OKClicked"), Value(true));
    EXPECT_TRUE(user.boxes.empty());
}

TEST_P(Conventions, WhatTheUserEnteredIsWritten) {
    const CheckLog checks;
    prepare(checks.object);
    Texts expected;
    for (const WriteCase& write : c.writes) {
        const std::string name = write.control;
        expected.push_back(std::string(write.property) + "=" +
                           (name.starts_with("txb") ? "new " + name
                            : name == "cmbType"     ? "Absolute"
                            : name == "cmbHomeDirection" ? "Positive"
                            : name == "cmbCondition"     ? "Rising Edge"
                            : name.starts_with("cmb")    ? "table A"
                                                         : "False"));
    }
    show([&] {
        for (const WriteCase& write : c.writes) {
            const std::string name = write.control;
            if (name.starts_with("txb")) at(name)->put("Text", Value("new " + name));
            else if (name.starts_with("cmb")) at(name)->put("ListIndex", Value(std::int16_t{0}));
            else if (name.starts_with("chk")) at(name)->put("Value", Value(false));
            else at(name == "optMain" ? "optExternal" : "OptDisable")->put("Value", Value(true));
        }
        invoke(*at("btnOK"), "Click");
    });
    EXPECT_EQ(attribute.writes, expected);
}

TEST_P(Conventions, TheFirstRefusalEndsTheChecksWithABoxAndWritesNothing) {
    for (std::size_t i = 0; i < c.checks.size(); ++i) {
        const CheckLog checks(c.checks[i].name);
        attribute.writes.clear();
        user.boxes.clear();
        form = makeForm(c.name);
        prepare(checks.object);
        show([&] {
            for (const WriteCase& write : c.writes)
                if (std::string(write.control).starts_with("txb")) at(write.control)->put("Text", Value("kept"));
            invoke(*at("btnOK"), "Click");
            EXPECT_TRUE(form->get("Visible").toBoolean());
            EXPECT_EQ(at(c.checks[i].control)->get("Text").toText(), "kept");
        });
        EXPECT_EQ(checks.asked, expectedChecks(i + 1));
        ASSERT_EQ(user.boxes.size(), 1u);
        const std::string field = c.checks[i].name;
        const bool ownWords = field == "S-Curve" || field == "CreepSpeed";
        if (!ownWords) { EXPECT_EQ(user.boxes[0].text, "refused"); }
        EXPECT_EQ(user.boxes[0].icon, Icon::exclamation);
        EXPECT_EQ(user.boxes[0].buttons, Buttons::ok);
        EXPECT_EQ(user.boxes[0].title, "");
        EXPECT_EQ(attribute.writes, Texts{});
        EXPECT_EQ(form->get("OKClicked"), Value(false));
    }
}

TEST_P(Conventions, ARefusalLeavesTheFocusWhereItWas) {
    if (c.checks.empty() || std::string(c.name) == "frmChangeDynamics") return;
    prepare(CheckLog(c.checks.back().name).object);
    show([&] {
        invoke(*at("btnOK"), "Click");
        EXPECT_TRUE(at("btnOK")->get("HasFocus").toBoolean());
    });
}

TEST_P(Conventions, CancelAndTheCloseBoxHideAndWriteNothing) {
    for (const bool closeBox : {false, true}) {
        form = makeForm(c.name);
        prepare(CheckLog().object);
        show([&] {
            for (const WriteCase& write : c.writes)
                if (std::string(write.control).starts_with("txb")) at(write.control)->put("Text", Value("typed"));
            if (closeBox) invoke(*form, "Close");
            else invoke(*at("btnCancel"), "Click");
            EXPECT_FALSE(form->get("Visible").toBoolean());
        });
        EXPECT_EQ(attribute.writes, Texts{});
        EXPECT_EQ(form->get("OKClicked"), Value(false));
    }
}

TEST_P(Conventions, HelpAsksTheHostOnceAndStays) {
    prepare(CheckLog().object);
    show([&] {
        invoke(*at("btnHelp"), "Click");
        EXPECT_EQ(help->shown, 1);
        EXPECT_TRUE(form->get("Visible").toBoolean());
    });
}

TEST_P(Conventions, UnitLabelsShowTheProjectsUnit) {
    prepare(CheckLog().object);
    show([&] {
        for (const UnitCase& unit : c.units)
            EXPECT_EQ(shownBy(unit.label), std::string(unit.before) + "mm" + unit.behind) << unit.label;
    });
}

TEST_P(Conventions, WithoutAUnitLabelsSayUnit) {
    form->put("BVTAttribute", Value(attribute.object));
    form->put("UserUnit", Value(""));
    form->call("Load");
    show([&] {
        for (const UnitCase& unit : c.units)
            EXPECT_EQ(shownBy(unit.label), std::string(unit.before) + "unit" + unit.behind) << unit.label;
    });
}

TEST_P(Conventions, AnAttributeThatWasNeverSetOpensLikeANewOne) {
    show([&] { EXPECT_TRUE(form->get("Visible").toBoolean()); });
    EXPECT_EQ(form->get("BVTAttribute").toObject()->className(), c.attribute);
    EXPECT_TRUE(user.boxes.empty());
}

TEST_P(Conventions, AnObjectOfAnotherClassIsRefused) {
    EXPECT_THROW(form->put("BVTAttribute", Value(make<Composed>("clsBVTStart"))), RuntimeError);
    EXPECT_EQ(form->get("BVTAttribute").toObject()->className(), c.attribute);
}

TEST_P(Conventions, PublicMembersAreThoseOfTheForm) {
    EXPECT_TRUE(offers("OKClicked", 0));
    EXPECT_TRUE(offers("UserUnit", 0, true));
    EXPECT_THROW(form->get("UserUnit"), RuntimeError) << "is only written";
    EXPECT_EQ(offers("VariableNameList", 0, true), c.lists);
    EXPECT_EQ(offers("tableNameList", 0, true), std::string(c.name) == "frmCAMOnOff");
    EXPECT_EQ(offers("SetCAMProfileTable", 0), std::string(c.name) == "frmCAMOnOff");
    EXPECT_EQ(offers("CheckParameter", 1), c.asksChecker);
    EXPECT_EQ(offers("ExpressionBuilder", 1), c.builder);
    EXPECT_EQ(offers("CheckSelect", 1), std::string(c.name) == "frmJogAxis");
    EXPECT_EQ(offers("HandleBadCharacterError", 2),
              std::string(c.name) == "frmHomeAxis" || std::string(c.name) == "frmInput");
    const Ref<Object> nothing;
    const auto number = [](auto&& call) {
        try {
            call();
        } catch (const RuntimeError& error) {
            return error.number;
        }
        return 0;
    };
    EXPECT_EQ(number([&] { invoke(*form, "SetData", nothing, nothing, nothing); }), c.checker ? 0 : 450);
    EXPECT_EQ(number([&] { invoke(*form, "SetData", nothing, nothing); }), c.checker ? 450 : 0);
}

TEST_P(Conventions, VariablesStandInTheirOrder) {
    Texts expected{"btnOKClicked", "strUserUnit", "clsAttribute"};
    if (c.lists) expected.push_back("colVariableNameList");
    if (std::string(c.name) == "frmCAMOnOff") expected.push_back("colTableNameList");
    if (c.validation) expected.push_back("clsDataValidation");
    expected.insert(expected.end(), {"clsData", "clsController"});
    if (c.checker) expected.push_back("clsSyntaxValidation");
    Names seen;
    form->reportVariables(seen);
    EXPECT_EQ(seen.names, expected);
    const auto controls = form->get("Controls").toObject();  // a report shows them behind the variables
    EXPECT_EQ(controls->get("Count").toLong(), static_cast<std::int32_t>(form->controls().size()));
}

TEST_P(Conventions, CheckParameterAnswersWithTheMessageByReference) {
    if (c.checks.empty()) return;
    prepare(CheckLog(c.checks[0].name).object);
    std::string strError;
    EXPECT_EQ(invoke(*form, "CheckParameter", std::ref(strError)), Value(false));
    EXPECT_EQ(strError, std::string(c.checks[0].name) == "S-Curve" ? strError : "refused");
    form = makeForm(c.name);
    prepare(CheckLog().object);
    EXPECT_EQ(invoke(*form, "CheckParameter", std::ref(strError)), Value(true));
}

TEST_P(Conventions, ACheckerWithoutTheOperationFailsTheOkAndWritesNothing) {
    if (c.checks.empty()) return;
    prepare(make<Composed>("Checker"));
    EXPECT_THROW(show([&] { invoke(*at("btnOK"), "Click"); }), RuntimeError);
    EXPECT_EQ(attribute.writes, Texts{});
    EXPECT_EQ(form->get("OKClicked"), Value(false));
}

TEST_P(Conventions, ADoubleClickBuildsAnExpressionInEachTextField) {
    const std::string name = c.name;
    prepare(CheckLog().object);
    Texts fields;
    for (const Ref<Control>& each : form->controls())
        if (each->row().kind == ControlKind::text) fields.push_back(each->Name());
    int opened = 0;
    user.script = [&](Object& shown) {
        if (&shown != form.get()) {
            EXPECT_EQ(shown.get("Name").toText(), "frmExpressionBuilder");
            EXPECT_EQ(control(shown, "txbExpression")->get("Text").toText(), "typed");
            ++opened;
            return;
        }
        for (const std::string& field : fields) {
            at(field)->put("Text", Value("typed"));
            invoke(*at(field), "DblClick");
            EXPECT_EQ(at(field)->get("Text").toText(), name.starts_with("frmMessage") ? "" : "typed") << field;
        }
        invoke(*at("btnCancel"), "Click");
    };
    form->call("Show");
    const bool opens = c.builder && !name.starts_with("frmMessage");
    EXPECT_EQ(opened, opens ? static_cast<int>(fields.size()) : 0);
    EXPECT_EQ(attribute.writes, Texts{});
}

TEST_P(Conventions, KeysAreFilteredInTheirFieldsOnly) {
    show([&] {
        for (const Ref<Control>& each : form->controls()) {
            if (each->row().kind != ControlKind::text || each->row().readOnly) continue;
            each->put("Text", Value(""));
            invoke(*each, "Type", "a\"b;c");
            const std::string expected = std::string(c.name) == "frmAbortMotion" ? "abc"
                                         : std::string(c.name) == "frmIfEvent"   ? "ab;c"
                                                                                 : "a\"b;c";
            EXPECT_EQ(each->get("Text").toText(), expected) << each->Name();
        }
    });
}

TEST_P(Conventions, BackspaceDeletesTabLeavesAndEnterPressesOk) {
    const std::string abort = "frmAbortMotion";
    const CheckLog checks;
    prepare(checks.object);
    show([&] {
        for (const Ref<Control>& each : form->controls()) {
            if (each->row().kind != ControlKind::text || each->row().readOnly) continue;
            each->put("Text", Value(""));
            invoke(*each, "Type", "12\b3\tnot here");
            EXPECT_EQ(each->get("Text").toText().substr(0, 2), "13") << each->Name();
            EXPECT_FALSE(each->HasFocus());
            each->SetFocus();
            invoke(*each, "Type", "\r");
            EXPECT_EQ(form->Visible(), abort == c.name);
            return;
        }
    });
    bool hasField = false;
    for (const Ref<Control>& each : form->controls()) hasField |= each->row().kind == ControlKind::text;
    EXPECT_EQ(form->get("OKClicked"), Value(hasField && abort != c.name));
}

INSTANTIATE_TEST_SUITE_P(Forms, Conventions, testing::ValuesIn(formCases()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace canvas::editors
