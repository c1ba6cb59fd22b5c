// Walks over all blocks, answered block by block: a retry repeats the failing block alone, and one that is passed over
// costs the others nothing.

#include "tests/document/fixture.h"
#include "tests/tracing/fakes.h"

namespace canvas {
namespace {

using namespace fixture;
using tracing::Answer;
using tracing::ScriptedHandler;

struct CanvasLoops : Drawing {
    /// Three call blocks; the title of the second fails the first `failures` times.
    void SetUp() override {
        for (const std::int16_t id : Ids{5, 6, 7}) {
            const auto attribute = foreignAttribute();
            attribute->property("Name", "home.bpg");
            attribute->property("title", "home.bpg");
            if (id == 6)
                attribute->method("title", [this](Args) -> Value {
                    if (failures-- > 0) raise(Error::automation);
                    return "home.bpg";
                });
            addForeign(id, SUPERBLOCK, attribute);
        }
    }
    std::string nameOf(std::int16_t id) const { return at(id).vntAttribute->get("Name").toText(); }

    int failures = 1;
};

TEST_F(CanvasLoops, ARenamingPassesOverTheBlockThatFailsAndIsStillTrue) {
    ScriptedHandler handler({Answer::ignore});
    EXPECT_TRUE(document->ReplaceThisSuperBlock("home.bpg", "park.bpg"));
    EXPECT_EQ(handler.asked.size(), 1U);
    EXPECT_EQ(nameOf(5), "park.bpg");
    EXPECT_EQ(nameOf(6), "home.bpg");
    EXPECT_EQ(nameOf(7), "park.bpg");
}

TEST_F(CanvasLoops, ARenamingThatIsLeftKeepsWhatItDid) {
    ScriptedHandler handler({Answer::leave});
    EXPECT_TRUE(document->ReplaceThisSuperBlock("home.bpg", "park.bpg"));
    EXPECT_EQ(nameOf(5), "park.bpg");
    EXPECT_EQ(nameOf(7), "home.bpg");
}

TEST_F(CanvasLoops, ARecursionIsFoundBehindABlockThatIsPassedOver) {
    document->strName = "home.bpg";
    at(5).vntAttribute->put("title", "other.bpg");
    ScriptedHandler handler({Answer::ignore});
    EXPECT_TRUE(document->Recursive());
    EXPECT_EQ(handler.asked.size(), 1U);
}

TEST_F(CanvasLoops, ARetryOfAnUntickingRepeatsOneTaskOnly) {
    int calls = 0;
    const auto attribute = foreignAttribute();
    attribute->method("SetArChkTask", [&](Args) -> Value {
        if (++calls == 3) raise(Error::automation);
        return {};
    });
    attribute->method("SetArBlockNumber", [](Args) { return Value(); });
    addForeign(9, RESTARTPROGRAM, attribute);
    ScriptedHandler handler({Answer::retry});
    document->UpdateRestartProgram(Value(Array::of("Boolean", {{0, 7}})));
    EXPECT_EQ(handler.asked.size(), 1U);
    EXPECT_EQ(calls, 9);  // eight tasks, one of them twice
}

}  // namespace
}  // namespace canvas
