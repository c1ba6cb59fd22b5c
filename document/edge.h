#pragma once
// Edge records of the host: what it hands to AddEdge and RemoveEdge, and where it keeps drawing data. The document
// stores none of them.

#include "host/collection.h"

namespace canvas {

/// Where a block stands on the drawing.
class clsBVTNodePosition final : public Tabled<clsBVTNodePosition> {
public:
    static constexpr std::string_view name = "clsBVTNodePosition";
    static std::span<const Member> table() noexcept;
    void reportVariables(VariableSink& sink) const override;

    std::int16_t intNodeID = 0;
    std::int32_t lngNodePositionTop = 0;
    std::int32_t lngNodePositionLeft = 0;
    std::int16_t intUserID = 0;
    std::string strUserName;
};

class clsBVTEdge final : public Tabled<clsBVTEdge> {
public:
    static constexpr std::string_view name = "clsBVTEdge";
    static std::span<const Member> table() noexcept;
    void reportVariables(VariableSink& sink) const override;

    Ref<clsBVTNodePosition> clsSourceNode;  ///< shared, not copied
    Ref<clsBVTNodePosition> clsDestinationNode;
    std::int16_t intFromBlockID = 0;
    std::int16_t intToBlockID = 0;
    std::string strEdgeName;
    bool blnTopEdge = false;  ///< leaves the top port; false means the bottom one
    std::string strUserName;
    std::int16_t intUserID = 0;
    std::int32_t lngFromX = 0, lngFromY = 0;
    std::int32_t lngToX = 0, lngToY = 0;
};

/// A plain list for the host. Its entries have no keys, so that only places from 1 find one.
class clsBVTEdgeCol final : public Tabled<clsBVTEdgeCol> {
public:
    static constexpr std::string_view name = "clsBVTEdgeCol";
    static std::span<const Member> table() noexcept;
    void reportVariables(VariableSink& sink) const override { m_edges->reportVariables(sink); }
    std::unique_ptr<Enumerator> enumerate() override { return m_edges->enumerate(); }

    /// Stores a copy, never the argument, and gives the copy; it shares the two positions.
    Ref<clsBVTEdge> Add(clsBVTEdge& Edge);
    std::int32_t Count() const noexcept { return m_edges->Count(); }
    void Delete(const Value& Name);
    Ref<clsBVTEdge> Item(const Value& Name) const;
    void Clear() { m_edges = make<Collection>(); }
    Ref<Object> NewEnum() const { return enumeratorOf(m_edges); }

private:
    Ref<Collection> m_edges = make<Collection>();
};

}  // namespace canvas
