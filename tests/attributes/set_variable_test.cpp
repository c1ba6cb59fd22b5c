// The block that assigns expressions to variables: its list, and the entry of it that the panel shows.

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
using testing::commitPanel;
using testing::FakeChecker;
using testing::panelOf;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

struct SetVariable : ::testing::Test {
    Ref<clsBVTSetVariable> block = make<clsBVTSetVariable>();
    FakeChecker checker;

    /// The list, unpacked.
    void fill(std::string_view list) const {
        block->strVariable = list;
        block->FillMatrix();
    }
    /// Column 1 of the four rows.
    Texts shown() const {
        Texts texts;
        for (std::int16_t row = 0; row <= 3; ++row) texts.push_back(block->GetElementFromMatrix(row, 1));
        return texts;
    }
    Texts shownFor(std::string_view list) const {
        fill(list);
        return shown();
    }
};

TEST_F(SetVariable, UnpacksItsListWhenTheMatrixIsFilled) {
    const struct {
        const char* list;
        Texts shown;
    } rows[]{
        {"", {"0", "", "", "New"}},
        {"Speed=100;Torque=Speed*2;", {"2", "Speed", "100", "New"}},
        {"A=B=C;", {"1", "A", "B=C", "New"}},
        {"A==;", {"1", "A", "=", "New"}},
        {"=5;", {"1", "", "5", "New"}},
        {"A=;", {"1", "A", "", "New"}},
        {" A = 5 ;", {"1", " A ", " 5 ", "New"}},
        {"A=1", {"0", "", "", "New"}},
        {"A=1;B=2", {"1", "A", "1", "New"}},
        {"A=1;B=2;C", {"2", "A", "1", "New"}},
        {";A=1;", {"2", "", "", "New"}},
        {";;;", {"3", "", "", "New"}},
        {"größe=ä;", {"1", "größe", "ä", "New"}},
    };
    for (const auto& row : rows) EXPECT_EQ(shownFor(row.list), row.shown) << row.list;
}

TEST_F(SetVariable, AnEmptyPartIsAnEntryOfItsOwn) {
    EXPECT_EQ(shownFor("A=1;;B=2;")[0], "3");
    block->UpdateMatrix(1);
    EXPECT_EQ(shownFor("A=1;;B=2;"), (Texts{"3", "", "", "New"}));
    block->UpdateMatrix(2);
    EXPECT_EQ(shownFor("A=1;;B=2;"), (Texts{"3", "B", "2", "New"}));
}

TEST_F(SetVariable, ShowsTheSelectedEntry) {
    fill("A=1;B=2;");
    EXPECT_FALSE(block->UpdateMatrix(1));
    EXPECT_EQ(shown()[1], "A") << "until the matrix is filled again";
    block->FillMatrix();
    EXPECT_EQ(shown(), (Texts{"2", "B", "2", "New"}));
    Object& named = *block;
    EXPECT_EQ(invoke(named, "UpdateMatrix", std::int16_t{0}), Value(false));
    EXPECT_EQ(block->iSelected, 0);
    named.put("Selected", std::int16_t{1});
    EXPECT_EQ(block->iSelected, 1);
    EXPECT_EQ(raisedBy([&] { named.get("Selected"); }), 438) << "it is only set";
    block->UpdateMatrix(2);
    block->FillMatrix();
    EXPECT_EQ(shown(), (Texts{"2", "", "", "New"})) << "the empty element behind the last entry";
    for (const std::int16_t beyond : {std::int16_t{-1}, std::int16_t{3}}) {
        block->UpdateMatrix(beyond);
        EXPECT_EQ(raisedBy([&] { block->FillMatrix(); }), 9) << beyond;
    }
}

TEST_F(SetVariable, HandsOutItsEntriesFromZero) {
    fill("A=1;B=2;");
    Object& named = *block;
    EXPECT_EQ(block->GetVariableAt(0), "A");
    EXPECT_EQ(block->GetExpressionAt(1), "2");
    EXPECT_EQ(invoke(named, "GetVariableAt", std::int16_t{1}), Value("B"));
    EXPECT_EQ(invoke(named, "GetExpressionAt", std::int16_t{0}), Value("1"));
    for (const std::int16_t beyond : {std::int16_t{-1}, std::int16_t{3}, std::int16_t{32767}}) {
        EXPECT_EQ(raisedBy([&] { block->GetVariableAt(beyond); }), 9) << beyond;
        EXPECT_EQ(raisedBy([&] { block->GetExpressionAt(beyond); }), 9) << beyond;
    }
}

TEST_F(SetVariable, HandsOutCopiesOfItsArrays) {
    fill("A=1;B=2;");
    Object& named = *block;
    Value variables = named.get("Variables");
    EXPECT_EQ(variables.toArray().dimensions, (std::vector<Bounds>{{0, 2}}));
    EXPECT_EQ(variables.toArray().elements, (std::vector<Value>{"A", "B", ""})) << "the last one is empty";
    EXPECT_EQ(named.get("Expressions").toArray().elements, (std::vector<Value>{"1", "2", ""}));
    variables.toArray().elements[0] = "changed";
    EXPECT_EQ(block->GetVariableAt(0), "A");
    EXPECT_EQ(raisedBy([&] { named.put("Variables", variables); }), 438);
    fill("");
    EXPECT_EQ(named.get("Variables").toArray().elements, std::vector<Value>{""});
    EXPECT_EQ(named.get("Expressions").toArray().elements, std::vector<Value>{""});
}

TEST_F(SetVariable, AThousandEntriesAreUnpackedAndBuiltAgain) {
    std::string list, changed;
    for (int i = 0; i < 1000; ++i) {
        const std::string variable = "V" + std::to_string(i);
        list += variable + "=" + std::to_string(i) + ";";
        changed += variable + "=" + (i == 999 ? "x" : std::to_string(i)) + ";";
    }
    block->UpdateMatrix(999);
    EXPECT_EQ(shownFor(list), (Texts{"1000", "V999", "999", "New"}));
    EXPECT_EQ(comboItems(*block, 1).size(), 1000u);
    EXPECT_TRUE(commitCell(*block, 2, "x", checker.object()).result);
    EXPECT_EQ(block->strVariable, changed);
    std::string message;
    EXPECT_TRUE(block->PropertiesSyntaxCheck(checker.object(), 7, message));
    EXPECT_EQ(checker.checks().size(), 2001u);
    EXPECT_EQ(checker.checks().back(), "checkexpression(x,7,999)");
    EXPECT_TRUE(message.ends_with("(7,1000)ƒ16ƒ16@"));
}

TEST_F(SetVariable, OffersItsNamesAndExpressions) {
    EXPECT_EQ(comboItems(*block, 1), Texts());
    EXPECT_EQ(comboItems(*block, 2), Texts());
    fill("A=1;B=2;");
    EXPECT_EQ(comboItems(*block, 1), (Texts{"A", "B"}));
    EXPECT_EQ(comboItems(*block, 2), (Texts{"1", "2"}));
    for (const int row : {-1, 0, 3, 4}) EXPECT_EQ(comboItems(*block, row), Texts()) << row;
    EXPECT_EQ(block->GetNumOfProperties(), 0);
    EXPECT_EQ(block->GetPropertyAt(1), "");
}

TEST_F(SetVariable, AnActiveTextIsShownAndNothingElse) {
    fill("A=1;B=2;");
    Object& named = *block;
    EXPECT_FALSE(block->SetActiveVariable("X"));
    EXPECT_EQ(invoke(named, "SetActiveExpression", "9"), Value(false));
    EXPECT_EQ(shown(), (Texts{"2", "X", "9", "New"}));
    EXPECT_EQ(block->strVariable, "A=1;B=2;");
    EXPECT_EQ(block->GetVariableAt(0), "A");
    EXPECT_EQ(block->GetExpressionAt(0), "1");
    block->FillMatrix();
    EXPECT_EQ(shown(), (Texts{"2", "A", "1", "New"}));
}

TEST_F(SetVariable, AnActiveTextIsShownBeforeTheMatrixIsFilled) {
    block->SetActiveExpression("9");
    EXPECT_EQ(shown(), (Texts{"", "", "9", ""}));
    EXPECT_EQ(block->GetElementFromMatrix(2, 0), "") << "the rest of the row is not written yet";
    EXPECT_EQ(block->GetElementFromMatrix(2, 6), "");
}

TEST_F(SetVariable, ParseListSplitsAtEverySemicolon) {
    Object& named = *block;
    const auto parts = [&](const char* list) { return invoke(named, "ParseList", list).toArray().elements; };
    EXPECT_EQ(parts("A=1;B=2;"), (std::vector<Value>{"A=1", "B=2", ""}));
    EXPECT_EQ(parts("A"), std::vector<Value>{"A"});
    EXPECT_EQ(parts(";;"), (std::vector<Value>{"", "", ""}));
    EXPECT_EQ(parts(std::string(2000, ';').c_str()).size(), 2001u) << "no limit of parts";
}

TEST_F(SetVariable, ComparesItsListAlone) {
    fill("A=1;B=2;");
    const auto other = make<clsBVTSetVariable>();
    other->strVariable = "A=1;B=2;";
    block->UpdateMatrix(1);
    EXPECT_TRUE(block->SameAs(other)) << "neither selection nor arrays count";
    other->strVariable = "a=1;B=2;";
    EXPECT_FALSE(block->SameAs(other));
    const auto host = make<Composed>();
    host->property("Variable", "A=1;B=2;");
    EXPECT_TRUE(block->SameAs(host));
    const auto copy = block->IsTheSame();
    copy->FillMatrix();
    EXPECT_EQ(copy->GetElementFromMatrix(1, 1), "B") << "a copy has the selection";
}

TEST_F(SetVariable, ACellChangesTheSelectedEntryAsTyped) {
    fill("A=1;B=2;");
    block->UpdateMatrix(1);
    block->FillMatrix();
    auto out = commitCell(*block, 2, "x+1", checker.object());
    EXPECT_TRUE(out.result);
    EXPECT_EQ(checker.calls, Calls{"checkexpression(x+1,1,1)"}) << "the analysis is not fetched";
    EXPECT_EQ(out.FormattedText, "x+1");
    EXPECT_EQ(block->strVariable, "A=1;B=x+1;");
    EXPECT_EQ(shown(), (Texts{"2", "B", "x+1", "New"})) << "shown at once";
    out = commitCell(*block, 1, "Speed", checker.object());
    EXPECT_TRUE(out.result);
    EXPECT_EQ(block->strVariable, "A=1;Speed=x+1;");
    EXPECT_EQ(shown()[1], "Speed");
}

TEST_F(SetVariable, ABadCellIsNotStored) {
    fill("A=1;");
    checker.verdicts["x +"] = bad("Operand missing", 4, 1);
    for (const int row : {1, 2}) {
        const auto out = commitCell(*block, row, "x +", checker.object());
        EXPECT_FALSE(out.result);
        EXPECT_EQ(out.strError, "Operand missing");
        EXPECT_EQ(out.selStart, 4);
        EXPECT_EQ(out.selLength, 1);
        EXPECT_EQ(shownFor(block->strVariable), (Texts{"1", "A", "1", "New"}));
    }
}

TEST_F(SetVariable, TheCountOfACellHasARangeAndIsNotStored) {
    fill("A=1;");
    const auto out = commitCell(*block, 0, "-1", nullptr);
    EXPECT_FALSE(out.result);
    EXPECT_EQ(out.strError, "Expecting a postion integer in the range of [0 To 32767].");
    EXPECT_EQ(out.selStart, 1);
    EXPECT_EQ(out.selLength, 2);
    EXPECT_TRUE(commitCell(*block, 0, "5", checker.object()).result);
    EXPECT_EQ(block->strVariable, "A=1;");
}

TEST_F(SetVariable, TheButtonsCellOnlyEchoesItsText) {
    fill("A=1;B=2");
    for (const int row : {3, -1}) {
        const auto out = commitCell(*block, row, "x +", nullptr);
        EXPECT_TRUE(out.result) << row;
        EXPECT_EQ(out.FormattedText, "x +");
        EXPECT_EQ(block->strVariable, "A=1;") << "the list is built again, without what was never an entry";
    }
}

TEST_F(SetVariable, AnEmptyListHasNoEntryToChange) {
    fill("");
    EXPECT_TRUE(commitCell(*block, 1, "A", checker.object()).result);
    EXPECT_EQ(block->strVariable, "");
}

TEST_F(SetVariable, AnEditBeforeTheMatrixIsFilledLosesNothing) {
    block->AssignFromFile(1, "A=1;B=2;");
    raisedBy([&] { commitCell(*block, 3, "New", nullptr); });
    EXPECT_EQ(block->strVariable, "A=1;B=2;");
    raisedBy([&] { commitPanel(*block, 1, panelOf({"2", "A", "1", "New"}), checker.object()); });
    EXPECT_EQ(block->strVariable, "A=1;B=2;");
}

TEST_F(SetVariable, APanelChangesTheExpressionOfTheNamedEntry) {
    fill("A=1;B=2;");
    EXPECT_TRUE(commitPanel(*block, 2, panelOf({"2", "B", "x +", "New"}), nullptr).result) << "no checker is asked";
    EXPECT_EQ(block->strVariable, "A=1;B=x +;");
    EXPECT_EQ(block->GetExpressionAt(1), "x +");
    for (const char* unknown : {"b", "C", " B", ""}) {
        EXPECT_TRUE(commitPanel(*block, 2, panelOf({"2", unknown, "9", "New"}), nullptr).result);
        EXPECT_EQ(block->strVariable, "A=1;B=x +;") << unknown;
    }
}

TEST_F(SetVariable, APanelNamesTheRowThatIsOutOfRange) {
    fill("A=1;");
    for (const char* count : {"-1", "40000", "1.5"}) {
        const auto out = commitPanel(*block, 2, panelOf({count, "A", "9", "New"}), nullptr);
        EXPECT_FALSE(out.result) << count;
        EXPECT_EQ(out.iIndex, 1);
        EXPECT_EQ(out.strError, "Expecting a postion integer in the range of [0 To 32767].");
        EXPECT_EQ(block->strVariable, "A=1;");
    }
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 2, nullptr, nullptr); }), 91);
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 2, panelOf({"1", "A"}), nullptr); }), 9);
}

}  // namespace
}  // namespace canvas
