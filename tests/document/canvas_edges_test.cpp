#include "tests/document/fixture.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using namespace fixture;

/// Start 1, End 2, Move Axis 3 and 4, If Event 5, a note 6.
struct CanvasEdges : Drawing {
    void SetUp() override {
        add(1, PROGRAMSTART), add(2, PROGRAMEND), add(3, MOVEAXIS), add(4, MOVEAXIS), add(5, IFEVENT), add(6, NodeText);
    }
};

TEST_F(CanvasEdges, ASingleOutputIsJoinedToItsTarget) {
    EXPECT_TRUE(join(3, 4));
    EXPECT_EQ(wiring(3), "to 4,-1 used 1,0 from");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from 3t");
    EXPECT_FALSE(document->blnCanvasDeleteEdge);
    EXPECT_FALSE(document->blnChanged);
}

TEST_F(CanvasEdges, ASingleOutputIsItsTopOneWhateverTheEdgeSays) {
    EXPECT_TRUE(join(3, 4, false));
    EXPECT_EQ(wiring(3), "to 4,-1 used 1,0 from");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from 3b") << "the incoming side keeps what the edge says";
}

TEST_F(CanvasEdges, ATakenOutputIsRefused) {
    join(3, 4);
    EXPECT_FALSE(join(3, 5));
    EXPECT_TRUE(document->blnCanvasDeleteEdge);
    EXPECT_EQ(wiring(3), "to 4,-1 used 1,0 from");
    EXPECT_EQ(wiring(5), "to -1,-1 used 0,0 from");
}

TEST_F(CanvasEdges, ABlockWithoutOutputIsRefused) {
    EXPECT_FALSE(join(2, 3));
    EXPECT_TRUE(document->blnCanvasDeleteEdge);
    EXPECT_EQ(wiring(2), "to -1,-1 used 0,0 from");
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from");
}

TEST_F(CanvasEdges, TwoOutputsLeadToTwoTargets) {
    EXPECT_TRUE(join(5, 3, true));
    EXPECT_TRUE(join(5, 4, false));
    EXPECT_EQ(wiring(5), "to 3,4 used 1,1 from");
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from 5t");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from 5b");
    EXPECT_FALSE(join(5, 2, true));
    EXPECT_TRUE(document->blnCanvasDeleteEdge);
    EXPECT_EQ(wiring(5), "to 3,4 used 1,1 from");
}

TEST_F(CanvasEdges, TheTopPortCannotLeadWhereTheBottomOneLeads) {
    join(5, 3, false);
    EXPECT_FALSE(join(5, 3, true));
    EXPECT_TRUE(document->blnCanvasDeleteEdge);
    EXPECT_EQ(wiring(5), "to -1,3 used 0,1 from");
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from 5b");
}

TEST_F(CanvasEdges, TheBottomPortCannotLeadWhereTheTopOneLeads) {
    join(5, 3, true);
    EXPECT_FALSE(join(5, 3, false));
    EXPECT_TRUE(document->blnCanvasDeleteEdge);
    EXPECT_EQ(wiring(5), "to 3,-1 used 1,0 from");
}

TEST_F(CanvasEdges, AnOutputOfTwoThatIsTakenIsRefused) {
    join(5, 3, true);
    EXPECT_FALSE(join(5, 4, true));
    EXPECT_EQ(wiring(5), "to 3,-1 used 1,0 from");
    document->blnCanvasDeleteEdge = false;
    join(5, 4, false);
    document->RemoveEdge(*newEdge(5, 3, true));
    EXPECT_FALSE(join(5, 2, false)) << "the bottom one";
    EXPECT_TRUE(document->blnCanvasDeleteEdge);
    EXPECT_EQ(wiring(5), "to -1,4 used 0,1 from");
}

TEST_F(CanvasEdges, AnEdgeIntoTheStartBlockIsRefused) {
    EXPECT_FALSE(join(3, 1));
    EXPECT_TRUE(document->blnCanvasDeleteEdge);
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from");
    EXPECT_EQ(wiring(1), "to -1,-1 used 0,0 from");
}

TEST_F(CanvasEdges, AnEdgeIntoANoteClearsThePortThatItNames) {
    EXPECT_FALSE(join(5, 6, true));
    EXPECT_EQ(wiring(5), "to -1,-1 used 0,0 from");
    join(5, 3, true);
    EXPECT_FALSE(join(5, 6, false));
    EXPECT_EQ(wiring(5), "to 3,-1 used 1,0 from");
    EXPECT_EQ(wiring(6), "to -1,-1 used 0,0 from");
}

TEST_F(CanvasEdges, AnEdgeAlreadyRefusedClearsALinkWhenItAimsAtABlockWithoutInPort) {
    join(3, 4);
    EXPECT_FALSE(join(3, 1));
    EXPECT_TRUE(document->blnCanvasDeleteEdge);
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from 3t") << "the other side is not looked at";
}

TEST_F(CanvasEdges, ARefusedEdgeOfTwoOutputsClearsTheOneThatItNames) {
    join(5, 3, true), join(5, 4, false);
    EXPECT_FALSE(join(5, 1, false));
    EXPECT_EQ(wiring(5), "to 3,-1 used 1,0 from");
    EXPECT_FALSE(join(5, 1, true));
    EXPECT_EQ(wiring(5), "to -1,-1 used 0,0 from");
}

TEST_F(CanvasEdges, ASingleOutputKeepsItsTopLinkToABlockWithoutInPortWhenTheEdgeSaysBottom) {
    EXPECT_FALSE(join(3, 1, false));
    EXPECT_TRUE(document->blnCanvasDeleteEdge);
    EXPECT_EQ(wiring(3), "to 1,-1 used 1,0 from");
    EXPECT_EQ(wiring(1), "to -1,-1 used 0,0 from");
}

TEST_F(CanvasEdges, ASourceThatIsThereAlreadyIsNotAddedAgainAndTheEdgeStands) {
    at(4).AddFromBlockID(3, false);
    EXPECT_TRUE(join(3, 4, true));
    EXPECT_EQ(wiring(3), "to 4,-1 used 1,0 from");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from 3b");
}

TEST_F(CanvasEdges, ABlockMayLeadToItself) {
    EXPECT_TRUE(join(3, 3));
    EXPECT_EQ(wiring(3), "to 3,-1 used 1,0 from 3t");
    EXPECT_TRUE(join(5, 5, false));
    EXPECT_EQ(wiring(5), "to -1,5 used 0,1 from 5b");
}

TEST_F(CanvasEdges, ARefusalIsOnlyLoweredByRemoveEdge) {
    join(3, 1);
    EXPECT_TRUE(join(3, 4));
    EXPECT_TRUE(document->blnCanvasDeleteEdge);
    document->RemoveEdge(*newEdge(3, 4));  // meant as a genuine removal
    EXPECT_EQ(wiring(3), "to 4,-1 used 1,0 from") << "but the flag makes it a no-op";
    EXPECT_FALSE(document->blnCanvasDeleteEdge);
    document->RemoveEdge(*newEdge(3, 4));
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from");
}

TEST_F(CanvasEdges, RemovalClearsBothSides) {
    join(5, 3, true), join(5, 4, false);
    document->RemoveEdge(*newEdge(5, 4, false));
    EXPECT_EQ(wiring(5), "to 3,-1 used 1,0 from");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from");
    document->RemoveEdge(*newEdge(5, 3, true));
    EXPECT_EQ(wiring(5), "to -1,-1 used 0,0 from");
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from");
    EXPECT_FALSE(document->blnCanvasDeleteEdge);
}

TEST_F(CanvasEdges, RemovalFromASingleOutputTurnsTheEdgeToTheTop) {
    join(3, 4, false);
    const auto edge = newEdge(3, 4, false);
    document->RemoveEdge(*edge);
    EXPECT_TRUE(edge->blnTopEdge);
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from");
}

TEST_F(CanvasEdges, RemovalDoesNotAskWhereThePortLeads) {
    join(5, 3, true);
    at(4).AddFromBlockID(5, true);
    document->RemoveEdge(*newEdge(5, 4, true));
    EXPECT_EQ(wiring(5), "to -1,-1 used 0,0 from");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from");
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from 5t");
}

TEST_F(CanvasEdges, TheRecordMayBeThrownAwayAfterwards) {
    {
        const auto edge = newEdge(3, 4);
        document->AddEdge(*edge);
        edge->intToBlockID = 5;
    }
    EXPECT_EQ(wiring(3), "to 4,-1 used 1,0 from");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from 3t");
}

TEST_F(CanvasEdges, AnEdgeOfAnAbsentBlockIsAFailureThatChangesNothing) {
    EXPECT_EQ(raisedBy([&] { join(99, 3); }), 5);
    EXPECT_EQ(raisedBy([&] { join(3, 99); }), 5);
    EXPECT_EQ(raisedBy([&] { document->RemoveEdge(*newEdge(99, 3)); }), 5);
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from");
    EXPECT_EQ(told(), Texts{});
}

TEST_F(CanvasEdges, ARefusedEdgeIsTakenAwayEvenWhenItsBlocksHaveGone) {
    join(3, 1);
    EXPECT_NO_THROW(document->RemoveEdge(*newEdge(98, 99)));
    EXPECT_FALSE(document->blnCanvasDeleteEdge);
}

TEST_F(CanvasEdges, RemovingABlockDetachesBothItsNeighbours) {
    join(1, 3), join(3, 4), join(4, 2);
    EXPECT_TRUE(document->RemoveBlock(4));
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from 1t");
    EXPECT_EQ(wiring(2), "to -1,-1 used 0,0 from");
    EXPECT_FALSE(document->DoesBlockIDExist(4));
    EXPECT_EQ(told(), Texts{});
}

TEST_F(CanvasEdges, RemovingABlockOfTwoOutputsDetachesBothTargets) {
    join(5, 3, true), join(5, 4, false);
    EXPECT_TRUE(document->RemoveBlock(5));
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from");
}

TEST_F(CanvasEdges, RemovingATargetFreesThePortThatLedToIt) {
    join(5, 3, true), join(5, 4, false);
    document->RemoveBlock(3);
    EXPECT_EQ(wiring(5), "to -1,4 used 0,1 from");
    document->RemoveBlock(4);
    EXPECT_EQ(wiring(5), "to -1,-1 used 0,0 from");
}

TEST_F(CanvasEdges, ASourceOfTwoWhoseTopLeadsElsewhereLosesItsBottomUnasked) {
    join(5, 3, true), join(5, 4, false);
    at(2).AddFromBlockID(5, true);  // what a damaged file may say
    document->RemoveBlock(2);
    EXPECT_EQ(wiring(5), "to 3,-1 used 1,0 from");
}

TEST_F(CanvasEdges, ASourceOfOneOutputLosesItWhereverItLeads) {
    join(3, 4);
    at(5).AddFromBlockID(3, true);
    document->RemoveBlock(5);
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from 3t");
}

TEST_F(CanvasEdges, ATargetOfAnOutputThatIsNotMarkedUsedIsPassedOver) {
    join(5, 3, true), join(5, 4, false);
    at(5).blnTopPortUsed = at(5).blnBottomPortUsed = false;
    document->RemoveBlock(5);
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from 5t");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from 5b");
}

TEST_F(CanvasEdges, AnOutputMarkedUsedThatLeadsNowhereIsPassedOver) {
    at(3).blnTopPortUsed = at(3).blnBottomPortUsed = true;
    EXPECT_TRUE(document->RemoveBlock(3));
    EXPECT_EQ(told(), Texts{});
}

TEST_F(CanvasEdges, ABlockThatLeadsToAnAbsentOneIsRemovedAllTheSame) {
    join(1, 3);
    at(3).blnTopPortUsed = true;
    at(3).intToFirstBlockID = 99;
    EXPECT_TRUE(document->RemoveBlock(3));
    EXPECT_EQ(told(), Texts{"Cavans.UpateBlock(): [5] Invalid procedure call or argument"});
    EXPECT_FALSE(document->DoesBlockIDExist(3));
    EXPECT_EQ(wiring(1), "to 3,-1 used 1,0 from") << "detaching ended at the failure";
}

TEST_F(CanvasEdges, ABlockThatLeadsToItselfIsRemovedWithoutComplaint) {
    join(3, 3), join(5, 5, false), join(5, 4, true);
    EXPECT_TRUE(document->RemoveBlock(3));
    EXPECT_TRUE(document->RemoveBlock(5));
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from");
    EXPECT_EQ(told(), Texts{});
}

TEST_F(CanvasEdges, SelectPortTellsThePortByTheHeightOfTheClick) {
    const struct {
        std::int16_t middle, clicked, mode;
        bool bottom;
    } cases[] = {
        {100, 99, BottomToTop, true},  {100, 100, BottomToTop, true},  {100, 101, BottomToTop, false},
        {100, 99, TopTobottom, false}, {100, 100, TopTobottom, false}, {100, 101, TopTobottom, true},
        {-32768, 32767, 2, false},     {32767, -32768, -1, true},
    };
    for (const auto& c : cases) {
        document->SelectPort(c.middle, c.clicked, c.mode);
        EXPECT_EQ(document->blnBottomPortSelected, c.bottom) << c.middle << ' ' << c.clicked << ' ' << c.mode;
        EXPECT_EQ(document->get("BottomPortSelected"), Value(c.bottom));
    }
}

}  // namespace
}  // namespace canvas
