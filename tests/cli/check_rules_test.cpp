// Every rule, through the program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/program.h"
#include "tests/document/check_cases.h"

using namespace canvas;
using check_cases::edited;
using program::run;

namespace {

/// The findings of one file's report, as "line block rule".
std::vector<std::string> briefly(const std::string& out, const std::string& file) {
    std::vector<std::string> found;
    std::size_t at = 0;
    while (out.compare(at, file.size(), file) == 0) {
        std::string_view rest = std::string_view(out).substr(at + file.size());
        const auto number = [&](std::string_view mark) {
            if (!rest.starts_with(mark)) return std::string("0");
            rest.remove_prefix(mark.size());
            const std::size_t end = rest.find(':');
            std::string digits(rest.substr(0, end));
            rest.remove_prefix(end);
            return digits;
        };
        const std::string line = rest.starts_with(": ") ? "0" : number(":");
        const std::string block = number(": block ");
        const std::string rule(rest.substr(2, rest.find(": ", 2) - 2));
        found.push_back(line + ' ' + block + ' ' + rule);
        at = out.find('\n', at) + 1;
    }
    return found;
}

class CheckRule : public ::testing::TestWithParam<check_cases::Case> {};

std::string titleOf(const ::testing::TestParamInfo<check_cases::Case>& info) { return info.param.title; }

}  // namespace

TEST_P(CheckRule, GivesItsFindingsAndExitCode) {
    const scratch::Folder folder;
    const std::string file = folder / "case.bpa";
    scratch::put(file, edited(GetParam().edits));
    scratch::put(folder / "park.bpa", edited({}));  // the subroutine that a case calls
    const auto said = run({"check", "--quiet", file});
    const auto& expected = GetParam().findings;
    EXPECT_THAT(briefly(said.out, file), ::testing::ElementsAreArray(expected)) << said.out;
    const bool unreadable = std::any_of(expected.begin(), expected.end(),
                                        [](const std::string& finding) { return finding.ends_with(" unreadable"); });
    EXPECT_EQ(said.code, unreadable ? 3 : expected.empty() ? 0 : 1);
    EXPECT_EQ(said.err, "");
}

INSTANTIATE_TEST_SUITE_P(Faults, CheckRule, ::testing::ValuesIn(check_cases::faults()), titleOf);
INSTANTIATE_TEST_SUITE_P(Goods, CheckRule, ::testing::ValuesIn(check_cases::goods()), titleOf);

TEST(Check, WritesFindingsAsFileLineBlockRuleReason) {
    const scratch::Folder folder;
    scratch::put(folder / "a.bpa", edited({{2, "NUM_BLOCKS 7"}}));
    scratch::put(folder / "b.bpa", edited(check_cases::block4(R"(0 "F" 2 -1 0 "" 0 0 0 1 3 4 "-1" "1" "1" "1")")));
    const auto said = run({"check", "b.bpa", "a.bpa", "none.bpa"}, {.folder = folder.path()});
    EXPECT_EQ(said.out,
              "a.bpa:2: block-count: NUM_BLOCKS says \"7\", and the file has 4 block lines\n"
              "b.bpa:7: block 4: value-range: Acceleration is \"-1\": Expecting a positive real number in the range of "
              "[0.0 To 3.402823E+38].\n"
              "none.bpa: unreadable: the file cannot be opened (File not found)\n"
              "3 files checked: 0 good, 2 with findings, 1 unreadable; 3 findings\n");
}

TEST(Check, ShowsControlCharactersOfAFileAsText) {
    const scratch::Folder folder;
    scratch::put(folder / "a.bpa", edited({{2, "\x1B[31mNUM_BLOCKS 4"}}));
    const auto said = run({"check", folder / "a.bpa"});
    EXPECT_THAT(said.out, ::testing::HasSubstr(R"(begins with "\x1B[31mNUM_BLOCKS")"));
}

TEST(Check, NamesTheTooManyBlocks) {
    const scratch::Folder folder;
    std::vector<std::string> lines = check_cases::goodLines();
    for (int id = 5; id <= 1023; ++id)
        lines.push_back("TEXT_DEFINE " + std::to_string(id) + " 27 \"¶\" -1 -1 0 \"\" 0 1 1 0 0 ");
    lines[1] = "NUM_BLOCKS 1024";
    lines.push_back(lines[6]);
    scratch::put(folder / "a.bpa", check_cases::joined(lines));
    const auto said = run({"check", "-q", "a.bpa"}, {.folder = folder.path()});
    EXPECT_EQ(said.code, 1);
    EXPECT_EQ(
        said.out,
        "a.bpa:1027: too-many-blocks: the document is full with 1023 blocks; this line and 0 behind it are dropped\n");
}
