#pragma once
// clsBVTKX410: the motion controller's own configuration.

#include "hardware/module.h"

namespace canvas {

class clsBVTKX410 final : public Tabled<clsBVTKX410, Module> {
public:
    static constexpr std::string_view name = "clsBVTKX410";
    static std::span<const Member> table() noexcept;
    clsBVTKX410() : Tabled(canvas::moduleClass(mtKX410)) {}

    using Module::ReadFromDB;
    /// Reads the matrix and hands out the values of eight rows. A gear ratio that is not positive reads as 1, in the
    /// matrix and here; the store keeps its value until the next SaveToDB.
    bool ReadFromDB(std::string& strResolution, std::string& strEncoderType, std::string& strFeedConstant,
                    std::string& strGearboxInput, std::string& strGearboxOutput, std::string& strLoadType,
                    std::string& strMachineCycle, std::string& strMotorRatedSpeed);
    bool ImportFromCSV(std::string& strCsvFilename) { return importFile(strCsvFilename); }

private:
    void rowRead(std::int32_t number, Parameters parameters) override;
};

}  // namespace canvas
