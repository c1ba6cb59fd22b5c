// Failures that a person answers: what is repeated, passed over or left, and with which result.

#include <functional>

#include "tests/document/fixture.h"
#include "tests/host/raised.h"
#include "tests/tracing/fakes.h"

namespace canvas {
namespace {

using namespace fixture;
using tracing::Answer;
using tracing::ScriptedHandler;

struct CanvasAsked : Drawing {
    void SetUp() override { add(3, MOVEAXIS), add(4, MOVEAXIS); }
};

/// Mends the drawing before it answers.
class Mending final : public tracing::ErrorHandler {
public:
    explicit Mending(std::function<void()> mend) : m_mend(std::move(mend)), m_inForce(*this) {}
    Answer ask(const tracing::Failure& failure) override {
        asked.push_back(failure);
        m_mend();
        return Answer::retry;
    }
    std::vector<tracing::Failure> asked;

private:
    std::function<void()> m_mend;
    tracing::WithErrorHandler m_inForce;
};

TEST_F(CanvasAsked, AnEdgeThatIsLeftIsFalseAndChangesNothing) {
    ScriptedHandler handler({Answer::leave});
    EXPECT_FALSE(join(3, 99));
    ASSERT_EQ(handler.asked.size(), 1U);
    EXPECT_EQ(handler.asked[0].number, 5);
    EXPECT_EQ(handler.asked[0].module, "clsBVTCanvas");
    EXPECT_EQ(handler.asked[0].procedure, "AddEdge");
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from");
    EXPECT_FALSE(document->blnCanvasDeleteEdge);
    EXPECT_EQ(told(), Texts{});
}

TEST_F(CanvasAsked, AnEdgeIsRepeatedOnceItsTargetIsThere) {
    Mending handler([this] { add(5, MOVEAXIS); });
    EXPECT_TRUE(join(3, 5));
    EXPECT_EQ(handler.asked.size(), 1U);
    EXPECT_EQ(wiring(3), "to 5,-1 used 1,0 from");
    EXPECT_EQ(wiring(5), "to -1,-1 used 0,0 from 3t");
}

TEST_F(CanvasAsked, AnIndexOutsideTheTableIsPassedOver) {
    ScriptedHandler handler({Answer::ignore, Answer::ignore});
    document->MakeAvailableBlockID(0);
    EXPECT_EQ(document->BlockName(33), "");
    ASSERT_EQ(handler.asked.size(), 2U);
    EXPECT_EQ(handler.asked[0].number, 9);
    EXPECT_EQ(handler.asked[0].procedure, "MakeAvailableBlockID");
    EXPECT_EQ(handler.asked[1].procedure, "BlockName");
}

TEST_F(CanvasAsked, ACallBlockThatFailsIsPassedOverAndTheNextOneSeen) {
    document->strName = "press.bpg";
    for (const std::int16_t id : Ids{5, 6}) {
        const auto attribute = foreignAttribute();
        attribute->property("title", id == 5 ? "x" : "press.bpg");
        addForeign(id, SUPERBLOCK, attribute);
    }
    ScriptedHandler handler({Answer::ignore});
    EXPECT_TRUE(document->Recursive());
    ASSERT_EQ(handler.asked.size(), 1U);
    EXPECT_EQ(handler.asked[0].procedure, "Recursive");
}

TEST_F(CanvasAsked, FailuresWithABoxOfTheirOwnAskNobody) {
    ScriptedHandler handler;
    document->AddBlock(*newBlock(3, MOVEAXIS));
    document->RemoveBlock(77);
    document->UndoPerformed();
    document->Readfile("none.bpg");
    document->frmParentForm = make<Composed>();
    document->WriteFile("p.bpg");
    document->BlockList()->Index(9);
    EXPECT_EQ(handler.asked.size(), 0U);
    EXPECT_EQ(told().size(), 7U) << "one each, and two for the block that is not there";
}

TEST_F(CanvasAsked, AHandedOnFailureIsAskedOnce) {
    ScriptedHandler handler({Answer::handOn});
    EXPECT_EQ(raisedBy([&] { join(99, 3); }), 5);
    EXPECT_EQ(handler.asked.size(), 1U);
}

}  // namespace
}  // namespace canvas
