// The pages of the blocks are made from their tables, and checked in: these tests compare the two.

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>

#include "document/catalogue.h"
#include "tests/host/scratch.h"

namespace canvas {
namespace {

struct Answer {
    int code = -1;
    std::string text;
};

Answer describe(const std::string& arguments) {
    Answer answer;
    std::string line = CANVAS_CLI;
    line.append(" describe ").append(arguments).append(" 2>&1");
    std::FILE* pipe = popen(line.c_str(), "r");
    std::array<char, 4096> buffer{};
    for (std::size_t n; (n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) answer.text.append(buffer.data(), n);
    answer.code = pclose(pipe) >> 8;
    return answer;
}

std::string page(const std::string& fileName) {
    return scratch::bytesOf(CANVAS_SOURCE_DIR "/docs/blocks/" + fileName);
}

std::string fileNameOf(std::string_view displayName) {
    std::string name;
    for (const char c : displayName) name += c == ' ' ? '_' : static_cast<char>(std::tolower(c));
    return name + ".md";
}

TEST(Describe, EveryBlocksPageUnderDocsIsTheOneMadeFromItsTable) {
    for (const BlockClass& block : catalogue()) {
        const Answer made = describe("'" + std::string(block.displayName) + "'");
        EXPECT_EQ(made.code, 0);
        EXPECT_EQ(made.text, page(fileNameOf(block.displayName))) << block.displayName << ": run canvas describe --all --into docs/blocks";
    }
}

TEST(Describe, AllGivesThePagesOneAfterAnother) {
    std::string all;
    for (const BlockClass& block : catalogue()) all += page(fileNameOf(block.displayName)) + "\n";
    EXPECT_EQ(describe("--all").text, all);
}

TEST(Describe, TheIndexNamesEveryBlockOnce) {
    const std::string index = page("README.md");
    for (const BlockClass& block : catalogue())
        EXPECT_NE(index.find("[" + std::string(block.displayName) + "](" + fileNameOf(block.displayName) + ")"), std::string::npos);
}

TEST(Describe, ABlockIsFoundByDisplayNameClassMemberAndNumber) {
    const std::string expected = page("stop_motion.md");
    for (const auto* name : {"'stop motion'", "clsBVTAbortMotion", "ABORTMOTION", "8"}) EXPECT_EQ(describe(name).text, expected) << name;
}

TEST(Describe, APageTellsSettingsPanelRangesListsAndFileLine) {
    const std::string text = page("move_axis.md");
    for (const auto* part : {"# Move Axis", "Block type 2 (`MOVEAXIS`), class `clsBVTMoveAxis`: one way in, one way out.",
                             "| `TypeK` | `Absolute` | 0 | 1 | 5 |", "- Type: `Absolute` `Relative` `Rotary Shortest`",
                             "- Acceleration: Expecting a positive real number in the range of [0.0 To 3.402823E+38].",
                             "`6 \"0.0\" \"0.0\" \"0.0\" \"0.0\" \"Absolute\" 1`"})
        EXPECT_NE(text.find(part), std::string::npos) << part;
}

TEST(Describe, APageTellsALimitOfTheClassItself) {
    EXPECT_NE(page("change_dynamics.md").find("- SCurve: Expecting an integer in the range of [0 To 255]."), std::string::npos);
}

TEST(Describe, AnUnknownBlockIsWrongUsage) {
    const Answer answer = describe("'No Such Block'");
    EXPECT_EQ(answer.code, 2);
    EXPECT_EQ(answer.text, "canvas: no block is called 'No Such Block'; `canvas describe --all` lists them\n");
}

TEST(Describe, NeitherNameNorAllIsWrongUsage) {
    EXPECT_EQ(describe("").code, 2);
    EXPECT_EQ(describe("--all 8").code, 2);
    EXPECT_EQ(describe("8 --into /tmp").code, 2);
}

}  // namespace
}  // namespace canvas
