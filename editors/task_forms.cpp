// Launch Program and Suspend Program: eight tasks to tick.

#include "attributes/program_control.h"
#include "editors/program_forms.h"
#include "tracing/branch.h"

namespace canvas::editors {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace {

#define TASK(i, number) check("ChkTask(" #i ")", "Program " number, {}, i + 1, 0)
#define START(i) text("txbTask(" #i ")", {}, i + 1)

constexpr ControlRow restartProgram[] = {
    caption("lblTask", "Launch", 0),
    caption("lblStart", "Start at Block", 0, 1),
    TASK(0, "1"), START(0), TASK(1, "2"), START(1), TASK(2, "3"), START(2), TASK(3, "4"), START(3),
    TASK(4, "5"), START(4), TASK(5, "6"), START(5), TASK(6, "7"), START(6), TASK(7, "8"), START(7),
    okButton(), cancelButton(), helpButton(),
};

constexpr ControlRow suspendProgram[] = {
    caption("lblTask", "Suspend", 0),
    TASK(0, "1"), TASK(1, "2"), TASK(2, "3"), TASK(3, "4"), TASK(4, "5"), TASK(5, "6"), TASK(6, "7"), TASK(7, "8"),
    okButton(), cancelButton(), helpButton(),
};

constexpr AttributeForm::Spec launch{{"frmRestartProgram", "Launch Program", restartProgram}, RESTARTPROGRAM,
                                     Filled::onActivate, false, false};
constexpr AttributeForm::Spec suspend{{"frmSuspendProgram", "Suspend Program", suspendProgram}, SUSPENDPROGRAM,
                                      Filled::onActivate, false, false};

/// Calls `step` for the tasks 0 to 7 in order, each a statement of its own. False when the procedure was left.
template <class Step>
bool eachTask(Form& form, std::string_view procedure, Step&& step) {
    std::int16_t i = 0;
    Procedure run(form.className(), procedure, &form, [&](Locals& l) { l("i", i); });
    for (; i < taskCount; ++i)
        if (run([&] { step(i); }) == Flow::leave) return false;
    return true;
}

/// What both have in common: controls by the place of a task, from 0; attributes count tasks from 1.
class TaskForm : public AttributeForm {
public:
    using AttributeForm::AttributeForm;

protected:
    Toggle& ticked(std::int16_t i) { return the<Toggle>("ChkTask(" + std::to_string(i) + ")"); }
    TextControl& start(std::int16_t i) { return the<TextControl>("txbTask(" + std::to_string(i) + ")"); }
    static std::int16_t number(std::int16_t i) { return static_cast<std::int16_t>(i + 1); }

    virtual void show(std::int16_t i) = 0;
    virtual void store(std::int16_t i) = 0;

    void fill() override {
        eachTask(*this, "Form_Activate", [&](std::int16_t i) { show(i); });
    }
    void ok() override {
        if (!eachTask(*this, "btnOK_Click", [&](std::int16_t i) { store(i); })) return;
        btnOKClicked = true;
        Hide();
    }
};

class frmRestartProgram final : public TaskForm {
public:
    frmRestartProgram() : TaskForm(launch) {}

private:
    void show(std::int16_t i) override {
        Object& attribute = *BVTAttribute();
        start(i).setText(invoke(attribute, "ArBlockNumber", number(i)).toText());
        ticked(i).setValue(invoke(attribute, "ArChkTask", number(i)).toBoolean());
        if (!invoke(attribute, "ArTask", number(i)).toText().empty()) return;
        start(i).setText("1");
        ticked(i).setValue(false);
        start(i).setEnabled(false);
        ticked(i).setEnabled(false);
    }
    void store(std::int16_t i) override {
        invoke(*BVTAttribute(), "SetArChkTask", number(i), ticked(i).value());
        invoke(*BVTAttribute(), "SetArBlockNumber", number(i), start(i).Text());
    }
};

class frmSuspendProgram final : public TaskForm {
public:
    frmSuspendProgram() : TaskForm(suspend) {}

private:
    void show(std::int16_t i) override {
        ticked(i).setValue(invoke(*BVTAttribute(), "ArTask", number(i)).toBoolean());
        ticked(i).setEnabled(invoke(*BVTAttribute(), "ArTaskExist", number(i)).toBoolean());
    }
    void store(std::int16_t i) override { invoke(*BVTAttribute(), "SetArTask", number(i), ticked(i).value()); }
};

}  // namespace

Ref<Form> makeRestartProgram() { return Ref<Form>(new frmRestartProgram); }
Ref<Form> makeSuspendProgram() { return Ref<Form>(new frmSuspendProgram); }

}  // namespace canvas::editors
