// The servo amplifier's properties in a new record store.

#include <array>

#include "hardware/schema_rows.h"

namespace canvas::schema {
namespace {

constexpr std::array<PropertyRow, 71> rows{{
    // The module never writes its first property, so nobody may change it.
    readOnly(text("AmplifierType", "RVQD-10A", "Type of the amplifier.")),
    text("AmplifierName", "Axis1", "Name of the axis that the amplifier drives."),
    number("NodeNumber", brxPositiveWord, "1", 1, 63, "Number of the amplifier on the drive link."),
    choice("ControlMode", List::controlMode, "Position", "What the amplifier controls."),

    choice("MotorType", List::motor, "Synchronous rotary", "Kind of the motor."),
    number("RatedCurrent", brxPositiveFloat, "5.6", 0.1, 100, "Rated current of the motor, in A rms."),
    number("PeakCurrent", brxPositiveFloat, "16.8", 0.1, 300, "Peak current of the motor, in A rms."),
    number("RatedSpeed", brxPositiveWord, "3000", 1, 12000, "Rated speed of the motor, in revolutions a minute."),
    number("MaximumSpeed", brxPositiveWord, "4500", 1, 15000, "Highest speed of the motor, in revolutions a minute."),
    number("RatedTorque", brxPositiveFloat, "3.18", 0.01, 500, "Rated torque of the motor, in Nm."),
    number("RotorInertia", brxPositiveFloat, "1.77", 0.001, 5000, "Inertia of the rotor, in kg cm2."),
    number("PolePairs", brxPositiveWord, "4", 1, 32, "Pole pairs of the motor."),
    number("PhaseResistance", brxPositiveFloat, "0.9", 0.001, 100, "Resistance between two phases, in ohms."),
    number("PhaseInductance", brxPositiveFloat, "7.2", 0.01, 500, "Inductance between two phases, in mH."),
    number("VoltageConstant", brxPositiveFloat, "38.5", 0.1, 1000, "Voltage at 1000 revolutions a minute, in V rms."),
    number("MotorTemperatureLimit", brxPositiveWord, "130", 40, 180,
           "Winding temperature of the trip, in degrees Celsius."),

    choice("FeedbackType", List::encoder, "Incremental", "Encoder of the motor."),
    number("FeedbackResolution", brxPositiveLong, "8192", 16, 4194304, "Counts of the encoder a revolution."),
    flag("FeedbackReversed", "False", "Counts run against the motor's direction."),
    choice("Commutation", List::commutation, "Hall sensors", "How the rotor's angle is found after power-up."),
    number("CommutationOffset", brxFloat, "0", -180, 180, "Electrical angle at the index pulse, in degrees."),
    number("CommutationCurrent", brxPositiveFloat, "2.5", 0, 100, "Current of the search for the angle, in A rms."),

    number("CurrentGain", brxPositiveWord, "120", 1, 5000, "Proportional gain of the current loop."),
    number("CurrentIntegralTime", brxPositiveFloat, "1.2", 0.1, 100, "Integral time of the current loop, in ms."),
    number("CurrentFilter", brxPositiveWord, "2000", 100, 8000, "Corner of the current filter, in Hz."),
    number("CurrentLimitPositive", brxPositiveFloat, "16.8", 0, 300, "Highest current forward, in A rms."),
    number("CurrentLimitNegative", brxPositiveFloat, "16.8", 0, 300, "Highest current backward, in A rms."),
    number("CurrentOffsetU", brxWord, "0", -2048, 2047, "Offset of phase U, in counts of the converter."),
    number("CurrentOffsetV", brxWord, "0", -2048, 2047, "Offset of phase V, in counts of the converter."),

    number("SpeedGain", brxPositiveWord, "80", 1, 5000, "Proportional gain of the speed loop."),
    number("SpeedIntegralTime", brxPositiveFloat, "20", 0.5, 1000, "Integral time of the speed loop, in ms."),
    number("SpeedFilter", brxPositiveWord, "500", 10, 4000, "Corner of the speed filter, in Hz."),
    number("SpeedLimit", brxPositiveWord, "4500", 0, 15000,
           "Speed at which the amplifier trips, in revolutions a minute."),
    number("SpeedScale", brxPositiveFloat, "300", 1, 3000, "Speed for one volt at the analog input."),
    number("SpeedOffset", brxFloat, "0", -100, 100, "Speed at zero volts, in revolutions a minute."),
    number("AccelerationTime", brxPositiveWord, "0", 0, 30000, "Ramp from rest to rated speed, in ms."),
    number("DecelerationTime", brxPositiveWord, "0", 0, 30000, "Ramp from rated speed to rest, in ms."),
    number("NotchFrequency", brxPositiveWord, "0", 0, 2000,
           "Frequency that the notch filter takes out, in Hz; 0: none."),
    number("NotchWidth", brxPositiveWord, "20", 1, 500, "Width of the notch filter, in Hz."),

    number("PositionGain", brxPositiveFloat, "35", 0.1, 1000, "Gain of the position loop, in 1/s."),
    number("VelocityFeedforward", brxPositiveFloat, "100", 0, 150, "Part of the commanded velocity, in per cent."),
    number("AccelerationFeedforward", brxPositiveFloat, "0", 0, 150,
           "Part of the commanded acceleration, in per cent."),
    number("FollowingErrorLimit", brxPositiveLong, "4096", 1, 2147483647, "Position error of the trip, in counts."),
    number("InPositionWindow", brxPositiveLong, "20", 0, 1000000, "Position error that counts as arrived, in counts."),
    number("InPositionTime", brxPositiveWord, "5", 0, 1000, "How long the error must stay in the window, in ms."),
    number("InertiaRatio", brxPositiveFloat, "1", 0, 100, "Inertia of the load in terms of the rotor's."),
    number("FrictionTorque", brxPositiveFloat, "0", 0, 100, "Torque that is added in the direction of motion, in Nm."),

    choice("StopMode", List::stop, "Decelerate", "How the motor stops when the amplifier is disabled."),
    number("StopTime", brxPositiveWord, "200", 0, 10000, "Longest time of such a stop, in ms."),
    flag("BrakeFitted", "False", "The motor has a holding brake."),
    number("BrakeReleaseDelay", brxPositiveWord, "60", 0, 2000, "From release to motion, in ms."),
    number("BrakeEngageDelay", brxPositiveWord, "40", 0, 2000, "From engagement to no torque, in ms."),
    number("BusUndervoltage", brxPositiveWord, "200", 20, 800,
           "Voltage of the bus at which the amplifier trips, in V."),
    number("BusOvervoltage", brxPositiveWord, "410", 50, 900, "Voltage of the bus at which the amplifier trips, in V."),
    number("BrakeResistance", brxPositiveFloat, "40", 1, 1000, "Resistor that takes up braking energy, in ohms."),
    number("BrakePower", brxPositiveWord, "100", 0, 10000, "Power that the resistor bears for long, in W."),
    number("OverloadTime", brxPositiveFloat, "2", 0.1, 60, "How long the peak current may flow, in s."),
    choice("PhaseLossAction", List::faultAction, "Trip", "When a phase of the mains is missing."),

    choice("Input1", List::input, "Enable", "What digital input 1 does."),
    choice("Input2", List::input, "Reset", "What digital input 2 does."),
    choice("Input3", List::input, "Limit forward", "What digital input 3 does."),
    choice("Input4", List::input, "Limit backward", "What digital input 4 does."),
    hexadecimal("InputPolarity", "0", "One bit an input; 1: active when low."),
    choice("Output1", List::output, "Ready", "What digital output 1 tells."),
    choice("Output2", List::output, "Brake", "What digital output 2 tells."),
    hexadecimal("OutputPolarity", "0", "One bit an output; 1: active when low."),
    choice("Monitor1", List::monitor, "Speed", "What analog output 1 shows."),
    choice("Monitor2", List::monitor, "Current", "What analog output 2 shows."),

    hexadecimal("FaultMask", "65535", "One bit a fault; 0: told, but no trip."),
    hexadecimal("WarningMask", "65535", "One bit a warning; 0: not told."),
    hexadecimal("OptionWord", "4660", "Switches of the amplifier's options."),
}};

}  // namespace

std::span<const PropertyRow> amplifierRows() noexcept { return rows; }

}  // namespace canvas::schema
