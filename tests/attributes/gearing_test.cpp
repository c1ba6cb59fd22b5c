// Gearing blocks: the ratio, the switch with its second panel tab, and the gain that one path alone scales.

#include "attributes/gearing.h"

#include <gtest/gtest.h>

#include "advanced_tab.h"
#include "fake_checker.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::bad;
using testing::commitAdvanced;
using testing::commitCell;
using testing::commitPanel;
using testing::FakeChecker;
using testing::panelOf;
using Calls = std::vector<std::string>;

constexpr const char* integerRange = "Expecting an integer in the range of [-32768 To 32767]";

TEST(GearRatio, TakesWholeNumbersOfEitherSign) {
    FakeChecker checker;
    for (const int row : {0, 1})
        for (const std::string text : {"-3", "0", "32767", "-32768", "ratio", "3 * k"}) {
            const auto block = make<clsBVTGearRatio>();
            EXPECT_TRUE(commitCell(*block, row, text, checker.object()).result) << text;
            EXPECT_EQ(row == 0 ? block->strMaster : block->strSlave, "[" + text + "]");
            EXPECT_EQ(row == 0 ? block->strSlave : block->strMaster, "1");
        }
}

TEST(GearRatio, RefusesFractionsAndWhatIsTooLarge) {
    FakeChecker checker;
    for (const int row : {0, 1})
        for (const std::string text : {"1.5", "1.0", "32768", "-32769"}) {
            const auto block = make<clsBVTGearRatio>();
            const auto cell = commitCell(*block, row, text, checker.object());
            EXPECT_FALSE(cell.result) << text;
            EXPECT_EQ(cell.strError, integerRange);
            EXPECT_EQ(cell.selStart, 1);
            EXPECT_EQ(cell.selLength, static_cast<std::int32_t>(text.size()));
            const auto panel = commitPanel(*block, row, panelOf({text, text}), checker.object());
            EXPECT_FALSE(panel.result);
            EXPECT_EQ(panel.strError, integerRange);
            EXPECT_EQ(block->OutputToFile(""), R"(2 "1" "1")");
        }
    EXPECT_EQ(checker.calls, Calls());
}

TEST(GearRatio, TheExternalAxisIsTheMaster) {
    const auto block = make<clsBVTGearRatio>();
    block->put("Master", "7");
    block->FillMatrix();
    EXPECT_EQ(block->GetElementFromMatrix(0, 0), "External");
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "7");
    EXPECT_EQ(block->GetPropertyAt(1), "7");
    EXPECT_EQ(block->OutputToFile(""), R"(2 "7" "1")");
}

TEST(Gear, ItsFileLineHasAConstantThatIsNotReadBack) {
    const auto block = make<clsBVTGearingOnOff>();
    EXPECT_EQ(block->OutputToFile(""), R"(3 1 0 "100")");
    block->blnAdvanced = true;
    EXPECT_EQ(block->OutputToFile(""), R"(3 1 0 "100")") << "the second tab's switch is not kept";
    block->AssignFromFile(2, "0");
    EXPECT_TRUE(block->blnAdvanced);
    block->blnAdvanced = false;
    for (const char* text : {"1", "True", "maybe"}) block->AssignFromFile(2, text);
    EXPECT_FALSE(block->blnAdvanced);
    block->AssignFromFile(1, "1");
    block->AssignFromFile(3, "100");
    EXPECT_EQ(block->GetPropertyAt(1), "True");
    EXPECT_EQ(block->GetPropertyAt(2), "");
    EXPECT_EQ(block->GetPropertyAt(3), "100");
    EXPECT_EQ(block->GetPropertyAt(4), "");
}

TEST(Gear, AFlagOfAFileMustBeATruthValue) {
    const auto block = make<clsBVTGearingOnOff>();
    EXPECT_EQ(raisedBy([&] { block->AssignFromFile(1, "maybe"); }), 13);
    EXPECT_TRUE(block->blnGearing);
    block->AssignFromFile(1, "False");
    EXPECT_FALSE(block->blnGearing);
}

TEST(Gear, ACellOfTheFirstTabIsConvertedUnchecked) {
    const auto block = make<clsBVTGearingOnOff>();
    const auto out = commitCell(*block, 0, "0", nullptr);
    EXPECT_TRUE(out.result);
    EXPECT_EQ(out.FormattedText, "0");
    EXPECT_FALSE(block->blnGearing);
    EXPECT_EQ(raisedBy([&] { commitCell(*block, 0, "on", nullptr); }), 13);
    EXPECT_FALSE(block->blnGearing);
}

TEST(Gear, TheFirstTabsSecondRowOnlyEchoesItsText) {
    const auto block = make<clsBVTGearingOnOff>();
    const auto out = commitCell(*block, 1, "anything", nullptr);
    EXPECT_TRUE(out.result);
    EXPECT_EQ(out.FormattedText, "anything");
    EXPECT_EQ(block->OutputToFile(""), R"(3 1 0 "100")");
}

TEST(Gear, ACellOfTheSecondTabIsTheGainWhateverTheRow) {
    for (const int row : {0, 1, 2, 9}) {
        const auto block = make<clsBVTGearingOnOff>();
        FakeChecker checker;
        checker.verdicts["0.5"].formatted = "0.5";
        const auto out = commitCell(*block, row, "0.5", checker.object(), false);
        EXPECT_TRUE(out.result);
        EXPECT_EQ(checker.calls, (Calls{"checkexpression(0.5,1,1)", "GetResult"}));
        EXPECT_EQ(out.FormattedText, "0.5");
        EXPECT_EQ(block->strFeedForwardGain, "0.5") << "a cell is not scaled";
        EXPECT_TRUE(block->blnGearing);
        EXPECT_TRUE(commitCell(*block, row, "a", checker.object(), false).result);
        EXPECT_EQ(block->strFeedForwardGain, "[a]");
    }
}

TEST(Gear, ACellOfTheSecondTabHasNoRange) {
    const auto block = make<clsBVTGearingOnOff>();
    FakeChecker checker;
    EXPECT_TRUE(commitCell(*block, 0, "-1E300", checker.object(), false).result);
    EXPECT_EQ(block->strFeedForwardGain, "[-1E300]");
}

TEST(Gear, ABadGainOfACellIsStoredAndRefused) {
    const auto block = make<clsBVTGearingOnOff>();
    FakeChecker checker;
    checker.verdicts["g +"] = bad("Operand missing", 4, 1);
    const auto out = commitCell(*block, 0, "g +", checker.object(), false);
    EXPECT_FALSE(out.result);
    EXPECT_EQ(checker.calls, (Calls{"checkexpression(g +,1,1)", "GetErrorInfo"}));
    EXPECT_EQ(out.strError, "Operand missing");
    EXPECT_EQ(out.selStart, 4);
    EXPECT_EQ(out.selLength, 1);
    EXPECT_EQ(out.FormattedText, "g +");
    EXPECT_EQ(block->strFeedForwardGain, "g +");
}

TEST(Gear, WithoutACurrentRowNeitherTabChanges) {
    const auto block = make<clsBVTGearingOnOff>();
    for (const bool general : {true, false}) EXPECT_TRUE(commitCell(*block, -1, "False", nullptr, general).result);
    EXPECT_TRUE(commitPanel(*block, -1, nullptr, nullptr).result);
    EXPECT_TRUE(commitAdvanced(*block, -1, nullptr, nullptr).result);
    EXPECT_EQ(block->OutputToFile(""), R"(3 1 0 "100")");
}

TEST(Gear, APanelsFirstTabIsTheFlag) {
    const struct {
        const char* text;
        bool flag;
    } rows[]{{"True", true}, {"False", false}, {"true", false}, {"1", false}, {"", false}};
    for (const auto& row : rows) {
        const auto block = make<clsBVTGearingOnOff>();
        FakeChecker checker;
        EXPECT_TRUE(commitPanel(*block, 0, panelOf({row.text}), checker.object()).result);
        EXPECT_EQ(block->blnGearing, row.flag) << row.text;
        EXPECT_EQ(checker.checks(), Calls{std::string("checkexpression(") + row.text + ",1,1)"});
        EXPECT_EQ(block->strFeedForwardGain, "100");
    }
}

TEST(Gear, APanelsFirstTabIsRefusedByTheChecker) {
    const auto block = make<clsBVTGearingOnOff>();
    FakeChecker checker;
    checker.verdicts["False"] = bad("Unknown name", 1, 5);
    const auto out = commitPanel(*block, 0, panelOf({"False"}), checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, "Unknown name");
    EXPECT_EQ(out.selLength, 5);
    EXPECT_TRUE(block->blnGearing);
}

TEST(Gear, APanelsSecondTabTakesANumberAsAFactor) {
    const struct {
        const char* typed;
        const char* kept;
    } rows[]{
        {"0.5", "50"},       {"1", "100"},      {"1.1", "110"},   {"0.333", "33.3"},   {"-0.25", "-25"},
        {" 0.5 ", "50"},     {"1e3", "100000"}, {"&H10", "1600"}, {"1,000", "100000"}, {"0", "0"},
        {"1E300", "1E+302"}, {"gain", "gain"},  {"", ""},         {"50%", "50%"},      {"0.5 * k", "0.5 * k"},
        {"  ", "  "},
    };
    for (const auto& row : rows) {
        const auto block = make<clsBVTGearingOnOff>();
        FakeChecker checker;
        EXPECT_TRUE(commitAdvanced(*block, 0, panelOf({row.typed}), checker.object()).result);
        EXPECT_EQ(block->strFeedForwardGain, row.kept) << row.typed;
        EXPECT_EQ(gainInPercent(row.typed), row.kept);
        EXPECT_EQ(checker.checks(), Calls{std::string("checkexpression(") + row.typed + ",1,1)"});
        EXPECT_TRUE(block->blnGearing);
    }
}

TEST(Gear, AGainThatIsTooLargeForAPercentageFails) {
    const auto block = make<clsBVTGearingOnOff>();
    FakeChecker checker;
    EXPECT_EQ(raisedBy([&] { commitAdvanced(*block, 0, panelOf({"1E307"}), checker.object()); }), 6);
    EXPECT_EQ(block->strFeedForwardGain, "100");
}

TEST(Gear, APanelsSecondTabChecksTheCurrentRowAndStoresTheFirst) {
    const auto block = make<clsBVTGearingOnOff>();
    FakeChecker checker;
    EXPECT_TRUE(commitAdvanced(*block, 1, panelOf({"0.25", "other"}), checker.object()).result);
    EXPECT_EQ(checker.checks(), Calls{"checkexpression(other,1,1)"});
    EXPECT_EQ(block->strFeedForwardGain, "25");
}

TEST(Gear, APanelsSecondTabIsRefusedByTheChecker) {
    const auto block = make<clsBVTGearingOnOff>();
    FakeChecker checker;
    checker.verdicts["0.5"] = bad("Not today", 1, 3);
    const auto out = commitAdvanced(*block, 0, panelOf({"0.5"}), checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, "Not today");
    EXPECT_EQ(out.selStart, 1);
    EXPECT_EQ(out.selLength, 3);
    EXPECT_EQ(block->strFeedForwardGain, "100");
    EXPECT_EQ(raisedBy([&] { commitAdvanced(*block, 0, nullptr, checker.object()); }), 91);
}

TEST(Gear, AProgramCheckLooksAtTheGainAndRecordsOnlyWhatIsWrong) {
    const auto block = make<clsBVTGearingOnOff>();
    const auto found = [&](const testing::Verdict& verdict) {
        FakeChecker checker;
        checker.otherwise = verdict;
        std::string message = "(1,1)@";
        EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 12, message));
        EXPECT_EQ(checker.checks(), Calls{"checkexpression(100,12,3)"});
        return message;
    };
    EXPECT_EQ(found({}), "(1,1)@") << "a good gain has no row to be recorded for";
    EXPECT_EQ(found(bad("Operand missing")), "(1,1)@Error:  (12,3) Operand missing@");
    EXPECT_EQ(found({.value = "ôgain"}), "(1,1)@(12,3) ôgain@");
    EXPECT_EQ(found({.value = "#1"}), "(1,1)@(12,3) #1@");
}

}  // namespace
}  // namespace canvas
