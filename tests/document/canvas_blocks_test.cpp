#include "tests/document/fixture.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using namespace fixture;

struct CanvasBlocks : Drawing {
    void fillTo(std::int16_t count) const {
        for (std::int16_t id = 1; id <= count; ++id) ASSERT_TRUE(document->AddBlock(*newBlock(id, RESETFAULT)));
    }
};

TEST_F(CanvasBlocks, ANewCanvasIsEmptyAndTakesTheMost) {
    EXPECT_EQ(document->GetBlockCount(), 0);
    EXPECT_EQ(document->intMaxNumberOfBlock, 1023);
    EXPECT_FALSE(document->blnBottomPortSelected);
    EXPECT_FALSE(document->blnCanvasDeleteEdge);
    EXPECT_FALSE(document->blnCanvasDeleteEntity);
    EXPECT_FALSE(document->blnChanged);
    EXPECT_TRUE(document->blnLabel);
    EXPECT_EQ(document->strName, "");
    EXPECT_EQ(document->GetVersionNumber(), "");
    EXPECT_EQ(document->frmParentForm, nullptr);
    EXPECT_EQ(document->GetAvailableBlockID(), 1);
}

TEST_F(CanvasBlocks, TheLowestFreeIDIsGiven) {
    EXPECT_EQ(document->GetAvailableBlockID(), 1);
    EXPECT_EQ(document->GetAvailableBlockID(), 2);
    EXPECT_EQ(document->GetAvailableBlockID(), 3);
    add(2, MOVEAXIS);
    EXPECT_TRUE(document->RemoveBlock(2));
    EXPECT_EQ(document->GetAvailableBlockID(), 2);
    EXPECT_EQ(document->GetAvailableBlockID(), 4);
}

TEST_F(CanvasBlocks, AGivenIDIsUsedBeforeItsBlockExistsAndCanBeGivenBack) {
    EXPECT_EQ(document->GetAvailableBlockID(), 1);
    EXPECT_FALSE(document->DoesBlockIDExist(1));
    EXPECT_EQ(document->GetAvailableBlockID(), 2);
    document->MakeAvailableBlockID(1);
    EXPECT_EQ(document->GetAvailableBlockID(), 1);
}

TEST_F(CanvasBlocks, WhenAllIDsAreUsedTheAnswerIsMinusOne) {
    document->intMaxNumberOfBlock = 2;
    document->GetAvailableBlockID();
    document->GetAvailableBlockID();
    EXPECT_EQ(document->GetAvailableBlockID(), -1);
    document->intMaxNumberOfBlock = 0;
    EXPECT_EQ(document->GetAvailableBlockID(), 0);
    document->intMaxNumberOfBlock = -1;
    EXPECT_EQ(document->GetAvailableBlockID(), 0);
}

TEST_F(CanvasBlocks, AnIDOutsideTheTableCannotBeMadeAvailable) {
    for (const std::int16_t id : Ids{0, -1, 1024}) EXPECT_EQ(raisedBy([&] { document->MakeAvailableBlockID(id); }), 9);
    EXPECT_NO_THROW(document->MakeAvailableBlockID(1023));
}

TEST_F(CanvasBlocks, ABlockIsStoredAsACopyAndItsIDMarked) {
    const auto mine = newBlock(1, MOVEAXIS, "mine");
    EXPECT_TRUE(document->AddBlock(*mine));
    mine->strBlockLabel = "changed";
    EXPECT_EQ(at(1).strBlockLabel, "mine");
    EXPECT_TRUE(document->DoesBlockIDExist(1));
    EXPECT_EQ(document->GetAvailableBlockID(), 2);
    EXPECT_FALSE(document->blnChanged) << "that is the host's business";
}

TEST_F(CanvasBlocks, AFullDocumentRefusesABlockWithAMessage) {
    document->intMaxNumberOfBlock = 3;
    fillTo(3);
    EXPECT_FALSE(document->AddBlock(*newBlock(4, MOVEAXIS)));
    EXPECT_EQ(boxes(), Texts{"critical||Exceeded Maximum Number of Blocks (3) Allowed! "});
    EXPECT_EQ(document->GetBlockCount(), 3);
    document->intMaxNumberOfBlock = 2;
    EXPECT_FALSE(document->AddBlock(*newBlock(4, MOVEAXIS))) << "above the maximum as well";
    EXPECT_EQ(told(), Texts{"Exceeded Maximum Number of Blocks (2) Allowed! "});
}

TEST_F(CanvasBlocks, ANewCanvasTakes1023Blocks) {
    fillTo(1023);
    EXPECT_EQ(document->GetAvailableBlockID(), -1);
    EXPECT_FALSE(document->AddBlock(*newBlock(1, MOVEAXIS)));
    EXPECT_EQ(told(), Texts{"Exceeded Maximum Number of Blocks (1023) Allowed! "});
    EXPECT_EQ(document->GetBlockCount(), 1023);
}

TEST_F(CanvasBlocks, AfterClearThe251stBlockIsRefused) {
    document->Clear();
    fillTo(250);
    EXPECT_FALSE(document->AddBlock(*newBlock(251, MOVEAXIS)));
    EXPECT_EQ(told(), Texts{"Exceeded Maximum Number of Blocks (250) Allowed! "});
    EXPECT_EQ(document->GetBlockCount(), 250);
}

TEST_F(CanvasBlocks, ABlockOfATakenIDIsToldByTheCollectionAndNotStored) {
    add(5, MOVEAXIS);
    EXPECT_TRUE(document->AddBlock(*newBlock(5, IFEVENT))) << "the collection has dealt with its failure";
    EXPECT_EQ(told(), Texts{"clsBVTBlockCol.Add(): [457] This key is already associated with an element of this "
                            "collection"});
    EXPECT_EQ(document->GetBlockCount(), 1);
    EXPECT_EQ(at(5).BlockType(), MOVEAXIS);
}

TEST_F(CanvasBlocks, ABlockWhoseIDIsOutsideTheTableIsStoredBeforeItFails) {
    for (const std::int16_t id : Ids{0, -3, 1024}) {
        EXPECT_FALSE(document->AddBlock(*newBlock(id, MOVEAXIS)));
        EXPECT_EQ(told(), Texts{"clsBVTCanvas.AddBlock: [9] Subscript out of range"}) << id;
        EXPECT_TRUE(document->DoesBlockIDExist(id));
    }
}

TEST_F(CanvasBlocks, AnAbsentBlockIsToldTwiceAndItsIDIsFree) {
    document->GetAvailableBlockID();
    EXPECT_TRUE(document->RemoveBlock(1)) << "both failures were dealt with below";
    EXPECT_EQ(told(), (Texts{"Cavans.UpateBlock(): [5] Invalid procedure call or argument",
                             "clsBVTBlockCol.Delete(): [5] Invalid procedure call or argument"}));
    EXPECT_EQ(document->GetAvailableBlockID(), 1);
}

TEST_F(CanvasBlocks, TheIDZeroCannotBeMadeFree) {
    EXPECT_FALSE(document->RemoveBlock(0));
    EXPECT_EQ(told().back(), "clsBVTCanvas.RemoveBlock: [9] Subscript out of range");
}

TEST_F(CanvasBlocks, ABlockAtTheMaximumOrBelowZeroCannotBeRemoved) {
    document->intMaxNumberOfBlock = 1023;
    add(1023, MOVEAXIS), add(1022, MOVEAXIS);
    EXPECT_FALSE(document->RemoveBlock(1023));
    EXPECT_TRUE(document->RemoveBlock(1022));
    EXPECT_FALSE(document->RemoveBlock(-1));
    EXPECT_FALSE(document->RemoveBlock(32767));
    EXPECT_EQ(document->GetBlockCount(), 1);
    EXPECT_EQ(told(), Texts{});
}

TEST_F(CanvasBlocks, PlacesCountFromOneAndZeroMeansAbsent) {
    for (const std::int16_t id : Ids{7, 3, 5}) add(id, MOVEAXIS);
    EXPECT_EQ(document->GetBlockPosition(7), 1);
    EXPECT_EQ(document->GetBlockPosition(5), 3);
    EXPECT_EQ(document->GetBlockPosition(1), 0);
    EXPECT_EQ(document->GetBlockCount(), 3);
    EXPECT_TRUE(document->CanPaste());
}

TEST_F(CanvasBlocks, AnotherListOfBlocksLeavesTheIDsAlone) {
    add(1, MOVEAXIS);
    const auto other = make<clsBVTBlockCol>();
    other->Add(*newBlock(2, IFEVENT));
    document->put("BlockList", other);
    EXPECT_EQ(document->get("BlockList"), Value(other));
    EXPECT_EQ(document->GetBlockCount(), 1);
    EXPECT_FALSE(document->DoesBlockIDExist(1));
    EXPECT_EQ(document->GetAvailableBlockID(), 2) << "1 is still marked, 2 is not";
}

TEST_F(CanvasBlocks, ClearEmptiesTheDrawingAndNothingElse) {
    add(1, MOVEAXIS);
    const Ref<clsBVTBlockCol> before = document->BlockList();
    document->blnBottomPortSelected = document->blnCanvasDeleteEdge = document->blnChanged = true;
    document->blnCanvasDeleteEntity = true;
    document->blnLabel = false;
    document->strName = "press";
    document->strVersionNumber = "200";
    document->lngLeft = document->lngWidth = 7;
    document->dblZoom = 0.5;
    document->AddActionToUndoList(ActionEntityAdd, make<clsBVTUndoBuffer>());
    document->Clear();
    EXPECT_EQ(document->GetBlockCount(), 0);
    EXPECT_EQ(before->Count(), 1) << "a new collection takes its place";
    EXPECT_EQ(document->GetAvailableBlockID(), 1);
    EXPECT_EQ(document->intMaxNumberOfBlock, 250);
    EXPECT_FALSE(document->blnBottomPortSelected || document->blnCanvasDeleteEdge || document->blnChanged);
    EXPECT_TRUE(document->blnCanvasDeleteEntity);
    EXPECT_FALSE(document->blnLabel);
    EXPECT_EQ(document->strName, "press");
    EXPECT_EQ(document->GetVersionNumber(), "200");
    EXPECT_EQ(document->lngLeft, 7);
    EXPECT_EQ(document->lngWidth, 7);
    EXPECT_EQ(document->dblZoom, 0.5);
    EXPECT_TRUE(document->CanUndo());
}

}  // namespace
}  // namespace canvas
