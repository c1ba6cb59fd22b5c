// What is written is what is read, for every whole example and for documents drawn at random.

#include <random>
#include <tuple>

#include "host/text.h"
#include "tests/document/reading.h"
#include "tests/host/scratch.h"

namespace canvas {
namespace {

using namespace fixture;

/// Everything that a file keeps of a block, and the wiring that a reading completes.
std::string facts(const clsBVTBlock& block) {
    return std::to_string(block.intBlockID) + ' ' + std::to_string(block.BlockType()) + " '" + block.strBlockLabel +
           "' " + wiring(block) + " ports " + (block.blnHasDualOutPort ? '1' : '0') + (block.blnNoInPort ? '1' : '0') +
           (block.blnNoOutPort ? '1' : '0') + " user " + std::to_string(block.lngBlockUserID) + " '" +
           block.strBlockUserName + "' " + block.OutputToFile("");
}

Texts facts(const clsBVTCanvas& document) {
    Texts all;
    for (std::size_t i = 0; i < document.BlockCollection->size(); ++i)
        all.push_back(facts((*document.BlockCollection)[i]));
    return all;
}

struct RoundTrip : Reading {
    /// Saves the document, reads it into a new one, and gives the bytes.
    std::string again(const std::string& name = "r.bpg") {
        document->WriteFile(name);
        document = make<clsBVTCanvas>();
        EXPECT_TRUE(document->Readfile(name));
        EXPECT_EQ(told(), Texts{});
        return disk->contents[name.substr(0, name.size() - 4) + ".bpa"];
    }
};

struct Example : RoundTrip, ::testing::WithParamInterface<std::pair<const char*, int>> {};

TEST_P(Example, IsReadWholeAndWrittenByteForByte) {
    const auto [name, count] = GetParam();
    const std::string bytes = scratch::bytesOf(std::string(CANVAS_SOURCE_DIR "/examples/") + name);
    ASSERT_TRUE(read(bytes));
    EXPECT_EQ(told(), Texts{});
    EXPECT_EQ(document->GetBlockCount(), count);
    const Texts before = facts(*document);
    EXPECT_EQ(again(), bytes);
    EXPECT_EQ(facts(*document), before);
    std::string message;
    EXPECT_TRUE(document->CheckConnection(message)) << message;
}

INSTANTIATE_TEST_SUITE_P(Programs, Example,
                         ::testing::Values(std::pair{"homing.bpa", 11}, std::pair{"indexing_table.bpa", 23},
                                           std::pair{"filler.bpa", 39}, std::pair{"press_feeder.bpa", 35},
                                           std::pair{"pick_and_place.bpa", 49}, std::pair{"conveyor.bpa", 78},
                                           std::pair{"line_of_1000.bpa", 1000}),
                         [](const auto& info) {
                             const std::string name = info.param.first;
                             return name.substr(0, name.find('.'));
                         });

/// Draws documents that are the same on every machine for the same seed.
class Draughtsman {
public:
    explicit Draughtsman(unsigned seed) : m_random(seed) {}

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool flip() { return below(2) == 0; }

    std::string words() {
        static const auto letters =
            text::split("a|Z| |  |7|.|&&|\xC3\xBC|\xC2\xB0|\xE2\x82\xAC|\xE5\x8E\x9F|\xF0\x9F\x9A\x80|\t|'|\\", "|");
        std::string text;
        for (int i = below(8); i > 0; --i) text += letters[static_cast<std::size_t>(below(below(4) == 0 ? 15 : 10))];
        return text;
    }
    std::string note() {
        std::string text = words();
        for (int i = below(4); i > 0; --i) text += '\r' + words();
        return text + (text.ends_with('\r') ? "." : "");
    }

    void draw(clsBVTCanvas& document, int count) {
        // a cam cannot be written without a host
        static constexpr std::int16_t types[]{0,  1,  2,  3,  4,  5,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16,
                                              18, 19, 21, 22, 23, 24, 25, 26, 27, 30, 31, 32, 14, 15, 14, 15};
        drawBlock(document, document.GetAvailableBlockID(), PROGRAMSTART);
        drawBlock(document, document.GetAvailableBlockID(), PROGRAMEND);
        for (int i = 2; i < count; ++i) drawBlock(document, document.GetAvailableBlockID(), types[below(32)]);
        for (int i = 0; i < 3 * count; ++i) joinSome(document, count);
        for (int i = count / 10; i > 0; --i) document.RemoveBlock(static_cast<std::int16_t>(3 + below(count - 2)));
        document.lngLeft = below(5000) - 100;
        document.lngHeight = below(9000);
        document.dblZoom = below(400) / 100.0;
        document.lngYPos = below(3000);
    }

private:
    void drawBlock(clsBVTCanvas& document, std::int16_t id, std::int16_t type) {
        const auto block = newBlock(id, type, type == NodeText ? note() : words());
        block->lngBlockUserID = below(100000) - 50000;
        block->strBlockUserName = words();
        auto& attribute = *faceOf<AttributeObject>(*block->BVTAttribute());
        for (const Field& field : attribute.attributeClass().fields)
            if (field.file > 0 && field.at.isText() && type != InputBlock)
                attribute.AssignFromFile(field.file, words());
        document.AddBlock(*block);
    }
    void joinSome(clsBVTCanvas& document, int count) {
        const int from = 1 + below(count), to = 1 + below(count);
        const auto edge = newEdge(static_cast<std::int16_t>(from), static_cast<std::int16_t>(to), flip());
        // an edge at a block without in-port may cut a link on one side only, and a file does not keep that
        if (document.BlockCollection->byKey(edge->intToBlockID).blnNoInPort) return;
        if (!document.BlockCollection->byKey(edge->intFromBlockID).blnHasDualOutPort) edge->blnTopEdge = true;
        if (!document.AddEdge(*edge)) document.RemoveEdge(*edge);
        else if (below(8) == 0) document.RemoveEdge(*edge);
    }

    std::mt19937 m_random;
};

TEST_F(RoundTrip, AnyDocumentComesBackAsItWas) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        document = make<clsBVTCanvas>();
        Draughtsman(seed).draw(*document, 3 + static_cast<int>(seed));
        told();
        const Texts before = facts(*document);
        const std::int32_t left = document->lngLeft, height = document->lngHeight, y = document->lngYPos;
        const double zoom = document->dblZoom;
        const std::string bytes = again();
        EXPECT_EQ(facts(*document), before) << "seed " << seed;
        EXPECT_EQ(std::tie(document->lngLeft, document->lngHeight, document->lngYPos), std::tie(left, height, y));
        EXPECT_DOUBLE_EQ(document->dblZoom, zoom);
        EXPECT_EQ(again("s.bpg"), bytes) << "seed " << seed;
        if (HasFailure()) break;
    }
}

TEST_F(RoundTrip, IdentifiersInUseComeBack) {
    for (const std::int16_t id : Ids{1, 2, 4, 1023}) add(id, IFFAULT);
    again();
    EXPECT_EQ(document->GetAvailableBlockID(), 3);
    EXPECT_EQ(document->GetAvailableBlockID(), 5);
}

TEST_F(RoundTrip, ADocumentWithoutBlocksComesBackAsNone) {
    document->lngLeft = 7;
    document->dblZoom = 0.25;
    document->WriteFile("r.bpg");
    document = make<clsBVTCanvas>();
    EXPECT_FALSE(document->Readfile("r.bpg"));
    EXPECT_EQ(told(), Texts{});
    EXPECT_EQ(document->lngLeft, 7);
    EXPECT_EQ(document->dblZoom, 0.25);
}

TEST_F(RoundTrip, AFaultBlocksTypeIsBackAtItsDefault) {
    add(5, IFFAULT).BVTAttribute()->put("TypeK", "5");
    again();
    EXPECT_EQ(setting(5, "TypeK"), Value("0"));
}

}  // namespace
}  // namespace canvas
