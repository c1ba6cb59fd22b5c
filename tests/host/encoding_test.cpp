#include "host/encoding.h"

#include <gtest/gtest.h>

#include "host/text.h"

namespace canvas {
namespace {

using namespace std::string_literals;

const std::string mark = "\xEF\xBB\xBF";

TEST(Encoding, EveryByteComesBack) {
    for (int code = 0; code < 256; ++code) {
        const std::string bytes(1, static_cast<char>(code));
        const std::string text = encoding::decode(bytes);
        EXPECT_TRUE(text::isUtf8(text)) << code;
        EXPECT_EQ(encoding::encode(text), bytes) << code;
    }
}

TEST(Encoding, AllBytesTogetherComeBack) {
    std::string bytes;
    for (int code = 255; code >= 0; --code) bytes += static_cast<char>(code);
    EXPECT_EQ(encoding::encode(encoding::decode(bytes)), bytes);
}

TEST(Encoding, EveryPairOfCharactersComesBack) {
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second) {
            const std::string text = encoding::decode(std::string(1, static_cast<char>(first))) +
                                     encoding::decode(std::string(1, static_cast<char>(second)));
            ASSERT_EQ(encoding::decode(encoding::encode(text)), text) << first << ' ' << second;
        }
}

TEST(Encoding, Windows1252BytesAreTheirCharacters) {
    const struct {
        std::string_view byte, text;
    } rows[] = {
        {"\x80", "€"},      {"\x81", "\u0081"}, {"\x82", "‚"},      {"\x83", "ƒ"},      {"\x84", "„"},
        {"\x85", "…"},      {"\x86", "†"},      {"\x87", "‡"},      {"\x88", "ˆ"},      {"\x89", "‰"},
        {"\x8A", "Š"},      {"\x8B", "‹"},      {"\x8C", "Œ"},      {"\x8D", "\u008D"}, {"\x8E", "Ž"},
        {"\x8F", "\u008F"}, {"\x90", "\u0090"}, {"\x91", "‘"},      {"\x92", "’"},      {"\x93", "“"},
        {"\x94", "”"},      {"\x95", "•"},      {"\x96", "–"},      {"\x97", "—"},      {"\x98", "˜"},
        {"\x99", "™"},      {"\x9A", "š"},      {"\x9B", "›"},      {"\x9C", "œ"},      {"\x9D", "\u009D"},
        {"\x9E", "ž"},      {"\x9F", "Ÿ"},      {"\xA0", "\u00A0"}, {"\xB6", "¶"},      {"\xC4", "Ä"},
        {"\xE9", "é"},      {"\xFF", "ÿ"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(encoding::decode(std::string(row.byte)), row.text);
        EXPECT_EQ(encoding::encode(std::string(row.text)), row.byte);
    }
}

TEST(Encoding, ThePilcrowIsOneByte) {
    EXPECT_EQ(encoding::encode("TEXT_DEFINE 3 27 \"¶first¶second\""),
              "TEXT_DEFINE 3 27 \"\xB6"
              "first\xB6second\"");
}

TEST(Encoding, AsciiIsNeitherCopiedNorMarked) {
    std::string text(1000, 'x');
    const char* const place = text.data();
    std::string bytes = encoding::encode(std::move(text));
    EXPECT_EQ(bytes.data(), place);
    const std::string back = encoding::decode(std::move(bytes));
    EXPECT_EQ(back.data(), place);
    EXPECT_EQ(back, std::string(1000, 'x'));
    EXPECT_EQ(encoding::encode(""), "");
    EXPECT_EQ(encoding::decode(""), "");
}

TEST(Encoding, TextBeyondWindows1252IsMarkedUtf8) {
    for (const std::string text : {"漢字", "Ж", "\U0001F600", "\u0080", "a\u0301"}) {
        EXPECT_EQ(encoding::encode(text), mark + text);
        EXPECT_EQ(encoding::decode(mark + text), text);
    }
}

TEST(Encoding, TextThatWouldReadAsUtf8IsMarked) {
    for (const std::string text : {"Ã©", "label \"Ã©\"", "â‚¬", "Â¶"}) {
        EXPECT_EQ(encoding::encode(text), mark + text);
        EXPECT_EQ(encoding::decode(encoding::encode(text)), text);
    }
    EXPECT_EQ(encoding::encode("Ã© é"), "\xC3\xA9 \xE9");
    EXPECT_EQ(encoding::decode("\xC3\xA9 \xE9"), "Ã© é");
}

TEST(Encoding, TextThatBeginsLikeAMarkComesBack) {
    for (const std::string text : {"ï»¿", "ï»¿abc", "ï»¿é", "\uFEFF", "\uFEFFabc", "\uFEFF\uFEFF"})
        EXPECT_EQ(encoding::decode(encoding::encode(text)), text);
}

TEST(Encoding, UnmarkedUtf8IsRecognised) {
    EXPECT_EQ(encoding::decode("caf\xC3\xA9"), "café");
    EXPECT_EQ(encoding::decode("\xE6\xBC\xA2"), "漢");
    EXPECT_EQ(encoding::decode("caf\xC3\xA9 \xE9"), "cafÃ© é");
    EXPECT_EQ(encoding::decode("caf\xE9"), "café");
    EXPECT_EQ(encoding::decode("\xED\xA0\x80"), "í\u00A0€");
    EXPECT_EQ(encoding::decode("\xC0\x80"), "À€");
}

TEST(Encoding, AMarkAloneIsAnEmptyText) { EXPECT_EQ(encoding::decode(mark), ""); }

TEST(Encoding, HalfAMarkIsWindows1252) { EXPECT_EQ(encoding::decode("\xEF\xBB"), "ï»"); }

TEST(Encoding, InvalidBytesAfterAMarkAreWindows1252) {
    EXPECT_EQ(encoding::decode(mark + "caf\xC3\xA9 \xE9 \x80"), "café é €");
    EXPECT_EQ(encoding::decode(mark + "\xE6\xBC"), "æ¼");
}

TEST(Encoding, NulBytesSurvive) {
    EXPECT_EQ(encoding::decode("a\0b"s), "a\0b"s);
    EXPECT_EQ(encoding::encode("a\0b"s), "a\0b"s);
    EXPECT_EQ(encoding::decode("a\0\xE9"s), "a\0é"s);
    EXPECT_EQ(encoding::encode("a\0é"s), "a\0\xE9"s);
    EXPECT_EQ(encoding::encode("a\0漢"s), mark + "a\0漢"s);
}

TEST(Encoding, ABrokenTextIsWrittenAsTheBytesItHolds) {
    EXPECT_EQ(encoding::encode("a\xE9"), "a\xE9");
    EXPECT_EQ(encoding::encode("漢\xE9"), mark + "漢é");
}

}  // namespace
}  // namespace canvas
