#pragma once
// clsBVTRVQD: the servo amplifier's parameters.

#include "attributes/validation.h"
#include "hardware/module.h"

namespace canvas {

/// A parameter whose display format is "2" is stored in decimal and shown as hexadecimal digits followed by " H".
class clsBVTRVQD final : public Tabled<clsBVTRVQD, Module> {
public:
    static constexpr std::string_view name = "clsBVTRVQD";
    static std::span<const Member> table() noexcept;
    clsBVTRVQD() : Tabled(canvas::moduleClass(mtRVQD)) {}

    bool ImportFromCSV(std::string& strCsvFilename) { return importFile(strCsvFilename); }

    Ref<clsBVTDataValidation> clsValidate = make<clsBVTDataValidation>();

private:
    void rowRead(std::int32_t number, Parameters parameters) override;
    void putValue(store::Recordset& row, const PropertyColumns& columns, std::int32_t number) override;
};

}  // namespace canvas
