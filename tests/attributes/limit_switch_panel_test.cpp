// A whole panel of a limit switch block: it names the switch that it changes.

#include <gtest/gtest.h>

#include "attributes/lists.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::commitPanel;
using testing::panelOf;

constexpr const char* two = "100,50,Out1,1;200,150,Out2,0;";
constexpr const char* realRange = "Expecting a real number in the range of [-3.402823E+38 To 3.402823E+38]";

struct SwitchPanel : ::testing::Test {
    Ref<clsBVTProgrammableLimitSwitch> block = make<clsBVTProgrammableLimitSwitch>();

    /// The list, unpacked, with a switch selected from 0.
    void fill(std::string_view list, std::int16_t selected = 0) const {
        block->strVariable = list;
        block->UpdateMatrix(selected);
        block->FillMatrix();
    }
    /// The texts of a panel for a switch of the list.
    static Ref<Object> panel(const std::string& current, const std::string& above = "9", const std::string& below = "8",
                             const std::string& state = "ON", const std::string& count = "2") {
        return panelOf({"Enc", count, current, above, below, "Out9", state, "New"});
    }
};

TEST_F(SwitchPanel, APanelChangesTheSwitchThatItNames) {
    fill(two);
    EXPECT_TRUE(commitPanel(*block, 3, panel("Switch 2"), nullptr).result) << "no checker is asked";
    EXPECT_EQ(block->strMasterVariable, "Enc");
    EXPECT_EQ(block->strVariable, "100,50,Out1,1;9,8,Out9,1;");
    EXPECT_TRUE(commitPanel(*block, 3, panel("Switch 1", "a", "b", "On"), nullptr).result);
    EXPECT_EQ(block->strVariable, "a,b,Out9,0;9,8,Out9,1;");
}

TEST_F(SwitchPanel, APanelReadsOneDigitOfTheSwitchesNumber) {
    std::string list;
    for (int i = 1; i <= 12; ++i) list += std::to_string(i) + ",0,Out,0;";
    fill(list, 11);
    EXPECT_TRUE(commitPanel(*block, 3, panel("Switch 12", "9", "8", "ON", "12"), nullptr).result);
    std::string changed = list;
    changed.replace(changed.find("2,0,Out,0;"), 10, "9,8,Out9,1;");
    EXPECT_EQ(block->strVariable, changed) << "the second switch, not the twelfth";
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 3, panel("Switch 10", "7", "6", "ON", "12"), nullptr); }), 9);
    EXPECT_EQ(block->strVariable, changed) << "there is no switch 0";
}

TEST_F(SwitchPanel, APanelMustNameASwitchThatIsThere) {
    fill(two);
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 3, panel("Switch 3"), nullptr); }), 9);
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 3, panel("Switch"), nullptr); }), 13);
    EXPECT_EQ(block->strVariable, two);
}

TEST_F(SwitchPanel, APanelWithoutSwitchesStillKeepsTheEncoder) {
    fill("");
    raisedBy([&] { commitPanel(*block, 0, panelOf({"Enc", "0", "", "", "", "", "", "New"}), nullptr); });
    EXPECT_EQ(block->strMasterVariable, "Enc");
    EXPECT_EQ(block->strVariable, "");
}

TEST_F(SwitchPanel, APanelNamesTheRowThatIsOutOfRange) {
    fill(two);
    const struct {
        Ref<Object> texts;
        std::int16_t place;
        const char* message;
    } rows[]{
        {panel("Switch 1", "9", "8", "ON", "40000"), 2, "Expecting an integer in the range of [-32768 To 32767]"},
        {panel("Switch 1", "1E39", "8"), 4, realRange},
        {panel("Switch 1", "9", "-1E39"), 5, realRange},
    };
    for (const auto& row : rows) {
        const auto out = commitPanel(*block, 0, row.texts, nullptr);
        EXPECT_FALSE(out.result);
        EXPECT_EQ(out.iIndex, row.place);
        EXPECT_EQ(out.strError, row.message);
        EXPECT_EQ(block->strMasterVariable, "");
        EXPECT_EQ(block->strVariable, two);
    }
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 0, nullptr, nullptr); }), 91);
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 0, panelOf({"Enc"}), nullptr); }), 9);
}

}  // namespace
}  // namespace canvas
