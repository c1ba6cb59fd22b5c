#pragma once
// clsBVTNetwork: the controller's fieldbus configuration.

#include "hardware/node_module.h"

namespace canvas {

/// The settings are found in the matrix by property name; one that is not there is error 9.
class clsBVTNetwork final : public Tabled<clsBVTNetwork, NodeModule> {
public:
    static constexpr std::string_view name = "clsBVTNetwork";
    static std::span<const Member> table() noexcept;
    clsBVTNetwork() : Tabled(canvas::moduleClass(mtNetwork)) {}

    bool ImportFromCSV(std::string& strCsvFilename) { return importFile(strCsvFilename); }
    /// 1 DeviceNet, 0 Axiolane, -1 anything else.
    std::int16_t NetworkType();
    /// 1 Master, 0 Slave, -1 anything else.
    std::int16_t NetworkFunction();
    /// 0 for a value that is not numeric.
    std::int16_t NetworkSlaveNode();
    std::int16_t NetworkNode();
    std::string NetworkName();
    /// Fills an array of strings (0 to count - 1, 0 to 3) with the catalogue of Axiolane nodes: number, type code, input
    /// and output words. The result is a combo box's list, "#0*0;A|#1;B|", whose "*0" marks the preset. Error 9 for an
    /// empty catalogue.
    std::string GetAxiolaneNodes(Value& arNodeList);

private:
    /// -1 when there is none.
    std::int32_t rowOf(std::string_view property) const;
    template <class Take>
    void takeSetting(std::string_view procedure, std::string_view property, Take&& take);
    std::int16_t importedNetworkType() override { return NetworkType(); }
};

}  // namespace canvas
