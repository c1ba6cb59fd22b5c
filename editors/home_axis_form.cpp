// The dialog of Home Axis.

#include "editors/bad_character_form.h"
#include "editors/motion_forms.h"
#include "host/convert.h"

namespace canvas::editors {
namespace {

constexpr std::string_view switchInput = "txbHomeSwitchInput", creepSpeed = "txbCreepSpeed";
constexpr std::string_view directions[] = {"Positive", "Negative"};

constexpr ControlRow homeAxis[] = {
    caption("lblHomeDirection", "Home direction:", 0),
    combo("cmbHomeDirection", directions, "HomingDirection", 0).writes(7),
    caption("lblHomeSwitchInput", "Home switch input:", 1),
    text(switchInput, "HomeSwitchInput", 1).writes(6).checks(5, "Home Switch Input", brxPositiveWord),
    caption("lblApproachVelocity", "Approach velocity:", 2),
    text("txbApproachVelocity", "ApproachVelocity", 2).writes(2).checks(2, "Approach Velocity", brxFloat),
    unitLabel("lblApproachVelocityUnit", Unit::perSecond, 2),
    caption("lblAcceleration", "Acceleration:", 3),
    text("txbAcceleration", "Acceleration", 3).writes(3).checks(3, "Acceleration", brxPositiveFloat),
    unitLabel("lblAccelerationUnit", Unit::perSecond, 3),
    caption("lblDeceleration", "Deceleration:", 4),
    text("txbDeceleration", "Deceleration", 4).writes(4).checks(4, "Deceleration", brxPositiveFloat),
    unitLabel("lblDecelerationUnit", Unit::perSecond, 4),
    caption("lblCreepSpeed", "Creep speed:", 5),
    text(creepSpeed, "CreepSpeed", 5).writes(5).checks(6, "CreepSpeed", brxPositiveFloat),
    unitLabel("lblCreepSpeedUnit", Unit::perSecond, 5),
    caption("lblTimeOut", "Time out:", 6),
    text("txbTimeOut", "TimeOut", 6).writes(1).checks(1, "Time Out", brxPositiveWord),
    caption("lblTimeOutUnit", "sec", 6, 2),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr AttributeForm::Spec frmHomeAxis{
    .design = {"frmHomeAxis", "Home Axis", homeAxis}, .type = HOMEAXIS, .lists = true};

class HomeAxisForm final : public BadCharacterForm {
public:
    HomeAxisForm() : BadCharacterForm(frmHomeAxis, switchInput) {}

protected:
    bool checkField(TextControl& field, std::string& strError) override {
        if (field.row().name == switchInput) return checkSwitch(field, strError);
        const bool good = validate(field, strError);
        if (!good && field.row().name == creepSpeed)
            strError = "Expecting a postion real number in the range of [0.0 To 10.0].";
        return good;
    }

private:
    /// The checker tells in a sixth argument that the text is no constant. The two constants that mean a state are
    /// rewritten, so that the field never holds a plain number.
    bool checkSwitch(TextControl& field, std::string& strError) {
        bool notConstant = false;
        const ControlRow& row = field.row();
        const bool good = invoke(required(clsSyntaxValidation), "ValidateUserInput", Ref<Object>(&field), row.checkName,
                                 row.checkType, true, std::ref(strError), std::ref(notConstant))
                              .toBoolean();
        if (!good || notConstant) return good;
        if (field.Text() == "1") return field.setText("true"), true;
        if (field.Text() == "0") return field.setText("false"), true;
        strError = "Constant value cannot be used.";
        return false;
    }
};

}  // namespace

Ref<Form> makeHomeAxis() { return Ref<Form>(new HomeAxisForm); }

}  // namespace canvas::editors
