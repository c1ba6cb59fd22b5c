#include "document/connection_check.h"

#include "tests/document/fixture.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using namespace fixture;

struct ConnectionCheck : Drawing {
    /// The records of a check; "good" when the result is true and none was made.
    std::string check(std::string message = {}) const {
        const bool good = document->CheckConnection(message);
        return good ? message + "good" : message;
    }
    void drawStartAndEnd() const { add(1, PROGRAMSTART), add(2, PROGRAMEND); }
};

TEST_F(ConnectionCheck, AnEmptyDocumentIsGood) { EXPECT_EQ(check(), "good"); }

TEST_F(ConnectionCheck, AStartJoinedToAnEndIsGood) {
    drawStartAndEnd();
    join(1, 2);
    EXPECT_EQ(check(), "good");
}

TEST_F(ConnectionCheck, OfAStartOnlyTheTopPortIsAsked) {
    clsBVTBlock& start = add(1, PROGRAMSTART);
    start.AddFromBlockID(1, true);
    start.blnBottomPortUsed = true;
    EXPECT_EQ(check(), "Error,1");
    start.blnTopPortUsed = true;
    EXPECT_EQ(check(), "good");
}

TEST_F(ConnectionCheck, AnEndThatNothingReachesAndAStartThatLeadsNowhereAreTagged) {
    drawStartAndEnd();
    EXPECT_EQ(check(), "Error,1@Error,2");
}

TEST_F(ConnectionCheck, ALoneNoteIsNeverTagged) {
    add(6, NodeText);
    EXPECT_EQ(check(), "good");
}

TEST_F(ConnectionCheck, AnyOtherBlockIsJudgedByItsPorts) {
    const struct {
        std::string_view what;
        std::int16_t type;
        bool top, bottom;
        std::vector<std::int16_t> sources;
        bool tagged;
    } cases[] = {
        {"nothing leads to it", MOVEAXIS, true, false, {}, true},
        {"nothing leads to it, both ports used", IFEVENT, true, true, {}, true},
        {"no output is used", MOVEAXIS, false, false, {3}, true},
        {"no output of two is used", IFEVENT, false, false, {3}, true},
        {"both outputs are used", IFEVENT, true, true, {3}, false},
        {"both outputs are used and one leads back to the block", IFEVENT, true, true, {3, 9}, false},
        {"both flags of a single output", MOVEAXIS, true, true, {9}, false},
        {"the top one of two outputs", IFEVENT, true, false, {3}, true},
        {"the bottom one of two outputs", IFEVENT, false, true, {3}, true},
        {"a single output", MOVEAXIS, true, false, {3}, false},
        {"the bottom flag of a single output", MOVEAXIS, false, true, {3}, false},
        {"a single output that leads back to the block", MOVEAXIS, true, false, {9}, true},
        {"a single output, the block among other sources", MOVEAXIS, true, false, {3, 9}, true},
    };
    for (const auto& c : cases) {
        document->Clear();
        clsBVTBlock& block = add(9, c.type);
        block.blnTopPortUsed = c.top;
        block.blnBottomPortUsed = c.bottom;
        for (const std::int16_t source : c.sources) block.AddFromBlockID(source, true);
        EXPECT_EQ(check(), c.tagged ? "Error,9" : "good") << c.what;
    }
}

TEST_F(ConnectionCheck, ADualOutputBlockWithOnlyItsTopPortConnectedIsTagged) {
    drawStartAndEnd();
    add(5, IFEVENT);
    join(1, 5), join(5, 2, true);
    EXPECT_EQ(check(), "Error,5");
    join(5, 5, false);
    EXPECT_EQ(check(), "good") << "both ports connected, one of them to the block itself";
}

TEST_F(ConnectionCheck, ASingleOutputBlockThatLeadsToItselfIsTagged) {
    drawStartAndEnd();
    join(1, 2);
    add(5, MOVEAXIS);
    join(5, 5);
    EXPECT_EQ(check(), "Error,5");
}

TEST_F(ConnectionCheck, ABlockReachedByNothingIsTaggedAlthoughItLeadsOn) {
    drawStartAndEnd();
    add(5, MOVEAXIS);
    join(1, 2), join(5, 2);
    EXPECT_EQ(check(), "Error,5");
}

TEST_F(ConnectionCheck, RecordsComeInCollectionOrderAndAGoodBlockMendsNothing) {
    for (const std::int16_t id : Ids{9, 5}) add(id, MOVEAXIS);
    drawStartAndEnd();
    join(1, 2);
    std::string message;
    EXPECT_FALSE(document->CheckConnection(message));
    EXPECT_EQ(message, "Error,9@Error,5");
}

TEST_F(ConnectionCheck, RecordsAreAppendedToWhatIsThere) {
    add(5, MOVEAXIS);
    EXPECT_EQ(check("Error,3"), "Error,3@Error,5");
    EXPECT_EQ(check("x"), "x@Error,5");
    document->Clear();
    EXPECT_EQ(check("Error,3"), "Error,3good") << "the result tells of this check only";
}

TEST_F(ConnectionCheck, ATagBeginsOrContinuesTheMessage) {
    std::string message;
    EXPECT_FALSE(TagErrorAndWarning(message, "Error", 5));
    EXPECT_EQ(message, "Error,5");
    EXPECT_FALSE(TagErrorAndWarning(message, "Warning", -1));
    EXPECT_EQ(message, "Error,5@Warning,-1");
}

struct PathCheck : Drawing {
    std::vector<std::int16_t> states = std::vector<std::int16_t>(20, blockOK);

    bool check() const { return CheckPathConnection(*document->BlockCollection, states); }
    void SetUp() override {
        add(1, PROGRAMSTART), add(2, PROGRAMEND), add(3, IFEVENT), add(4, MOVEAXIS);
        join(1, 3), join(3, 2, true), join(3, 4, false), join(4, 2);
    }
};

TEST_F(PathCheck, APathBackFromTheEndReachesTheStart) { EXPECT_TRUE(check()); }

TEST_F(PathCheck, AFaultyStartOrABlockOnTheWayEndsIt) {
    for (const std::size_t faulty : {1U, 3U, 4U}) {
        states.assign(20, blockOK);
        states[faulty] = blockError;
        EXPECT_FALSE(check()) << faulty;
    }
    states.assign(20, blockOK);
    states[2] = blockError;
    EXPECT_TRUE(check()) << "the End's own state is not asked";
}

TEST_F(PathCheck, ABlockBehindTheStartInTheListIsNotLookedAt) {
    add(5, MOVEAXIS);
    at(3).AddFromBlockID(5, true);
    states[5] = blockError;
    EXPECT_TRUE(check());
}

TEST_F(PathCheck, ALoopIsWalkedOnce) {
    document->RemoveEdge(*newEdge(1, 3));
    document->RemoveEdge(*newEdge(4, 2));
    join(4, 3), join(1, 3);
    EXPECT_TRUE(check());
}

TEST_F(PathCheck, AnEndThatTheStartDoesNotReachRunsOutOfTheList) {
    document->RemoveEdge(*newEdge(1, 3));
    EXPECT_EQ(raisedBy([&] { check(); }), 9);
    states[1] = blockError;
    EXPECT_FALSE(check()) << "a faulty Start is seen first";
}

TEST_F(PathCheck, ALoopThatTheStartDoesNotReachEndsToo) {
    document->RemoveEdge(*newEdge(1, 3));
    document->RemoveEdge(*newEdge(4, 2));
    join(4, 3);
    EXPECT_EQ(raisedBy([&] { check(); }), 9);
}

struct SelfCall : Drawing {
    void call(std::int16_t id, std::string_view title) const {
        const auto attribute = foreignAttribute();
        attribute->property("title", Value(title));
        addForeign(id, SUPERBLOCK, attribute);
    }
};

TEST_F(SelfCall, IsSeenByTheFileTitleWithoutItsLastFourCharacters) {
    const struct {
        std::string_view name, title;
        bool calls;
    } cases[] = {
        {"press.bpg", "press.bpg", true},
        {"press.bpg", "press.bpa", true},
        {"press.bpg", "PRESS.xyz", true},
        {"C:\\Machines\\Press.bpg", "press.bpg", true},
        {"/machines/press.bpg", "press.bpg", true},
        {"press.bpg", "press2.bpg", false},
        {"press.bpg", "sub\\press.bpg", false},
        {"press.bpg", "press", false},
        {"m\xC3\xA4rz.bpg", "M\xC3\x84RZ.BPG", true},
        {".bpg", ".bpa", true},
    };
    for (const auto& c : cases) {
        document->Clear();
        document->strName = c.name;
        call(5, c.title);
        EXPECT_EQ(document->Recursive(), c.calls) << c.name << ' ' << c.title;
    }
}

TEST_F(SelfCall, IsSeenInAnyCallBlock) {
    document->strName = "press.bpg";
    call(5, "feed.bpg"), call(6, "press.bpg"), call(7, "x");
    EXPECT_TRUE(document->Recursive()) << "and the walk ends there";
}

TEST_F(SelfCall, OnlyCallBlocksAreAsked) {
    document->strName = "press.bpg";
    const auto attribute = foreignAttribute();
    attribute->property("title", "press.bpg");
    addForeign(5, RESTARTPROGRAM, attribute);
    EXPECT_FALSE(document->Recursive());
}

TEST_F(SelfCall, ANameOrTitleOfLessThanFourCharactersIsAFailure) {
    EXPECT_FALSE(document->Recursive()) << "nobody asks for the empty name";
    call(5, "press.bpg");
    EXPECT_EQ(raisedBy([&] { document->Recursive(); }), 5);
    document->strName = "press.bpg";
    at(5).BVTAttribute()->put("title", "bpg");
    EXPECT_EQ(raisedBy([&] { document->Recursive(); }), 5);
    addForeign(6, SUPERBLOCK);
    at(5).BVTAttribute()->put("title", "feed.bpg");
    EXPECT_EQ(raisedBy([&] { document->Recursive(); }), 438) << "an attribute without title";
}

}  // namespace
}  // namespace canvas
