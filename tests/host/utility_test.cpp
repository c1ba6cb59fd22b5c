#include "host/utility.h"

#include <gtest/gtest.h>

using namespace canvas;

namespace {

struct Utility : testing::Test {
    std::shared_ptr<UtilityLibrary> library = makeUtilityLibrary();
};

using Words = std::array<std::string, 9>;

}  // namespace

TEST_F(Utility, TheFileTitleIsTheLastComponentWithItsExtension) {
    const struct {
        const char *path, *title;
    } cases[] = {
        {"sub.bpg", "sub.bpg"},
        {"C:\\project\\sub.bpg", "sub.bpg"},
        {"/project/sub.bpg", "sub.bpg"},
        {".\\sub.bpg", "sub.bpg"},
        {"a/b\\c.d.bpa", "c.d.bpa"},
        {"a\\b/c", "c"},
        {"C:\\two words\\a b", "a b"},
        {"folder\\", ""},
        {"", ""},
        {"C:sub.bpg", "C:sub.bpg"},
    };
    for (const auto& c : cases) EXPECT_EQ(library->FileTitleOf(c.path), c.title) << c.path;
}

TEST_F(Utility, HexadecimalDigitsAreUpperCaseAndAtLeastFour) {
    const struct {
        const char *digits, *text;
    } cases[] = {{"1234", "1234"},   {"0", "0000"},           {"", "0000"}, {"a", "000A"}, {"beef", "BEEF"},
                 {"1a2b3", "1A2B3"}, {"ffffffff", "FFFFFFFF"}};
    for (const auto& c : cases) EXPECT_EQ(library->HexText(c.digits), c.text);
}

TEST_F(Utility, ALineSplitsAtSingleBlanksIntoNineWords) {
    const struct {
        const char* line;
        Words words;
    } cases[] = {
        {"", Words{}},
        {"one", Words{"one"}},
        {"WINDOW_PARAMS_DEFINE 1 2 3 4 100% 5 6 0",
         Words{"WINDOW_PARAMS_DEFINE", "1", "2", "3", "4", "100%", "5", "6", "0"}},
        {"a b c", Words{"a", "b", "c"}},
        {"a  b", Words{"a", "", "b"}},
        {" a", Words{"", "a"}},
        {"a ", Words{"a"}},
        {"1 2 3 4 5 6 7 8 9 10 11", Words{"1", "2", "3", "4", "5", "6", "7", "8", "9"}},
        {"a\tb c", Words{"a\tb", "c"}},
    };
    for (const auto& c : cases) EXPECT_EQ(library->SplitLine(c.line), c.words) << c.line;
}

TEST_F(Utility, OnePairOfQuotesIsStripped) {
    const struct {
        const char *token, *stripped;
    } cases[] = {
        {"\"text\"", "text"}, {"text", "text"},         {"\"\"", ""},           {"", ""},         {"\"", "\""},
        {"\"open", "\"open"}, {"closed\"", "closed\""}, {"\"\"a\"\"", "\"a\""}, {"a\"b", "a\"b"}, {" \"a\"", " \"a\""},
    };
    for (const auto& c : cases) EXPECT_EQ(library->StripQuotes(c.token), c.stripped) << c.token;
}

TEST_F(Utility, LabelsAreConvertedByTheirTwoFlags) {
    const struct {
        const char* text;
        bool flag1, flag2;
        const char* converted;
    } cases[] = {
        {"one\r\ntwo", true, true, "one¶two"},
        {"one\rtwo", true, true, "one¶two"},
        {"one\ntwo", true, true, "one¶two"},
        {"a\r\r\n\n\rb\r", true, true, "a¶¶¶¶b¶"},
        {"a\r\n", true, true, "a¶"},
        {"plain", true, true, "plain"},
        {"", true, true, ""},
        {"¶stays", true, true, "¶stays"},
        {"one\r\ntwo", true, false, "one¶two"},
        {"one\r\n¶two", false, false, "one\r\n¶two"},
        {"¶note¶", false, false, "¶note¶"},
        {"¶note¶", false, true, "note¶"},
        {"¶¶note", false, true, "¶note"},
        {"note¶", false, true, "note¶"},
        {"", false, true, ""},
        {"\xC2", false, true, "\xC2"},
    };
    for (const auto& c : cases) EXPECT_EQ(library->ConvertLabel(c.text, c.flag1, c.flag2), c.converted) << c.text;
}

TEST_F(Utility, ANoteComesBackAsItWasWritten) {
    for (const std::string note : {"first line\rsecond\r\rfourth", "¶ begins with the sign", ""}) {
        const std::string written = "¶" + library->ConvertLabel(note, true, true);
        const std::string read = library->ConvertLabel(library->ConvertLabel(written, false, false), false, true);
        EXPECT_EQ(read, library->ConvertLabel(note, true, true));
    }
}

TEST_F(Utility, TheFileFormatVersionIsTwoHundred) { EXPECT_EQ(library->FileFormatVersion(), "200"); }

TEST_F(Utility, OnlyTheDefaultLibraryIsPlain) {
    struct Other : UtilityLibrary {
        std::string FileTitleOf(std::string_view) override { return {}; }
        std::string HexText(std::string_view) override { return {}; }
        Words SplitLine(std::string_view) override { return {}; }
        std::string StripQuotes(std::string_view) override { return {}; }
        std::string ConvertLabel(std::string_view, bool, bool) override { return {}; }
        std::string FileFormatVersion() override { return {}; }
    };
    EXPECT_TRUE(library->plain());
    EXPECT_FALSE(Other().plain());
}
