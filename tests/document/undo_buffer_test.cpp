#include "document/undo_buffer.h"

#include "tests/document/fixture.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

struct UndoBuffer : ::testing::Test {
    Ref<clsBVTUndoBuffer> buffer = make<clsBVTUndoBuffer>();
    const Ref<Object> first = make<Composed>(), second = make<Composed>(), third = make<Composed>();
};

TEST_F(UndoBuffer, ActionsHaveTheirNumbers) {
    const std::int16_t modes[]{ActionRelationAdd,  ActionRelationDelete, ActionEntityAdd,
                               ActionEntityDelete, ActionEntityMove,     ActionEntityCut,
                               ActionEntityPaste,  ActionBlockEdit,      ActionLabelEdit};
    std::int16_t expected = 0;
    for (const std::int16_t mode : modes) EXPECT_EQ(mode, expected++);
}

TEST_F(UndoBuffer, BeginsEmpty) {
    EXPECT_EQ(buffer->get("ElementCount"), Value(std::int16_t{0}));
    EXPECT_EQ(buffer->get("UndoActionMode"), Value(std::int16_t{0}));
    EXPECT_EQ(raisedBy([&] { buffer->UndoableObjectAt(0); }), 9);
    EXPECT_EQ(raisedBy([&] { buffer->UndoableAttributeAt(0); }), 9);
}

TEST_F(UndoBuffer, AddStoresTheModeAndTheObjectAtTheEnd) {
    buffer->Add(ActionEntityAdd, first);
    buffer->Add(ActionEntityMove, second);
    EXPECT_EQ(buffer->intUndoActionMode, ActionEntityMove);
    EXPECT_EQ(buffer->intCount, 2);
    EXPECT_EQ(buffer->UndoableObjectAt(0), first);
    EXPECT_EQ(buffer->UndoableObjectAt(1), second);
    EXPECT_EQ(raisedBy([&] { buffer->UndoableObjectAt(2); }), 9);
    EXPECT_EQ(raisedBy([&] { buffer->UndoableObjectAt(-1); }), 9);
}

TEST_F(UndoBuffer, AnAttributePairsWithTheObjectAddedLast) {
    buffer->Add(ActionBlockEdit, first);
    buffer->Add(ActionBlockEdit, second);
    buffer->AddAttribute(third);
    EXPECT_EQ(buffer->UndoableAttributeAt(1), third);
    EXPECT_EQ(buffer->UndoableAttributeAt(0), nullptr) << "the first object has no companion";
    EXPECT_EQ(buffer->intCount, 2);
}

TEST_F(UndoBuffer, AnAttributeBeforeAnyObjectIsASubscriptError) {
    EXPECT_EQ(raisedBy([&] { buffer->AddAttribute(first); }), 9);
}

TEST_F(UndoBuffer, AnObjectIsOverwrittenOnlyWhereOneIs) {
    buffer->Add(ActionBlockEdit, first);
    buffer->SetUndoObjectAt(0, second);
    EXPECT_EQ(buffer->UndoableObjectAt(0), second);
    EXPECT_EQ(raisedBy([&] { buffer->SetUndoObjectAt(1, third); }), 9);
    EXPECT_EQ(raisedBy([&] { buffer->SetUndoObjectAt(-1, third); }), 9);
    EXPECT_EQ(buffer->intCount, 1);
}

TEST_F(UndoBuffer, AnAttributeSetHigherGrowsTheArray) {
    buffer->SetUndoAttributeAt(0, first);
    buffer->SetUndoAttributeAt(2, third);
    EXPECT_EQ(buffer->UndoableAttributeAt(0), first);
    EXPECT_EQ(buffer->UndoableAttributeAt(1), nullptr);
    EXPECT_EQ(buffer->UndoableAttributeAt(2), third);
    EXPECT_EQ(raisedBy([&] { buffer->UndoableAttributeAt(3); }), 9);
    EXPECT_EQ(buffer->intCount, 0);
}

TEST_F(UndoBuffer, AnAttributeSetLowerCutsTheArray) {
    buffer->SetUndoAttributeAt(2, third);
    buffer->SetUndoAttributeAt(1, second);
    EXPECT_EQ(buffer->UndoableAttributeAt(1), second);
    EXPECT_EQ(raisedBy([&] { buffer->UndoableAttributeAt(2); }), 9);
    EXPECT_EQ(raisedBy([&] { buffer->SetUndoAttributeAt(-1, first); }), 9);
}

TEST_F(UndoBuffer, TheCountThatAHostSetsIsThePlaceOfTheNextObject) {
    buffer->put("ElementCount", std::int16_t{2});
    buffer->Add(ActionEntityAdd, first);
    EXPECT_EQ(buffer->UndoableObjectAt(2), first);
    EXPECT_EQ(buffer->UndoableObjectAt(0), nullptr);
    EXPECT_EQ(buffer->get("ElementCount"), Value(std::int16_t{3}));
    buffer->put("UndoActionMode", std::int16_t{ActionEntityCut});
    EXPECT_EQ(buffer->intUndoActionMode, 5);
}

}  // namespace
}  // namespace canvas
