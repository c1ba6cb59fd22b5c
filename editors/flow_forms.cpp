#include "editors/flow_forms.h"

#include "editors/bad_character_form.h"
#include "editors/plain_form.h"
#include "tracing/branch.h"

namespace canvas::editors {
namespace {

// If Event

constexpr std::string_view eventField = "txbEvent", builderButton = "cmdExpBuilder";
constexpr ControlRow ifEvent[] = {
    caption("lblEvent", "Event:", 0),
    text(eventField, "EventK", 0).writes(1).checks(1, "If Event", brxExpression).refuses(Keys::noQuote),
    button(builderButton, "&Expression Builder...", 1, 1),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr AttributeForm::Spec frmIfEvent{.design = {"frmIfEvent", "If Event", ifEvent}, .type = IFEVENT};

class IfEventForm final : public AttributeForm {
public:
    IfEventForm() : AttributeForm(frmIfEvent) {}

    /// Shows the event already before the form is loaded.
    void Initialize() {
        tracing::Procedure run(className(), "Form_Initialize", this, [](tracing::Locals&) {});
        run([&] { the<TextControl>(eventField).setText(BVTAttribute()->get("EventK").toText()); });
    }

protected:
    void on(Event event, Control& control) override {
        if (event == Event::click && control.row().name == builderButton)
            build(the<TextControl>(eventField), "cmdExpBuilder_Click");
        else AttributeForm::on(event, control);
    }
};

// Timer

constexpr ControlRow onTime[] = {
    caption("lblTimeOut", "Time out:", 0),
    text("txbTimeOut", "TimeOut", 0).writes(1).checks(1, "Time Out", brxPositiveWord),
    caption("lblTimeOutUnit", "msec", 0, 2),
    okButton(),
    cancelButton(),
    helpButton(),
};

// Input

constexpr std::string_view conditions[] = {"Rising Edge", "Falling Edge", "Logic One", "Logic Zero"};
constexpr ControlRow input[] = {
    caption("lblInput", "Input:", 0),
    text("txbInput", "InputBlock", 0).writes(1).checks(1, "Input", brxPositiveFloat),
    caption("lblCondition", "Condition:", 1),
    combo("cmbCondition", conditions, "Condition", 1).writes(2),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr AttributeForm::Spec frmInput{.design = {"frmInput", "Input", input}, .type = InputBlock, .lists = true};

// Servo

constexpr ControlRow servoOnOff[] = {
    option("OptEnable", "Enabled", "Servo", "OptDisable", 0, 0).writes(1),
    option("OptDisable", "Disabled", 1, 0),
    okButton(),
    cancelButton(),
    helpButton(),
};

// Faults: nothing to edit, and nothing behind OK and Cancel

constexpr ControlRow anyFault[] = {
    caption("lblAnyFault", "Any Fault", 0),
    button("btnOK", "OK", 0),
    button("btnCancel", "Cancel", 1),
    helpButton(),
};
constexpr Form::Design frmIfFault{"frmIfFault", "If Axis Fault", anyFault};
constexpr Form::Design frmResetFault{"frmResetFault", "Reset Fault", anyFault};

}  // namespace

const AttributeForm::Spec frmOnTime{
    .design = {"frmOnTime", "Timer", onTime}, .type = ONTIME, .lists = true, .validation = true};
const AttributeForm::Spec frmServoOnOff{.design = {"frmServoOnOff", "Servo", servoOnOff},
                                        .type = SERVOONOFF,
                                        .filled = Filled::onActivate,
                                        .checks = false};

Ref<Form> makeIfEvent() {
    const Ref<IfEventForm> form(new IfEventForm);
    form->Initialize();
    return form;
}
Ref<Form> makeIfFault() { return Ref<Form>(new PlainForm(frmIfFault)); }
Ref<Form> makeInput() { return Ref<Form>(new BadCharacterForm(frmInput, "txbInput")); }
Ref<Form> makeResetFault() { return Ref<Form>(new PlainForm(frmResetFault)); }

}  // namespace canvas::editors
