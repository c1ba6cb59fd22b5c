#include "editors/motion_forms.h"

#include "host/convert.h"
#include "host/numbers.h"
#include "host/text.h"
#include "tracing/branch.h"

namespace canvas::editors {
namespace {

using tracing::Locals;
using tracing::Procedure;

// Stop Motion

constexpr ControlRow abortMotion[] = {
    caption("lblDeceleration", "Deceleration:", 0),
    text("txbDeceleration", "Deceleration", 0)
        .writes(1)
        .checks(1, "Deceleration", brxPositiveFloat)
        .refuses(Keys::noQuoteNorSemicolon),
    unitLabel("lblDecelerationUnit", Unit::perSecond, 0),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr AttributeForm::Spec frmAbortMotion{.design = {"frmAbortMotion", "Stop Motion", abortMotion},
                                             .type = ABORTMOTION,
                                             .filled = Filled::loadThenUnits};

class AbortMotionForm final : public AttributeForm {
public:
    AbortMotionForm() : AttributeForm(frmAbortMotion) {}

protected:
    /// This form alone hands the checker False.
    bool checkField(TextControl& field, std::string& strError) override { return validate(field, strError, false); }
    /// Enter moves the focus on, as the tab key does, and presses no button.
    bool onKey(char32_t key) override {
        if (key != U'\r') return AttributeForm::onKey(key);
        focusNext();
        return true;
    }
};

// Change Dynamics

constexpr std::string_view sCurve = "txbSCurve";
constexpr ControlRow changeDynamics[] = {
    caption("lblVelocity", "Velocity:", 0),
    text("txbVelocity", "Velocity", 0).writes(3).checks(3, "Velocity", brxFloat),
    unitLabel("lblVelocityUnit", Unit::perSecond, 0),
    caption("lblAcceleration", "Acceleration:", 1),
    text("txbAcceleration", "Acceleration", 1).writes(1).checks(1, "Acceleration", brxPositiveFloat),
    unitLabel("lblAccelerationUnit", Unit::perSecond, 1),
    caption("lblDeceleration", "Deceleration:", 2),
    text("txbDeceleration", "Deceleration", 2).writes(2).checks(2, "Deceleration", brxPositiveFloat),
    unitLabel("lblDecelerationUnit", Unit::perSecond, 2),
    caption("lblSCurve", "S-Curve:", 3),
    text(sCurve, "SCurve", 3).writes(4).checks(4, "S-Curve", brxPositiveWord),
    caption("lblSCurveUnit", "msec", 3, 2),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr AttributeForm::Spec frmChangeDynamics{.design = {"frmChangeDynamics", "Change Dynamics", changeDynamics},
                                                .type = CHANGEDYNAMICS};

class ChangeDynamicsForm final : public AttributeForm {
public:
    ChangeDynamicsForm() : AttributeForm(frmChangeDynamics) {}

protected:
    bool checkField(TextControl& field, std::string& strError) override {
        const bool good = validate(field, strError);
        if (field.row().name != sCurve) return good;
        if (!good) {
            strError = "'" + field.Text() + "' cannot be assigned to the 'S-Curve' field.\r\r" +
                       "Expecting a positive integer in the range Of [0 To 255]";
            return false;
        }
        const auto number = numbers::parse(field.Text());
        if (!number || *number < 256) return true;  // an expression is the checker's matter
        // worded apart from the checker's refusal: the letters tell which of the two spoke
        strError = "'" + field.Text() + "' cannot be assigned to the 'S-Curve' Field.\r\r" +
                   "Expecting a positive integer in the range of [0 To 255]";
        field.SetFocus();
        field.selectAll();
        return false;
    }
};

// Define Position

constexpr ControlRow definePosition[] = {
    frame("fraMain", "Main", 0),
    text("txbMain", "Main", 0, 0).writes(1).checks(1, "Main", brxFloat).within("fraMain").named("Main"),
    unitLabel("lblMainUnit", Unit::word, 0, 1).within("fraMain"),
    check("chkMain", "Change", "MainChanged", 0, 2).writes(3).within("fraMain"),
    frame("fraExternal", "External", 1),
    text("txbExternal", "External", 0, 0)
        .writes(2)
        .checks(2, "External", brxFloat)
        .within("fraExternal")
        .named("External"),
    unitLabel("lblExternalUnit", Unit::word, 0, 1).within("fraExternal"),
    check("chkExternal", "Change", "ExternalChanged", 0, 2).writes(4).within("fraExternal"),
    okButton(),
    cancelButton(),
    helpButton(),
};

// Slave Offset

constexpr ControlRow incrementPosition[] = {
    caption("lblOffset", "Offset:", 0),
    text("txbOffset", "Offset", 0).writes(1).checks(1, "Offset", brxFloat),
    unitLabel("lblOffsetUnit", Unit::word, 0),
    caption("lblTime", "Time:", 1),
    text("txbTime", "Time", 1).writes(2).checks(2, "Time", brxPositiveWord),
    unitLabel("lblsec1", Unit::msecOr, 1),
    check("chkWaitForCompletion", "Wait for completion", "WaitForCompletion", 2).writes(3),
    okButton(),
    cancelButton(),
    helpButton(),
};

// Jog Axis

constexpr ControlRow jogAxis[] = {
    caption("lblVelocity", "Velocity:", 0),
    text("txbVelocity", "Velocity", 0).writes(3).checks(3, "Velocity", brxFloat),
    unitLabel("lblVelocityUnit", Unit::perSecond, 0),
    caption("lblAcceleration", "Acceleration:", 1),
    text("txbAcceleration", "Acceleration", 1).writes(1).checks(1, "Acceleration", brxPositiveFloat),
    unitLabel("lblAccelerationUnit", Unit::perSecond, 1),
    caption("lblDeceleration", "Deceleration:", 2),
    text("txbDeceleration", "Deceleration", 2).writes(2).checks(2, "Deceleration", brxPositiveFloat),
    unitLabel("lblDecelerationUnit", Unit::perSecond, 2),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr AttributeForm::Spec frmJogAxis{
    .design = {"frmJogAxis", "Jog Axis", jogAxis}, .type = JOGAXIS, .validation = true};

class JogAxisForm final : public AttributeForm {
public:
    JogAxisForm() : AttributeForm(frmJogAxis) {}
    std::span<const Member> ownMembers() const override {
        static constexpr Member members[] = {method<&JogAxisForm::CheckSelect>("CheckSelect")};
        return members;
    }

    /// Gives a text control the focus and selects all of its text. For callers outside: the form never calls it.
    void CheckSelect(Ref<Object> MyControl) {
        Procedure run(className(), "CheckSelect", this, [&](Locals& l) { l("MyControl", MyControl); });
        run([&] { invoke(required(MyControl), "SetFocus"); },
            [&] { required(MyControl).put("SelStart", Value(std::int32_t{0})); },
            [&] {
                const std::size_t length = text::length(required(MyControl).get("Text").toText());
                MyControl->put("SelLength", Value(static_cast<std::int32_t>(length)));
            });
    }
};

// Move Axis

constexpr std::string_view moveTypes[] = {"Absolute", "Relative", "Rotary Shortest"};
constexpr ControlRow moveAxis[] = {
    caption("lblType", "Type:", 0),
    combo("cmbType", moveTypes, "TypeK", 0).writes(3),
    caption("lblPosition", "Position:", 1),
    text("txbPosition", "Position", 1).writes(4).checks(4, "Position", brxFloat),
    unitLabel("lblPositionUnit", Unit::word, 1),
    caption("lblVelocity", "Velocity:", 2),
    text("txbVelocity", "Velocity", 2).writes(5).checks(1, "Velocity", brxFloat),
    unitLabel("lblVelocityUnit", Unit::perSecond, 2),
    caption("lblAcceleration", "Acceleration:", 3),
    text("txbAcceleration", "Acceleration", 3).writes(1).checks(2, "Acceleration", brxPositiveFloat),
    unitLabel("lblAccelerationUnit", Unit::perSecond, 3),
    caption("lblDeceleration", "Deceleration:", 4),
    text("txbDeceleration", "Deceleration", 4).writes(2).checks(3, "Deceleration", brxPositiveFloat),
    unitLabel("lblDecelerationUnit", Unit::perSecond, 4),
    check("chkWaitForCompletion", "Wait for completion", "WaitForCompletion", 5).writes(6),
    okButton(),
    cancelButton(),
    helpButton(),
};

// Torque

constexpr ControlRow torque[] = {
    caption("lblSpeedLimit", "Speed limit:", 0),
    text("txbSpeedLimit", "SpeedLimit", 0).writes(1).checks(1, "SpeedLimit", brxFloat),
    unitLabel("lblSpeedLimitUnit", Unit::perSecond, 0),
    caption("lblTorque", "Torque:", 1),
    text("txbTorque", "Torque", 1).writes(2).checks(2, "Torque", brxFloat),
    okButton(),
    cancelButton(),
    helpButton(),
};

}  // namespace

const AttributeForm::Spec frmDefinePosition{.design = {"frmDefinePosition", "Define Position", definePosition},
                                            .type = DEFINEPOSITION};
const AttributeForm::Spec frmIncrementPosition{
    .design = {"frmIncrementPosition", "Slave Offset", incrementPosition}, .type = INCREMENTPOSITION, .lists = true};
const AttributeForm::Spec frmMoveAxis{
    .design = {"frmMoveAxis", "Move Axis", moveAxis}, .type = MOVEAXIS, .validation = true};
const AttributeForm::Spec frmTorque{.design = {"frmTorque", "Torque", torque}, .type = Torque};

Ref<Form> makeAbortMotion() { return Ref<Form>(new AbortMotionForm); }
Ref<Form> makeChangeDynamics() { return Ref<Form>(new ChangeDynamicsForm); }
Ref<Form> makeJogAxis() { return Ref<Form>(new JogAxisForm); }

}  // namespace canvas::editors
