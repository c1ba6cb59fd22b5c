// Long random lives of a node list over real memory maps: addresses never overlap, and the maps can be rebuilt from the
// table at any time.

#include <charconv>
#include <map>
#include <random>

#include "fixture.h"
#include "hardware/memory_map.h"

namespace canvas {
namespace {

using namespace fixture;

struct Block {
    std::string node;
    int first = 0;
    int words = 0;
};

struct NodeWalk : Hardware {
    Ref<Object> module = opened<clsBVTRemoteIO>();
    std::mt19937 random{4711};

    int upTo(int limit) { return std::uniform_int_distribution<int>(0, limit)(random); }

    void freshMaps() const {
        module->put("InputMap", Value(Ref<Object>(make<MemoryMap>(inputArea))));
        module->put("OutputMap", Value(Ref<Object>(make<MemoryMap>(outputArea))));
    }
    void save(const std::string& node, int in, int out) const {
        invoke(*module, "SaveData", node, "n" + node, "t", std::to_string(in), std::to_string(out), "1", 0, "N/A");
    }
    /// The blocks of one side by their addresses; every word count above zero must have one.
    std::map<int, Block> blocks(const std::string& side) const {
        std::map<int, Block> found;
        for (const std::string& row :
             store.rows("SELECT " + side + "Words, COALESCE(" + side + "BaseAddress, ''), Node FROM tblRemoteIO")) {
            const auto comma = row.find(','), second = row.find(',', comma + 1);
            Block block{.node = row.substr(second + 1)};
            const std::string address = row.substr(comma + 1, second - comma - 1);
            std::from_chars(row.data(), row.data() + comma, block.words);
            EXPECT_EQ(block.words > 0, !address.empty()) << row;
            if (address.empty()) continue;
            EXPECT_EQ(address.size(), 6U) << address;
            EXPECT_EQ(address.substr(0, 2), side == "Input" ? "IW" : "OW");
            std::from_chars(address.data() + 2, address.data() + address.size(), block.first);
            EXPECT_TRUE(found.emplace(block.first, block).second) << "two blocks at " << address;
        }
        return found;
    }
    void expectNoOverlap() const {
        for (const std::string side : {"Input", "Output"}) {
            int end = 0;
            for (const auto& [first, block] : blocks(side)) {
                EXPECT_GE(first, end) << "node " << block.node << " lies in the block before";
                end = first + block.words;
            }
        }
    }
};

TEST_F(NodeWalk, AddressesNeverOverlap) {
    // Room for all: a map that raises has given a node's old block away already, which its unfinished edit keeps.
    constexpr int nodes = 20, words = 6;
    freshMaps();
    for (int step = 0; step < 600; ++step) {
        const std::string node = std::to_string(upTo(nodes - 1) + 1);
        switch (upTo(9)) {
            case 0:
            case 1: invoke(*module, "RemoveFromList", node, 0); break;
            case 2:
                freshMaps();
                EXPECT_EQ(invoke(*module, "AllocationMemoryMaps", 0), Value(true));
                break;
            default: save(node, upTo(words), upTo(words));
        }
        if (step % 20 == 0) expectNoOverlap();
        ASSERT_FALSE(HasFailure()) << "in step " << step;
    }
    expectNoOverlap();
    EXPECT_GT(store.nodes().size(), 10U);
}

TEST_F(NodeWalk, AChangeToMasterFreesEveryWord) {
    freshMaps();
    for (int node = 1; node <= 12; ++node) save(std::to_string(node), 20, 20);
    EXPECT_EQ(invoke(*module, "SetKX410Master", 0), Value(true));
    save("1", inputArea.words, outputArea.words);
    EXPECT_EQ(blocks("Input").begin()->first, inputArea.first);
    EXPECT_EQ(blocks("Output").begin()->first, outputArea.first);
}

TEST_F(NodeWalk, AFullMapLeavesTheListAsItWas) {
    freshMaps();
    save("1", inputArea.words, 0);
    const Texts before = store.nodes();
    EXPECT_EQ(raisedBy([&] { invoke(*module, "SaveData", "2", "n", "t", "1", "0", "1", 0, "N/A"); }), 5);
    EXPECT_EQ(store.nodes(), before);
}

}  // namespace
}  // namespace canvas
