// The variables that a report shows of each class: its fields, in their order.

#include "host/text.h"
#include "tests/document/fixture.h"

namespace canvas {
namespace {

using namespace fixture;

class Names final : public VariableSink {
public:
    void variable(std::string_view name, const Value&) override { all.emplace_back(name); }
    Texts all;
};

template <class T>
Texts fieldsOf() {
    Names names;
    make<T>()->reportVariables(names);
    return names.all;
}

TEST(DocumentReport, OfABlock) {
    EXPECT_EQ(fieldsOf<clsBVTBlock>(),
              (Texts{"intBlockID", "intBlockType", "vntAttribute", "blnHasDualOutPort", "intColFromBlockID",
                     "intToFirstBlockID", "intToSecondBlockID", "blnTopPortUsed", "blnBottomPortUsed", "blnNoInPort",
                     "blnNoOutPort", "lngBlockUserID", "strBlockUserName", "strBlockLabel"}));
}

TEST(DocumentReport, OfInPortsEdgesAndPositions) {
    EXPECT_EQ(fieldsOf<clsBVTInPort>(), (Texts{"sngBlockID", "blnFromTopPort"}));
    EXPECT_EQ(fieldsOf<clsBVTEdge>(),
              (Texts{"clsSourceNode", "clsDestinationNode", "intFromBlockID", "intToBlockID", "strEdgeName",
                     "blnTopEdge", "strUserName", "intUserID", "lngFromX", "lngFromY", "lngToX", "lngToY"}));
    EXPECT_EQ(fieldsOf<clsBVTNodePosition>(),
              (Texts{"intNodeID", "lngNodePositionTop", "lngNodePositionLeft", "intUserID", "strUserName"}));
}

TEST(DocumentReport, OfAnEditRecord) {
    EXPECT_EQ(fieldsOf<clsBVTUndoBuffer>(),
              (Texts{"objArUndoableObjects", "objArObjectAttributes", "intUndoActionMode", "intCount"}));
}

TEST(DocumentReport, OfTheCanvas) {
    constexpr std::string_view fields =
        "frmParentForm intMaxNumberOfBlock blnArBlockIDHashTable BlockCollection blnBottomPortSelected "
        "blnCanvasDeleteEdge blnCanvasDeleteEntity blnChanged strName strArBlockName UndoListCol RedoListCol "
        "UndoListObjectsCol RedoListObjectsCol blnLabel strVersionNumber lngLeft lngTop lngHeight lngWidth dblZoom "
        "lngXPos lngYPos lngWindowState lngPreviousHeight lngPreviousWidth";
    const auto names = text::split(fields, " ");
    EXPECT_EQ(fieldsOf<clsBVTCanvas>(), Texts(names.begin(), names.end()));
}

struct CanvasReport : Drawing {
    struct Values final : VariableSink {
        std::map<std::string, Value, std::less<>> all;
        void variable(std::string_view name, const Value& value) override { all.emplace(name, value); }
    } values;
};

TEST_F(CanvasReport, TablesHaveTheirBounds) {
    document->GetAvailableBlockID();
    document->reportVariables(values);
    const Array& used = values.all["blnArBlockIDHashTable"].toArray();
    EXPECT_EQ(used.dimensions, (std::vector<Bounds>{{1, 1023}}));
    EXPECT_EQ(used.at(1), Value(true));
    EXPECT_EQ(used.at(2), Value(false));
    const Array& names = values.all["strArBlockName"].toArray();
    EXPECT_EQ(names.dimensions, (std::vector<Bounds>{{0, 32}}));
    EXPECT_EQ(names.at(20), Value("End"));
    EXPECT_EQ(names.at(28), Value(""));
}

TEST_F(CanvasReport, StacksAreTwoPairsOfCollections) {
    const auto record = make<clsBVTUndoBuffer>();
    document->AddActionToUndoList(ActionBlockEdit, record);
    document->reportVariables(values);
    Value first = std::int16_t{1};
    const auto entry = [&](std::string_view name) {
        return values.all.find(name)->second.toObject()->get("Item", Args(&first, 1));
    };
    EXPECT_EQ(entry("UndoListCol"), Value(std::int16_t{7}));
    EXPECT_EQ(entry("UndoListObjectsCol"), Value(record));
    EXPECT_EQ(values.all["RedoListCol"].toObject()->get("Count").toLong(), 0);
}

}  // namespace
}  // namespace canvas
