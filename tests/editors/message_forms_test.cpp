// Own rules of the two message dialogs.

#include "tests/editors/editing.h"

namespace canvas::editors {
namespace {

struct MessageForms : Editing {
    void openMessage(std::string_view name) {
        form = makeForm(name);
        form->call("Load");
        invoke(*form, "SetData", host.controller, host.data);
    }
};

TEST_F(MessageForms, ADoubleClickEmptiesTheFieldAndOpensNothing) {
    const struct {
        const char* form;
        std::vector<std::string> fields;
    } cases[] = {{"frmMessageIn", {"txbUserVariable", "txbTimeOut"}}, {"frmMessageOut", {"txbString"}}};
    for (const auto& c : cases) {
        openMessage(c.form);
        int shows = 0;
        user.script = [&](Object& shown) {
            ++shows;
            if (&shown != form.get()) return;
            for (const std::string& field : c.fields) {
                put(field, "typed");
                invoke(*at(field), "DblClick");
                EXPECT_EQ(text(field), "") << field;
            }
            click("btnCancel");
        };
        form->call("Show");
        EXPECT_EQ(shows, 1) << "no builder";
    }
}

TEST_F(MessageForms, ExpressionBuilderGivesTheEmptyTextForAny) {
    for (const auto* name : {"frmMessageIn", "frmMessageOut"}) {
        openMessage(name);
        EXPECT_EQ(invoke(*form, "ExpressionBuilder", "a + b"), Value(""));
    }
}

TEST_F(MessageForms, OkTakesAnyTextWithoutAChecker) {
    openMessage("frmMessageIn");
    show([&] {
        put("txbUserVariable", "no such; \"variable\"");
        put("txbTimeOut", "-1");
        click("btnOK");
    });
    EXPECT_TRUE(form->get("OKClicked").toBoolean());
    EXPECT_EQ(stored("UserVariable"), "no such; \"variable\"");
    EXPECT_EQ(stored("TimeOut"), "-1");
    EXPECT_TRUE(user.boxes.empty());
    EXPECT_EQ(at("lblTimeOutUnit")->get("Caption").toText(), "msec");
}

TEST_F(MessageForms, TheLineEndIsACheckBox) {
    openMessage("frmMessageOut");
    EXPECT_EQ(at("chkSendCRLF")->get("Caption").toText(), "Send CR/LF:");
    show([&] {
        put("txbString", "hello");
        at("chkSendCRLF")->put("Value", Value(true));
        click("btnOK");
    });
    EXPECT_EQ(stored("Message"), "hello");
    EXPECT_EQ(stored("SendCR"), "True");
}

}  // namespace
}  // namespace canvas::editors
