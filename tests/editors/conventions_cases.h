#pragma once
// What every attribute dialog checks, writes and shows, form by form.

#include <string>
#include <vector>

namespace canvas::editors {

struct CheckCase {
    const char* control;
    const char* name;
    int type;
};
struct WriteCase {
    const char* control;
    const char* property;
};
struct UnitCase {
    const char* label;
    const char* before;
    const char* behind;
};
struct FormCase {
    const char* name;
    const char* caption;
    const char* attribute;
    std::vector<CheckCase> checks;
    std::vector<WriteCase> writes;
    std::vector<UnitCase> units = {};
    bool lists = false;
    bool validation = false;
    bool checker = true;        ///< SetData takes one
    bool asksChecker = true;    ///< CheckParameter is there
    bool builder = true;        ///< ExpressionBuilder is there
    bool sixthArgument = false;  ///< of the check of one field
};

inline const std::vector<FormCase>& formCases() {
    const char *position = "", *perSecond = "/sec", *msecOr = "msec or ";
    static const std::vector<FormCase> cases = {
        {"frmAbortMotion", "Stop Motion", "clsBVTAbortMotion",
         {{"txbDeceleration", "Deceleration", 18}},
         {{"txbDeceleration", "Deceleration"}},
         {{"lblDecelerationUnit", "", perSecond}}},
        {"frmCAMOnOff", "Cam", "clsBVTCAMOnOff",
         {{"txbMasterPosition", "External Position", 18}, {"txbFFGain", "Feed Fordward Gain", 16}},
         {{"cmbCAMProfileTable", "CAMProfileTable"},
          {"txbMasterPosition", "MasterPosition"},
          {"OptEnable", "CAM"},
          {"cmbSpeedFFAddress", "SpeedFeedForwardAddress"},
          {"txbFFGain", "FeedForwardGain"},
          {"txbMasterAxisMaxCycle", "MasterAxisMaxCycle"}},
         {{"lblMasterPositionUnit", "", position}, {"lblMaxMasterPositionUnit", "", position}},
         true},
        {"frmCAMShift", "Cam Shift", "clsBVTCAMShift",
         {{"txbOffset", "Shift", 16}, {"txbTime", "Time", 6}},
         {{"txbOffset", "Offset"}, {"txbTime", "Time"}, {"chkWaitForCompletion", "WaitForCompletion"}},
         {{"lblOffsetUnit", "", position}, {"lblsec1", msecOr, ""}},
         true},
        {"frmChangeDynamics", "Change Dynamics", "clsBVTChangeDynamics",
         {{"txbAcceleration", "Acceleration", 18},
          {"txbDeceleration", "Deceleration", 18},
          {"txbVelocity", "Velocity", 16},
          {"txbSCurve", "S-Curve", 6}},
         {{"txbAcceleration", "Acceleration"},
          {"txbDeceleration", "Deceleration"},
          {"txbVelocity", "Velocity"},
          {"txbSCurve", "SCurve"}},
         {{"lblAccelerationUnit", "", perSecond},
          {"lblDecelerationUnit", "", perSecond},
          {"lblVelocityUnit", "", perSecond}}},
        {"frmDefinePosition", "Define Position", "clsBVTDefinePosition",
         {{"txbMain", "Main", 16}, {"txbExternal", "External", 16}},
         {{"txbMain", "Main"},
          {"txbExternal", "External"},
          {"chkMain", "MainChanged"},
          {"chkExternal", "ExternalChanged"}},
         {{"lblMainUnit", "", position}, {"lblExternalUnit", "", position}}},
        {"frmGearRatio", "Gear Ratio", "clsBVTGearRatio",
         {{"txbMaster", "External", 4}, {"txbSlave", "Main", 4}},
         {{"txbMaster", "Master"}, {"txbSlave", "Slave"}}},
        {"frmGearingOnOff", "Gear", "clsBVTGearingOnOff",
         {{"txbFFGain", "Feed Forward Gain", 18}},
         {{"OptEnable", "Gearing"}, {"txbFFGain", "FeedForwardGain"}},
         {}, true, false, true, true, false},
        {"frmHomeAxis", "Home Axis", "clsBVTHomeAxis",
         {{"txbTimeOut", "Time Out", 6},
          {"txbApproachVelocity", "Approach Velocity", 16},
          {"txbAcceleration", "Acceleration", 18},
          {"txbDeceleration", "Deceleration", 18},
          {"txbHomeSwitchInput", "Home Switch Input", 6},
          {"txbCreepSpeed", "CreepSpeed", 18}},
         {{"txbTimeOut", "TimeOut"},
          {"txbApproachVelocity", "ApproachVelocity"},
          {"txbAcceleration", "Acceleration"},
          {"txbDeceleration", "Deceleration"},
          {"txbCreepSpeed", "CreepSpeed"},
          {"txbHomeSwitchInput", "HomeSwitchInput"},
          {"cmbHomeDirection", "HomingDirection"}},
         {{"lblApproachVelocityUnit", "", perSecond},
          {"lblAccelerationUnit", "", perSecond},
          {"lblDecelerationUnit", "", perSecond},
          {"lblCreepSpeedUnit", "", perSecond}},
         true, false, true, true, true, true},
        {"frmIfEvent", "If Event", "clsBVTIfEvent", {{"txbEvent", "If Event", 51}}, {{"txbEvent", "EventK"}}},
        {"frmIncrementPosition", "Slave Offset", "clsBVTIncrementPosition",
         {{"txbOffset", "Offset", 16}, {"txbTime", "Time", 6}},
         {{"txbOffset", "Offset"}, {"txbTime", "Time"}, {"chkWaitForCompletion", "WaitForCompletion"}},
         {{"lblOffsetUnit", "", position}, {"lblsec1", msecOr, ""}},
         true},
        {"frmInput", "Input", "clsBVTInput",
         {{"txbInput", "Input", 18}},
         {{"txbInput", "InputBlock"}, {"cmbCondition", "Condition"}},
         {}, true},
        {"frmJogAxis", "Jog Axis", "clsBVTJogAxis",
         {{"txbAcceleration", "Acceleration", 18},
          {"txbDeceleration", "Deceleration", 18},
          {"txbVelocity", "Velocity", 16}},
         {{"txbAcceleration", "Acceleration"}, {"txbDeceleration", "Deceleration"}, {"txbVelocity", "Velocity"}},
         {{"lblAccelerationUnit", "", perSecond},
          {"lblDecelerationUnit", "", perSecond},
          {"lblVelocityUnit", "", perSecond}},
         false, true},
        {"frmLatchOnOff", "Latch", "clsBVTLatchOnOff", {},
         {{"OptEnable", "Latch"}, {"optMain", "MainLatchaxis"}},
         {}, false, false, true, false},
        {"frmLatchTarget", "Latch Target", "clsBVTLatchTarget",
         {{"txbDistanceAfterLatch", "Distance After Latch", 16},
          {"txbDefaultDistance", "Default Distance", 16},
          {"txbVelocity", "Velocity", 16},
          {"txbAcceleration", "Acceleration", 18},
          {"txbDeceleration", "Deceleration", 18},
          {"txbLatchStartDistance", "Latch Start Distance", 16},
          {"txbLatchFinishDistance", "Latch Finish Distance", 16}},
         {{"txbDistanceAfterLatch", "DistanceAfterLatch"},
          {"txbDefaultDistance", "DefaultDistance"},
          {"txbVelocity", "Velocity"},
          {"txbAcceleration", "Acceleration"},
          {"txbDeceleration", "Deceleration"},
          {"txbLatchStartDistance", "LatchStartDistance"},
          {"txbLatchFinishDistance", "LatchFinishDistance"},
          {"chkWaitForCompletion", "WaitForCompletion"}},
         {{"lblDistanceAfterLatchUnit", "", position},
          {"lblDefaultDistanceUnit", "", position},
          {"lblVelocityUnit", "", perSecond},
          {"lblAccelerationUnit", "", perSecond},
          {"lblDecelerationUnit", "", perSecond},
          {"lblLatchStartDistanceUnit", "", position},
          {"lblLatchFinishDistanceUnit", "", position}},
         false, true},
        {"frmMessageIn", "Message In", "clsBVTMessageIn", {},
         {{"txbUserVariable", "UserVariable"}, {"txbTimeOut", "TimeOut"}},
         {}, false, false, false, false},
        {"frmMessageOut", "Message Out", "clsBVTMessageOut", {},
         {{"txbString", "Message"}, {"chkSendCRLF", "SendCR"}},
         {}, false, false, false, false},
        {"frmMoveAxis", "Move Axis", "clsBVTMoveAxis",
         {{"txbVelocity", "Velocity", 16},
          {"txbAcceleration", "Acceleration", 18},
          {"txbDeceleration", "Deceleration", 18},
          {"txbPosition", "Position", 16}},
         {{"txbAcceleration", "Acceleration"},
          {"txbDeceleration", "Deceleration"},
          {"cmbType", "TypeK"},
          {"txbPosition", "Position"},
          {"txbVelocity", "Velocity"},
          {"chkWaitForCompletion", "WaitForCompletion"}},
         {{"lblPositionUnit", "", position},
          {"lblVelocityUnit", "", perSecond},
          {"lblAccelerationUnit", "", perSecond},
          {"lblDecelerationUnit", "", perSecond}},
         false, true},
        {"frmOnTime", "Timer", "clsBVTOnTime", {{"txbTimeOut", "Time Out", 6}}, {{"txbTimeOut", "TimeOut"}},
         {}, true, true},
        {"frmScaleCAM", "Scale Cam", "clsBVTScaleCAM",
         {{"txbScaleFactor", "Scale Factor", 16}},
         {{"txbScaleFactor", "ScaleFactor"}}},
        {"frmServoOnOff", "Servo", "clsBVTServoOnOff", {}, {{"OptEnable", "Servo"}}, {}, false, false, true, false},
        {"frmTorque", "Torque", "clsBVTTorque",
         {{"txbSpeedLimit", "SpeedLimit", 16}, {"txbTorque", "Torque", 16}},
         {{"txbSpeedLimit", "SpeedLimit"}, {"txbTorque", "Torque"}},
         {{"lblSpeedLimitUnit", "", perSecond}}},
    };
    return cases;
}

}  // namespace canvas::editors
