// Files that are no good programs: none may do harm, each ends in a result, and in a box where it failed.

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>

#include "host/files.h"
#include "tests/document/reading.h"
#include "tests/host/scratch.h"

namespace canvas {
namespace {

using namespace fixture;

const std::string examples = CANVAS_SOURCE_DIR "/examples/";

/// The machine's own disk under the reader.
struct BadFile : Drawing {
    scratch::Folder folder;
    const std::string name = folder / "p.bpg", onDisk = folder / "p.bpa";
    const std::string failed = "critical|File Error|'" + name + "' cannot be opened";
    WithEnvironment realDisk{environmentWith(user, makeDisk())};

    bool read(const std::string& bytes) const {
        scratch::put(onDisk, bytes);
        return document->Readfile(name);
    }
    void expectFailure() const {
        EXPECT_FALSE(document->Readfile(name));
        EXPECT_EQ(boxes(), Texts{failed});
        EXPECT_EQ(document->GetBlockCount(), 0);
    }
};

TEST_F(BadFile, AMissingFileFails) { expectFailure(); }

TEST_F(BadFile, AFolderForAFileFails) {
    std::filesystem::create_directory(onDisk);
    expectFailure();
}

TEST_F(BadFile, APipeForAFileFails) {
    ASSERT_EQ(::mkfifo(onDisk.c_str(), 0600), 0);
    expectFailure();
}

TEST_F(BadFile, AFileThatMayNotBeReadFails) {
    scratch::put(onDisk, header + "BLOCK_DEFINE 5 18");
    ASSERT_EQ(::chmod(onDisk.c_str(), 0), 0);
    const int outcome = scratch::inChild([&] {
        if (::geteuid() == 0 && (::setgroups(0, nullptr) != 0 || ::setgid(65534) != 0 || ::setuid(65534) != 0))
            return 255;
        return document->Readfile(name) || boxes() != Texts{failed} ? 1 : 0;
    });
    EXPECT_EQ(outcome, 0);
}

TEST_F(BadFile, ASaveThatIsRefusedIsToldAndLeavesTheFile) {
    scratch::put(onDisk, "old");
    ASSERT_EQ(::chmod(onDisk.c_str(), 0444), 0);
    const int outcome = scratch::inChild([&] {
        if (::geteuid() == 0 && (::setgroups(0, nullptr) != 0 || ::setgid(65534) != 0 || ::setuid(65534) != 0))
            return 255;
        document->blnChanged = true;
        document->WriteFile(name);
        return boxes() != Texts{"information|Canvas.WriteFile|Permission denied"} || !document->blnChanged ? 1 : 0;
    });
    EXPECT_EQ(outcome, 0);
    EXPECT_EQ(scratch::bytesOf(onDisk), "old");
    EXPECT_EQ(folder.entries(), Texts{"p.bpa"});
}

TEST_F(BadFile, ASaveIntoAMissingFolderIsTold) {
    document->WriteFile(folder / "none/p.bpg");
    EXPECT_EQ(boxes(), Texts{"information|Canvas.WriteFile|Path not found"});
}

TEST_F(BadFile, ASaveOverAFolderIsTold) {
    std::filesystem::create_directory(onDisk);
    document->WriteFile(name);
    EXPECT_EQ(boxes(), Texts{"information|Canvas.WriteFile|Path/File access error"});
}

TEST_F(BadFile, BackslashesSeparateFoldersOnEveryPlatform) {
    std::filesystem::create_directory(folder / "sub");
    add(5, IFFAULT, "l");
    document->WriteFile(folder.path() + "\\sub\\q.bpg");
    EXPECT_TRUE(std::filesystem::exists(folder / "sub/q.bpa"));
    document = make<clsBVTCanvas>();
    EXPECT_TRUE(document->Readfile(folder.path() + "\\sub\\q.bpg"));
    EXPECT_EQ(document->strName, folder.path() + "\\sub\\q.bpg") << "the name is kept as it was given";
    EXPECT_EQ(told(), Texts{});
}

TEST_F(BadFile, AnEmptyFileFails) {
    EXPECT_FALSE(read(""));
    EXPECT_EQ(boxes(), Texts{failed});
}

TEST_F(BadFile, AFileWithoutAllThreeHeaderLinesFails) {
    for (const std::string bytes :
         {"VERSION_NUMBER 200", "VERSION_NUMBER 200\r\n", "VERSION_NUMBER 200\r\nNUM_BLOCKS 0",
          "VERSION_NUMBER 200\r\nNUM_BLOCKS 0\r\n", "\r\n", "\n\n\n"}) {
        EXPECT_FALSE(read(bytes));
        EXPECT_EQ(boxes(), Texts{failed}) << bytes;
    }
}

struct BadText : Reading {
    /// Whatever the bytes are: a failure is told once, at the end, and its result is False.
    void mustEnd(const std::string& bytes) {
        document = make<clsBVTCanvas>();
        const bool result = read(bytes);
        const Texts all = boxes();
        const auto failures = std::count(all.begin(), all.end(), failed);
        EXPECT_LE(failures, 1);
        if (failures == 1) {
            EXPECT_FALSE(result);
            EXPECT_EQ(all.back(), failed);
        } else {
            EXPECT_TRUE(result || document->GetBlockCount() == 0);
        }
    }
};

TEST_F(BadText, AProgramCutAtAnyByteEndsInAResult) {
    const std::string whole = scratch::bytesOf(examples + "homing.bpa");
    ASSERT_GT(whole.size(), 500U);
    for (std::size_t size = 0; size <= whole.size(); ++size) mustEnd(whole.substr(0, size));
    EXPECT_EQ(document->GetBlockCount(), 11);
}

TEST_F(BadText, AProgramWithAnyByteChangedEndsInAResult) {
    const std::string whole = scratch::bytesOf(examples + "homing.bpa");
    for (const char other : {'\0', ' ', '"', '\n', '9', '-', '\xFF'})
        for (std::size_t i = 0; i < whole.size(); ++i) {
            std::string bytes = whole;
            bytes[i] = other;
            mustEnd(bytes);
        }
}

TEST_F(BadText, AMergedExampleIsReadWithItsDoubleBlockTold) {
    EXPECT_TRUE(read(scratch::bytesOf(examples + "labeler_merge_damage.bpa")));
    EXPECT_EQ(told(), Texts{"clsBVTBlockCol.Add(): [457] This key is already associated with an element of this "
                            "collection"});
    EXPECT_EQ(document->GetBlockCount(), 33) << "the merge mark is one word, and no block";
}

TEST_F(BadText, AnUnfinishedExampleFailsAtALetterForADigit) {
    EXPECT_FALSE(read(scratch::bytesOf(examples + "palletizer_unfinished.bpa")));
    EXPECT_EQ(boxes(), Texts{failed}) << "\"l5\" on line 17 is no number";
    EXPECT_EQ(document->GetBlockCount(), 13) << "those of lines 4 to 16";
}

TEST_F(BadText, IdentifiersOutsideTheTableFail) {
    for (const std::string id :
         {"-1", "1024", "1100", "32767", "32768", "-32769", "1e9", "5x", "\"\"", "0x5", "1.5.2"}) {
        EXPECT_FALSE(readBlocks({"BLOCK_DEFINE " + id + " 18 \"a\" -1 -1 0 \"\" 1 0 0 0 0 "})) << id;
        EXPECT_EQ(boxes(), Texts{failed}) << id;
        EXPECT_EQ(ids(), "");
    }
    mustRead(
        {"BLOCK_DEFINE 1e3 18 \"a\" -1 -1 0 \"\" 1 0 0 0 0 ", "BLOCK_DEFINE 1023 18 \"a\" -1 -1 0 \"\" 1 0 0 0 0 "});
    EXPECT_EQ(ids(), "1000 1023");
}

TEST_F(BadText, TargetsOutsideAnyDocumentAreKeptOrFail) {
    mustRead({"BLOCK_DEFINE 5 14 \"a\" 32767 -32768 0 \"\" 1 0 0 1 32767 1 \"\""});
    EXPECT_EQ(wiring(5), "to 32767,-32768 used 1,1 from 32767t");
    EXPECT_FALSE(readBlocks({"BLOCK_DEFINE 6 14 \"a\" 32768 -1 0 \"\" 1 0 0 0 1 \"\""}));
    EXPECT_EQ(boxes(), Texts{failed});
    EXPECT_FALSE(readBlocks({"BLOCK_DEFINE 6 14 \"a\" -1 -1 2147483648 \"\" 1 0 0 0 1 \"\""}));
    EXPECT_EQ(boxes(), Texts{failed});
}

TEST_F(BadText, AnUnknownTypeIsToldAndFailsAtItsFirstValue) {
    const std::string untyped = "none||clsBVTGetBlockObject.GetObject: [91] Object variable not set";
    for (const std::string type : {"28", "29", "33", "-1", "32767"}) {
        EXPECT_FALSE(readBlocks({"BLOCK_DEFINE 5 " + type + " \"a\" -1 -1 0 \"\" 0 0 0 0 1 \"v\""}));
        EXPECT_EQ(boxes(), (Texts{untyped, untyped, failed})) << "asked for with the type, and once more by the reader";
        EXPECT_EQ(ids(), "");
    }
}

TEST_F(BadText, AnUnknownTypeWithoutValuesIsNotStoredAndReadingGoesOn) {
    EXPECT_TRUE(readBlocks(
        {"BLOCK_DEFINE 5 28 \"a\" -1 -1 0 \"\" 0 0 0 0 0", "BLOCK_DEFINE 6 18 \"b\" -1 -1 0 \"\" 1 0 0 0 0 "}));
    EXPECT_EQ(told().back(), "clsBVTBlockCol.Add(): [91] Object variable not set");
    EXPECT_EQ(ids(), "6");
}

TEST_F(BadText, NulBytesAreTextInALabelAndNoNumberElsewhere) {
    using namespace std::string_literals;
    EXPECT_TRUE(read(header + "BLOCK_DEFINE 5 18 \"a\0b\" -1 -1 0 \"\" 1 0 0 0 0 \r\n"s));
    EXPECT_EQ(at(5).strBlockLabel, "a\0b"s);
    EXPECT_FALSE(read(header + "BLOCK_DEFINE 6\0 18\r\n"s));
    EXPECT_EQ(boxes(), Texts{failed});
    EXPECT_FALSE(read(std::string(5000, '\0')));
    EXPECT_EQ(boxes(), Texts{failed});
}

TEST_F(BadText, InvalidUtf8IsReadAsWindows1252) {
    mustRead({"BLOCK_DEFINE 5 18 \"\xC3\x28 \xF8\" -1 -1 0 \"\" 1 0 0 0 0 "});
    EXPECT_EQ(at(5).strBlockLabel, "\xC3\x83( \xC3\xB8");
}

TEST_F(BadText, ALineOfAMillionValuesRunsOutOfTheirNumbers) {
    std::string line = "BLOCK_DEFINE 5 2 \"a\" -1 -1 0 \"\" 0 0 0 0 1";
    for (int i = 0; i < 1000000; ++i) line += " 7";
    EXPECT_FALSE(readBlocks({line}));
    EXPECT_EQ(boxes(), Texts{failed});
    EXPECT_EQ(ids(), "");
}

TEST_F(BadText, AMillionBlanksAndAMillionSourcesEnd) {
    EXPECT_FALSE(readBlocks({"BLOCK_DEFINE 5 8" + std::string(1000000, ' ')}));
    EXPECT_EQ(boxes(), Texts{failed}) << "an empty link is no number";
    std::string line = "BLOCK_DEFINE 5 2 \"a\" -1 -1 0 \"\" 0 0 0 32767";
    for (int i = 1; i <= 32767; ++i) line += ' ' + std::to_string(i);
    mustEnd(header + line);
    EXPECT_EQ(at(5).inPortCount(), 32767U);
}

TEST_F(BadText, AnOpenQuoteOverAMegabyteEnds) {
    EXPECT_TRUE(readBlocks({"BLOCK_DEFINE 5 18 \"" + std::string(1 << 20, ' ')}));
    EXPECT_EQ(ids(), "5");
    std::string quotes = "BLOCK_DEFINE 6 18 ";
    for (int i = 0; i < 100000; ++i) quotes += "\" \" ";
    mustEnd(header + quotes);
}

}  // namespace
}  // namespace canvas
