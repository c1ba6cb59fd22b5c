#include "document/program_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/program_reader.h"
#include "document/program_writer.h"
#include "tests/document/check_cases.h"
#include "tests/document/fixture.h"
#include "tests/host/scratch.h"

using namespace canvas;
using check_cases::edited;
using check_cases::goodLines;
using fixture::MemoryDisk;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

std::vector<std::string> briefly(const std::vector<Finding>& findings) {
    std::vector<std::string> texts;
    for (const Finding& f : findings)
        texts.push_back(std::to_string(f.line) + ' ' + std::to_string(f.block) + ' ' + std::string(nameOf(f.rule)));
    return texts;
}

std::vector<std::string> found(const std::string& bytes) { return briefly(checkProgram(bytes).findings); }

/// The reason of the only finding.
std::string reason(const std::vector<check_cases::Edit>& edits) {
    const auto findings = checkProgram(edited(edits)).findings;
    return findings.size() == 1 ? findings[0].reason : std::to_string(findings.size()) + " findings";
}

std::string example(const std::string& name) {
    return scratch::bytesOf(std::string(CANVAS_SOURCE_DIR) + "/examples/" + name + ".bpa");
}

}  // namespace

TEST(ProgramCheck, NamesEachFaultOnceAndNothingElse) {
    for (const auto& c : check_cases::faults())
        EXPECT_THAT(found(edited(c.edits)), ElementsAreArray(c.findings)) << c.title;
}

TEST(ProgramCheck, HasNothingAgainstAGoodProgram) {
    for (const auto& c : check_cases::goods()) EXPECT_THAT(found(edited(c.edits)), IsEmpty()) << c.title;
}

TEST(ProgramCheck, HasACaseForEveryRule) {
    std::vector<std::string> met{"too-many-blocks", "message"};  // tested below
    for (const auto& c : check_cases::faults())
        for (const std::string& finding : c.findings) met.push_back(finding.substr(finding.rfind(' ') + 1));
    // those of a folder are met in project_check_test.cpp
    for (const char* rule : {"no-subroutine", "outside-folder", "missing-subroutine", "recursive-subroutine", "title",
                             "missing-task", "launch-block"})
        met.push_back(rule);
    for (const RuleRow& row : rules()) EXPECT_THAT(met, ::testing::Contains(std::string(row.name)));
}

TEST(ProgramCheck, FindsTheSameInLinesThatEndInLineFeeds) {
    for (const auto& c : check_cases::faults()) {
        std::string text = edited(c.edits);
        if (c.title == "LineEndInAUserName") continue;
        std::erase(text, '\r');
        EXPECT_THAT(found(text), ElementsAreArray(c.findings)) << c.title;
    }
}

TEST(ProgramCheck, HasNothingAgainstTheWholeExamples) {
    for (const char* name :
         {"homing", "indexing_table", "filler", "press_feeder", "pick_and_place", "conveyor", "line_of_1000"})
        EXPECT_THAT(found(example(name)), IsEmpty()) << name;
}

// The lists follow the faults that examples/README.md names.
TEST(ProgramCheck, NamesEverySeededFaultOfTheMergedExample) {
    EXPECT_THAT(found(example("labeler_merge_damage")),
                ElementsAre("2 0 block-count", "3 0 window", "15 12 in-port", "18 15 same-target", "19 16 in-port",
                            "21 18 in-port-count", "26 0 id-zero", "27 22 duplicate-id", "28 23 in-port",
                            "30 25 in-port", "31 26 dangling-target", "38 33 in-port"));
}

TEST(ProgramCheck, NamesEverySeededFaultOfTheUnfinishedExample) {
    EXPECT_THAT(found(example("palletizer_unfinished")),
                ElementsAre("12 9 value-range", "14 11 value-range", "17 14 unreadable", "19 16 value-range",
                            "20 17 label", "21 18 unreadable", "22 19 port-flags", "24 21 connection",
                            "26 23 unknown-type", "26 23 unreadable", "27 24 value-count", "35 32 connection",
                            "36 33 connection", "38 35 connection", "39 1100 unreadable", "40 0 id-zero"));
}

TEST(ProgramCheck, SaysWhatAndWhere) {
    using check_cases::block4;
    EXPECT_EQ(reason({{2, "NUM_BLOCKS 5"}}), "NUM_BLOCKS says \"5\", and the file has 4 block lines");
    EXPECT_EQ(reason(block4(R"(0 "Fast" 2x -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")")),
              "the top target (token 5) is \"2x\", which is no number (Type mismatch)");
    EXPECT_EQ(reason(block4(R"(0 "Fast" 99999 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")")),
              "the top target (token 5) is \"99999\", which does not fit its range (Overflow)");
    EXPECT_EQ(reason(block4(R"(31 "Sensor" 2 -1 0 "" 0 0 0 1 3 2 "In1" 5)")),
              "the Condition (token 16) is \"5\", which is not a place in its list (Subscript out of range)");
    EXPECT_EQ(reason(block4(R"(0 "Fast" 2 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "256")")),
              "SCurve is \"256\": Expecting an integer in the range of [0 To 255].");
    EXPECT_EQ(reason(block4(R"(2 "Go" 2 -1 0 "" 0 0 0 1 3 6 "1" "1" "1" "1" "Up" 1)")),
              "Type is \"Up\", which is none of \"Absolute\", \"Relative\", \"Rotary Shortest\"");
    EXPECT_EQ(reason(block4(R"(0 "Fast" 2 -1 0 "" 0 0 0 1 3 5 "1" "1" "1" "1")")),
              "Change Dynamics has 4 values; the line declares \"5\" and holds 4");
    EXPECT_EQ(reason({{3, {}}, {4, {}}, {5, {}}, {6, {}}, {7, {}}}),
              "the file ends before line 3, which begins with WINDOW_PARAMS_DEFINE");
    EXPECT_EQ(reason({{6, R"(BLOCK_DEFINE 3 14 "Ready?" 4 -1 0 "" 1 0 0 1 1 1 "")"}}),
              "of its two output ports only the top one is connected");
}

TEST(ProgramCheck, CutsLongTextShort) {
    const std::string text =
        reason(check_cases::block4("0 \"Fast\" " + std::string(1000, 'x') + R"( -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"));
    EXPECT_THAT(text, HasSubstr('"' + std::string(60, 'x') + "...\""));
    EXPECT_LT(text.size(), 200U);
}

TEST(ProgramCheck, GoesOnBehindALineThatCannotBeRead) {
    EXPECT_THAT(found(edited({{2, "NUM_BLOCKS 9"},
                              {4, R"(BLOCK_DEFINE 1 17 "Start" x -1 0 "" 0 1 0 0 1 "")"},
                              {7, R"(BLOCK_DEFINE 4 0 "Fast" 2 y 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"}})),
                ElementsAre("2 0 block-count", "4 1 unreadable", "7 4 unreadable"));
}

TEST(ProgramCheck, TellsWhetherTheProgramCanBeOpened) {
    EXPECT_TRUE(checkProgram(edited({{2, "NUM_BLOCKS 9"}})).readable);
    EXPECT_FALSE(checkProgram(edited({{7, R"(BLOCK_DEFINE 4 0 "" x)"}})).readable);
}

TEST(ProgramCheck, GivesTheDocumentThatItRead) {
    const CheckedProgram checked = checkProgram(check_cases::joined(goodLines()));
    ASSERT_EQ(checked.document->GetBlockCount(), 4);
    EXPECT_EQ(programText(*checked.document), check_cases::joined(goodLines()));
}

TEST(ProgramCheck, TellsOnceThatADocumentIsFull) {
    std::vector<std::string> lines = goodLines();
    for (int id = 5; id <= 1023; ++id)
        lines.push_back("TEXT_DEFINE " + std::to_string(id) + " 27 \"¶\" -1 -1 0 \"\" 0 1 1 0 0 ");
    lines[1] = "NUM_BLOCKS 1023";
    EXPECT_THAT(found(check_cases::joined(lines)), IsEmpty());
    lines[1] = "NUM_BLOCKS 1025";
    lines.push_back(lines[6]);
    lines.push_back(lines[6]);
    const auto findings = checkProgram(check_cases::joined(lines)).findings;
    EXPECT_THAT(briefly(findings), ElementsAre("1027 0 too-many-blocks"));
    EXPECT_EQ(findings[0].reason, "the document is full with 1023 blocks; this line and 1 behind it are dropped");
}

namespace {

/// A host's library that has something to say.
class TalkativeLibrary final : public UtilityLibrary {
public:
    std::string FileTitleOf(std::string_view path) override { return m_plain->FileTitleOf(path); }
    std::string HexText(std::string_view digits) override { return m_plain->HexText(digits); }
    std::array<std::string, 9> SplitLine(std::string_view line) override { return m_plain->SplitLine(line); }
    std::string StripQuotes(std::string_view token) override { return m_plain->StripQuotes(token); }
    std::string ConvertLabel(std::string_view text, bool flag1, bool flag2) override {
        if (text == "Fast") tell("This label is too fast");
        return m_plain->ConvertLabel(text, flag1, flag2);
    }
    std::string FileFormatVersion() override { return "200"; }

private:
    std::shared_ptr<UtilityLibrary> m_plain = makeUtilityLibrary();
};

}  // namespace

TEST(ProgramCheck, TurnsAnyOtherMessageBoxIntoAFinding) {
    Environment talkative = environment();
    talkative.utility = std::make_shared<TalkativeLibrary>();
    const WithEnvironment inForce(talkative);
    const auto findings = checkProgram(check_cases::joined(goodLines())).findings;
    EXPECT_THAT(briefly(findings), ElementsAre("7 4 message"));
    EXPECT_EQ(findings[0].reason, "This label is too fast");
}

TEST(ProgramCheck, ShowsNoBox) {
    const auto reader = std::make_shared<fixture::Reader>();
    const WithEnvironment inForce(fixture::environmentWith(reader, nullptr));
    for (const auto& c : check_cases::faults()) checkProgram(edited(c.edits));
    EXPECT_THAT(reader->boxes, IsEmpty());
}

TEST(ProgramCheck, GivesUpWhereTooMuchCannotBeRead) {
    // each bad line makes the rest be read once more
    std::vector<std::string> lines = goodLines();
    for (int i = 0; i < 20000; ++i) lines.push_back("BLOCK_DEFINE x" + std::string(60, ' '));
    const auto findings = checkProgram(check_cases::joined(lines)).findings;
    EXPECT_LT(findings.size(), 20000U);
    EXPECT_EQ(findings.back().reason, "too much of the file is unreadable; the rest is not looked at");
}

TEST(ProgramCheckOfAFile, ReadsItOnce) {
    const auto disk = std::make_shared<MemoryDisk>();
    disk->contents["a.bpa"] = check_cases::joined(goodLines());
    const WithEnvironment inForce(fixture::environmentWith(nullptr, disk));
    EXPECT_THAT(checkProgramFile("a.bpa").findings, IsEmpty());
    EXPECT_THAT(disk->calls, ElementsAre("read a.bpa"));
}

TEST(ProgramCheckOfAFile, TellsWhyItCannotBeOpened) {
    const scratch::Folder folder;
    const auto answer = [&](const std::string& name) {
        const CheckedProgram checked = checkProgramFile(name);
        EXPECT_FALSE(checked.readable);
        EXPECT_THAT(briefly(checked.findings), ElementsAre("0 0 unreadable"));
        return checked.findings.empty() ? std::string() : checked.findings[0].reason;
    };
    EXPECT_EQ(answer(folder / "none.bpa"), "the file cannot be opened (File not found)");
    EXPECT_EQ(answer(folder / "none/a.bpa"), "the file cannot be opened (Path not found)");
    EXPECT_EQ(answer(folder.path()), "it is a folder, or something else that is no file (Path/File access error)");
    scratch::put(folder / "large.bpa", "");
    std::filesystem::resize_file(folder / "large.bpa", largestProgram + 1);
    EXPECT_EQ(answer(folder / "large.bpa"), "the file is larger than 64 MB");
}

TEST(Findings, StandInTheOrderOfTheirLines) {
    Findings findings;
    findings.add(9, 1, Rule::label, "a");
    findings.add(2, 2, Rule::label, "b");
    findings.add(9, 3, Rule::window, "c");
    EXPECT_THAT(briefly(findings.take()), ElementsAre("2 2 label", "9 1 label", "9 3 window"));
}

TEST(Findings, OfOneRuleAreLimited) {
    Findings findings;
    for (int i = 1; i <= Findings::mostOfOneRule + 3; ++i) findings.add(i, 0, Rule::label, "x");
    findings.add(1, 0, Rule::window, "y");
    const auto taken = findings.take();
    ASSERT_EQ(taken.size(), static_cast<std::size_t>(Findings::mostOfOneRule) + 2);
    EXPECT_EQ(taken.back().line, Findings::mostOfOneRule + 1);
    EXPECT_EQ(taken.back().reason, "there are 3 more findings of this rule, which are not listed");
}

TEST(Rules, HaveADocument) {
    std::string table;
    for (const RuleRow& row : rules())
        table += "| `" + std::string(row.name) + "` | " + std::string(row.meaning) + " |\n";
    const std::string document = scratch::bytesOf(std::string(CANVAS_SOURCE_DIR) + "/docs/rules.md");
    EXPECT_THAT(document, ::testing::EndsWith("| Rule | Meaning |\n|---|---|\n" + table));
}
