#include "document/edge.h"

#include "tests/document/fixture.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using namespace fixture;

Ref<clsBVTEdge> filledEdge() {
    const auto edge = newEdge(3, 4, true);
    edge->strEdgeName = "yes";
    edge->intUserID = 11;
    edge->strUserName = "user";
    edge->lngFromX = 70000;
    edge->lngFromY = -1;
    edge->lngToX = 2;
    edge->lngToY = 3;
    edge->clsSourceNode = make<clsBVTNodePosition>();
    edge->clsDestinationNode = make<clsBVTNodePosition>();
    return edge;
}

TEST(Edge, PropertiesStoreAndReturn) {
    const auto edge = make<clsBVTEdge>();
    const auto position = make<clsBVTNodePosition>();
    const struct {
        std::string_view name;
        Value value;
    } cases[] = {
        {"fromX", std::int32_t{100000}},
        {"fromY", std::int32_t{-2}},
        {"toX", std::int32_t{3}},
        {"toY", std::int32_t{4}},
        {"FromBlockID", std::int16_t{5}},
        {"ToBlockID", std::int16_t{-1}},
        {"Name", "no"},
        {"TopEdge", true},
        {"UserID", std::int16_t{32767}},
        {"UserName", "host"},
        {"SourceNode", position},
        {"DestinationNode", position},
    };
    for (const auto& c : cases) {
        edge->put(c.name, c.value);
        EXPECT_EQ(edge->get(c.name), c.value) << c.name;
    }
    EXPECT_EQ(raisedBy([&] { edge->put("FromBlockID", std::int32_t{32768}); }), 6);
    EXPECT_EQ(raisedBy([&] { edge->put("SourceNode", edge); }), 13) << "another class";
}

TEST(Edge, BeginsEmpty) {
    const auto edge = make<clsBVTEdge>();
    EXPECT_EQ(edge->intFromBlockID, 0);
    EXPECT_FALSE(edge->blnTopEdge);
    EXPECT_EQ(edge->strEdgeName, "");
    EXPECT_EQ(edge->clsSourceNode, nullptr);
    EXPECT_EQ(edge->get("DestinationNode").toObject(), nullptr);
}

TEST(NodePosition, PropertiesStoreAndReturn) {
    const auto position = make<clsBVTNodePosition>();
    const struct {
        std::string_view name;
        Value value;
    } cases[] = {
        {"NodeID", std::int16_t{7}}, {"Top", std::int32_t{70000}}, {"Left", std::int32_t{-70000}},
        {"UserID", std::int16_t{1}}, {"UserName", "host"},
    };
    for (const auto& c : cases) {
        position->put(c.name, c.value);
        EXPECT_EQ(position->get(c.name), c.value) << c.name;
    }
}

TEST(EdgeCol, StoresACopyOfEveryField) {
    const auto edges = make<clsBVTEdgeCol>();
    const auto edge = filledEdge();
    const Ref<clsBVTEdge> stored = edges->Add(*edge);
    EXPECT_FALSE(stored == edge);
    for (const std::string_view name : {"fromX", "fromY", "toX", "toY", "FromBlockID", "ToBlockID", "Name", "TopEdge",
                                        "UserID", "UserName", "SourceNode", "DestinationNode"})
        EXPECT_EQ(stored->get(name), edge->get(name)) << name;
}

TEST(EdgeCol, ACopyIsItsOwnButSharesThePositions) {
    const auto edges = make<clsBVTEdgeCol>();
    const auto edge = filledEdge();
    const Ref<clsBVTEdge> stored = edges->Add(*edge);
    stored->lngFromX = 1;
    EXPECT_EQ(edge->lngFromX, 70000);
    stored->clsSourceNode->lngNodePositionTop = 55;
    EXPECT_EQ(edge->clsSourceNode->lngNodePositionTop, 55);
}

TEST(EdgeCol, TheSameEdgeTwiceIsTwoRecords) {
    const auto edges = make<clsBVTEdgeCol>();
    const auto edge = filledEdge();
    const Ref<clsBVTEdge> first = edges->Add(*edge), second = edges->Add(*edge);
    EXPECT_EQ(edges->Count(), 2);
    first->strEdgeName = "first";
    EXPECT_EQ(second->strEdgeName, "yes");
}

TEST(EdgeCol, OnlyAPlaceFromOneFindsAnEntry) {
    const auto edges = make<clsBVTEdgeCol>();
    edges->Add(*newEdge(1, 2));
    edges->Add(*filledEdge());
    EXPECT_EQ(edges->Item(std::int16_t{2})->strEdgeName, "yes");
    EXPECT_EQ(raisedBy([&] { edges->Item("yes"); }), 5);
    EXPECT_EQ(raisedBy([&] { edges->Item("2"); }), 5);
    EXPECT_EQ(raisedBy([&] { edges->Item(std::int16_t{3}); }), 9);
    Value place = std::int16_t{1};
    EXPECT_EQ(edges->get("", Args(&place, 1)).toObject()->get("ToBlockID"), Value(std::int16_t{2}));
}

TEST(EdgeCol, OnlyAPlaceDeletesAnEntry) {
    const auto edges = make<clsBVTEdgeCol>();
    edges->Add(*newEdge(1, 2));
    edges->Add(*newEdge(2, 3));
    EXPECT_EQ(raisedBy([&] { edges->Delete("1"); }), 5);
    EXPECT_EQ(edges->Count(), 2);
    edges->Delete(std::int16_t{1});
    EXPECT_EQ(edges->Item(std::int16_t{1})->intFromBlockID, 2);
}

TEST(EdgeCol, IsWalkedInOrderAndCleared) {
    const auto edges = make<clsBVTEdgeCol>();
    for (const std::int16_t from : Ids{4, 1, 3}) edges->Add(*newEdge(from, 9));
    std::string order;
    const auto walk = edges->enumerate();
    for (Value item; walk->next(item);) order += item.toObject()->get("FromBlockID").toText() + ' ';
    EXPECT_EQ(order, "4 1 3 ");
    const auto again = required(edges->call("NewEnum").toObject()).enumerate();
    Value first;
    ASSERT_TRUE(again && again->next(first));
    EXPECT_EQ(first, Value(edges->Item(std::int16_t{1})));
    edges->Clear();
    EXPECT_EQ(edges->Count(), 0);
}

}  // namespace
}  // namespace canvas
