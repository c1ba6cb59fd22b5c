#include "hardware/controller.h"

#include <array>

#include "hardware/records.h"
#include "host/numbers.h"

namespace canvas {
namespace {

constexpr std::int32_t gearboxInput = 8, gearboxOutput = 9;

bool isAtMostZero(const Value& value) {
    const auto number = numbers::parse(textOrEmpty(value));
    return number && *number <= 0;
}

}  // namespace

bool clsBVTKX410::ReadFromDB(std::string& strResolution, std::string& strEncoderType, std::string& strFeedConstant,
                             std::string& strGearboxInput, std::string& strGearboxOutput, std::string& strLoadType,
                             std::string& strMachineCycle, std::string& strMotorRatedSpeed) {
    std::string* const parameters[]{&strResolution,    &strEncoderType, &strFeedConstant, &strGearboxInput,
                                    &strGearboxOutput, &strLoadType,    &strMachineCycle, &strMotorRatedSpeed};
    return read(parameters);
}

/// A gear ratio is never zero or negative.
void clsBVTKX410::rowRead(std::int32_t number, Parameters parameters) {
    if (number != gearboxInput && number != gearboxOutput) return;
    constexpr std::int16_t one = 1;
    const std::int32_t row = number - 1;
    if (isAtMostZero(cell(PropertyMinimumValue, row))) cell(PropertyMinimumValue, row) = one;
    if (!isAtMostZero(cell(PropertyValue, row))) return;
    cell(PropertyValue, row) = one;
    for (std::size_t p = 0; p < parameters.size(); ++p)
        if (moduleClass().parameterRows[p] == number) parameters[p]->assign(1, '1');
}

std::span<const Member> clsBVTKX410::table() noexcept {
    using C = clsBVTKX410;
    using Text = std::string&;
    using Read = bool (C::*)(Text, Text, Text, Text, Text, Text, Text, Text);
    static constexpr Member members[] = {
        method<&C::GetNumberOfElements>("GetNumberOfElements"),
        method<&C::SetBlockMatrix>("SetBlockMatrix"),
        method<&C::GetBlockMatrix>("GetBlockMatrix"),
        method<&C::SetDBPath>("SetDBPath"),
        method<static_cast<Read>(&C::ReadFromDB)>("ReadFromDB", 8),
        method<&C::ExportToCSV>("ExportToCSV"),
        method<&C::RestoreDefault>("RestoreDefault"),
        method<&C::SaveToDB>("SaveToDB"),
        method<&C::ImportFromCSV>("ImportFromCSV"),
        method<&C::ResetDirtyBits>("ResetDirtyBits"),
    };
    return members;
}

}  // namespace canvas
