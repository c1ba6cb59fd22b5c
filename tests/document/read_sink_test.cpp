// What a reading tells besides its result: lines, blocks, and the place of a failure.

#include "document/program_reader.h"
#include "tests/document/reading.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using namespace fixture;

struct Notes final : ReadSink {
    Texts lineTexts, blocks;
    std::string failure;

    void line(int number, std::string_view text) override {
        lineTexts.push_back(std::to_string(number) + ": " + std::string(text));
    }
    void block(int number, const clsBVTBlock& block, std::string_view declared, int values) override {
        blocks.push_back(std::to_string(number) + ": " + std::to_string(block.intBlockID) + " says " +
                         std::string(declared) + " has " + std::to_string(values));
    }
    void failed(FilePlace place, const RuntimeError& error) override {
        failure += std::to_string(place.line) + '.' + std::to_string(place.token) + ' ' + std::to_string(error.number);
    }
};

struct ReadSinks : Reading {
    Notes notes;

    bool readNoted(const std::string& bytes) {
        notes = {};
        document = make<clsBVTCanvas>();
        disk->contents["p.bpa"] = bytes;
        return readProgram(*document, "p.bpg", &notes);
    }
};

TEST_F(ReadSinks, HearOfEveryLineAndBlock) {
    EXPECT_TRUE(readNoted("VERSION_NUMBER 200\r\nNUM_BLOCKS 9\n" + windowLine +
                          "\r\nBLOCK_DEFINE 5 8 \"l\" -1 -1 0 \"\" 0 0 0 0 1 \"7\"\r\n"
                          "BLOCK_DEFINE 6 8 \"l\" -1 -1 0 \"\" 0 0 0 1 5 3 \"7\" 8"));
    EXPECT_EQ(notes.lineTexts, (Texts{"1: VERSION_NUMBER 200", "2: NUM_BLOCKS 9", "3: " + windowLine,
                                      "4: BLOCK_DEFINE 5 8 \"l\" -1 -1 0 \"\" 0 0 0 0 1 \"7\"",
                                      "5: BLOCK_DEFINE 6 8 \"l\" -1 -1 0 \"\" 0 0 0 1 5 3 \"7\" 8"}));
    EXPECT_EQ(notes.blocks, (Texts{"4: 5 says 1 has 1", "5: 6 says 3 has 2"}));
    EXPECT_EQ(notes.failure, "");
}

TEST_F(ReadSinks, AreToldTheTokenThatFailed) {
    const std::string good = "BLOCK_DEFINE 5 8 \"l\" -1 -1 0 \"\" 0 0 0 1 3 1 \"7\"";
    const struct {
        std::string line, failure;
    } cases[] = {
        {"BLOCK_DEFINE x", "5.2 13"},
        {"BLOCK_DEFINE 40000", "5.2 6"},
        {"BLOCK_DEFINE 1100", "5.2 9"},
        {"BLOCK_DEFINE 6 BLOCK_DEFINE", "5.3 13"},
        {"BLOCK_DEFINE 6 8 \"l\" l5", "5.5 13"},
        {"BLOCK_DEFINE 6 8 \"l\" -1 -1 0 \"\" 0 0 x", "5.11 13"},
        {"BLOCK_DEFINE 6 8 \"l\" -1 -1 0 \"\" 0 0 0 2 3 \"7\"", "5.14 13"},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(readNoted(header + lines({good, c.line})));
        EXPECT_EQ(notes.failure, c.failure) << c.line;
        EXPECT_EQ(boxes(), Texts{failed});
        EXPECT_EQ(notes.blocks, Texts{"4: 5 says 1 has 1"});
    }
}

TEST_F(ReadSinks, AreToldTheHeaderLineThatFailed) {
    const std::pair<std::string, int> cases[] = {
        {"VERSION_NUMBER", 1},
        {"VERSION_NUMBER 200\r\nNUM_BLOCKS 1\r\nBLOCK_DEFINE", 3},
        {"VERSION_NUMBER 200\r\nNUM_BLOCKS 1\r\nWINDOW_PARAMS_DEFINE x", 3},
    };
    for (const auto& [text, line] : cases) {
        EXPECT_FALSE(readNoted(text));
        EXPECT_TRUE(notes.failure.starts_with(std::to_string(line) + '.')) << notes.failure;
        EXPECT_EQ(boxes(), Texts{failed});
    }
}

TEST_F(ReadSinks, ATextInMemoryRaisesItsFailure) {
    EXPECT_TRUE(
        readProgramText(*document, header + lines({"BLOCK_DEFINE 5 18 \"\xFC\" -1 -1 0 \"\" 1 0 0 0 0 "}), notes));
    EXPECT_EQ(at(5).strBlockLabel, "\xC3\xBC");
    EXPECT_EQ(raisedBy([&] { readProgramText(*document, header + "BLOCK_DEFINE x", notes); }), 13);
    EXPECT_EQ(notes.failure, "4.2 13");
    EXPECT_EQ(told(), Texts{}) << "without a box";
}

TEST_F(ReadSinks, AFileThatIsTooLargeIsNotRead) {
    EXPECT_FALSE(readNoted(std::string(largestProgram + 1, 'x')));
    EXPECT_EQ(boxes(), Texts{failed});
}

}  // namespace
}  // namespace canvas
