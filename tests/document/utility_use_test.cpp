// What reading, writing and checking ask of the outside Utility library, which a host may replace.

#include <array>

#include "host/utility.h"
#include "tests/document/reading.h"
#include "tests/host/scratch.h"

namespace canvas {
namespace {

using namespace fixture;

/// The default library behind a notebook. It does not say that it is plain, so that every text goes through it.
class NotingLibrary final : public UtilityLibrary {
public:
    Texts calls;

    std::string FileTitleOf(std::string_view path) override {
        note("FileTitleOf", path);
        return m_rest->FileTitleOf(path);
    }
    std::string HexText(std::string_view digits) override { return m_rest->HexText(digits); }
    std::array<std::string, 9> SplitLine(std::string_view line) override {
        note("SplitLine", line);
        return m_rest->SplitLine(line);
    }
    std::string StripQuotes(std::string_view token) override {
        note("StripQuotes", token);
        return m_rest->StripQuotes(token);
    }
    std::string ConvertLabel(std::string_view text, bool flag1, bool flag2) override {
        note(std::string("ConvertLabel ") + (flag1 ? '1' : '0') + (flag2 ? '1' : '0'), text);
        return m_rest->ConvertLabel(text, flag1, flag2);
    }
    std::string FileFormatVersion() override { return m_rest->FileFormatVersion(); }

private:
    void note(const std::string& operation, std::string_view text) {
        calls.push_back(operation + " <" + std::string(text) + '>');
    }
    std::shared_ptr<UtilityLibrary> m_rest = makeUtilityLibrary();
};

struct UtilityUse : Reading {
    std::shared_ptr<NotingLibrary> library = std::make_shared<NotingLibrary>();
    WithEnvironment noting{[this] {
        Environment own;
        own.utility = library;
        return own;
    }()};
    Texts asked() const { return std::exchange(library->calls, {}); }
};

TEST_F(UtilityUse, AReaderSplitsTheWindowAndStripsTextsAndValues) {
    mustRead({"BLOCK_DEFINE 5 8 \"a b\" -1 -1 0 \"u\" 0 0 0 1 3 1 \"7\""});
    EXPECT_EQ(asked(), (Texts{"SplitLine <" + windowLine + ">", "StripQuotes <\"a b\">", "ConvertLabel 00 <a b>",
                              "StripQuotes <\"u\">", "StripQuotes <\"7\">"}));
    EXPECT_EQ(at(5).strBlockLabel, "a b");
    EXPECT_EQ(setting(5, "Deceleration"), Value("7"));
}

TEST_F(UtilityUse, ANotesLabelIsConvertedTwice) {
    mustRead(
        {"TEXT_DEFINE 3 27 \"\xC2\xB6"
         "a\" -1 -1 0 \"\" 0 1 1 0 0"});
    const Texts calls = asked();
    ASSERT_GE(calls.size(), 4U);
    EXPECT_EQ(calls[2],
              "ConvertLabel 00 <\xC2\xB6"
              "a>");
    EXPECT_EQ(calls[3],
              "ConvertLabel 01 <\xC2\xB6"
              "a>");
    EXPECT_EQ(at(3).strBlockLabel, "a");
}

TEST_F(UtilityUse, AWriterConvertsTheLabelsOfNotesOnly) {
    add(3, NodeText, "a\rb");
    add(5, IFFAULT, "c");
    document->WriteFile("p.bpg");
    EXPECT_EQ(asked(), Texts{"ConvertLabel 11 <a\rb>"});
}

TEST_F(UtilityUse, TheSelfCallReducesTheDocumentsNameOnly) {
    document->strName = "C:\\m\\press.bpg";
    const auto attribute = foreignAttribute();
    attribute->property("title", "x\\press.bpg");
    addForeign(5, SUPERBLOCK, attribute);
    EXPECT_FALSE(document->Recursive());
    EXPECT_EQ(asked(), Texts{"FileTitleOf <C:\\m\\press.bpg>"});
}

TEST_F(UtilityUse, AnExampleReadThroughAHostsLibraryIsTheSameProgram) {
    const std::string bytes = scratch::bytesOf(CANVAS_SOURCE_DIR "/examples/pick_and_place.bpa");
    ASSERT_TRUE(read(bytes));
    document->WriteFile("q.bpg");
    EXPECT_EQ(disk->contents["q.bpa"], bytes);
}

}  // namespace
}  // namespace canvas
