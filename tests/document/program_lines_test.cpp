// Reading: the lines of the blocks, token by token.

#include "tests/document/reading.h"

namespace canvas {
namespace {

using namespace fixture;

struct ProgramLines : Reading {};

TEST_F(ProgramLines, EveryTokenHasItsPlace) {
    mustRead(
        {"BLOCK_DEFINE 5 2 \"To the press\" 6 -1 70000 \"Station A\" 1 1 1 2 3 9 6 \"a\" \"b b\" \"c\" \"d\" \"e\" 1"});
    const clsBVTBlock& block = at(5);
    EXPECT_EQ(block.BlockType(), MOVEAXIS);
    EXPECT_EQ(block.strBlockLabel, "To the press");
    EXPECT_EQ(wiring(block), "to 6,-1 used 1,0 from 3t 9t");
    EXPECT_EQ(block.lngBlockUserID, 70000);
    EXPECT_EQ(block.strBlockUserName, "Station A");
    EXPECT_TRUE(block.blnHasDualOutPort && block.blnNoInPort && block.blnNoOutPort)
        << "the file's word, not the type's";
    const std::pair<std::string_view, Value> settings[] = {
        {"Acceleration", "a"}, {"Deceleration", "b b"}, {"Velocity", "c"},
        {"Position", "d"},     {"TypeK", "e"},          {"WaitForCompletion", true},
    };
    for (const auto& [property, value] : settings) EXPECT_EQ(setting(5, property), value) << property;
}

TEST_F(ProgramLines, EachTokenFailsOrNotByItself) {
    const Texts good{"BLOCK_DEFINE", "5", "2", "\"l\"", "6", "7", "0", "\"u\"", "0", "0", "0", "1", "3", "1", "\"a\""};
    const bool fails[]{false, true, true, false, true, true, true, false, true, true, true, true, true, false, false};
    for (std::size_t k = 0; k < good.size(); ++k) {
        document = make<clsBVTCanvas>();
        std::string line;
        for (std::size_t i = 0; i < good.size(); ++i) line += (i ? " " : "") + (i == k ? "x" : good[i]);
        EXPECT_EQ(readBlocks({line}), !fails[k]) << line;
        EXPECT_EQ(boxes(), fails[k] ? Texts{failed} : Texts{}) << line;
        EXPECT_EQ(ids(), fails[k] ? "" : "5");
    }
}

TEST_F(ProgramLines, TheKeywordAndTheCountOfValuesAreNotLookedAt) {
    mustRead({"anything 5 8 \"l\" -1 -1 0 \"\" 0 0 0 0 99 \"7\"", "TEXT_DEFINE 6 8 \"l\" -1 -1 0 \"\" 0 0 0 0 x \"8\"",
              "\"two words\" 7 8 \"l\" -1 -1 0 \"\" 0 0 0 0  \"9\""});
    EXPECT_EQ(setting(5, "Deceleration"), Value("7"));
    EXPECT_EQ(setting(6, "Deceleration"), Value("8"));
    EXPECT_EQ(setting(7, "Deceleration"), Value("9"));
    EXPECT_EQ(at(6).strBlockLabel, "l");
}

TEST_F(ProgramLines, ValuesBeyondTheClasssAreIgnored) {
    mustRead({"BLOCK_DEFINE 5 8 \"l\" -1 -1 0 \"\" 0 0 0 0 3 \"7\" \"8\" \"9\""});
    EXPECT_EQ(setting(5, "Deceleration"), Value("7"));
}

TEST_F(ProgramLines, MissingValuesKeepTheirDefaults) {
    mustRead({"BLOCK_DEFINE 5 2 \"l\" -1 -1 0 \"\" 0 0 0 0 6 \"7\""});
    EXPECT_EQ(setting(5, "Acceleration"), Value("7"));
    EXPECT_EQ(setting(5, "TypeK"), Value("Absolute"));
}

TEST_F(ProgramLines, ALineThatEndsEarlyLeavesTheRestAsTheTypeHasIt) {
    mustRead({"BLOCK_DEFINE 5 14", "BLOCK_DEFINE 6 14 \"l\" 5"});
    EXPECT_EQ(wiring(5), "to -1,-1 used 0,0 from");
    EXPECT_TRUE(at(5).blnHasDualOutPort);
    EXPECT_EQ(wiring(6), "to 5,-1 used 1,0 from");
    EXPECT_EQ(at(6).strBlockLabel, "l");
}

TEST_F(ProgramLines, NumbersAreReadLoosely) {
    mustRead({"BLOCK_DEFINE 1e2 &H8 \"l\" 5.5 -1.0 1,000 \"\" True False -1 0 1 \"7\""});
    EXPECT_EQ(ids(), "100");
    EXPECT_EQ(wiring(100), "to 6,-1 used 1,0 from") << "a half goes to the even number";
    EXPECT_EQ(at(100).lngBlockUserID, 1000);
    EXPECT_TRUE(at(100).blnHasDualOutPort && at(100).blnNoOutPort);
    EXPECT_FALSE(at(100).blnNoInPort);
}

TEST_F(ProgramLines, OnlyMinusOneIsUnconnected) {
    mustRead({"BLOCK_DEFINE 5 14 \"l\" 0 -2 0 \"\" 1 0 0 0 1 \"\""});
    EXPECT_EQ(wiring(5), "to 0,-2 used 1,1 from");
}

TEST_F(ProgramLines, ALabelWithBlanksStaysOneToken) {
    mustRead({"BLOCK_DEFINE 5 18 \" a  b \" -1 -1 0 \" u  v \" 1 0 0 0 0 "});
    EXPECT_EQ(at(5).strBlockLabel, " a  b ");
    EXPECT_EQ(at(5).strBlockUserName, " u  v ");
}

TEST_F(ProgramLines, QuotesAreNeededOnlyForBlanks) {
    mustRead({"BLOCK_DEFINE 5 8 label -1 -1 0 user 0 0 0 0 1 7"});
    EXPECT_EQ(at(5).strBlockLabel, "label");
    EXPECT_EQ(at(5).strBlockUserName, "user");
    EXPECT_EQ(setting(5, "Deceleration"), Value("7"));
}

TEST_F(ProgramLines, AQuoteInALabelSwallowsTheRestOfTheLine) {
    mustRead({"BLOCK_DEFINE 5 18 \"Lower 12\"\" 6 -1 0 \"\" 1 0 0 0 0",
              "BLOCK_DEFINE 6 18 \"l\" -1 -1 0 \"\" 1 0 0 0 0 ",
              "BLOCK_DEFINE 7 8 \"12\"pipe\" 6 -1 0 \"\" 0 0 0 0 1 \"7\""});
    EXPECT_EQ(ids(), "5 6 7");
    EXPECT_EQ(at(5).strBlockLabel, "\"Lower 12\"\" 6 -1 0 \"\" 1 0 0 0 0")
        << "no quote stands at its end to be stripped";
    EXPECT_EQ(wiring(5), "to -1,-1 used 0,0 from");
    EXPECT_TRUE(at(5).blnHasDualOutPort) << "as the type has it";
    EXPECT_EQ(at(7).strBlockLabel, "12\"pipe\" 6 -1 0 \"\" 0 0 0 0 1 \"7");
    EXPECT_EQ(setting(7, "Deceleration"), Value("0.0"));
}

TEST_F(ProgramLines, PairedQuotesInALabelAreKeptWhileNoBlankLiesBetween) {
    mustRead({"BLOCK_DEFINE 5 18 \"12\"x14\" plate\" -1 -1 0 \"\" 1 0 0 0 0 "});
    EXPECT_EQ(at(5).strBlockLabel, "12\"x14\" plate");
    EXPECT_FALSE(readBlocks({"BLOCK_DEFINE 6 18 \"say \"go on\" now\" -1 -1 0 \"\" 1 0 0 0 0 "}));
    EXPECT_EQ(boxes(), Texts{failed});
}

TEST_F(ProgramLines, ABlankAtTheEndIsOneMoreEmptyValue) {
    mustRead({"BLOCK_DEFINE 5 14 \"l\" -1 -1 0 \"\" 1 0 0 0 1 \"a > b\" "});
    EXPECT_EQ(setting(5, "EventK"), Value("")) << "this class takes its value whatever the number";
    document->Clear();
    mustRead({"BLOCK_DEFINE 5 8 \"l\" -1 -1 0 \"\" 1 0 0 0 1 \"7\" "});
    EXPECT_EQ(setting(5, "Deceleration"), Value("7"));
}

TEST_F(ProgramLines, ASourceThatStandsTwiceIsTakenOnce) {
    mustRead({"BLOCK_DEFINE 5 8 \"l\" -1 -1 0 \"\" 0 0 0 3 7 9 7 1 \"8\""});
    EXPECT_EQ(wiring(5), "to -1,-1 used 0,0 from 7t 9t");
    EXPECT_EQ(setting(5, "Deceleration"), Value("8"));
}

TEST_F(ProgramLines, TheCountOfSourcesRulesWhatFollows) {
    mustRead({"BLOCK_DEFINE 5 8 \"l\" -1 -1 0 \"\" 0 0 0 1 7 9 \"8\"",  // two follow: the second is taken for the count
              "BLOCK_DEFINE 6 8 \"l\" -1 -1 0 \"\" 0 0 0 3 7 9 1 2 \"8\"",  // and here a count for a source
              "BLOCK_DEFINE 7 8 \"l\" -1 -1 0 \"\" 0 0 0 30 7 9", "BLOCK_DEFINE 8 8 \"l\" -1 -1 0 \"\" 0 0 0 -1 7"});
    EXPECT_EQ(wiring(5), "to -1,-1 used 0,0 from 7t");
    EXPECT_EQ(setting(5, "Deceleration"), Value("8"));
    EXPECT_EQ(wiring(6), "to -1,-1 used 0,0 from 7t 9t 1t");
    EXPECT_EQ(setting(6, "Deceleration"), Value("8"));
    EXPECT_EQ(wiring(7), "to -1,-1 used 0,0 from 7t 9t");
    EXPECT_EQ(wiring(8), "to -1,-1 used 0,0 from");
    EXPECT_EQ(setting(8, "Deceleration"), Value("7")) << "below zero the values begin at once";
}

TEST_F(ProgramLines, AValueTakenForASourceFails) {
    EXPECT_FALSE(readBlocks({"BLOCK_DEFINE 5 8 \"l\" -1 -1 0 \"\" 0 0 0 3 7 1 \"8\""}));
    EXPECT_EQ(boxes(), Texts{failed});
}

TEST_F(ProgramLines, PortsOfTheSourcesAreCompletedAtTheEnd) {
    mustRead({"BLOCK_DEFINE 3 8 \"a\" 5 -1 0 \"\" 0 0 0 1 5 1 \"0.0\"",
              "BLOCK_DEFINE 4 8 \"b\" 5 -1 0 \"\" 0 0 0 1 5 1 \"0.0\"",
              "BLOCK_DEFINE 5 14 \"c\" 3 4 0 \"\" 1 0 0 3 3 4 6 1 \"\"",
              "BLOCK_DEFINE 6 14 \"d\" -1 5 0 \"\" 1 0 0 0 1 \"\""});
    EXPECT_EQ(wiring(3), "to 5,-1 used 1,0 from 5t");
    EXPECT_EQ(wiring(4), "to 5,-1 used 1,0 from 5b");
    EXPECT_EQ(wiring(5), "to 3,4 used 1,1 from 3t 4t 6b");
    EXPECT_EQ(wiring(6), "to -1,5 used 0,1 from");
}

TEST_F(ProgramLines, BothOutputsToOneTargetEndAsABottomPort) {
    mustRead({"BLOCK_DEFINE 3 8 \"a\" -1 -1 0 \"\" 0 0 0 1 5 1 \"0.0\"",
              "BLOCK_DEFINE 5 14 \"c\" 3 3 0 \"\" 1 0 0 0 1 \"\""});
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from 5b");
}

TEST_F(ProgramLines, ASingleOutputStaysATopPort) {
    mustRead({"BLOCK_DEFINE 3 8 \"a\" -1 -1 0 \"\" 0 0 0 2 4 5 1 \"0.0\"",
              "BLOCK_DEFINE 4 8 \"b\" 3 -1 0 \"\" 0 0 0 0 1 \"0.0\"",
              "BLOCK_DEFINE 5 14 \"c\" -1 3 0 \"\" 0 0 0 0 1 \"\""});
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from 4t 5t") << "the line says that block 5 has one output";
    EXPECT_EQ(wiring(5), "to -1,3 used 0,1 from");
}

TEST_F(ProgramLines, ATargetThatIsAbsentOrLacksTheSourceIsPassedOver) {
    mustRead({"BLOCK_DEFINE 5 14 \"c\" 99 3 0 \"\" 1 0 0 0 1 \"\"",
              "BLOCK_DEFINE 3 8 \"a\" 98 -1 0 \"\" 0 0 0 1 7 1 \"0.0\"",
              "BLOCK_DEFINE 4 8 \"b\" -1 -1 0 \"\" 0 0 0 1 6 1 \"0.0\"",
              "BLOCK_DEFINE 6 14 \"d\" 0 4 0 \"\" 1 0 0 0 1 \"\""});
    EXPECT_EQ(wiring(5), "to 99,3 used 1,1 from");
    EXPECT_EQ(wiring(3), "to 98,-1 used 1,0 from 7t");
    EXPECT_EQ(wiring(4), "to -1,-1 used 0,0 from 6b") << "those behind it are still completed";
}

TEST_F(ProgramLines, AfterAFailurePortsAreNotCompletedAndBlocksStay) {
    EXPECT_FALSE(readBlocks({"BLOCK_DEFINE 3 8 \"a\" -1 -1 0 \"\" 0 0 0 1 5 1 \"0.0\"",
                             "BLOCK_DEFINE 5 14 \"c\" -1 3 0 \"\" 1 0 0 0 1 \"\"", "BLOCK_DEFINE x"}));
    EXPECT_EQ(boxes(), Texts{failed});
    EXPECT_EQ(ids(), "3 5");
    EXPECT_EQ(wiring(3), "to -1,-1 used 0,0 from 5t");
    EXPECT_EQ(document->strName, "") << "nor is the document named";
}

TEST_F(ProgramLines, IdentifiersAreMarkedAsTheyAreRead) {
    mustRead({"BLOCK_DEFINE 2 18 \"a\" -1 -1 0 \"\" 1 0 0 0 0 ", "BLOCK_DEFINE 1 18 \"b\" -1 -1 0 \"\" 1 0 0 0 0 "});
    EXPECT_EQ(ids(), "2 1");
    EXPECT_EQ(document->GetAvailableBlockID(), 3);
    EXPECT_FALSE(readBlocks({"BLOCK_DEFINE 4 x"}));
    EXPECT_EQ(document->GetAvailableBlockID(), 5) << "also those of a line that fails later";
}

TEST_F(ProgramLines, ALineOfIDZeroIsDropped) {
    mustRead({"BLOCK_DEFINE 5 18 \"a\" -1 -1 0 \"\" 1 0 0 0 0 ", "BLOCK_DEFINE 0 99 \"unread\" x"});
    EXPECT_EQ(ids(), "5");
    EXPECT_EQ(document->GetAvailableBlockID(), 1);
}

TEST_F(ProgramLines, AfterIDZeroTheNextLineIsReadFromItsTypeOn) {
    EXPECT_FALSE(readBlocks({"BLOCK_DEFINE 0", "BLOCK_DEFINE 5 18 \"a\" -1 -1 0 \"\" 1 0 0 0 0 "}));
    EXPECT_EQ(boxes(), Texts{failed}) << "a keyword is no type";
    EXPECT_EQ(ids(), "");
    mustRead({"BLOCK_DEFINE 0", "18 \"a\" -1 -1 0 \"\" 1 0 0 0 0 ", "BLOCK_DEFINE 6 18 \"b\" -1 -1 0 \"\" 1 0 0 0 0 "});
    EXPECT_EQ(ids(), "6") << "the shifted line has no ID, the one behind it is whole again";
}

TEST_F(ProgramLines, AnEmptyLineMakesNoBlockButCountsAsRead) {
    mustRead({"", "BLOCK_DEFINE 5 18 \"a\" -1 -1 0 \"\" 1 0 0 0 0 ", "", "keyword"});
    EXPECT_EQ(ids(), "5");
    document->Clear();
    EXPECT_TRUE(readBlocks({""}));
    EXPECT_EQ(ids(), "");
}

TEST_F(ProgramLines, AnIDThatStandsTwiceIsToldAndReadingGoesOn) {
    EXPECT_TRUE(
        readBlocks({"BLOCK_DEFINE 5 18 \"a\" -1 -1 0 \"\" 1 0 0 0 0 ", "BLOCK_DEFINE 5 8 \"b\" -1 -1 0 \"\" 0 0 0 0 0 ",
                    "BLOCK_DEFINE 6 18 \"c\" -1 -1 0 \"\" 1 0 0 0 0 "}));
    EXPECT_EQ(told(), Texts{"clsBVTBlockCol.Add(): [457] This key is already associated with an element of this "
                            "collection"});
    EXPECT_EQ(ids(), "5 6");
    EXPECT_EQ(at(5).strBlockLabel, "a");
}

TEST_F(ProgramLines, EachSurplusBlockIsToldAndDropped) {
    document->intMaxNumberOfBlock = 2;
    Texts blocks;
    for (const char* id : {"7", "3", "5", "9"})
        blocks.push_back("BLOCK_DEFINE " + std::string(id) + " 18 \"a\" -1 -1 0 \"\" 1 0 0 0 0 ");
    EXPECT_TRUE(readBlocks(blocks));
    const std::string message = "critical||Exceeded Maximum Number of Blocks (2) Allowed! ";
    EXPECT_EQ(boxes(), (Texts{message, message}));
    EXPECT_EQ(ids(), "7 3");
}

TEST_F(ProgramLines, TimesOfFilesBeforeVersion200AreConverted) {
    const std::pair<std::string, std::string_view> cases[] = {
        {"199", "(2.5) * 1000"},   {"200", "2.5"},          {"1", "(2.5) * 1000"},
        {"199.9", "(2.5) * 1000"}, {"1e2", "(2.5) * 1000"}, {"-5", "(2.5) * 1000"},
    };
    for (const auto& [version, time] : cases) {
        document = make<clsBVTCanvas>();
        EXPECT_TRUE(read(lines({"VERSION_NUMBER " + version, "NUM_BLOCKS 2", windowLine,
                                "BLOCK_DEFINE 5 12 \"a\" -1 -1 0 \"\" 0 0 0 0 3 \"1\" \"2.5\" 0",
                                "BLOCK_DEFINE 6 15 \"b\" -1 -1 0 \"\" 1 0 0 0 1 \"2.5\""})));
        EXPECT_EQ(setting(5, "Time"), Value(time)) << version;
        EXPECT_EQ(setting(6, "TimeOut"), Value("2.5")) << "only a slave offset is converted";
        EXPECT_EQ(told(), Texts{});
    }
}

TEST_F(ProgramLines, ASecondReadingAddsToTheDocument) {
    mustRead({"BLOCK_DEFINE 5 18 \"a\" -1 -1 0 \"\" 1 0 0 0 0 "});
    mustRead({"BLOCK_DEFINE 6 18 \"b\" -1 -1 0 \"\" 1 0 0 0 0 "});
    EXPECT_EQ(ids(), "5 6");
}

}  // namespace
}  // namespace canvas
