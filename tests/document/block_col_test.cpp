#include "document/block_col.h"

#include "tests/document/fixture.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using namespace fixture;

struct BlockCol : Drawing {
    Ref<clsBVTBlockCol> blocks = make<clsBVTBlockCol>();

    Ref<clsBVTBlock> put(std::int16_t id, std::int16_t type = MOVEAXIS) const {
        return blocks->Add(*newBlock(id, type));
    }
    std::string order() const {
        std::string ids;
        const auto walk = blocks->enumerate();
        for (Value item; walk->next(item);) ids += item.toObject()->get("BlockID").toText() + ' ';
        return ids;
    }
};

TEST_F(BlockCol, StoresACopyAndGivesIt) {
    const auto mine = newBlock(5, ABORTMOTION, "mine");
    mine->AddFromBlockID(3, false);
    mine->intToFirstBlockID = 9;
    mine->blnTopPortUsed = true;
    const Ref<clsBVTBlock> stored = blocks->Add(*mine);
    ASSERT_NE(stored, nullptr);
    EXPECT_FALSE(stored == mine);
    EXPECT_EQ(wiring(*stored), "to 9,-1 used 1,0 from 3b");
    mine->strBlockLabel = "changed";
    mine->ColFromBlockID()->at(1).toObject()->put("FromTopPort", true);
    mine->BVTAttribute()->put("Deceleration", "8");
    EXPECT_EQ(stored->strBlockLabel, "mine");
    EXPECT_EQ(wiring(*stored), "to 9,-1 used 1,0 from 3b");
    EXPECT_EQ(stored->BVTAttribute()->get("Deceleration"), Value("0.0"));
    EXPECT_EQ(blocks->Item("5"), stored);
}

TEST_F(BlockCol, KeepsTheOrderOfAdding) {
    for (const std::int16_t id : Ids{5, 2, 9}) put(id);
    EXPECT_EQ(blocks->Count(), 3);
    EXPECT_EQ(order(), "5 2 9 ");
    blocks->Delete("2");
    put(2);
    EXPECT_EQ(order(), "5 9 2 ");
}

TEST_F(BlockCol, NewEnumWalksInOrder) {
    for (const std::int16_t id : Ids{5, 2, 9}) put(id);
    const auto walk = required(blocks->call("NewEnum").toObject()).enumerate();
    ASSERT_NE(walk, nullptr);
    std::string ids;
    for (Value item; walk->next(item);) ids += item.toObject()->get("BlockID").toText() + ' ';
    EXPECT_EQ(ids, "5 2 9 ");
}

TEST_F(BlockCol, AnIDThatIsTakenIsToldAndGivesNothing) {
    put(5);
    EXPECT_EQ(put(5, IFEVENT), nullptr);
    EXPECT_EQ(told(), Texts{"clsBVTBlockCol.Add(): [457] This key is already associated with an element of this "
                            "collection"});
    EXPECT_EQ(blocks->Count(), 1);
    EXPECT_EQ(blocks->Item("5")->BlockType(), MOVEAXIS);
}

TEST_F(BlockCol, ATextIsAKeyAndANumberIsAPlaceFromOne) {
    for (const std::int16_t id : Ids{5, 2, 9}) put(id);
    EXPECT_EQ(blocks->Item("2")->intBlockID, 2);
    EXPECT_EQ(blocks->Item(std::int16_t{2})->intBlockID, 2);
    EXPECT_EQ(blocks->Item(std::int32_t{1})->intBlockID, 5);
    EXPECT_EQ(blocks->Item(3.0)->intBlockID, 9);
    EXPECT_EQ(raisedBy([&] { blocks->Item("3"); }), 5);
    EXPECT_EQ(raisedBy([&] { blocks->Item(std::int16_t{4}); }), 9);
    EXPECT_EQ(raisedBy([&] { blocks->Item(std::int16_t{0}); }), 9);
}

TEST_F(BlockCol, ItemIsTheDefaultMember) {
    put(7);
    Value key = "7";
    EXPECT_EQ(blocks->get("", Args(&key, 1)).toObject()->get("BlockID"), Value(std::int16_t{7}));
}

TEST_F(BlockCol, TheFirstBlockIsIndexZeroAndItemOne) {
    put(5), put(2);
    EXPECT_EQ(blocks->Index(0)->intBlockID, 5);
    EXPECT_EQ(blocks->Item(std::int16_t{1})->intBlockID, 5);
    EXPECT_EQ(blocks->Index(1)->intBlockID, 2);
    EXPECT_EQ(told(), Texts{});
}

TEST_F(BlockCol, AnIndexPastTheEndIsTold) {
    put(5);
    for (const std::int16_t index : Ids{1, 32767, -1}) {
        EXPECT_EQ(blocks->Index(index), nullptr);
        EXPECT_EQ(told(), Texts{"clsBVTBlockCol.Index(): Subscript Out Of Bound"}) << index;
    }
}

TEST_F(BlockCol, DeletesByKeyOrPlace) {
    for (const std::int16_t id : Ids{5, 2, 9}) put(id);
    blocks->Delete("9");
    EXPECT_EQ(order(), "5 2 ");
    blocks->Delete(std::int16_t{1});
    EXPECT_EQ(order(), "2 ");
    EXPECT_EQ(told(), Texts{});
}

TEST_F(BlockCol, AnAbsentKeyOrPlaceToDeleteIsTold) {
    put(5);
    blocks->Delete("4");
    EXPECT_EQ(told(), Texts{"clsBVTBlockCol.Delete(): [5] Invalid procedure call or argument"});
    blocks->Delete(std::int16_t{2});
    EXPECT_EQ(told(), Texts{"clsBVTBlockCol.Delete(): [9] Subscript out of range"});
    EXPECT_EQ(blocks->Count(), 1);
}

TEST_F(BlockCol, AKeyStaysWhenTheBlocksIDChanges) {
    put(5)->intBlockID = 6;
    EXPECT_EQ(blocks->Item("5")->intBlockID, 6);
    EXPECT_EQ(raisedBy([&] { blocks->Item("6"); }), 5);
    EXPECT_TRUE(blocks->IsInCollection(std::int16_t{6}));
    EXPECT_FALSE(blocks->IsInCollection(std::int16_t{5}));
}

TEST_F(BlockCol, IsInCollectionAsksForAnIDNotForAPlaceOrKey) {
    put(5), put(8);
    EXPECT_TRUE(blocks->IsInCollection(std::int16_t{8}));
    EXPECT_TRUE(blocks->IsInCollection(5.0));
    EXPECT_TRUE(blocks->IsInCollection("5"));
    EXPECT_FALSE(blocks->IsInCollection(std::int16_t{1}));
    EXPECT_FALSE(blocks->IsInCollection(5.5));
}

TEST_F(BlockCol, ABlockIsFoundByItsID) {
    put(5), put(8);
    EXPECT_EQ(blocks->GetBlockByBlockID(8)->intBlockID, 8);
    EXPECT_EQ(blocks->GetBlockByBlockID(1), nullptr);
}

TEST_F(BlockCol, TheHighestIDIsNeverBelowTheEndBlocks) {
    EXPECT_EQ(blocks->GetHighestBlockID(), 2);
    put(1);
    EXPECT_EQ(blocks->GetHighestBlockID(), 2);
    put(40), put(7);
    EXPECT_EQ(blocks->GetHighestBlockID(), 40);
}

TEST_F(BlockCol, ClearedItIsEmptyAndTakesTheSameKeysAgain) {
    put(5);
    blocks->Clear();
    EXPECT_EQ(blocks->Count(), 0);
    EXPECT_EQ(order(), "");
    EXPECT_NE(put(5), nullptr);
    EXPECT_EQ(told(), Texts{});
}

TEST_F(BlockCol, AWalkThatHasBegunStaysWithTheBlocksBeforeAClear) {
    put(5), put(2);
    const auto walk = blocks->enumerate();
    Value item;
    ASSERT_TRUE(walk->next(item));
    blocks->Clear();
    ASSERT_TRUE(walk->next(item)) << "a new collection takes the place of the old one";
    EXPECT_EQ(item.toObject()->get("BlockID"), Value(std::int16_t{2}));
}

TEST_F(BlockCol, ABlockWithoutAttributeCannotBeCopiedAndThatIsTold) {
    const auto bare = make<clsBVTBlock>();
    bare->intBlockID = 4;
    EXPECT_EQ(blocks->Add(*bare), nullptr);
    const Texts texts = told();
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(texts.back(), "clsBVTBlockCol.Add(): [91] Object variable not set");
    EXPECT_EQ(blocks->Count(), 0);
}

}  // namespace
}  // namespace canvas
