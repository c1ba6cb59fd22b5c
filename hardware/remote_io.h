#pragma once
// clsBVTRemoteIO: the remote nodes on the fieldbus, and the base addresses of their words.

#include "hardware/node_module.h"

namespace canvas {

/// Node changes are written at once. `iNetworkType` is 0 for Axiolane and 1 for DeviceNet.
class clsBVTRemoteIO final : public Tabled<clsBVTRemoteIO, NodeModule> {
public:
    static constexpr std::string_view name = "clsBVTRemoteIO";
    static std::span<const Member> table() noexcept;
    clsBVTRemoteIO() : Tabled(canvas::moduleClass(mtRemoteIO)) {}

    Value SetDBPath(std::string_view strPath) override;
    /// Does nothing.
    Value SaveToDB() override { return {}; }
    /// Works on the nodes; the module's own rows keep their marks.
    bool ResetDirtyBits() override;
    bool ImportFromCSV(std::string& strCsvFilename, std::int16_t iNetworkType);

    /// Creates or changes a node. A changed word count frees its addresses and takes them afresh. A blank number does
    /// nothing.
    void SaveData(std::string_view strID, std::string_view strNodeName, std::string_view strNodeType,
                  std::string_view strInputwords, std::string_view strOutputwords, std::string_view strTypeCode,
                  std::int16_t iNetworkType, std::string_view strMessageType);
    /// True also when there is no such node.
    bool RemoveFromList(std::int32_t lngID, std::int16_t iNetworkType);
    /// Repairs a message type that does not fit the network. False for a node that is not there.
    bool GetMessageType(std::string_view strNodeNumber, std::int16_t iNetworkType, std::string& strMessageType);
    bool GetData(std::string_view strNodeNumber, std::string& strNodeName, std::string& strNodeType,
                 std::string& strInputwords, std::string& strOutputwords, std::string& strTypeCode);
    /// Adds numbers and names to two collections, sorted by number (iType 0) or by name (1), as texts.
    bool GetRemoteIOList(std::int16_t iType, Ref<Object>& colNodeNumber, Ref<Object>& colNodeName);
    bool IsInList(std::string_view strNodeNumber);
    bool IsNameInList(std::string_view strNodeName);
    /// Marks the stored addresses in the maps, as after loading a project. False for the network type -1.
    bool AllocationMemoryMaps(std::int16_t iNetworkType);
    /// Makes the controller itself the only node, at fixed addresses that no map knows of.
    bool SetKX410Slave(std::string_view strNode, bool bChangedFromMaster, std::int16_t iNetworkType,
                       std::string_view strInputwords, std::string_view strOutputwords);
    /// Removes every node and empties both maps.
    bool SetKX410Master(std::int16_t iNetworkType);
    /// Leaves the maps alone. Always false: hosts rely on it.
    bool RemoveAllRemoteIONodes();
    std::int16_t GetNumberOfNodes();
    /// True also when there is no such node. A number that is taken already makes a second row of it.
    bool UpdateNodeNumber(std::string_view strNewNumber, std::string_view strOldNumber);
    bool UpdateNodeName(std::string_view strNewName, std::string_view strOldName);

    void reportVariables(VariableSink& sink) const override;

    /// The handle of all node operations.
    std::shared_ptr<store::Database> dbRemoteIO;

private:
    /// The open store of the nodes; error 91 when there is none.
    store::Database& nodes() const;
    bool isThere(std::string_view field, std::string_view value) const;
    bool rename(std::string_view procedure, std::string_view field, std::string_view next, std::string_view old);
    template <class Run>
    tracing::Flow changeWords(Run& run, store::Recordset& node, Side side, const std::string& words,
                              const std::string& letter);
    std::int16_t importedNetworkType() override { return m_importedNetworkType; }

    std::int16_t m_importedNetworkType = unknownNetwork;
};

}  // namespace canvas
