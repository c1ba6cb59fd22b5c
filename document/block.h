#pragma once
// clsBVTBlock: one node of a flowchart. Connections are fields of the blocks they join; no edge is stored anywhere.

#include <cstdint>
#include <string>
#include <string_view>

#include "document/in_ports.h"

namespace canvas {

/// A link that leads nowhere.
inline constexpr std::int16_t unconnected = -1;

class clsBVTBlock final : public Tabled<clsBVTBlock> {
public:
    static constexpr std::string_view name = "clsBVTBlock";
    static std::span<const Member> table() noexcept;
    void reportVariables(VariableSink& sink) const override;

    std::int16_t intBlockID = 0;  ///< 0 means unset
    std::int16_t intBlockType = 0;
    Ref<Object> vntAttribute;  ///< owned by the block
    bool blnHasDualOutPort = false;
    InPorts intColFromBlockID;
    std::int16_t intToFirstBlockID = 0;   ///< through the top or only port
    std::int16_t intToSecondBlockID = 0;  ///< through the bottom port
    bool blnTopPortUsed = false;
    bool blnBottomPortUsed = false;
    bool blnNoInPort = false;
    bool blnNoOutPort = false;
    std::int32_t lngBlockUserID = 0;
    std::string strBlockUserName;
    std::string strBlockLabel;

    std::int16_t BlockType() const noexcept { return intBlockType; }
    /// Resets the links, sets the port flags of the type, and gives the block a new attribute object.
    void setBlockType(std::int16_t BlockType);
    /// The attribute object; a block that has none tells so in a box and gives Nothing.
    Ref<Object> BVTAttribute() const;
    void setBVTAttribute(Ref<Object> attribute) noexcept { vntAttribute = std::move(attribute); }

    /// The incoming connections as a collection of clsBVTInPort, keyed by the text of the source's ID.
    Ref<Collection> ColFromBlockID() const { return intColFromBlockID.collection(); }
    void setColFromBlockID(Ref<Collection> ports) { intColFromBlockID.replace(std::move(ports)); }

    bool AllOutPortTaken() const noexcept;
    /// False, and nothing changes, when the source stands among the incoming connections already.
    bool AddFromBlockID(std::int16_t BlockID, bool FromTopPort);
    bool AlreadyExist(std::int16_t BlockID) const;
    void RemoveFromBlockID(std::int16_t BlockID);
    void ClearFromBlockID();
    /// The line, extended by the attribute's values.
    std::string OutputToFile(std::string_view strDescription) const;
    /// The same onto the line that begins at a place of a buffer; false when it failed and was left.
    bool appendTo(std::string& buffer, std::size_t lineStart) const;
    /// A copy that shares neither in-ports nor attribute. The name is the protocol's own.
    Ref<clsBVTBlock> IsTheSame() const;
    /// Only a block with two output ports counts; a single-output block that leads to itself does not.
    bool IsSelfedgeBlock() const;
    std::int16_t GetFromBlockCount() const;

    /// The incoming connection at a place counted from 0.
    Source inPort(std::size_t zeroBased) const { return intColFromBlockID[zeroBased]; }
    std::size_t inPortCount() const noexcept { return intColFromBlockID.size(); }

private:
    void Initialize(std::int16_t BlockType);
    void AssignAttributeType(std::int16_t intBlockType);
    std::size_t placeOfInPort(std::int16_t BlockID) const;
};

}  // namespace canvas
