#include "host/text.h"

#include <gtest/gtest.h>

namespace canvas {
namespace {

using namespace std::string_literals;
using Parts = std::vector<std::string_view>;

TEST(Text, CaseCoversLettersBeyondAscii) {
    const struct {
        std::string_view lower, upper;
    } rows[] = {
        {"", ""},
        {"abc xyz 019_", "ABC XYZ 019_"},
        {"äöüéñ", "ÄÖÜÉÑ"},
        {"ÿ", "Ÿ"},
        {"œuvre", "ŒUVRE"},
        {"αβγ", "ΑΒΓ"},
        {"жя", "ЖЯ"},
        {"aé漢字", "AÉ漢字"},
        {"\U00010428", "\U00010400"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(text::upper(row.lower), row.upper);
        EXPECT_EQ(text::lower(row.upper), row.lower);
        EXPECT_EQ(text::upper(row.upper), row.upper);
        EXPECT_EQ(text::lower(row.lower), row.lower);
    }
}

TEST(Text, ALetterWithoutASingleCapitalStaysAsItIs) {
    EXPECT_EQ(text::upper("straße"), "STRAßE");
    EXPECT_EQ(text::upper("\uFB01n"), "\uFB01N");  // the ligature fi
}

TEST(Text, InvalidBytesSurviveAChangeOfCase) {
    EXPECT_EQ(text::upper("a\xFF"
                          "b\xC3"),
              "A\xFF"
              "B\xC3");
    EXPECT_EQ(text::lower("\xE9"
                          "A\0B"s),
              "\xE9"
              "a\0b"s);
}

TEST(Text, LengthCountsUtf16Units) {
    EXPECT_EQ(text::length(""), 0u);
    EXPECT_EQ(text::length("plain text longer than a word"), 29u);
    EXPECT_EQ(text::length("¶é"), 2u);
    EXPECT_EQ(text::length("漢字"), 2u);
    EXPECT_EQ(text::length("a\U0001F600b"), 4u);
    EXPECT_EQ(text::length("a\xFF\xC3"), 3u);
    EXPECT_EQ(text::length("a\0b"s), 3u);
}

TEST(Text, LeftCountsUtf16Units) {
    EXPECT_EQ(text::left("Émile", 0), "");
    EXPECT_EQ(text::left("Émile", 1), "É");
    EXPECT_EQ(text::left("Émile", 3), "Émi");
    EXPECT_EQ(text::left("Émile", 5), "Émile");
    EXPECT_EQ(text::left("Émile", 99), "Émile");
    EXPECT_EQ(text::left("plain text here", 9), "plain tex");
    EXPECT_EQ(text::left("a\xFF"
                         "b",
                         2),
              "a\xFF");
}

TEST(Text, ACutNeverSplitsACharacter) {
    EXPECT_EQ(text::left("a\U0001F600b", 2), "a");
    EXPECT_EQ(text::left("a\U0001F600b", 3), "a\U0001F600");
    EXPECT_EQ(text::withoutLast("ab\U0001F600", 1), "ab");
    EXPECT_EQ(text::withoutLast("ab\U0001F600", 2), "ab");
}

TEST(Text, WithoutLastCountsUtf16Units) {
    EXPECT_EQ(text::withoutLast("Main.bpg", 4), "Main");
    EXPECT_EQ(text::withoutLast("Main.bpg", 0), "Main.bpg");
    EXPECT_EQ(text::withoutLast("né", 1), "n");
    EXPECT_EQ(text::withoutLast("bpg", 3), "");
    EXPECT_EQ(text::withoutLast("bpg", 4), "");
    EXPECT_EQ(text::withoutLast("", 4), "");
}

TEST(Text, TrimmingTakesBlanksOnly) {
    EXPECT_EQ(text::trimmed("  a b  "), "a b");
    EXPECT_EQ(text::trimmed("\t a \r"), "\t a \r");
    EXPECT_EQ(text::trimmed("   "), "");
    EXPECT_EQ(text::trimmed(""), "");
}

TEST(Text, SplittingKeepsEmptyParts) {
    EXPECT_EQ(text::split("a,b", ","), (Parts{"a", "b"}));
    EXPECT_EQ(text::split(",a,,b,", ","), (Parts{"", "a", "", "b", ""}));
    EXPECT_EQ(text::split("a\r\nb\r\n", "\r\n"), (Parts{"a", "b", ""}));
    EXPECT_EQ(text::split("abc", ","), (Parts{"abc"}));
    EXPECT_EQ(text::split("abc", ""), (Parts{"abc"}));
    EXPECT_EQ(text::split(",", ","), (Parts{"", ""}));
}

TEST(Text, SplittingNothingGivesNoPart) { EXPECT_EQ(text::split("", ","), Parts{}); }

TEST(Text, ReplacingGoesOnceThroughTheText) {
    EXPECT_EQ(text::replaced("a\r\nb\r\n", "\r\n", "¶"), "a¶b¶");
    EXPECT_EQ(text::replaced("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(text::replaced("aaaa", "aa", "a"), "aa");
    EXPECT_EQ(text::replaced("abc", "x", "y"), "abc");
    EXPECT_EQ(text::replaced("abc", "b", ""), "ac");
    EXPECT_EQ(text::replaced("abc", "", "y"), "abc");
    EXPECT_EQ(text::replaced("", "x", "y"), "");
}

TEST(Text, Utf8IsJudgedByItsStandard) {
    for (const std::string& valid :
         {""s, "plain ASCII of more than eight bytes"s, "\0"s, "é"s, "\xC2\x80"s, "\xDF\xBF"s, "\xE0\xA0\x80"s,
          "\xED\x9F\xBF"s, "\xEE\x80\x80"s, "\xEF\xBF\xBF"s, "\xF0\x90\x80\x80"s, "\xF4\x8F\xBF\xBF"s, "12345678é"s})
        EXPECT_TRUE(text::isUtf8(valid)) << valid;
    for (const std::string& invalid :
         {"\x80"s, "\xBF"s, "a\xC3"s, "\xC3("s, "\xC0\x80"s, "\xC1\xBF"s, "\xE0\x9F\xBF"s, "\xE2\x82"s, "\xED\xA0\x80"s,
          "\xED\xBF\xBF"s, "\xF0\x8F\xBF\xBF"s, "\xF0\x9F\x98"s, "\xF4\x90\x80\x80"s, "\xF5\x80\x80\x80"s, "\xFE"s,
          "\xFF"s, "12345678\xE9"s})
        EXPECT_FALSE(text::isUtf8(invalid)) << invalid;
}

}  // namespace
}  // namespace canvas
