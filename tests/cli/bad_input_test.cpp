// Files that are made to break a reader, under a limit of memory.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/program.h"
#include "tests/document/check_cases.h"

using namespace canvas;
using program::run;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

constexpr std::uint64_t megabyte = 1U << 20U;
constexpr std::uint64_t gigabyte = 1024 * megabyte;

#ifdef __SANITIZE_ADDRESS__
constexpr std::uint64_t memory = 0;  // the sanitizer takes the address space for itself
#else
constexpr std::uint64_t memory = 512 * megabyte;
#endif

class BadInput : public ::testing::Test {
protected:
    void expect(const std::string& answer, int code = 3) {
        const auto said = run({"check", "-q", "bad.bpa"}, {.folder = m_folder.path(), .memory = memory});
        EXPECT_EQ(said.code, code);
        EXPECT_THAT(said.out, HasSubstr(answer)) << said.err;
        EXPECT_EQ(said.err, "");
        if (code != 3) return;
        const auto shown = run({"show", "bad.bpa"}, {.folder = m_folder.path(), .memory = memory});
        EXPECT_EQ(shown.code, code);
        EXPECT_EQ(shown.out, "");
        EXPECT_THAT(shown.err, HasSubstr(answer));
    }
    void expectFor(const std::string& bytes, const std::string& answer, int code = 3) {
        scratch::put(m_file, bytes);
        expect(answer, code);
    }

    const scratch::Folder m_folder;
    const std::string m_file = m_folder / "bad.bpa";
};

std::string withLine(const std::string& line) { return check_cases::edited({{2, "NUM_BLOCKS 5"}, {0, line}}); }

}  // namespace

TEST_F(BadInput, OfAGigabyteOfNothingIsTooLarge) {
    scratch::put(m_file, "");
    std::filesystem::resize_file(m_file, gigabyte);
    expect("bad.bpa: unreadable: the file is larger than 64 MB\n");
}

TEST_F(BadInput, OfAGigabyteInOneLineIsTooLarge) {
    {
        std::ofstream file(m_file, std::ios::binary);
        const std::string part(megabyte, 'x');
        for (std::uint64_t i = 0; i < gigabyte / megabyte; ++i) file << part;
    }
    expect("bad.bpa: unreadable: the file is larger than 64 MB\n");
}

TEST_F(BadInput, OfTheLargestSizeInOneLineIsRead) {
    if (memory == 0) GTEST_SKIP() << "slow under the sanitizer";
    expectFor(std::string(64 * megabyte, 'x'), "bad.bpa:1: unreadable: the line is \"" + std::string(60, 'x') +
                                                   "...\", and not VERSION_NUMBER with a number\n");
}

TEST_F(BadInput, WithAMillionTokensIsToldWhereItEnds) {
    std::string tokens;
    for (int i = 0; i < 1000000; ++i) tokens += " 7";
    expectFor(withLine("BLOCK_DEFINE 5 14 \"a\" -1 -1 0 \"\" 1 0 0 0 1" + tokens),
              "bad.bpa:8: block 5: unreadable: the value 32768 (token 32781) is \"\", which does not fit its range "
              "(Overflow)\n");
    expectFor("x" + tokens, "bad.bpa:2: unreadable: the file ends before line 2, which begins with NUM_BLOCKS\n");
}

TEST_F(BadInput, OfNulBytesIsNoProgram) {
    expectFor(std::string(100000, '\0'), "bad.bpa:1: unreadable: the line is \"\\x00\\x00");
    expectFor(withLine(std::string(1000, '\0')), "bad.bpa:8: id-zero: the line ends before the block's ID", 1);
    expectFor(withLine("BLOCK_DEFINE 5" + std::string(1, '\0') + " 14"),
              "bad.bpa:8: unreadable: the ID (token 2) is \"5\\x00\", which is no number (Type mismatch)\n");
}

TEST_F(BadInput, OfALongNoteInOneLineIsAnswered) {
    if (memory == 0) GTEST_SKIP() << "slow under the sanitizer";
    std::string note;
    for (std::uint64_t i = 0; i < 20 * megabyte; ++i) note += "¶";
    expectFor(withLine("TEXT_DEFINE 5 27 \"" + note + "\" -1 -1 0 \"\" 0 1 1 0 0 "), "", 0);
}

TEST_F(BadInput, ThatWasCutOffIsToldWhere) {
    const std::string good = check_cases::edited({});
    expectFor("", "bad.bpa:1: unreadable: the file is empty\n");
    expectFor(good.substr(0, 10),
              "bad.bpa:1: unreadable: the line is \"VERSION_NU\", and not VERSION_NUMBER with a number\n");
    expectFor(good.substr(0, 20), "bad.bpa:2: unreadable: the file ends before line 2, which begins with NUM_BLOCKS\n");
    expectFor(good.substr(0, good.find("WINDOW")),
              "bad.bpa:3: unreadable: the file ends before line 3, which begins with WINDOW_PARAMS_DEFINE\n");
    expectFor(good.substr(0, good.find("8000")), "bad.bpa:3: window: values of the window are missing: width, zoom,",
              1);
    expectFor(good.substr(0, good.find("Part")),
              "bad.bpa:6: block 3: label: the Event (token 16) has a double quote without its other one", 1);
    expectFor(good.substr(0, good.find("\"Decel\"")), "bad.bpa:7: block 4: value-count: Change Dynamics has 4 values;",
              1);
}

TEST_F(BadInput, AmongGoodFilesLeavesTheOthersChecked) {
    scratch::put(m_folder / "a.bpa", check_cases::edited({}));
    scratch::put(m_folder / "z.bpa", check_cases::edited({{2, "NUM_BLOCKS 9"}}));
    scratch::put(m_file, "");
    std::filesystem::resize_file(m_file, gigabyte);
    const auto said = run({"check", "."}, {.folder = m_folder.path(), .memory = memory});
    EXPECT_EQ(said.code, 3);
    EXPECT_EQ(said.out,
              "bad.bpa: unreadable: the file is larger than 64 MB\n"
              "z.bpa:2: block-count: NUM_BLOCKS says \"9\", and the file has 4 block lines\n"
              "3 files checked: 1 good, 1 with findings, 1 unreadable; 2 findings\n");
}
