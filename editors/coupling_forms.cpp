#include "editors/coupling_forms.h"

#include "editors/advanced_tab_form.h"
#include "tracing/branch.h"

namespace canvas::editors {
namespace {

// Gear Ratio

constexpr ControlRow gearRatio[] = {
    caption("lblGearRatio", "Gear Ratio (External : Main)", 0),
    frame("fraRatio", "", 1),
    text("txbMaster", "Master", 0, 0).writes(1).checks(1, "External", brxWord).within("fraRatio").named("External"),
    caption("lblColon", " : ", 0, 1).within("fraRatio"),
    text("txbSlave", "Slave", 0, 2).writes(2).checks(2, "Main", brxWord).within("fraRatio").named("Main"),
    okButton(),
    cancelButton(),
    helpButton(),
};

// Gear

constexpr std::string_view gearTabs = "SSGearingTab", gearGeneral = "SSGearingTab(0)", gearAdvanced = "SSGearingTab(1)";
constexpr ControlRow gearing[] = {
    tabs(gearTabs, "General|Advanced", 0),
    caption("lblGearing", "Gearing:", 0).within(gearGeneral),
    option("OptEnable", "Enabled", "Gearing", "OptDisable", 0).writes(1).within(gearGeneral),
    option("OptDisable", "Disabled", 1).within(gearGeneral),
    check("chkAdvanced", "Advanced", "Advanced", 2).within(gearGeneral),
    caption("lblFFGain", "Feed Forward Gain:", 0).within(gearAdvanced),
    text("txbFFGain", "FeedForwardGain", 0)
        .writes(2)
        .checks(1, "Feed Forward Gain", brxPositiveFloat)
        .onDoubleClick(DoubleClick::nothing)
        .within(gearAdvanced),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr AttributeForm::Spec frmGearingOnOff{.design = {"frmGearingOnOff", "Gear", gearing},
                                              .type = GEARINGONOFF,
                                              .filled = Filled::onActivate,
                                              .lists = true,
                                              .builder = false};

// Latch

constexpr ControlRow latchOnOff[] = {
    frame("fraLatchState", "Latch State", 0),
    option("OptEnable", "Enabled", "Latch", "OptDisable", 0, 0).writes(1).within("fraLatchState"),
    option("OptDisable", "Disabled", 1, 0).within("fraLatchState"),
    frame("fraLatchAxis", "Latch Axis", 1),
    option("optExternal", "External", 0, 0).within("fraLatchAxis"),
    option("optMain", "Main", "MainLatchaxis", "optExternal", 1, 0).writes(2).within("fraLatchAxis"),
    okButton(),
    cancelButton(),
    helpButton(),
};

// Latch Target

constexpr ControlRow latchTarget[] = {
    caption("lblDistanceAfterLatch", "Distance after latch:", 0),
    text("txbDistanceAfterLatch", "DistanceAfterLatch", 0).writes(1).checks(1, "Distance After Latch", brxFloat),
    unitLabel("lblDistanceAfterLatchUnit", Unit::word, 0),
    caption("lblDefaultDistance", "Default distance:", 1),
    text("txbDefaultDistance", "DefaultDistance", 1).writes(2).checks(2, "Default Distance", brxFloat),
    unitLabel("lblDefaultDistanceUnit", Unit::word, 1),
    caption("lblVelocity", "Velocity:", 2),
    text("txbVelocity", "Velocity", 2).writes(3).checks(3, "Velocity", brxFloat),
    unitLabel("lblVelocityUnit", Unit::perSecond, 2),
    caption("lblAcceleration", "Acceleration:", 3),
    text("txbAcceleration", "Acceleration", 3).writes(4).checks(4, "Acceleration", brxPositiveFloat),
    unitLabel("lblAccelerationUnit", Unit::perSecond, 3),
    caption("lblDeceleration", "Deceleration:", 4),
    text("txbDeceleration", "Deceleration", 4).writes(5).checks(5, "Deceleration", brxPositiveFloat),
    unitLabel("lblDecelerationUnit", Unit::perSecond, 4),
    caption("lblLatchStartDistance", "Latch start distance:", 5),
    text("txbLatchStartDistance", "LatchStartDistance", 5).writes(6).checks(6, "Latch Start Distance", brxFloat),
    unitLabel("lblLatchStartDistanceUnit", Unit::word, 5),
    caption("lblLatchFinishDistance", "Latch finish distance:", 6),
    text("txbLatchFinishDistance", "LatchFinishDistance", 6).writes(7).checks(7, "Latch Finish Distance", brxFloat),
    unitLabel("lblLatchFinishDistanceUnit", Unit::word, 6),
    check("chkWaitForCompletion", "Wait for completion", "WaitForCompletion", 7).writes(8),
    okButton(),
    cancelButton(),
    helpButton(),
};

// Scale Cam

constexpr ControlRow scaleCam[] = {
    caption("lblScaleFactor", "Scale Factor:", 0),
    text("txbScaleFactor", "ScaleFactor", 0).writes(1).checks(1, "Scale Factor", brxFloat).withTwoDecimals(),
    okButton(),
    cancelButton(),
    helpButton(),
};

// Cam Shift

constexpr ControlRow camShift[] = {
    caption("lblOffset", "Shift:", 0),
    text("txbOffset", "Offset", 0).writes(1).checks(1, "Shift", brxFloat),
    unitLabel("lblOffsetUnit", Unit::word, 0),
    caption("lblTime", "Time:", 1),
    text("txbTime", "Time", 1).writes(2).checks(2, "Time", brxPositiveWord),
    unitLabel("lblsec1", Unit::msecOr, 1),
    check("chkWaitForCompletion", "Wait for completion", "WaitForCompletion", 2).writes(3),
    okButton(),
    cancelButton(),
    helpButton(),
};

// Cam

constexpr std::string_view camTabs = "SSCAMTab", camGeneral = "SSCAMTab(0)", camAdvanced = "SSCAMTab(1)";
// The stored names stand beside the lists, since a list shows nothing when the project has lost the table.
constexpr ControlRow cam[] = {
    tabs(camTabs, "General|Advanced", 0),
    caption("lblCAMProfileTable", "Position Data:", 0).within(camGeneral),
    combo("cmbCAMProfileTable", {}, "CAMProfileTable", 0).writes(1).within(camGeneral),
    text("txbCAMProfileTable", "CAMProfileTable", 0, 2).viewOnly().within(camGeneral).named("Position data as stored"),
    caption("lblMasterPosition", "External Position:", 1).within(camGeneral),
    text("txbMasterPosition", "MasterPosition", 1)
        .writes(2)
        .checks(1, "External Position", brxPositiveFloat)
        .within(camGeneral),
    unitLabel("lblMasterPositionUnit", Unit::word, 1).within(camGeneral),
    option("OptEnable", "Enabled", "CAM", "OptDisable", 2).writes(3).within(camGeneral),
    option("OptDisable", "Disabled", 3).within(camGeneral),
    check("chkAdvanced", "Advanced", "Advanced", 4).within(camGeneral),
    caption("lblSpeedFFAddress", "Velocity Data:", 0).within(camAdvanced),
    combo("cmbSpeedFFAddress", {}, "SpeedFeedForwardAddress", 0).writes(4).within(camAdvanced),
    text("txbSpeedFFAddress", "SpeedFeedForwardAddress", 0, 2)
        .viewOnly()
        .within(camAdvanced)
        .named("Velocity data as stored"),
    caption("lblAngleUnit", "Master Modulus:", 1).within(camAdvanced),
    text("txbAngleUnit", {}, 1).withTwoDecimals().within(camAdvanced),
    unitLabel("lblMaxMasterPositionUnit", Unit::word, 1).within(camAdvanced),
    caption("lblMasterAxisMaxCycle", "Master Maximum Velocity:", 2).within(camAdvanced),
    text("txbMasterAxisMaxCycle", "MasterAxisMaxCycle", 2).writes(6).within(camAdvanced),
    caption("lblMasterAxisMaxCycleUnit", "SPM", 2, 2).within(camAdvanced),
    caption("lblFFGain", "Feed Forward Gain:", 3).within(camAdvanced),
    text("txbFFGain", "FeedForwardGain", 3)
        .writes(5)
        .checks(2, "Feed Fordward Gain", brxFloat)  // misspelt as users know it from the message
        .withTwoDecimals()
        .within(camAdvanced),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr AttributeForm::Spec frmCAMOnOff{
    .design = {"frmCAMOnOff", "Cam", cam}, .type = CAMONOFF, .lists = true};

class CamForm final : public AdvancedTabForm {
public:
    CamForm() : AdvancedTabForm(frmCAMOnOff, camTabs) {}
    std::span<const Member> ownMembers() const override {
        static constexpr Member members[] = {
            property<nullptr, &CamForm::setTableNameList>("tableNameList"),
            method<&CamForm::SetCAMProfileTable>("SetCAMProfileTable"),
        };
        return members;
    }

    void setTableNameList(Ref<Object> list) { colTableNameList = std::move(list); }
    /// Selects the block's tables in the two lists, once the caller has filled them; a name that is in neither leaves
    /// the selection as it is.
    void SetCAMProfileTable() {
        tracing::Procedure run(className(), "SetCAMProfileTable", this, [](tracing::Locals&) {});
        run([&] { select("cmbCAMProfileTable"); }, [&] { select("cmbSpeedFFAddress"); });
    }

    Ref<Object> colTableNameList;

protected:
    void moreLists(VariableSink& sink) const override { sink.variable("colTableNameList", Value(colTableNameList)); }

private:
    void select(std::string_view combo) {
        Choice& choice = the<Choice>(combo);
        const std::string name = BVTAttribute()->get(choice.row().property).toText();
        const auto& items = choice.items();
        if (std::find(items.begin(), items.end(), name) != items.end()) choice.setText(name);
    }
};

}  // namespace

const AttributeForm::Spec frmCAMShift{
    .design = {"frmCAMShift", "Cam Shift", camShift}, .type = CAMSHIFT, .lists = true};
const AttributeForm::Spec frmGearRatio{.design = {"frmGearRatio", "Gear Ratio", gearRatio}, .type = GEARRATIO};
const AttributeForm::Spec frmLatchOnOff{.design = {"frmLatchOnOff", "Latch", latchOnOff},
                                        .type = LATCHONOFF,
                                        .filled = Filled::onActivate,
                                        .checks = false};
const AttributeForm::Spec frmLatchTarget{
    .design = {"frmLatchTarget", "Latch Target", latchTarget}, .type = LATCHTARGET, .validation = true};
const AttributeForm::Spec frmScaleCAM{.design = {"frmScaleCAM", "Scale Cam", scaleCam}, .type = SCALECAM};

Ref<Form> makeCAMOnOff() { return Ref<Form>(new CamForm); }
Ref<Form> makeGearingOnOff() { return Ref<Form>(new AdvancedTabForm(frmGearingOnOff, gearTabs)); }

}  // namespace canvas::editors
