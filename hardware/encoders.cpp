#include "hardware/encoders.h"

#include <tuple>

namespace canvas {

bool clsBVTExternalEncoder::ReadFromDB(std::string& strFeedConstant, std::string& strGearboxInput,
                                       std::string& strGearboxOutput, std::string& strMachineCycle,
                                       std::string& strDriveType, std::string& strPulseType,
                                       std::string& strResolution) {
    std::string* const parameters[]{&strFeedConstant, &strGearboxInput, &strGearboxOutput, &strMachineCycle,
                                    &strDriveType,    &strPulseType,    &strResolution};
    return read(parameters);
}

std::span<const Member> clsBVTExternalEncoder::table() noexcept {
    using C = clsBVTExternalEncoder;
    using Text = std::string&;
    using Read = bool (C::*)(Text, Text, Text, Text, Text, Text, Text);
    static constexpr Member members[] = {
        method<&C::ImportFromCSV>("ImportFromCSV"),
        method<&C::ExportToCSV>("ExportToCSV"),
        method<&C::GetNumberOfElements>("GetNumberOfElements"),
        method<&C::SetBlockMatrix>("SetBlockMatrix"),
        method<&C::GetBlockMatrix>("GetBlockMatrix"),
        method<&C::SetDBPath>("SetDBPath"),
        method<static_cast<Read>(&C::ReadFromDB)>("ReadFromDB", 7),
        method<&C::RestoreDefault>("RestoreDefault"),
        method<&C::SaveToDB>("SaveToDB"),
        method<&C::ResetDirtyBits>("ResetDirtyBits"),
    };
    return members;
}

std::span<const Member> clsBVTMasterEncoder::table() noexcept {
    using C = clsBVTMasterEncoder;
    static constexpr Member members[] = {
        property<&C::Enabled>("Enabled"),
        property<&C::FeedConstant>("FeedConstant"),
        property<&C::GearBoxInput>("GearBoxInput"),
        property<&C::GearBoxOutput>("GearBoxOutput"),
        property<&C::MovementType>("MovementType"),
        property<&C::PulseType>("PulseType"),
        property<&C::Resolution>("Resolution"),
        property<&C::UserUnit>("UserUnit"),
        method<&C::IsTheSame>("IsTheSame"),
        method<&C::SameAs>("SameAs"),
    };
    return members;
}

bool clsBVTMasterEncoder::SameAs(const clsBVTMasterEncoder& vValue) const {
    const auto values = [](const clsBVTMasterEncoder& e) {
        return std::tie(e.Enabled, e.FeedConstant, e.GearBoxInput, e.GearBoxOutput, e.MovementType, e.PulseType,
                        e.Resolution, e.UserUnit);
    };
    return values(*this) == values(vValue);
}

void clsBVTMasterEncoder::reportVariables(VariableSink& sink) const {
    sink.variable("Enabled", Enabled);
    sink.variable("FeedConstant", FeedConstant);
    sink.variable("GearBoxInput", GearBoxInput);
    sink.variable("GearBoxOutput", GearBoxOutput);
    sink.variable("MovementType", MovementType);
    sink.variable("PulseType", PulseType);
    sink.variable("Resolution", Resolution);
    sink.variable("UserUnit", UserUnit);
}

}  // namespace canvas
