#include "document/edge.h"

#include "tracing/branch.h"

namespace canvas {

using tracing::Locals;
using tracing::Procedure;

std::span<const Member> clsBVTNodePosition::table() noexcept {
    using C = clsBVTNodePosition;
    static constexpr Member members[] = {
        property<&C::intNodeID>("NodeID"),       property<&C::lngNodePositionTop>("Top"),
        property<&C::lngNodePositionLeft>("Left"), property<&C::intUserID>("UserID"),
        property<&C::strUserName>("UserName"),
    };
    return members;
}

void clsBVTNodePosition::reportVariables(VariableSink& sink) const {
    Locals l(sink);
    l("intNodeID", intNodeID);
    l("lngNodePositionTop", lngNodePositionTop);
    l("lngNodePositionLeft", lngNodePositionLeft);
    l("intUserID", intUserID);
    l("strUserName", strUserName);
}

std::span<const Member> clsBVTEdge::table() noexcept {
    using C = clsBVTEdge;
    static constexpr Member members[] = {
        property<&C::lngFromX>("fromX"),
        property<&C::lngFromY>("fromY"),
        property<&C::lngToX>("toX"),
        property<&C::lngToY>("toY"),
        property<&C::intFromBlockID>("FromBlockID"),
        property<&C::intToBlockID>("ToBlockID"),
        property<&C::strEdgeName>("Name"),
        property<&C::blnTopEdge>("TopEdge"),
        property<&C::intUserID>("UserID"),
        property<&C::strUserName>("UserName"),
        property<&C::clsSourceNode>("SourceNode"),
        property<&C::clsDestinationNode>("DestinationNode"),
    };
    return members;
}

void clsBVTEdge::reportVariables(VariableSink& sink) const {
    Locals l(sink);
    l("clsSourceNode", clsSourceNode);
    l("clsDestinationNode", clsDestinationNode);
    l("intFromBlockID", intFromBlockID);
    l("intToBlockID", intToBlockID);
    l("strEdgeName", strEdgeName);
    l("blnTopEdge", blnTopEdge);
    l("strUserName", strUserName);
    l("intUserID", intUserID);
    l("lngFromX", lngFromX);
    l("lngFromY", lngFromY);
    l("lngToX", lngToX);
    l("lngToY", lngToY);
}

Ref<clsBVTEdge> clsBVTEdgeCol::Add(clsBVTEdge& Edge) {
    Ref<clsBVTEdge> stored = make<clsBVTEdge>(Edge);
    m_edges->Add(stored);
    return stored;
}

void clsBVTEdgeCol::Delete(const Value& Name) {
    Procedure run(name, "Delete", this, [&](Locals& l) { l("Name", Name); });
    run([&] { m_edges->Remove(Name); });
}

Ref<clsBVTEdge> clsBVTEdgeCol::Item(const Value& Name) const {
    Ref<clsBVTEdge> result;
    Procedure run(name, "Item", this, [&](Locals& l) { l("Name", Name); });
    run([&] { result = fromValue<Ref<clsBVTEdge>>(m_edges->Item(Name)); });
    return result;
}

std::span<const Member> clsBVTEdgeCol::table() noexcept {
    using C = clsBVTEdgeCol;
    static constexpr Member members[] = {
        method<&C::Add>("Add"),
        method<&C::Count>("Count"),
        method<&C::Delete>("Delete"),
        byDefault(method<&C::Item>("Item")),
        method<&C::Clear>("Clear"),
        method<&C::NewEnum>("NewEnum"),
    };
    return members;
}

}  // namespace canvas
