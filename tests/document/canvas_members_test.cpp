// The public surface by name: what a host may rely on. A change here is a change of the promise.

#include <algorithm>

#include "host/text.h"
#include "tests/document/fixture.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using namespace fixture;

/// "FromBlockID rw", "BottomPortSelected r", "FormPreviousWidth w", "getBlockName(1) r", "AddEdge(1)", and
/// "Item(1) default".
std::string described(const Member& member) {
    std::string text(member.name);
    if (!member.isProperty || member.arguments > 0) text += '(' + std::to_string(member.arguments) + ')';
    if (member.isProperty) text += std::string(" ") + (member.read ? "r" : "") + (member.write ? "w" : "");
    if (member.isDefault) text += " default";
    return text;
}

template <class T>
Texts surface() {
    Texts lines;
    for (const Member& member : T::table()) lines.push_back(described(member));
    return lines;
}

Texts listed(std::string_view members) {
    Texts lines;
    for (const std::string_view line : text::split(members, ", ")) lines.emplace_back(line);
    return lines;
}

Texts sorted(Texts lines) {
    std::sort(lines.begin(), lines.end());
    return lines;
}

TEST(PublicSurface, OfABlockInSlotOrder) {
    EXPECT_EQ(surface<clsBVTBlock>(),
              listed("UserName rw, UserID rw, BVTAttribute rw, BlockLabel rw, ColFromBlockID rw, BlockID rw, "
                     "BlockType rw, ToFirstBlockID rw, ToSecondBlockID rw, HasDualOutPort rw, TopPortUsed rw, "
                     "BottomPortUsed rw, NoInPort rw, NoOutPort rw, AllOutPortTaken(0), AddFromBlockID(2), "
                     "AlreadyExist(1), RemoveFromBlockID(1), ClearFromBlockID(0), OutputToFile(1), IsTheSame(0), "
                     "IsSelfedgeBlock(0), GetFromBlockCount(0)"));
}

TEST(PublicSurface, OfTheBlockCollectionInSlotOrder) {
    EXPECT_EQ(surface<clsBVTBlockCol>(),
              listed("Add(1), Count(0), Delete(1), Item(1) default, Index(1), Clear(0), NewEnum(0), "
                     "IsInCollection(1), GetBlockByBlockID(1), GetHighestBlockID(0)"));
}

TEST(PublicSurface, OfInPortsAndPositions) {
    EXPECT_EQ(surface<clsBVTInPort>(), listed("BlockID rw, FromTopPort rw"));
    EXPECT_EQ(surface<clsBVTNodePosition>(), listed("NodeID rw, Top rw, Left rw, UserID rw, UserName rw"));
}

TEST(PublicSurface, OfEdgesInSlotOrder) {
    EXPECT_EQ(surface<clsBVTEdge>(),
              listed("fromX rw, fromY rw, toX rw, toY rw, FromBlockID rw, ToBlockID rw, Name rw, TopEdge rw, "
                     "UserID rw, UserName rw, SourceNode rw, DestinationNode rw"));
    EXPECT_EQ(surface<clsBVTEdgeCol>(), listed("Add(1), Count(0), Delete(1), Item(1) default, Clear(0), NewEnum(0)"));
}

TEST(PublicSurface, OfTheFactoryAndTheEditRecord) {
    EXPECT_EQ(surface<clsBVTGetBlockObject>(), listed("GetObject(1)"));
    EXPECT_EQ(sorted(surface<clsBVTUndoBuffer>()),
              sorted(listed("Add(2), AddAttribute(1), SetUndoObjectAt(2), SetUndoAttributeAt(2), UndoableObjectAt(1), "
                            "UndoableAttributeAt(1), UndoActionMode rw, ElementCount rw")));
}

TEST(PublicSurface, OfTheCanvas) {
    constexpr std::string_view members =
        "frmParentForm rw, MaxNumberOfBlock rw, BlockList rw, BottomPortSelected r, CanvasDeleteEdge rw, "
        "CanvasDeleteEntity rw, Changed rw, Name rw, Label rw, FormLeft rw, FormTop rw, FormHeight rw, FormWidth rw, "
        "FormZoom rw, FormXPos rw, FormYPos rw, FormWindowState rw, FormPreviousHeight w, FormPreviousWidth w, "
        "getBlockName(1) r, "
        // identifiers and blocks
        "GetAvailableBlockID(0), MakeAvailableBlockID(1), DoesBlockIDExist(1), AddBlock(1), RemoveBlock(1), "
        "GetBlockCount(0), GetBlockPosition(1), BlockName(1), GetBlockTypeID(1), "
        // connections
        "AddEdge(1), RemoveEdge(1), SelectPort(3), CheckConnection(1), Recursive(0), Clear(0), "
        // files
        "WriteFile(2), Readfile(1), OpenQuote(1), WriteModelFile(2), GetVersionNumber(0), "
        // undo and redo
        "AddActionToUndoList(2), UndoPerformed(0), RedoPerformed(0), CanUndo(0), CanRedo(0), CanPaste(0), "
        "GetUndoActionCode(0), GetRedoActionCode(0), "
        // dialogs and references
        "ShowAttributeFormAndChanged(2), HasRestartProgram(0), HasSuperBlock(0), UpdateRestartProgram(1), "
        "ReplaceThisSuperBlock(2), UpdateSuperBlock(0)";
    EXPECT_EQ(sorted(surface<clsBVTCanvas>()), sorted(listed(members)));
}

TEST(PublicSurface, ClassesHaveTheirNames) {
    const std::pair<Ref<Object>, std::string_view> objects[] = {
        {make<clsBVTBlock>(), "clsBVTBlock"},           {make<clsBVTBlockCol>(), "clsBVTBlockCol"},
        {make<clsBVTInPort>(), "clsBVTInPort"},         {make<clsBVTEdge>(), "clsBVTEdge"},
        {make<clsBVTEdgeCol>(), "clsBVTEdgeCol"},       {make<clsBVTNodePosition>(), "clsBVTNodePosition"},
        {make<clsBVTUndoBuffer>(), "clsBVTUndoBuffer"}, {make<clsBVTGetBlockObject>(), "clsBVTGetBlockObject"},
        {make<clsBVTCanvas>(), "clsBVTCanvas"},
    };
    for (const auto& [object, name] : objects) EXPECT_EQ(object->className(), name);
}

struct CanvasMembers : Drawing {
    Value call(std::string_view name, std::vector<Value> args = {}) const { return document->call(name, args); }
};

TEST_F(CanvasMembers, PropertiesStoreAndReturn) {
    const struct {
        std::string_view name;
        Value value;
    } cases[] = {
        {"MaxNumberOfBlock", std::int16_t{77}},
        {"CanvasDeleteEdge", true},
        {"CanvasDeleteEntity", true},
        {"Changed", true},
        {"Name", "press.bpg"},
        {"Label", false},
        {"FormLeft", std::int32_t{-70000}},
        {"FormTop", std::int32_t{2}},
        {"FormHeight", std::int32_t{3}},
        {"FormWidth", std::int32_t{4}},
        {"FormZoom", 1.25},
        {"FormXPos", std::int32_t{5}},
        {"FormYPos", std::int32_t{6}},
        {"FormWindowState", std::int32_t{2}},
        {"frmParentForm", make<Composed>("frmMain")},
    };
    for (const auto& c : cases) {
        document->put(c.name, c.value);
        EXPECT_EQ(document->get(c.name), c.value) << c.name;
    }
    EXPECT_EQ(told(), Texts{});
}

TEST_F(CanvasMembers, ThePreviousSizeCanOnlyBeWritten) {
    document->put("FormPreviousHeight", std::int32_t{8});
    document->put("FormPreviousWidth", std::int32_t{9});
    EXPECT_EQ(document->lngPreviousHeight, 8);
    EXPECT_EQ(document->lngPreviousWidth, 9);
    EXPECT_EQ(raisedBy([&] { document->get("FormPreviousHeight"); }), 438);
    EXPECT_EQ(raisedBy([&] { document->get("FormPreviousWidth"); }), 438);
    EXPECT_EQ(raisedBy([&] { document->put("BottomPortSelected", true); }), 438);
}

TEST_F(CanvasMembers, AProgramIsDrawnByName) {
    EXPECT_EQ(call("GetAvailableBlockID"), Value(std::int16_t{1}));
    EXPECT_EQ(call("AddBlock", {newBlock(1, PROGRAMSTART)}), Value(true));
    EXPECT_EQ(call("AddBlock", {newBlock(2, PROGRAMEND)}), Value(true));
    EXPECT_EQ(call("AddEdge", {newEdge(1, 2)}), Value(true));
    EXPECT_EQ(call("DoesBlockIDExist", {"2"}), Value(true)) << "arguments are converted";
    EXPECT_EQ(call("GetBlockPosition", {2.0}), Value(std::int16_t{2}));
    std::vector<Value> args{""};
    EXPECT_EQ(document->call("CheckConnection", args), Value(true));
    call("RemoveEdge", {newEdge(1, 2)});
    EXPECT_EQ(document->call("CheckConnection", args), Value(false));
    EXPECT_EQ(args[0], Value("Error,1@Error,2")) << "by reference";
    EXPECT_EQ(call("RemoveBlock", {std::int16_t{1}}), Value(true));
    EXPECT_EQ(call("CanPaste"), Value(true));
    EXPECT_EQ(call("GetBlockCount"), Value(std::int16_t{1}));
    call("Clear");
    EXPECT_EQ(document->get("MaxNumberOfBlock"), Value(std::int16_t{250}));
    EXPECT_EQ(call("CanPaste"), Value(false));
}

TEST_F(CanvasMembers, NothingInPlaceOfABlockOrEdgeIsAFailure) {
    EXPECT_EQ(raisedBy([&] { call("AddEdge", {Ref<Object>()}); }), 91);
    EXPECT_EQ(raisedBy([&] { call("AddEdge", {newBlock(1, MOVEAXIS)}); }), 13);
    EXPECT_EQ(raisedBy([&] { call("AddEdge", {"edge"}); }), 424);
    EXPECT_EQ(raisedBy([&] { call("AddEdge"); }), 450);
}

}  // namespace
}  // namespace canvas
