// All forms of the list: names, captions, controls by name, help, and what assistive tools read out.

#include <set>

#include "tests/editors/editing.h"

namespace canvas::editors {
namespace {

/// All forms, those that edit no attribute too.
const struct {
    const char* name;
    const char* caption;
} allForms[] = {
    {"frmAbortMotion", "Stop Motion"},
    {"frmCAMOnOff", "Cam"},
    {"frmCAMShift", "Cam Shift"},
    {"frmChangeDynamics", "Change Dynamics"},
    {"frmCompileOptions", "Compile Options"},
    {"frmDataList", "Data"},
    {"frmDefinePosition", "Define Position"},
    {"frmEditNodeName", "Edit Block Name"},
    {"frmExpressionBuilder", "Expression Builder"},
    {"frmGearRatio", "Gear Ratio"},
    {"frmGearingOnOff", "Gear"},
    {"frmHomeAxis", "Home Axis"},
    {"frmIfEvent", "If Event"},
    {"frmIfFault", "If Axis Fault"},
    {"frmIncrementPosition", "Slave Offset"},
    {"frmInput", "Input"},
    {"frmJogAxis", "Jog Axis"},
    {"frmLatchOnOff", "Latch"},
    {"frmLatchTarget", "Latch Target"},
    {"frmListSubroutine", "Call Subroutine"},
    {"frmMessageIn", "Message In"},
    {"frmMessageOut", "Message Out"},
    {"frmMoveAxis", "Move Axis"},
    {"frmNodeText", "Text"},
    {"frmOnTime", "Timer"},
    {"frmProgrammableLimitSwitch", "Programmable Limit Switch"},
    {"frmResetFault", "Reset Fault"},
    {"frmRestartProgram", "Launch Program"},
    {"frmScaleCAM", "Scale Cam"},
    {"frmServoOnOff", "Servo"},
    {"frmSetVariable", "Set Variable"},
    {"frmSuperBlock", "Call Subroutine"},
    {"frmSuspendProgram", "Suspend Program"},
    {"frmTorque", "Torque"},
};

TEST(AllForms, AreThereUnderTheirNamesWithTheirCaptions) {
    for (const auto& row : allForms) {
        const Ref<Form> form = makeForm(row.name);
        ASSERT_TRUE(form) << row.name;
        EXPECT_EQ(form->Name(), row.name);
        EXPECT_EQ(form->Caption(), row.caption);
        EXPECT_FALSE(form->Visible());
    }
}

TEST(AllForms, ControlsAnswerByNameAndEachNameStandsOnce) {
    for (const FormEntry& entry : forms()) {
        const Ref<Form> form = entry.make();
        EXPECT_EQ(form->Name(), entry.name);
        const Value names = form->get("ControlNames");
        std::set<std::string> seen;
        for (const Ref<Control>& each : form->controls()) {
            const std::string name = each->Name();
            EXPECT_TRUE(seen.insert(name).second) << entry.name << "." << name;
            EXPECT_EQ(control(*form, name).get(), each.get());
            for (const auto* member : {"Name", "Kind", "Visible", "Enabled", "HasFocus", "BackColor"})
                EXPECT_NO_THROW(each->get(member)) << entry.name << "." << name << "." << member;
        }
        EXPECT_THROW(control(*form, "nothingOfThatName"), RuntimeError);
    }
}

TEST(AllForms, HaveAHelpButtonThatAsksTheHost) {
    const auto help = std::make_shared<HelpCount>();
    const WithEnvironment with{Environment{.help = help}};
    int expected = 0;
    for (const FormEntry& entry : forms()) {
        const Ref<Form> form = entry.make();
        const std::string button = buttonOf(*form, "Help");
        if (button.empty()) continue;
        Playing play;
        play.user->script = [&](Object&) { invoke(*control(*form, button), "Click"); };
        form->Show();
        EXPECT_EQ(help->shown, ++expected) << entry.name;
    }
    EXPECT_GT(expected, 30);
}

/// A caption before the field in its line.
bool besides(const ControlRow& other, const ControlRow& field) {
    return !other.caption.empty() && other.kind != ControlKind::button && other.in == field.in &&
           other.line == field.line && other.column < field.column;
}

TEST(AllForms, EveryFieldHasALabelOrATextForAssistiveTools) {
    for (const FormEntry& entry : forms()) {
        const Ref<Form> form = entry.make();
        for (const Ref<Control>& each : form->controls()) {
            const ControlRow& row = each->row();
            if (row.kind != ControlKind::text && row.kind != ControlKind::combo) continue;
            bool labelled = !row.caption.empty();
            for (const Ref<Control>& other : form->controls())
                labelled |= besides(other->row(), row);
            EXPECT_TRUE(labelled) << entry.name << "." << row.name;
        }
    }
}

}  // namespace
}  // namespace canvas::editors
