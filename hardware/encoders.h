#pragma once
// clsBVTExternalEncoder, a module in the store, and clsBVTMasterEncoder, a plain value.

#include "hardware/module.h"

namespace canvas {

class clsBVTExternalEncoder final : public Tabled<clsBVTExternalEncoder, Module> {
public:
    static constexpr std::string_view name = "clsBVTExternalEncoder";
    static std::span<const Member> table() noexcept;
    clsBVTExternalEncoder() : Tabled(canvas::moduleClass(mtExternalEncoder)) {}

    using Module::ReadFromDB;
    /// Reads the matrix and hands out the values of seven rows. A failure is shown in a box, and the answer is false.
    bool ReadFromDB(std::string& strFeedConstant, std::string& strGearboxInput, std::string& strGearboxOutput,
                    std::string& strMachineCycle, std::string& strDriveType, std::string& strPulseType,
                    std::string& strResolution);
    bool ImportFromCSV(std::string& strCsvFilename) { return importFile(strCsvFilename); }
};

class clsBVTMasterEncoder final : public Tabled<clsBVTMasterEncoder> {
public:
    static constexpr std::string_view name = "clsBVTMasterEncoder";
    static std::span<const Member> table() noexcept;

    /// A copy, in spite of its name.
    Ref<clsBVTMasterEncoder> IsTheSame() const { return Ref<clsBVTMasterEncoder>(new clsBVTMasterEncoder(*this)); }
    bool SameAs(const clsBVTMasterEncoder& vValue) const;

    bool Enabled = false;
    float FeedConstant = 0;
    std::int16_t GearBoxInput = 0;
    std::int16_t GearBoxOutput = 0;
    std::string MovementType;
    std::string PulseType;
    std::int32_t Resolution = 0;
    std::string UserUnit;

    void reportVariables(VariableSink& sink) const override;
};

}  // namespace canvas
