// Notes: several lines of text in one label, through a file and back.

#include "attributes/plain.h"
#include "tests/document/reading.h"

namespace canvas {
namespace {

using namespace fixture;

#define PILCROW "\xC2\xB6"

struct NoteLabel : Reading {
    /// Reads a note whose label token is this text.
    const clsBVTNodeText& readNote(const std::string& label) {
        document = make<clsBVTCanvas>();
        mustRead({"TEXT_DEFINE 3 27 \"" + label + "\" -1 -1 0 \"\" 0 1 1 0 0 "});
        return dynamic_cast<const clsBVTNodeText&>(*at(3).BVTAttribute());
    }
};

TEST_F(NoteLabel, ItsLinesAreCountedAndJoinedByCarriageReturns) {
    const struct {
        std::string token, label, text;
        std::int16_t lineCount, longest, charCount;
    } cases[] = {
        {PILCROW "one", "one", "one" PILCROW, 1, 5, 4},
        {PILCROW "longer line", "longer line", "longer line" PILCROW, 1, 11, 12},
        {PILCROW "a" PILCROW "bb" PILCROW "ccccccc", "a\rbb\rccccccc", "a" PILCROW "bb" PILCROW "ccccccc" PILCROW, 3, 7,
         13},
        {PILCROW "end" PILCROW PILCROW PILCROW, "end", "end" PILCROW, 1, 5, 4},
        {PILCROW PILCROW "second", "\rsecond", PILCROW "second" PILCROW, 2, 6, 8},
        {PILCROW "a" PILCROW PILCROW "b", "a\r\rb", "a" PILCROW PILCROW "b" PILCROW, 3, 5, 5},
        {"without mark", "without mark", "without mark" PILCROW, 1, 12, 13},
        {PILCROW, "", PILCROW, 1, 5, 1},
        {"", "", PILCROW, 1, 5, 1},
        {PILCROW "gr\xC3\xB6\xC3\x9F"
                 "er",
         "gr\xC3\xB6\xC3\x9F"
         "er",
         "gr\xC3\xB6\xC3\x9F"
         "er" PILCROW,
         1, 6, 7},
        {PILCROW "\xF0\x9F\x9A\x80\xF0\x9F\x9A\x80\xF0\x9F\x9A\x80", "\xF0\x9F\x9A\x80\xF0\x9F\x9A\x80\xF0\x9F\x9A\x80",
         "\xF0\x9F\x9A\x80\xF0\x9F\x9A\x80\xF0\x9F\x9A\x80" PILCROW, 1, 6, 7},
    };
    for (const auto& c : cases) {
        const clsBVTNodeText& note = readNote(c.token);
        EXPECT_EQ(at(3).strBlockLabel, c.label) << c.token;
        EXPECT_EQ(note.strNodeText, c.text) << c.token;
        EXPECT_EQ(note.LineCount, c.lineCount) << c.token;
        EXPECT_EQ(note.MaxCharPerLine, c.longest) << c.token;
        EXPECT_EQ(note.CharCount, c.charCount) << c.token;
    }
}

TEST_F(NoteLabel, TheTypeMakesTheNoteWhateverTheKeyword) {
    mustRead({"BLOCK_DEFINE 3 27 \"" PILCROW "a" PILCROW "b\" -1 -1 0 \"\" 0 1 1 0 0 ",
              "TEXT_DEFINE 4 18 \"" PILCROW "a" PILCROW "b\" -1 -1 0 \"\" 1 0 0 0 0 "});
    EXPECT_EQ(at(3).strBlockLabel, "a\rb");
    EXPECT_EQ(at(4).strBlockLabel, PILCROW "a" PILCROW "b");
}

TEST_F(NoteLabel, ANoteComesBackFromAFileAsItWasWritten) {
    for (const std::string label :
         {"one", "one\rtwo\rthree", "\rafter an empty line", "a\r\rb", "", PILCROW "own mark"}) {
        document = make<clsBVTCanvas>();
        add(3, NodeText, label);
        document->WriteFile("p.bpg");
        document = make<clsBVTCanvas>();
        EXPECT_TRUE(document->Readfile("p.bpg"));
        const std::string expected = label.starts_with(PILCROW) ? "\rown mark" : label;
        EXPECT_EQ(at(3).strBlockLabel, expected) << "a pilcrow stands for a line end";
        EXPECT_EQ(told(), Texts{});
    }
}

TEST_F(NoteLabel, LineEndsBehindTheLastLineAreLost) {
    add(3, NodeText, "one\r\r");
    document->WriteFile("p.bpg");
    document = make<clsBVTCanvas>();
    EXPECT_TRUE(document->Readfile("p.bpg"));
    EXPECT_EQ(at(3).strBlockLabel, "one");
}

TEST_F(NoteLabel, AnyKindOfLineEndComesBackAsACarriageReturn) {
    add(3, NodeText, "a\r\nb\nc\rd");
    document->WriteFile("p.bpg");
    document = make<clsBVTCanvas>();
    EXPECT_TRUE(document->Readfile("p.bpg"));
    EXPECT_EQ(at(3).strBlockLabel, "a\rb\rc\rd");
}

TEST_F(NoteLabel, TheFileKeepsOneLineForTheNoteAndTheBytesAfterASecondSave) {
    add(3, NodeText, "one\rtwo");
    document->WriteFile("p.bpg");
    const std::string first = disk->contents["p.bpa"];
    document = make<clsBVTCanvas>();
    document->Readfile("p.bpg");
    document->WriteFile("q.bpg");
    EXPECT_EQ(disk->contents["q.bpa"], first);
}

}  // namespace
}  // namespace canvas
