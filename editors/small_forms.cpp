#include "editors/small_forms.h"

#include "editors/plain_form.h"
#include "tracing/branch.h"

namespace canvas::editors {
namespace {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

// Edit Block Name

constexpr ControlRow editNodeName[] = {
    caption("lblOriginalName", "Replace", 0),
    text("txbOriginalName", {}, 0).onDoubleClick(DoubleClick::nothing).viewOnly(),
    caption("lblNewName", "With", 1),
    text("txbNewName", {}, 1).onDoubleClick(DoubleClick::nothing).refuses(Keys::noQuote),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr Form::Design editNodeNameDesign{"frmEditNodeName", "Edit Block Name", editNodeName};

class EditNodeNameForm final : public PlainForm {
public:
    EditNodeNameForm() : PlainForm(editNodeNameDesign) {}
    std::span<const Member> ownMembers() const override {
        static constexpr Member members[] = {property<&EditNodeNameForm::strNodeLabel>("NodeLabel")};
        return members;
    }

    Value strNodeLabel{""};

protected:
    void activated() override {
        TextControl& newName = the<TextControl>("txbNewName");
        std::string label;
        Procedure run(className(), "Form_Activate", this, [](Locals&) {});
        run(
            [&] {
                label = strNodeLabel.toText();
                the<TextControl>("txbOriginalName").setText(label);
            },
            [&] { newName.setText(label); },
            [&] {
                newName.SetFocus();
                newName.selectAll();
            });
    }
    void ok() override {
        strNodeLabel = Value(the<TextControl>("txbNewName").Text());
        Hide();
    }
    void ownVariables(VariableSink& sink) const override { sink.variable("strNodeLabel", strNodeLabel); }
};

// Compile Options

constexpr ControlRow compileOptions[] = {
    frame("fraCompileMode", "Compile Mode:", 0),
    option("OptDebug", "&Debug", 0, 0).within("fraCompileMode"),
    option("OptNormal", "&Normal", 1, 0).within("fraCompileMode"),
    option("OptOptimized", "&Optimized", 2, 0).within("fraCompileMode"),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr Form::Design compileOptionsDesign{"frmCompileOptions", "Compile Options", compileOptions};

class CompileOptionsForm final : public PlainForm {
public:
    enum Option : std::int16_t { normal = 0, optimized = 1, debug = 2 };

    CompileOptionsForm() : PlainForm(compileOptionsDesign) {}
    std::span<const Member> ownMembers() const override {
        static constexpr Member members[] = {property<&CompileOptionsForm::intCompileOption>("CompileOption")};
        return members;
    }

    std::int16_t intCompileOption = normal;

protected:
    void activated() override {
        const bool known = intCompileOption == normal || intCompileOption == optimized;
        const std::string_view chosen = !known                        ? "OptDebug"
                                        : intCompileOption == normal ? "OptNormal"
                                                                     : "OptOptimized";
        the<Toggle>(chosen).setValue(true);
    }
    void ok() override {
        const auto isSet = [&](std::string_view option) { return the<Toggle>(option).value(); };
        intCompileOption = isSet("OptNormal") ? normal : isSet("OptOptimized") ? optimized : debug;
        Hide();
    }
    void ownVariables(VariableSink& sink) const override {
        sink.variable("intCompileOption", Value(intCompileOption));
    }
};

}  // namespace

Ref<Form> makeCompileOptions() { return Ref<Form>(new CompileOptionsForm); }
Ref<Form> makeEditNodeName() { return Ref<Form>(new EditNodeNameForm); }

std::span<const Member> clsBVTEditNodeName::table() noexcept {
    using C = clsBVTEditNodeName;
    static constexpr Member members[] = {
        property<&C::OriginalName, &C::setOriginalName>("OriginalName"),
        method<&C::Show>("Show"),
        method<&C::Unload_Form>("Unload_Form"),
    };
    return members;
}

Form& clsBVTEditNodeName::form() {
    if (!frmEditNodeName) frmEditNodeName = makeEditNodeName();
    return *frmEditNodeName;
}

void clsBVTEditNodeName::Show() {
    const Ref<Form> shown(&form());
    Procedure run(name, "Show", this, [](Locals&) {});
    run([&] { shown->Load(); }, [&] { shown->put("NodeLabel", strNodeLabel); }, [&] { shown->Show(); },
        [&] { strNodeLabel = shown->get("NodeLabel"); });
}

void clsBVTEditNodeName::Unload_Form() {
    Procedure run(name, "Unload_Form", this, [](Locals&) {});
    run([&] { form().Unload(); });
}

void clsBVTEditNodeName::reportVariables(VariableSink& sink) const {
    sink.variable("strNodeLabel", strNodeLabel);
    sink.variable("frmEditNodeName", Value(Ref<Object>(frmEditNodeName)));
}

}  // namespace canvas::editors
