#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/program.h"
#include "tests/cli/schema.h"
#include "tests/document/check_cases.h"

using namespace canvas;
using program::run;
using schema::Json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

class Show : public ::testing::Test {
protected:
    program::Said show(const std::string& bytes, bool json = false) {
        scratch::put(m_folder / "a.bpa", bytes);
        std::vector<std::string> words{"show", "a.bpg"};
        if (json) words.push_back("--json");
        return run(words, {.folder = m_folder.path()});
    }
    const scratch::Folder m_folder;
};

/// A block in place of the last one, and two that Start does not reach.
std::string large() {
    return check_cases::edited(
        {{2, "NUM_BLOCKS 6"},
         {3, "WINDOW_PARAMS_DEFINE 10 20 6000 8000 75% 3 4 2"},
         {5, R"(BLOCK_DEFINE 2 20 "End" -1 -1 0 "" 0 0 1 2 4 5 1 "")"},
         {7, R"(BLOCK_DEFINE 4 2 "Go" 2 -1 7 "axis" 0 0 0 1 3 6 "1.5" "Decel" "-20" "Pos" "Relative" 0)"},
         {0, R"(BLOCK_DEFINE 5 10 "Reset" 2 -1 0 "" 0 0 0 0 0 )"},
         {0, R"(TEXT_DEFINE 6 27 "¶First line¶second" -1 -1 0 "" 0 1 1 0 0 )"}});
}

}  // namespace

TEST_F(Show, PrintsAProgramInTheOrderOfItsFlow) {
    const auto said = show(large());
    EXPECT_EQ(said.code, 0);
    EXPECT_EQ(said.err, "");
    EXPECT_EQ(said.out, R"(a.bpa
version 200, 6 blocks
window at 10, 20, 8000 wide, 6000 high, zoom 75%, scrolled to 3, 4, state 2

1 Start "Start"
    -> 3 If Event "Ready?"
3 If Event "Ready?"
    Event = Part > 0
    top    -> 4 Move Axis "Go"
    bottom -> 3 If Event "Ready?"
4 Move Axis "Go"
    user ID = 7
    user name = axis
    Type = Relative
    Acceleration = 1.5
    Deceleration = Decel
    Velocity = -20
    Position = Pos
    WaitForCompletion = False
    -> 2 End "End"
2 End "End"

Not reached from Start:
5 Reset Fault "Reset"
    -> 2 End "End"

Notes:
6 Node Text
    First line
    second
)");
}

TEST_F(Show, TellsTopBranchesBeforeBottomOnes) {
    const auto said = show(check_cases::edited({{6, R"(BLOCK_DEFINE 3 14 "Ready?" 2 4 0 "" 1 0 0 1 1 1 "x")"}}));
    EXPECT_LT(said.out.find("\n2 End"), said.out.find("\n4 Change Dynamics"));
}

TEST_F(Show, TellsTargetsThatAreNotThere) {
    const auto said = show(check_cases::edited(check_cases::block4(R"(0 "F" 9 -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")")));
    EXPECT_EQ(said.code, 0);
    EXPECT_THAT(said.out, HasSubstr("    -> 9 (not there)\n"));
}

TEST_F(Show, TellsEveryEntryOfListsAndTasks) {
    const auto page = [&](const std::string& rest) { return show(check_cases::edited(check_cases::block4(rest))).out; };
    EXPECT_THAT(page(R"(23 "Set" 2 -1 0 "" 0 0 0 1 3 1 "Speed=100;Torque=Speed*2;")"),
                HasSubstr("\n    Speed = 100\n    Torque = Speed*2\n    ->"));
    EXPECT_THAT(page(R"(24 "Cams" 2 -1 0 "" 0 0 0 1 3 2 "Enc" "10,20,Out1,1;30,25,Out2,0;")"),
                HasSubstr("\n    Encoder Variable = Enc\n    Switch 1 = > 10, < 20, Out1, ON\n"
                          "    Switch 2 = > 30, < 25, Out2, OFF\n    ->"));
    EXPECT_THAT(page(R"(16 "Go" 2 -1 0 "" 0 0 0 1 3 16 0 0 1 3 0 0 0 0 0 0 0 0 0 0 1 12)"),
                HasSubstr("\n    Program 2 = launched at block 3\n    Program 8 = launched at block 12\n    ->"));
    EXPECT_THAT(page(R"(19 "Halt" 2 -1 0 "" 0 0 0 1 3 8 0 1 0 0 0 0 0 0)"),
                HasSubstr("\n    Program 2 = suspended\n    ->"));
    EXPECT_THAT(page(R"(25 "Call" 2 -1 0 "" 0 0 0 1 3 2 ".\park.bpa" "park.bpa")"),
                HasSubstr("\n    Title = park.bpg\n    ->"));
}

TEST_F(Show, AsJsonFollowsItsSchema) {
    const auto said = show(large(), true);
    EXPECT_EQ(said.code, 0);
    const Json json = Json::parse(said.out);
    EXPECT_THAT(schema::faults(json, schema::load("show.schema.json")), IsEmpty());
    EXPECT_EQ(json["window"]["zoom"], 0.75);
    std::vector<int> ids;
    for (const Json& block : json["blocks"]) ids.push_back(block["id"]);
    EXPECT_THAT(ids, ElementsAre(1, 3, 4, 2, 5, 6));
    EXPECT_EQ(json["blocks"][1]["bottom"], 3);
    EXPECT_EQ(json["blocks"][1]["sources"][1], Json({{"id", 3}, {"fromTopPort", false}}));
    EXPECT_EQ(json["blocks"][2]["bottom"], nullptr);
    EXPECT_EQ(json["blocks"][2]["settings"][0], Json({{"label", "Type"}, {"value", "Relative"}}));
    EXPECT_EQ(json["blocks"][4]["reached"], false);
    EXPECT_EQ(json["blocks"][5]["label"], "First line\nsecond");
}

TEST_F(Show, SaysWhyAProgramCannotBeRead) {
    const auto said = show(check_cases::edited({{7, R"(BLOCK_DEFINE 4 0 "F" x -1 0 "" 0 0 0 1 3 4 "1" "1" "1" "1")"}}));
    EXPECT_EQ(said.code, 3);
    EXPECT_EQ(said.out, "");
    EXPECT_EQ(said.err,
              "a.bpa:7: block 4: unreadable: the top target (token 5) is \"x\", which is no number (Type mismatch)\n");
    EXPECT_EQ(run({"show", m_folder / "none.bpa"}).code, 3);
    EXPECT_EQ(run({"show", m_folder.path()}).code, 3);
}

TEST_F(Show, ShowsControlCharactersAsText) {
    const auto said = show(check_cases::edited({{7, "BLOCK_DEFINE 4 10 \"\x1B[31m\x85\" 2 -1 0 \"\" 0 0 0 1 3 0 "}}));
    EXPECT_THAT(said.out, HasSubstr("4 Reset Fault \"\\x1B[31m…\""));  // 85 is an ellipsis in Windows-1252
    EXPECT_EQ(said.out.find('\x1B'), std::string::npos);
}
