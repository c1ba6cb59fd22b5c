// The letters of labels and values on disk.

#include "tests/document/reading.h"

namespace canvas {
namespace {

using namespace fixture;

const std::string mark = "\xEF\xBB\xBF";

struct ProgramEncoding : Reading {
    /// The bytes of a saved program with one label and one value.
    std::string saved(const std::string& label, const std::string& value = {}) {
        document = make<clsBVTCanvas>();
        add(5, IFEVENT, label).BVTAttribute()->put("EventK", Value(value));
        document->WriteFile("p.bpg");
        return disk->contents["p.bpa"];
    }
    static std::string line(const std::string& label, const std::string& value = {}) {
        return "BLOCK_DEFINE 5 14 \"" + label + "\" -1 -1 0 \"\" 1 0 0 0 1 \"" + value + "\"\r\n";
    }
    /// The label that comes back from these bytes of a label.
    std::string labelFrom(const std::string& bytes, const std::string& before = {}) {
        document = make<clsBVTCanvas>();
        EXPECT_TRUE(read(before + header + line(bytes)));
        EXPECT_EQ(told(), Texts{});
        return at(5).strBlockLabel;
    }
};

TEST_F(ProgramEncoding, TextThatFitsIsWindows1252) {
    EXPECT_TRUE(saved("gr\xC3\xBC\xC3\x9F", "45\xC2\xB0").ends_with(line("gr\xFC\xDF", "45\xB0")));
    EXPECT_TRUE(saved("\xE2\x82\xAC \xE2\x80\x94 \xC5\xB8").ends_with(line("\x80 \x97 \x9F")));
    EXPECT_TRUE(saved("plain").starts_with("VERSION_NUMBER "));
}

TEST_F(ProgramEncoding, ThePilcrowOfANoteIsOneByte) {
    add(3, NodeText, "a\rb");
    document->WriteFile("p.bpg");
    EXPECT_NE(disk->contents["p.bpa"].find("27 \"\xB6"
                                           "a\xB6"
                                           "b\" "),
              std::string::npos);
}

TEST_F(ProgramEncoding, OtherTextIsUtf8WithAMark) {
    const std::string bytes = saved("\xE5\x8E\x9F\xE7\x82\xB9", "gr\xC3\xBC\xC3\x9F");
    EXPECT_TRUE(bytes.starts_with(mark + "VERSION_NUMBER 200\r\n"));
    EXPECT_TRUE(bytes.ends_with(line("\xE5\x8E\x9F\xE7\x82\xB9", "gr\xC3\xBC\xC3\x9F")));
}

TEST_F(ProgramEncoding, TextWhoseBytesWouldPassForUtf8IsUtf8) {
    const std::string bytes = saved("\xC3\x83\xC2\xA9");  // "Ã©": C3 A9 in Windows-1252
    EXPECT_TRUE(bytes.starts_with(mark));
    EXPECT_TRUE(bytes.ends_with(line("\xC3\x83\xC2\xA9")));
    EXPECT_FALSE(saved("\xC3\x83").starts_with(mark)) << "one of the two alone does not";
}

TEST_F(ProgramEncoding, UndefinedBytesAreControlCharactersAndBack) {
    for (const char byte : {'\x81', '\x8D', '\x8F', '\x90', '\x9D'}) {
        const std::string label = labelFrom(std::string("a") + byte + " b");
        EXPECT_EQ(label, std::string("a\xC2") + byte + " b");
        EXPECT_TRUE(saved(label).ends_with(line(std::string("a") + byte + " b")));
    }
}

TEST_F(ProgramEncoding, AReaderTellsTheThreeApart) {
    EXPECT_EQ(labelFrom("gr\xFC\xDF"), "gr\xC3\xBC\xC3\x9F");
    EXPECT_EQ(labelFrom("gr\xC3\xBC\xC3\x9F"), "gr\xC3\xBC\xC3\x9F") << "without a mark";
    EXPECT_EQ(labelFrom("gr\xC3\xBC\xC3\x9F", mark), "gr\xC3\xBC\xC3\x9F");
    EXPECT_EQ(labelFrom("plain", mark), "plain");
    EXPECT_EQ(labelFrom("\xC3\xBC and \xFC"), "\xC3\x83\xC2\xBC and \xC3\xBC")
        << "one invalid sequence, and all is Windows-1252";
}

TEST_F(ProgramEncoding, NoByteOfALabelIsLost) {
    for (int byte = 1; byte < 256; ++byte) {
        if (byte == '\n' || byte == '\r' || byte == '"') continue;
        const std::string bytes = header + line(std::string("x") + static_cast<char>(byte) + "y");
        document = make<clsBVTCanvas>();
        EXPECT_TRUE(read(bytes)) << byte;
        document->WriteFile("q.bpg");
        const std::string& again = disk->contents["q.bpa"];
        EXPECT_EQ(again.substr(again.find("BLOCK")), bytes.substr(bytes.find("BLOCK"))) << byte;
    }
}

TEST_F(ProgramEncoding, EveryLetterOfALabelComesBack) {
    for (const std::string label : {"\xC3\x83\xC2\xA9", "\xC2\xB6", "\xF0\x9F\x9A\x80", "\xE2\x82\xAC", "\xEF\xBB\xBFx",
                                    "\xC2\x81\xC2\x9D", "\xC3\xA2\xE2\x82\xAC\xE2\x84\xA2", "\xEF\xBF\xBD"}) {
        saved(label, label);
        document = make<clsBVTCanvas>();
        EXPECT_TRUE(document->Readfile("p.bpg"));
        EXPECT_EQ(at(5).strBlockLabel, label);
        EXPECT_EQ(setting(5, "EventK"), Value(label));
    }
}

}  // namespace
}  // namespace canvas
