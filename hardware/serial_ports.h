#pragma once
// clsBVTCOM1 and clsBVTCOM2: the controller's two serial ports.

#include "hardware/module.h"

namespace canvas {

/// While it is read, a store whose drop-down lists for "Function", "Protocol" and "TransmissionMode" are missing is
/// patched for both ports at once.
class SerialPort : public Module {
public:
    bool ImportFromCSV(std::string& strCsvFilename) { return importFile(strCsvFilename); }

protected:
    using Module::Module;

private:
    void listRead(std::int32_t row) override;
    std::string UpdateReplaceSPDB(std::string_view strProperty);
    bool UpdateAddSPCombolist(const std::string& strValue, std::int16_t iLookupID);
    bool UpdateReplaceSPValue(const std::string& strValue, std::int16_t iPropertyNumber);
    bool UpdateReplaceSPLookup(const std::string& strValue, std::int16_t iLookupID, std::int16_t iPropertyNumber);
};

/// Closes the store at the end of each operation, so that other programs may replace the file; COM2 keeps it open.
class clsBVTCOM1 final : public Tabled<clsBVTCOM1, SerialPort> {
public:
    static constexpr std::string_view name = "clsBVTCOM1";
    static std::span<const Member> table() noexcept;
    clsBVTCOM1() : Tabled(canvas::moduleClass(mtCOM1)) {}
};

class clsBVTCOM2 final : public Tabled<clsBVTCOM2, SerialPort> {
public:
    static constexpr std::string_view name = "clsBVTCOM2";
    static std::span<const Member> table() noexcept;
    clsBVTCOM2() : Tabled(canvas::moduleClass(mtCOM2)) {}
};

}  // namespace canvas
