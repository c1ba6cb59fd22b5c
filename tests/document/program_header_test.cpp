// Reading: the name of the file, the version, and the window.

#include <array>

#include "host/utility.h"
#include "tests/document/reading.h"

namespace canvas {
namespace {

using namespace fixture;

/// The default library with another version of the file format.
class OtherVersion final : public UtilityLibrary {
public:
    explicit OtherVersion(std::string version) : m_version(std::move(version)) {}
    std::string FileTitleOf(std::string_view path) override { return m_rest->FileTitleOf(path); }
    std::string HexText(std::string_view digits) override { return m_rest->HexText(digits); }
    std::array<std::string, 9> SplitLine(std::string_view line) override { return m_rest->SplitLine(line); }
    std::string StripQuotes(std::string_view token) override { return m_rest->StripQuotes(token); }
    std::string ConvertLabel(std::string_view text, bool flag1, bool flag2) override {
        return m_rest->ConvertLabel(text, flag1, flag2);
    }
    std::string FileFormatVersion() override { return m_version; }

private:
    std::shared_ptr<UtilityLibrary> m_rest = makeUtilityLibrary();
    std::string m_version;
};

struct ProgramHeader : Reading {
    const std::string block = "BLOCK_DEFINE 5 18 \"f\" -1 -1 0 \"\" 1 0 0 0 0 ";
    const std::string newer =
        "information||This file was created by a newer version of Brevant+.  Unexpected results may occur.\r\n"
        "Contact Orlant support to obtain a newer version of Brevant+.";

    bool readVersion(const std::string& versionLine) {
        document = make<clsBVTCanvas>();
        return read(lines({versionLine, "NUM_BLOCKS 1", windowLine, block}));
    }
    bool readWindow(const std::string& line) {
        document = make<clsBVTCanvas>();
        return read(lines({"VERSION_NUMBER 200", "NUM_BLOCKS 1", line, block}));
    }
    /// left top height width zoom xpos ypos state
    std::string window() const {
        std::string text;
        for (const std::string_view name :
             {"FormLeft", "FormTop", "FormHeight", "FormWidth", "FormZoom", "FormXPos", "FormYPos", "FormWindowState"})
            text += document->get(name).toText() + ' ';
        return text;
    }
};

TEST_F(ProgramHeader, TheLastFourCharactersOfTheNameAreReplaced) {
    const std::pair<std::string, std::string> names[] = {
        {"press.bpg", "press.bpa"},
        {"press.bpa", "press.bpa"},
        {"press.txt", "press.bpa"},
        {"press.BPG", "press.bpa"},
        {"press.b", "pre.bpa"},
        {"press", "p.bpa"},
        {".bpg", ".bpa"},
        {"a\\b.bpg", "a\\b.bpa"},
        {"press.bpg.bak", "press.bpg.bpa"},
        {"m\xC3\xA4rz.bpg", "m\xC3\xA4rz.bpa"},
    };
    for (const auto& [given, onDisk] : names) {
        document->Readfile(given);
        EXPECT_EQ(disk->calls.back(), "read " + onDisk);
    }
}

TEST_F(ProgramHeader, ANameOfLessThanFourCharactersFails) {
    for (const std::string name : {"", "a", "bpa"}) {
        EXPECT_FALSE(document->Readfile(name));
        EXPECT_EQ(boxes(), Texts{"critical|File Error|'" + name + "' cannot be opened"});
    }
    EXPECT_EQ(disk->calls, Texts{});
}

TEST_F(ProgramHeader, AFailureNamesTheFileAsItWasAskedFor) {
    EXPECT_FALSE(document->Readfile("C:\\Machines\\press.bpg"));
    EXPECT_EQ(boxes(), Texts{"critical|File Error|'C:\\Machines\\press.bpg' cannot be opened"});
    EXPECT_EQ(document->strName, "");
}

TEST_F(ProgramHeader, AnEmptyDocumentNameBecomesTheFilesName) {
    EXPECT_TRUE(readVersion("VERSION_NUMBER 200"));
    EXPECT_EQ(document->strName, "p.bpg");
    document->Clear();
    document->strName = "drawing";
    read(header + block);
    EXPECT_EQ(document->strName, "drawing");
}

TEST_F(ProgramHeader, HeaderLinesAloneAreNoProgramButSetTheWindow) {
    EXPECT_FALSE(read(lines({"VERSION_NUMBER 150", "NUM_BLOCKS 0", "WINDOW_PARAMS_DEFINE 1 2 3 4 50% 5 6 1"})));
    EXPECT_EQ(told(), Texts{});
    EXPECT_EQ(window(), "1 2 3 4 0.5 5 6 1 ");
    EXPECT_EQ(document->GetVersionNumber(), "150");
    EXPECT_EQ(document->strName, "p.bpg");
}

TEST_F(ProgramHeader, ReadingLeavesChangedAlone) {
    document->blnChanged = true;
    read(header + block);
    EXPECT_TRUE(document->blnChanged);
}

TEST_F(ProgramHeader, TheSecondWordIsTheVersion) {
    EXPECT_TRUE(readVersion("VERSION_NUMBER 200 of today"));
    EXPECT_EQ(document->GetVersionNumber(), "200");
    EXPECT_TRUE(readVersion("anything 150"));
    EXPECT_EQ(document->GetVersionNumber(), "150");
    EXPECT_EQ(told(), Texts{});
}

TEST_F(ProgramHeader, ANewerVersionIsToldAndReadAllTheSame) {
    for (const std::string version : {"201", "300", "20000", "21", "9"}) {
        EXPECT_TRUE(readVersion("VERSION_NUMBER " + version));
        EXPECT_EQ(boxes(), Texts{newer}) << version;
        EXPECT_EQ(document->GetBlockCount(), 1);
    }
    for (const std::string version : {"200", "199", "100", "1000", "1"}) {
        EXPECT_TRUE(readVersion("VERSION_NUMBER " + version));
        EXPECT_EQ(boxes(), Texts{}) << version;
    }
}

TEST_F(ProgramHeader, VersionsCompareAsTextSoThat99IsNewerThan100) {
    Environment own;
    own.utility = std::make_shared<OtherVersion>("100");
    const WithEnvironment inside(own);
    EXPECT_TRUE(readVersion("VERSION_NUMBER 99"));
    EXPECT_EQ(boxes(), Texts{newer});
    EXPECT_TRUE(readVersion("VERSION_NUMBER 100"));
    EXPECT_EQ(boxes(), Texts{});
}

TEST_F(ProgramHeader, AVersionThatIsNoNumberFailsAtTheFirstBlock) {
    for (const std::string version : {"2x", "100a", "\"200\"", "1.0.0"}) {
        EXPECT_FALSE(readVersion("VERSION_NUMBER " + version));
        EXPECT_EQ(boxes().back(), failed) << version;
        EXPECT_EQ(document->GetBlockCount(), 0);
        EXPECT_EQ(document->GetVersionNumber(), version);
    }
    EXPECT_FALSE(read(lines({"VERSION_NUMBER 1x", "NUM_BLOCKS 0", windowLine})));
    EXPECT_EQ(boxes(), Texts{}) << "without a block nobody asks";
}

TEST_F(ProgramHeader, AnEmptyVersionIsNoNumber) {
    EXPECT_FALSE(readVersion("VERSION_NUMBER "));
    EXPECT_EQ(boxes(), Texts{failed});
    EXPECT_EQ(document->GetVersionNumber(), "");
}

TEST_F(ProgramHeader, AFirstLineOfOneWordFails) {
    for (const std::string line : {"VERSION_NUMBER", "200", ""}) {
        EXPECT_FALSE(readVersion(line));
        EXPECT_EQ(boxes(), Texts{failed});
    }
}

TEST_F(ProgramHeader, TheSecondLineIsNotLookedAt) {
    EXPECT_TRUE(read(lines({"VERSION_NUMBER 200", "no count here", windowLine, block})));
    EXPECT_EQ(document->GetBlockCount(), 1);
}

TEST_F(ProgramHeader, TheWindowLineHoldsEightValues) {
    EXPECT_TRUE(readWindow("WINDOW_PARAMS_DEFINE 120 -30 7000 9000 150% 15 60 2"));
    EXPECT_EQ(window(), "120 -30 7000 9000 1.5 15 60 2 ");
    EXPECT_TRUE(readWindow("WINDOW_PARAMS_DEFINE 70000 1.5 2.5 9000 12.5% 15 60 2 and more"));
    EXPECT_EQ(window(), "70000 2 2 9000 0.125 15 60 2 ");
}

TEST_F(ProgramHeader, AShortWindowLineIsCompleted) {
    const std::pair<std::string, std::string_view> cases[] = {
        {"", "0 0 6000 8000 1 0 0 0 "},
        {" ", "0 0 6000 8000 1 0 0 0 "},
        {" 7", "7 0 6000 8000 1 0 0 0 "},
        {" 7 8", "7 8 6000 8000 1 0 0 0 "},
        {" 7 8 9", "7 8 9 8000 1 0 0 0 "},
        {" 7 8 9 10", "7 8 9 10 1 0 0 0 "},
        {" 7 8 9 10 50%", "7 8 9 10 0.5 0 0 0 "},
        {" 7 8 9 10 50% 11", "7 8 9 10 0.5 11 0 0 "},
        {" 7 8 9 10 50% 11 12", "7 8 9 10 0.5 11 12 0 "},
        {"  8  10", "0 8 6000 10 1 0 0 0 "},
    };
    for (const auto& [values, expected] : cases) {
        EXPECT_TRUE(readWindow("WINDOW_PARAMS_DEFINE" + values));
        EXPECT_EQ(window(), expected);
        EXPECT_EQ(told(), Texts{});
    }
}

TEST_F(ProgramHeader, AFileWithoutAWindowLineIsUnreadable) {
    for (const std::string line : {"BLOCK_DEFINE 1 17 \"Start\" -1 -1 0 \"\" 0 1 0 0 1 \"\"", "",
                                   "window_params_define 1 2", " WINDOW_PARAMS_DEFINE 1 2 3 4 100% 0 0 0"}) {
        EXPECT_FALSE(readWindow(line));
        EXPECT_EQ(boxes(), Texts{failed});
        EXPECT_EQ(document->GetBlockCount(), 0);
        EXPECT_EQ(window(), "0 0 4000 4000 1 0 0 0 ") << "all but the state were set, to sizes of their own";
        EXPECT_EQ(document->strName, "");
    }
}

TEST_F(ProgramHeader, TheZoomLosesItsLastCharacterWhateverItIs) {
    EXPECT_TRUE(readWindow("WINDOW_PARAMS_DEFINE 0 0 0 0 100 0 0 0"));
    EXPECT_EQ(document->dblZoom, 0.1);
    EXPECT_TRUE(readWindow("WINDOW_PARAMS_DEFINE 0 0 0 0 50x 0 0 0"));
    EXPECT_EQ(document->dblZoom, 0.5);
}

TEST_F(ProgramHeader, AWindowValueThatIsNoNumberFails) {
    for (const std::string values : {"x 0 0 0 100% 0 0 0", "0 x 0 0 100% 0 0 0", "0 0 x 0 100% 0 0 0",
                                     "0 0 0 x 100% 0 0 0", "0 0 0 0 x% 0 0 0", "0 0 0 0 % 0 0 0", "0 0 0 0 100% x 0 0",
                                     "0 0 0 0 100% 0 x 0", "0 0 0 0 100% 0 0 x", "3000000000 0 0 0 100% 0 0 0"}) {
        EXPECT_FALSE(readWindow("WINDOW_PARAMS_DEFINE " + values)) << values;
        EXPECT_EQ(boxes(), Texts{failed});
        EXPECT_EQ(document->GetBlockCount(), 0);
    }
}

TEST_F(ProgramHeader, LinesMayEndInLfAlone) {
    EXPECT_TRUE(read("VERSION_NUMBER 200\nNUM_BLOCKS 1\n" + windowLine + "\n" + block + "\n"));
    EXPECT_EQ(document->GetVersionNumber(), "200");
    EXPECT_EQ(document->GetBlockCount(), 1);
}

}  // namespace
}  // namespace canvas
