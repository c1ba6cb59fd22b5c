// Cam blocks: the switch with its second panel tab and its table of names, the scale and the shift.

#include "attributes/cam.h"

#include <gtest/gtest.h>

#include "advanced_tab.h"
#include "fake_checker.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::bad;
using testing::comboItems;
using testing::commitAdvanced;
using testing::commitCell;
using testing::commitPanel;
using testing::FakeChecker;
using testing::panelOf;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

constexpr const char* realRange = "Expecting a real number in the range of [-3.402823E+38 To 3.402823E+38]";

Ref<Object> listOf(const Texts& texts) {
    const auto list = make<Collection>();
    for (const std::string& text : texts) list->Add(text);
    return list;
}

TEST(Cam, WritesItsTableTwiceAndReadsTheSecondAsAnAddress) {
    const auto block = make<clsBVTCAMOnOff>();
    block->strCAMProfileTable = "Cam1";
    block->strSpeedFeedForwardAddress = "Speeds";
    EXPECT_EQ(block->OutputToFile(""), R"(11 "Cam1" "0" 1 0 "Cam1" "100.00" "300" "0" "0" "0" "0")");
    block->AssignFromFile(5, "Cam1");
    EXPECT_EQ(block->strCAMProfileTable, "Cam1");
    EXPECT_EQ(block->strSpeedFeedForwardAddress, "Cam1") << "a save and a reload lose the address";
}

TEST(Cam, TheFourthFileValueIsAConstant) {
    const auto block = make<clsBVTCAMOnOff>();
    for (const char* text : {"1", "True", "maybe"}) block->AssignFromFile(4, text);
    EXPECT_FALSE(block->blnAdvanced);
    block->blnAdvanced = true;
    block->AssignFromFile(4, "0");
    EXPECT_TRUE(block->blnAdvanced);
    EXPECT_EQ(block->OutputToFile(""), R"(11 "CWAddress" "0" 1 0 "CWAddress" "100.00" "300" "0" "0" "0" "0")");
}

TEST(Cam, TheEndPointsAreLongNumbersInTheFile) {
    const struct {
        std::int16_t number;
        std::int32_t clsBVTCAMOnOff::*point;
    } places[]{{8, &clsBVTCAMOnOff::strLastCAM_X},
               {9, &clsBVTCAMOnOff::strLastCAM_Y},
               {10, &clsBVTCAMOnOff::strFirstCAM_X},
               {11, &clsBVTCAMOnOff::strFirstCAM_Y}};
    for (const auto& [number, point] : places) {
        const auto block = make<clsBVTCAMOnOff>();
        block->AssignFromFile(number, "-2147483648");
        EXPECT_EQ((*block).*point, INT32_MIN);
        block->AssignFromFile(number, "2.5");
        EXPECT_EQ((*block).*point, 2);
        EXPECT_EQ(raisedBy([&, n = number] { block->AssignFromFile(n, "far"); }), 13);
        EXPECT_EQ(raisedBy([&, n = number] { block->AssignFromFile(n, "2147483648"); }), 6);
        EXPECT_EQ((*block).*point, 2) << number;
    }
}

TEST(Cam, OffersTheNamesThatItWasGiven) {
    const auto block = make<clsBVTCAMOnOff>();
    EXPECT_EQ(comboItems(*block, 0), Texts());
    const auto names = make<Collection>();
    names->Add("Cam1"), names->Add("Cam2");
    EXPECT_FALSE(block->GetCAMTableList(names)) << "its result says nothing";
    EXPECT_EQ(comboItems(*block, 0), (Texts{"Cam1", "Cam2"}));
    names->Add("Cam3");
    EXPECT_EQ(comboItems(*block, 0), (Texts{"Cam1", "Cam2"})) << "the names were copied";
    const auto copy = block->IsTheSame();
    Object& named = *block;
    EXPECT_EQ(invoke(named, "GetCAMTableList", listOf({"New"})), Value(false));
    EXPECT_EQ(comboItems(*block, 0), Texts{"New"}) << "the names before are dropped";
    EXPECT_EQ(comboItems(*copy, 0), (Texts{"Cam1", "Cam2"}));
    block->GetCAMTableList(listOf({}));
    EXPECT_EQ(comboItems(*block, 0), Texts());
    EXPECT_EQ(comboItems(*block, 1), Texts());
    EXPECT_EQ(comboItems(*block, 2), (Texts{"True", "False"}));
}

TEST(Cam, ANameListIsACollection) {
    const auto block = make<clsBVTCAMOnOff>();
    EXPECT_EQ(raisedBy([&] { block->GetCAMTableList(nullptr); }), 91);
    EXPECT_EQ(raisedBy([&] { block->GetCAMTableList(make<Composed>()); }), 451);
    EXPECT_EQ(raisedBy([&] { block->ValidateTableName(nullptr, 1); }), 91);
    const auto hosts = make<Composed>();
    hosts->property("Count", std::int32_t{2}).method("Item", [](Args args) { return Value("T" + args[0].toText()); });
    block->GetCAMTableList(hosts);
    EXPECT_EQ(comboItems(*block, 0), (Texts{"T1", "T2"}));
}

TEST(Cam, AThousandNamesAreOffered) {
    Texts names;
    for (int i = 0; i < 1000; ++i) names.push_back("Cam" + std::to_string(i));
    const auto block = make<clsBVTCAMOnOff>();
    block->GetCAMTableList(listOf(names));
    EXPECT_EQ(comboItems(*block, 0), names);
    block->strCAMProfileTable = "Cam999";
    EXPECT_TRUE(block->ValidateTableName(listOf(names), 1));
}

TEST(Cam, FindsItsTwoNamesInAListByTheirFileNumbers) {
    const struct {
        const char* table;
        const char* address;
        Texts list;
        bool first;
        bool fifth;
    } rows[]{
        {"Cam1", "Speeds", {"Cam1", "Speeds"}, true, true},        {"Cam1", "Speeds", {"Other", "Cam1"}, true, false},
        {"Cam1", "Speeds", {"Speeds", "Other"}, false, true},      {"Cam1", "Speeds", {}, false, false},
        {"Cam1  ", " Speeds ", {" Cam1", "Speeds  "}, true, true}, {"cam1", "SPEEDS", {"Cam1", "Speeds"}, false, false},
        {"Cam", "Speed", {"Cam1", "Speeds"}, false, false},        {"", "", {"  "}, true, true},
    };
    for (const auto& row : rows) {
        const auto block = make<clsBVTCAMOnOff>();
        block->strCAMProfileTable = row.table;
        block->strSpeedFeedForwardAddress = row.address;
        EXPECT_EQ(block->ValidateTableName(listOf(row.list), 1), row.first) << row.table;
        EXPECT_EQ(block->ValidateTableName(listOf(row.list), 5), row.fifth) << row.address;
        for (const int other : {-1, 0, 2, 3, 4, 6})
            EXPECT_FALSE(block->ValidateTableName(listOf(row.list), static_cast<std::int16_t>(other))) << other;
        EXPECT_EQ(invoke(static_cast<Object&>(*block), "ValidateTableName", listOf(row.list), std::int16_t{5}),
                  Value(row.fifth));
    }
}

TEST(Cam, ACellOfTheFirstTabChecksThePositionAlone) {
    const auto block = make<clsBVTCAMOnOff>();
    FakeChecker checker;
    for (const int row : {0, 2, 3, 4}) {
        const auto out = commitCell(*block, row, "0", checker.object());
        EXPECT_TRUE(out.result) << row;
        EXPECT_EQ(out.FormattedText, "0");
    }
    EXPECT_EQ(checker.calls, Calls());
    EXPECT_EQ(block->OutputToFile(""), R"(11 "0" "0" 0 0 "0" "100.00" "300" "0" "0" "0" "0")");
    EXPECT_TRUE(commitCell(*block, 1, "x", checker.object()).result);
    EXPECT_EQ(block->strMasterPosition, "[x]");
    const auto out = commitCell(*block, 1, "1E39", checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, realRange);
    EXPECT_EQ(block->strMasterPosition, "[x]");
    EXPECT_EQ(raisedBy([&] { commitCell(*block, 2, "on", nullptr); }), 13);
}

TEST(Cam, ACellOfTheSecondTabIsTheGainInItsFirstRow) {
    const auto block = make<clsBVTCAMOnOff>();
    FakeChecker checker;
    const auto out = commitCell(*block, 0, "0.5", checker.object(), false);
    EXPECT_TRUE(out.result);
    EXPECT_EQ(block->strFeedForwardGain, "[0.5]") << "a cell is not scaled";
    EXPECT_EQ(out.FormattedText, "[0.5]");
    const auto fresh = block->IsTheSame();
    for (const int row : {1, 2, 3, 9}) {
        checker.calls.clear();
        EXPECT_TRUE(commitCell(*block, row, "True", checker.object(), false).result) << row;
        EXPECT_EQ(checker.calls, (Calls{"checkexpression(True,1,1)", "GetResult"}));
        EXPECT_TRUE(block->SameAs(fresh)) << row;
    }
    EXPECT_TRUE(commitCell(*block, 0, "1E300", checker.object(), false).result) << "no range on this tab";
}

TEST(Cam, ABadGainOfACellIsStoredAndRefused) {
    const auto block = make<clsBVTCAMOnOff>();
    FakeChecker checker;
    checker.verdicts["g +"] = bad("Operand missing", 4, 1);
    const auto out = commitCell(*block, 0, "g +", checker.object(), false);
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, "Operand missing");
    EXPECT_EQ(out.selStart, 4);
    EXPECT_EQ(block->strFeedForwardGain, "g +");
    EXPECT_FALSE(commitCell(*block, 1, "g +", checker.object(), false).result);
    EXPECT_EQ(block->strMasterPosition, "0");
}

TEST(Cam, APanelsFirstTabIsItsThreeRows) {
    const auto block = make<clsBVTCAMOnOff>();
    FakeChecker checker;
    EXPECT_TRUE(commitPanel(*block, 1, panelOf({"Cam1", "pos", "False"}), checker.object()).result);
    EXPECT_EQ(checker.checks(), Calls{"checkexpression(pos,1,1)"});
    EXPECT_EQ(block->OutputToFile(""), R"(11 "Cam1" "pos" 0 0 "Cam1" "100.00" "300" "0" "0" "0" "0")");
    const auto out = commitPanel(*block, 1, panelOf({"Cam2", "1E39", "True"}), checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, realRange);
    EXPECT_EQ(block->strCAMProfileTable, "Cam1");
    checker.verdicts["Cam2"] = bad("Unknown name");
    EXPECT_FALSE(commitPanel(*block, 0, panelOf({"Cam2", "1", "True"}), checker.object()).result);
    EXPECT_FALSE(block->blnCAM);
}

TEST(Cam, APanelsSecondTabIsAddressGainAndCycle) {
    const struct {
        const char* gain;
        const char* kept;
    } rows[]{{"0.5", "50"}, {"1", "100"}, {"gain", "gain"}, {"", ""}, {"-2", "-200"}, {"1.1", "110"}};
    for (const auto& row : rows) {
        const auto block = make<clsBVTCAMOnOff>();
        FakeChecker checker;
        EXPECT_TRUE(commitAdvanced(*block, 2, panelOf({"Speeds", row.gain, "360"}), checker.object()).result);
        EXPECT_EQ(checker.checks(), Calls{"checkexpression(360,1,1)"});
        EXPECT_EQ(block->strSpeedFeedForwardAddress, "Speeds");
        EXPECT_EQ(block->strFeedForwardGain, row.kept) << row.gain;
        EXPECT_EQ(block->strMasterAxisMaxCycle, "360");
        EXPECT_EQ(block->strCAMProfileTable, "CWAddress");
        EXPECT_EQ(block->GetPropertyAt(5), row.kept);
    }
}

TEST(Cam, APanelsSecondTabIsRefusedByTheCheckerAlone) {
    const auto block = make<clsBVTCAMOnOff>();
    FakeChecker checker;
    EXPECT_TRUE(commitAdvanced(*block, 1, panelOf({"A", "x", "1E300"}), checker.object()).result) << "no range here";
    checker.verdicts["y +"] = bad("Operand missing", 4, 1);
    const auto out = commitAdvanced(*block, 1, panelOf({"B", "y +", "1"}), checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, "Operand missing");
    EXPECT_EQ(out.selStart, 4);
    EXPECT_EQ(out.selLength, 1);
    EXPECT_EQ(block->strSpeedFeedForwardAddress, "A");
    EXPECT_EQ(block->strFeedForwardGain, "x");
    EXPECT_EQ(block->strMasterAxisMaxCycle, "1E300");
    EXPECT_EQ(raisedBy([&] { commitAdvanced(*block, 0, nullptr, checker.object()); }), 91);
    EXPECT_TRUE(commitAdvanced(*block, -1, nullptr, nullptr).result);
}

TEST(Cam, AProgramCheckLooksAtThePositionAlone) {
    const auto block = make<clsBVTCAMOnOff>();
    FakeChecker checker;
    block->strMasterPosition = "pos";
    std::string message;
    EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 12, message));
    EXPECT_EQ(checker.checks(), Calls{"checkexpression(pos,12,2)"});
    EXPECT_EQ(message, "(12,2)ƒ16ƒ16@");
    EXPECT_EQ(block->GetPropertyAt(4), "");
}

TEST(ScaleCam, HasTheRangeOfAReal) {
    const auto block = make<clsBVTScaleCAM>();
    FakeChecker checker;
    EXPECT_TRUE(commitCell(*block, 0, "-50.5", checker.object()).result);
    EXPECT_EQ(block->strScaleFactor, "[-50.5]");
    const auto out = commitCell(*block, 0, "1E39", checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, realRange);
    EXPECT_EQ(block->strScaleFactor, "[-50.5]");
}

TEST(CamShift, RefusesANegativeDurationAndTakesANegativeShift) {
    const auto block = make<clsBVTCAMShift>();
    FakeChecker checker;
    EXPECT_TRUE(commitCell(*block, 0, "-4", checker.object()).result);
    for (const char* text : {"-1", "1.5", "32768"}) {
        const auto out = commitCell(*block, 1, text, checker.object());
        EXPECT_FALSE(out.result) << text;
        EXPECT_EQ(out.strError, "Expecting a postion integer in the range of [0 To 32767].");
    }
    EXPECT_TRUE(commitCell(*block, 2, "0", nullptr).result);
    EXPECT_EQ(block->OutputToFile(""), R"(3 "[-4]" "0" 0)");
    EXPECT_FALSE(commitPanel(*block, 0, panelOf({"1", "2", "True"}), checker.object()).result)
        << "a whole panel is not its business";
}

}  // namespace
}  // namespace canvas
