// The block that switches outputs between two values of an encoder: its list of switches and the one that is shown.

#include <gtest/gtest.h>

#include "attributes/lists.h"
#include "fake_checker.h"
#include "host/array.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::bad;
using testing::comboItems;
using testing::commitCell;
using testing::FakeChecker;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

constexpr const char* two = "100,50,Out1,1;200,150,Out2,0;";
constexpr const char* realRange = "Expecting a real number in the range of [-3.402823E+38 To 3.402823E+38]";

struct LimitSwitch : ::testing::Test {
    Ref<clsBVTProgrammableLimitSwitch> block = make<clsBVTProgrammableLimitSwitch>();
    FakeChecker checker;

    /// The list, unpacked, with a switch selected from 0.
    void fill(std::string_view list, std::int16_t selected = 0) const {
        block->strVariable = list;
        block->UpdateMatrix(selected);
        block->FillMatrix();
    }
    /// Column 1 of the eight rows.
    Texts shown() const {
        Texts texts;
        for (std::int16_t row = 0; row <= 7; ++row) texts.push_back(block->GetElementFromMatrix(row, 1));
        return texts;
    }
};

TEST_F(LimitSwitch, ShowsTheSelectedSwitch) {
    block->strMasterVariable = "Encoder1";
    fill(two);
    EXPECT_EQ(shown(), (Texts{"Encoder1", "2", "Switch 1", "100", "50", "Out1", "ON", "New"}));
    EXPECT_FALSE(block->UpdateMatrix(1));
    EXPECT_EQ(shown()[2], "Switch 1") << "until the matrix is filled again";
    block->FillMatrix();
    EXPECT_EQ(shown(), (Texts{"Encoder1", "2", "Switch 2", "200", "150", "Out2", "OFF", "New"}));
    Object& named = *block;
    EXPECT_EQ(invoke(named, "UpdateMatrix", std::int16_t{0}), Value(false));
    EXPECT_EQ(block->iSelected, 0);
    named.put("Selected", "1");
    EXPECT_EQ(block->iSelected, 1);
    EXPECT_EQ(raisedBy([&] { named.get("Selected"); }), 438) << "it is only set";
}

TEST_F(LimitSwitch, WithoutSwitchesTheirRowsAreEmpty) {
    block->strMasterVariable = "Encoder1";
    for (const char* list : {"", "100,50,Out1,1"}) {
        fill(list);
        EXPECT_EQ(shown(), (Texts{"Encoder1", "0", "", "", "", "", "", "New"})) << list;
        EXPECT_EQ(comboItems(*block, 2), Texts());
    }
}

TEST_F(LimitSwitch, AListWithoutItsLastSemicolonLosesItsLastSwitch) {
    fill("100,50,Out1,1;200,150,Out2,0");
    EXPECT_EQ(shown(), (Texts{"", "1", "Switch 1", "100", "50", "Out1", "ON", "New"}));
    EXPECT_EQ(comboItems(*block, 2), Texts{"Switch 1"});
    EXPECT_TRUE(commitCell(*block, 5, "Out7", checker.object()).result);
    EXPECT_EQ(block->strVariable, "100,50,[Out7],1;");
}

TEST_F(LimitSwitch, OnlyAOneIsOn) {
    for (const char* state : {"0", "", "2", "True", " 1", "ON"}) {
        fill("1,2,Out," + std::string(state) + ";");
        EXPECT_EQ(shown()[6], "OFF") << state;
        EXPECT_EQ(block->GetActiveState(0), "OFF") << state;
    }
}

TEST_F(LimitSwitch, ItsFieldsHaveTheirNamesTheWrongWayRound) {
    fill(two);
    EXPECT_EQ(block->GetActiveLessThanValue(0), "100") << "what row GreaterThan(>) shows";
    EXPECT_EQ(block->GetActiveGreaterThanValue(0), "50") << "what row LessThan(<) shows";
    EXPECT_EQ(block->GetActiveOutputValue(1), "Out2");
    EXPECT_EQ(block->GetActiveState(0), "ON");
    EXPECT_EQ(block->GetActiveState(1), "OFF");
    Object& named = *block;
    EXPECT_EQ(invoke(named, "GetActiveLessThanValue", std::int16_t{1}), Value("200"));
    EXPECT_EQ(invoke(named, "GetActiveGreaterThanValue", std::int16_t{1}), Value("150"));
    EXPECT_EQ(invoke(named, "GetActiveOutputValue", std::int16_t{0}), Value("Out1"));
    EXPECT_EQ(invoke(named, "GetActiveState", std::int16_t{1}), Value("OFF"));
    for (const std::int16_t beyond : {std::int16_t{-1}, std::int16_t{2}, std::int16_t{32767}}) {
        EXPECT_EQ(raisedBy([&] { block->GetActiveLessThanValue(beyond); }), 9) << beyond;
        EXPECT_EQ(raisedBy([&] { block->GetActiveGreaterThanValue(beyond); }), 9);
        EXPECT_EQ(raisedBy([&] { block->GetActiveOutputValue(beyond); }), 9);
        EXPECT_EQ(raisedBy([&] { block->GetActiveState(beyond); }), 9);
    }
}

TEST_F(LimitSwitch, HandsOutItsSwitchesAsATable) {
    fill(two);
    const Value switches = static_cast<Object&>(*block).get("Switches");
    ASSERT_TRUE(switches.is(Kind::array));
    EXPECT_EQ(switches.toArray().dimensions, (std::vector<Bounds>{{0, 1}, {0, 3}}));
    const char* expected[2][4]{{"100", "50", "Out1", "1"}, {"200", "150", "Out2", "0"}};
    for (std::int32_t i = 0; i < 2; ++i)
        for (std::int32_t j = 0; j < 4; ++j) {
            const std::int32_t at[]{i, j};
            EXPECT_EQ(switches.toArray().at(at), Value(expected[i][j])) << i << ',' << j;
        }
    fill("");
    const Value none = block->Switches();
    EXPECT_EQ(none.toArray().dimensions, (std::vector<Bounds>{{0, 0}, {0, 3}}));
    EXPECT_EQ(none.toArray().elements, std::vector<Value>(4, Value(""))) << "one empty switch";
}

TEST_F(LimitSwitch, AnEmptyPartIsASwitchOfItsOwn) {
    fill("1,2,A,1;;3,4,B,0;", 2);
    EXPECT_EQ(shown(), (Texts{"", "3", "Switch 3", "3", "4", "B", "OFF", "New"}));
    fill("1,2,A,1;;3,4,B,0;", 1);
    EXPECT_EQ(shown(), (Texts{"", "3", "Switch 2", "", "", "", "OFF", "New"}));
}

TEST_F(LimitSwitch, AThousandSwitchesAreUnpackedAndBuiltAgain) {
    std::string list, changed;
    for (int i = 0; i < 1000; ++i) {
        list += std::to_string(i) + ",1,Out,1;";
        changed += std::to_string(i) + (i == 999 ? ",1,Out,0;" : ",1,Out,1;");
    }
    fill(list, 999);
    EXPECT_EQ(shown(), (Texts{"", "1000", "Switch 1000", "999", "1", "Out", "ON", "New"}));
    EXPECT_EQ(comboItems(*block, 2).size(), 1000u);
    EXPECT_EQ(comboItems(*block, 2).back(), "Switch 1000");
    EXPECT_TRUE(commitCell(*block, 6, "OFF", nullptr).result);
    EXPECT_EQ(block->strVariable, changed);
}

TEST_F(LimitSwitch, OffersItsSwitchesAndBothStates) {
    fill(two);
    EXPECT_EQ(comboItems(*block, 2), (Texts{"Switch 1", "Switch 2"}));
    EXPECT_EQ(comboItems(*block, 6), (Texts{"ON", "OFF"}));
    for (const int row : {-1, 0, 1, 3, 4, 5, 7, 8}) EXPECT_EQ(comboItems(*block, row), Texts()) << row;
    EXPECT_EQ(block->GetNumOfProperties(), 0);
    EXPECT_EQ(block->GetPropertyAt(1), "");
}

TEST_F(LimitSwitch, ASelectionWithoutASwitchIsOutOfRange) {
    for (const std::int16_t beyond : {std::int16_t{-1}, std::int16_t{2}})
        EXPECT_EQ(raisedBy([&] { fill(two, beyond); }), 9) << beyond;
}

TEST_F(LimitSwitch, ACellChangesAFieldOfTheSelectedSwitch) {
    const struct {
        int row;
        const char* text;
        const char* list;
    } rows[]{
        {3, "a", "100,50,Out1,1;[a],150,Out2,0;"},
        {4, "-7", "100,50,Out1,1;200,[-7],Out2,0;"},
        {5, "Out9", "100,50,Out1,1;200,150,[Out9],0;"},
        {6, "ON", "100,50,Out1,1;200,150,Out2,1;"},
        {1, "5", two},
        {2, "Switch 1", two},
        {7, "New", two},
    };
    for (const auto& row : rows) {
        fill(two, 1);
        checker.calls.clear();
        const auto out = commitCell(*block, row.row, row.text, checker.object());
        EXPECT_TRUE(out.result);
        EXPECT_EQ(block->strVariable, row.list) << row.row;
        const bool checked = row.row >= 3 && row.row <= 5;
        const std::string text = row.text;
        EXPECT_EQ(checker.calls, checked ? (Calls{"checkexpression(" + text + ",1,1)", "GetResult"}) : Calls());
        EXPECT_EQ(out.FormattedText, checked ? "[" + text + "]" : text);
        EXPECT_EQ(block->strMasterVariable, "");
    }
}

TEST_F(LimitSwitch, AStateOtherThanOnIsOff) {
    for (const char* text : {"OFF", "On", "on", "1", "True", " ON", ""}) {
        fill("1,2,Out,1;");
        EXPECT_TRUE(commitCell(*block, 6, text, nullptr).result);
        EXPECT_EQ(block->strVariable, "1,2,Out,0;") << text;
        EXPECT_TRUE(commitCell(*block, 6, "ON", nullptr).result);
        EXPECT_EQ(block->strVariable, "1,2,Out,1;");
    }
}

TEST_F(LimitSwitch, ACellOfTheEncoderIsTheEncoder) {
    fill(two);
    EXPECT_TRUE(commitCell(*block, 0, "Enc", checker.object()).result);
    EXPECT_EQ(block->strMasterVariable, "[Enc]");
    EXPECT_EQ(block->strVariable, two);
}

TEST_F(LimitSwitch, AValueOutOfRangeIsNotStored) {
    fill(two);
    for (const int row : {3, 4}) {
        const auto out = commitCell(*block, row, "1E39", checker.object());
        EXPECT_FALSE(out.result) << row;
        EXPECT_EQ(out.strError, realRange);
        EXPECT_EQ(out.selStart, 1);
        EXPECT_EQ(out.selLength, 4);
    }
    EXPECT_TRUE(commitCell(*block, 5, "1E39", checker.object()).result) << "an output has no range";
    EXPECT_EQ(block->strVariable, "100,50,[1E39],1;200,150,Out2,0;");
}

TEST_F(LimitSwitch, AValueOfWrongSyntaxIsStoredAllTheSame) {
    fill(two);
    checker.verdicts["x +"] = bad("Operand missing", 4, 1);
    const auto out = commitCell(*block, 3, "x +", checker.object());
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, "Operand missing");
    EXPECT_EQ(out.selStart, 4);
    EXPECT_EQ(block->strVariable, "x +,50,Out1,1;200,150,Out2,0;");
    EXPECT_FALSE(commitCell(*block, 0, "x +", checker.object()).result);
    EXPECT_EQ(block->strMasterVariable, "x +");
}

TEST_F(LimitSwitch, WithoutSwitchesACellChangesNoList) {
    fill("");
    EXPECT_TRUE(commitCell(*block, 3, "5", checker.object()).result);
    EXPECT_TRUE(commitCell(*block, 6, "ON", checker.object()).result);
    EXPECT_EQ(block->strVariable, "");
    EXPECT_TRUE(commitCell(*block, -1, "5", nullptr).result);
}

TEST_F(LimitSwitch, AnEditBeforeTheMatrixIsFilledLosesNothing) {
    block->AssignFromFile(1, "Encoder1");
    block->AssignFromFile(2, two);
    raisedBy([&] { commitCell(*block, 7, "New", nullptr); });
    raisedBy([&] { commitCell(*block, 0, "Enc", checker.object()); });
    EXPECT_EQ(block->strVariable, two);
}

TEST_F(LimitSwitch, ParseListSplitsAtEverySemicolon) {
    const Value parts = invoke(static_cast<Object&>(*block), "ParseList", "1,2,A,1;;x");
    EXPECT_EQ(parts.toArray().elements, (std::vector<Value>{"1,2,A,1", "", "x"}));
}

}  // namespace
}  // namespace canvas
