// The properties of all modules but the amplifier, the drop-down lists and the devices in a new record store.

#include "hardware/schema_rows.h"

#include <array>

namespace canvas::schema {
namespace {

constexpr std::array<PropertyRow, 15> controller{{
    readOnly(text("ControllerType", "KX410", "Type of the controller.")),
    text("ControllerName", "Controller", "Name of the controller."),
    number("CycleTime", brxPositiveFloat, "2", 0.5, 20, "Cycle of the motion loop, in ms."),
    number("Resolution", brxPositiveLong, "8192", 1, 4194304, "Counts of the axis encoder a revolution."),
    choice("EncoderType", List::encoder, "Incremental", "Encoder of the axis."),
    number("FeedConstant", brxPositiveFloat, "360", 0.0001, 1000000, "User units a revolution of the load."),
    choice("UserUnit", List::userUnit, "deg", "Unit of positions."),
    number("GearboxInput", brxPositiveWord, "1", 1, 32767, "Revolutions of the motor."),
    number("GearboxOutput", brxPositiveWord, "1", 1, 32767, "Revolutions of the load for those of the motor."),
    flag("MotorReversed", "False", "The motor turns against the axis."),
    choice("LoadType", List::load, "Rotary", "How the load moves."),
    choice("MotionType", List::motion, "Limited", "Whether the axis has ends."),
    number("MachineCycle", brxPositiveFloat, "360", 0.0001, 1000000, "User units of one machine cycle."),
    number("MotorRatedSpeed", brxPositiveWord, "3000", 1, 12000, "Rated speed of the motor, in revolutions a minute."),
    number("WatchdogTime", brxPositiveWord, "100", 10, 10000, "Without a sign of life the axes stop after it, in ms."),
}};
static_assert(controller[3].name == "Resolution" && controller[4].name == "EncoderType" &&
              controller[5].name == "FeedConstant" && controller[7].name == "GearboxInput" &&
              controller[8].name == "GearboxOutput" && controller[10].name == "LoadType" &&
              controller[12].name == "MachineCycle" && controller[13].name == "MotorRatedSpeed");

constexpr PropertyRow baudRate = choice("BaudRate", List::baudRate, "9600", "Speed of the line, in bits a second.");
constexpr PropertyRow dataBits = choice("DataBits", List::dataBits, "8", "Data bits of a character.");
constexpr PropertyRow parity = choice("Parity", List::parity, "None", "Parity bit of a character.");
constexpr PropertyRow stopBits = choice("StopBits", List::stopBits, "1", "Stop bits of a character.");
constexpr PropertyRow portFunction =
    choice("Function", List::function, "Slave", "Part that the port plays on its line.");
constexpr PropertyRow portProtocol = choice("Protocol", List::protocol, "ZELPACK", "Protocol of the line.");
constexpr PropertyRow portMode = choice("TransmissionMode", List::transmissionMode, "RTU", "How bytes are sent.");

constexpr std::array<PropertyRow, 7> port1{
    {baudRate, dataBits, parity, stopBits, portFunction, portProtocol, portMode}};

constexpr std::array<PropertyRow, 8> port2{{
    baudRate,
    dataBits,
    parity,
    stopBits,
    portFunction,
    portProtocol,
    portMode,
    number("StationNumber", brxPositiveWord, "1", 1, 247, "Number of the controller on the line."),
}};
// The ports mend these by number, both at once.
static_assert(port1[4].name == "Function" && port1[5].name == "Protocol" && port1[6].name == "TransmissionMode");
static_assert(port2[4].name == port1[4].name && port2[5].name == port1[5].name && port2[6].name == port1[6].name);

constexpr std::array<PropertyRow, 13> network{{
    text("Name", "Fieldbus", "Name of the network."),
    choice("Type", List::network, "DeviceNet", "Kind of the network."),
    choice("Function", List::networkFunction, "Master", "Part that the controller plays on it."),
    number("Node", brxPositiveWord, "0", 0, 63, "Number of the controller on it."),
    number("SlaveNodes", brxPositiveWord, "0", 0, 63, "Nodes that the controller expects as a master."),
    choice("BaudRate", List::networkRate, "125 kbit/s", "Speed of the network."),
    number("ScanInterval", brxPositiveWord, "10", 1, 1000, "Between two scans, in ms."),
    number("ResponseTime", brxPositiveWord, "50", 1, 10000, "Without an answer a node is lost after it, in ms."),
    number("Retries", brxPositiveWord, "3", 0, 10, "Questions before a node is lost."),
    choice("LossOfNetwork", List::lossOfNetwork, "Stop", "What the axes do when the network is lost."),
    number("StartDelay", brxPositiveWord, "2000", 0, 60000, "From power-up to the first scan, in ms."),
    flag("AutomaticStart", "True", "The scan starts without a command."),
    flag("QuickConnect", "False", "Nodes are taken back without a check of their identity."),
}};

constexpr std::array<PropertyRow, 11> encoder{{
    flag("Enabled", "False", "An external encoder is there."),
    text("EncoderName", "Master", "Name of the encoder."),
    choice("UserUnit", List::userUnit, "deg", "Unit of positions."),
    number("FeedConstant", brxPositiveFloat, "360", 0.0001, 1000000, "User units a revolution of the load."),
    number("GearboxInput", brxPositiveWord, "1", 1, 32767, "Revolutions of the encoder."),
    number("GearboxOutput", brxPositiveWord, "1", 1, 32767, "Revolutions of the load for those of the encoder."),
    number("MachineCycle", brxPositiveFloat, "360", 0.0001, 1000000, "User units of one machine cycle."),
    choice("DriveType", List::drive, "Rotary", "How the load moves."),
    choice("PulseType", List::pulse, "A and B", "Signals of the encoder."),
    number("Resolution", brxPositiveLong, "1024", 1, 4194304, "Pulses of the encoder a revolution."),
    number("FilterTime", brxPositiveFloat, "0", 0, 100, "Smoothing of its velocity, in ms."),
}};
static_assert(encoder[3].name == "FeedConstant" && encoder[4].name == "GearboxInput" &&
              encoder[5].name == "GearboxOutput" && encoder[6].name == "MachineCycle" &&
              encoder[7].name == "DriveType" && encoder[8].name == "PulseType" && encoder[9].name == "Resolution");

// The module keeps nodes, and never writes its own properties: nobody may change them.
constexpr std::array<PropertyRow, 9> remoteIO{{
    readOnly(text("ScannerName", "Scanner", "Name of the scanner.")),
    readOnly(number("MaximumNodes", brxPositiveWord, "63", 1, 63, "Nodes that the scanner can serve.")),
    readOnly(number("MaximumWords", brxPositiveWord, "64", 1, 256, "Words of one node in one direction.")),
    readOnly(choice("MessageType", List::message, "Polled", "How a new node on DeviceNet is asked.")),
    readOnly(number("UpdateTime", brxPositiveWord, "10", 1, 1000, "Between two updates, in ms.")),
    readOnly(choice("LossOfNode", List::lossOfNetwork, "Stop", "What the axes do when a node is lost.")),
    readOnly(flag("HoldInputs", "True", "Inputs of a lost node keep their last state.")),
    readOnly(flag("ClearOutputs", "True", "Outputs are off until the first scan.")),
    readOnly(number("DiagnosticWords", brxPositiveWord, "0", 0, 8, "Words of diagnosis before a node's inputs.")),
}};

constexpr std::array<std::span<const PropertyRow>, 6> rest{{controller, port1, port2, network, encoder, remoteIO}};

constexpr ListRow listRows[] = {
    {List::baudRate, "1200|2400|4800|9600|19200|38400|57600|115200"},
    {List::dataBits, "7|8"},
    {List::parity, "None|Even|Odd"},
    {List::stopBits, "1|2"},
    {List::encoder, "Incremental|Absolute|Resolver|Sine"},
    {List::load, "Rotary|Linear"},
    {List::motion, "Limited|Endless"},
    {List::userUnit, "mm|inch|deg|rev|count"},
    {List::drive, "Rotary|Linear|Measuring wheel"},
    {List::pulse, "A and B|Pulse and direction|Forward and backward"},
    {List::network, "DeviceNet|Axiolane"},
    {List::networkFunction, "Master|Slave"},
    {List::networkRate, "125 kbit/s|250 kbit/s|500 kbit/s"},
    {List::function, "Slave|Master"},
    {List::protocol, "ZELPACK|Free text"},
    {List::transmissionMode, "RTU|ASCII"},
    {List::lossOfNetwork, "Stop|Go on"},
    {List::controlMode, "Position|Speed|Torque"},
    {List::motor, "Synchronous rotary|Synchronous linear|Asynchronous"},
    {List::commutation, "Hall sensors|Absolute encoder|Search"},
    {List::stop, "Coast|Decelerate|Short circuit"},
    {List::faultAction, "Trip|Warn|Ignore"},
    {List::input, "None|Enable|Reset|Limit forward|Limit backward|Home|Stop"},
    {List::output, "None|Ready|Fault|Brake|In position|At speed"},
    {List::monitor, "Speed|Current|Position error|Bus voltage"},
    {List::message, "Polled|Strobed"},
};

constexpr DeviceRow deviceRows[] = {
    {"8 digital inputs", "1008", "1", "0"},   {"16 digital inputs", "1016", "1", "0"},
    {"32 digital inputs", "1032", "2", "0"},  {"8 digital outputs", "2008", "0", "1"},
    {"16 digital outputs", "2016", "0", "1"}, {"8 inputs, 8 outputs", "3008", "1", "1"},
    {"4 analog inputs", "4004", "4", "0"},    {"2 analog outputs", "5002", "0", "2"},
    {"Valve terminal", "6016", "1", "2"},     {"Encoder interface", "7001", "4", "2"},
};

}  // namespace

std::span<const std::span<const PropertyRow>> modules() noexcept {
    static const std::array<std::span<const PropertyRow>, 7> all{
        {amplifierRows(), rest[0], rest[1], rest[2], rest[3], rest[4], rest[5]}};
    return all;
}

std::span<const ListRow> lists() noexcept { return listRows; }
std::span<const DeviceRow> devices() noexcept { return deviceRows; }

}  // namespace canvas::schema
