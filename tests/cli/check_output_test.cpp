// What a check prints, and how it ends.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/program.h"
#include "tests/cli/schema.h"
#include "tests/document/check_cases.h"

using namespace canvas;
using program::run;
using schema::Json;
using ::testing::IsEmpty;

namespace {

/// One good program, one with findings, one that cannot be read.
class Output : public ::testing::Test {
protected:
    Output() {
        scratch::put(m_folder / "1.bpa", check_cases::edited({}));
        scratch::put(m_folder / "2.bpa", check_cases::edited({{2, "NUM_BLOCKS 7"}, {1, "VERSION_NUMBER 201"}}));
        scratch::put(m_folder / "3.bpa", "");
    }
    program::Said check(std::vector<std::string> words) {
        words.insert(words.begin(), "check");
        return run(words, {.folder = m_folder.path()});
    }
    const scratch::Folder m_folder;
};

}  // namespace

TEST_F(Output, EndsWithTheGravestCode) {
    EXPECT_EQ(check({"1.bpa"}).code, 0);
    EXPECT_EQ(check({"1.bpa", "2.bpa"}).code, 1);
    EXPECT_EQ(check({"1.bpa", "2.bpa", "3.bpa"}).code, 3);
    EXPECT_EQ(check({"3.bpa", "1.bpa"}).code, 3);
}

TEST_F(Output, SumsUpInOneLine) {
    EXPECT_EQ(check({"1.bpa"}).out, "1 file checked: 1 good\n");
    EXPECT_THAT(check({"."}).out,
                ::testing::EndsWith("\n3 files checked: 1 good, 1 with findings, 1 unreadable; 3 findings\n"));
}

TEST_F(Output, WhenQuietHasFindingsOnly) {
    EXPECT_EQ(check({"--quiet", "1.bpa"}).out, "");
    EXPECT_EQ(check({"-q", "3.bpa"}).out, "3.bpa:1: unreadable: the file is empty\n");
}

TEST_F(Output, AsJsonFollowsItsSchema) {
    const auto said = check({"--json", "."});
    EXPECT_EQ(said.code, 3);
    EXPECT_EQ(said.err, "");
    const Json json = Json::parse(said.out);
    EXPECT_THAT(schema::faults(json, schema::load("check.schema.json")), IsEmpty());
    ASSERT_EQ(json["files"].size(), 3U);
    EXPECT_EQ(json["files"][0], Json({{"file", "1.bpa"}, {"readable", true}, {"findings", Json::array()}}));
    EXPECT_EQ(json["files"][1]["findings"][0]["rule"], "newer-version");
    EXPECT_EQ(json["files"][1]["findings"][1],
              Json({{"line", 2},
                    {"block", 0},
                    {"rule", "block-count"},
                    {"reason", "NUM_BLOCKS says \"7\", and the file has 4 block lines"}}));
    EXPECT_EQ(json["files"][2]["readable"], false);
    EXPECT_EQ(
        json["totals"],
        Json({{"files", 3}, {"good", 1}, {"withFindings", 1}, {"unreadable", 1}, {"notChecked", 0}, {"findings", 3}}));
}

TEST_F(Output, AsJsonTakesNamesThatAreNoUtf8) {
    scratch::put(m_folder / "\xFF.bpa", check_cases::edited({}));
    const auto said = check({"--json", "\xFF.bpa"});
    EXPECT_EQ(said.code, 0);
    EXPECT_EQ(Json::parse(said.out)["files"][0]["file"], "\xEF\xBF\xBD.bpa");
}

TEST_F(Output, OfManyThreadsIsThatOfOne) {
    const auto faults = check_cases::faults();
    for (int i = 0; i < 200; ++i)
        scratch::put(m_folder / ("p" + std::to_string(i) + ".bpa"),
                     check_cases::edited(faults[static_cast<std::size_t>(i) % faults.size()].edits));
    const auto one = check({"--jobs", "1", "."});
    for (const char* jobs : {"2", "8", "64"}) {
        const auto many = check({"--jobs", jobs, "."});
        EXPECT_EQ(many.out, one.out) << jobs;
        EXPECT_EQ(many.code, one.code) << jobs;
    }
}

TEST_F(Output, IntoAClosedPipeIsNoFailure) {
    EXPECT_EQ(run({"check", m_folder.path()}, {.outputIsClosed = true}).code, 3);
    EXPECT_EQ(run({"check", m_folder / "1.bpa"}, {.outputIsClosed = true}).code, 0);
    EXPECT_EQ(run({"--help"}, {.outputIsClosed = true}).code, 0);
}

TEST_F(Output, ThatCannotBeWrittenIsAnInternalError) {
    const auto said = run({"check", m_folder.path()}, {.output = "/dev/full"});
    EXPECT_EQ(said.code, 5);
    EXPECT_EQ(said.err, "canvas: the output cannot be written\n");
}

TEST(Usage, IsTold) {
    const auto help = run({"--help"});
    EXPECT_EQ(help.code, 0);
    for (const char* word : {"check", "show", "Exit codes"}) EXPECT_THAT(help.out, ::testing::HasSubstr(word));
    EXPECT_EQ(run({"check", "--help"}).code, 0);
    EXPECT_THAT(run({"check", "--help"}).out, ::testing::HasSubstr("--json"));
    const auto version = run({"--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_EQ(version.out, "canvas 1.0.0 (program files of version 200)\n");
}

TEST(Usage, ThatIsWrongHasItsCode) {
    const std::vector<std::vector<std::string>> lines{
        {},       {"chekc"},         {"check"}, {"check", "--none", "a.bpa"}, {"check", "--jobs", "0", "a.bpa"},
        {"show"}, {"show", "a", "b"}};
    for (const auto& words : lines) {
        const auto said = run(words);
        EXPECT_EQ(said.code, 2) << ::testing::PrintToString(words);
        EXPECT_EQ(said.out, "");
        EXPECT_NE(said.err, "");
    }
}
