// What every block class has in common, over the rows of every class.

#include <gtest/gtest.h>

#include "attributes/attribute.h"
#include "block_case.h"
#include "fake_checker.h"
#include "known_files.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace testing {

void PrintTo(const BlockCase& block, std::ostream* out) { *out << block.name; }

}  // namespace testing

namespace {

using testing::BlockCase;
using testing::FakeChecker;
using testing::Setting;

class BlockClass : public ::testing::TestWithParam<BlockCase> {
protected:
    WithEnvironment inForce{testing::withFiles(std::make_shared<testing::KnownFiles>())};
    const BlockCase& block = GetParam();
    Ref<AttributeObject> object = block.create();

    std::string textOf(const Setting& setting) const { return object->get(setting.property).toText(); }
    void read(AttributeObject& into) const {
        for (std::size_t i = 0; i < block.values.size(); ++i)
            into.AssignFromFile(static_cast<std::int16_t>(i + 1), block.values[i]);
    }
    /// The settings that have a property.
    std::vector<const Setting*> named() const {
        std::vector<const Setting*> found;
        for (const Setting& setting : block.settings)
            if (*setting.property) found.push_back(&setting);
        return found;
    }
    /// The settings that have a row, in the order of the rows.
    std::vector<const Setting*> rows() const {
        std::vector<const Setting*> found;
        for (int row = 0; row < block.rows(); ++row) found.push_back(block.at(&Setting::row, row));
        return found;
    }
    std::vector<std::string> columns(int row) const {
        std::vector<std::string> cells;
        for (std::int16_t column = 0; column <= 6; ++column)
            cells.push_back(object->GetElementFromMatrix(static_cast<std::int16_t>(row), column));
        return cells;
    }
    /// A text for the setting's row that differs from the preset and that its field takes.
    static std::string otherText(const Setting& setting) {
        if (setting.items.empty()) return "a + b";
        const bool last = setting.items.back() == setting.shownAs(setting.preset.toText());
        return last ? setting.items.front() : setting.items.back();
    }
};

Value otherValue(const Value& value) {
    if (value.is(Kind::boolean)) return !value.toBoolean();
    if (value.is(Kind::integer)) return static_cast<std::int16_t>(value.toInteger() + 41);
    if (value.is(Kind::longInteger)) return value.toLong() + 70000;
    return value.toText() + "+41";
}

TEST_P(BlockClass, TellsItsName) { EXPECT_EQ(object->className(), block.name); }

TEST_P(BlockClass, ANewObjectHasThePresets) {
    for (const Setting* setting : named())
        EXPECT_EQ(object->get(setting->property), setting->preset) << setting->property;
}

TEST_P(BlockClass, ANewObjectHasItsFileLine) {
    EXPECT_EQ(object->OutputToFile(""), block.fresh);
    EXPECT_EQ(object->OutputToFile("17 3 \"x\" "), std::string("17 3 \"x\" ") + block.fresh);
}

TEST_P(BlockClass, AFileLineIsReadBackValueByValue) {
    read(*object);
    for (const Setting* setting : named()) EXPECT_EQ(textOf(*setting), setting->read) << setting->property;
    EXPECT_EQ(object->OutputToFile(""), block.line);
}

TEST_P(BlockClass, FileNumbersBeyondItsValuesAreIgnored) {
    if (block.anyFileNumber) return;
    const auto count = static_cast<std::int16_t>(block.values.size());
    for (const int number : {-1, 0, count + 1, 32767}) object->AssignFromFile(static_cast<std::int16_t>(number), "1");
    EXPECT_EQ(object->OutputToFile(""), block.fresh);
    for (const Setting* setting : named()) EXPECT_EQ(object->get(setting->property), setting->preset);
}

TEST_P(BlockClass, TheMatrixIsEmptyUntilItIsFilled) {
    for (int row = 0; row <= block.rows(); ++row) EXPECT_EQ(columns(row), std::vector<std::string>(7)) << row;
}

TEST_P(BlockClass, TheMatrixTellsItsBounds) {
    EXPECT_EQ(object->MatrixRow(), block.panel ? block.rows() - 1 : 0);
    EXPECT_EQ(object->MatrixCol(), block.panel ? 6 : 0);
}

TEST_P(BlockClass, FillMatrixWritesAllSevenColumnsOfEveryRow) {
    EXPECT_FALSE(object->FillMatrix());
    for (const Setting* setting : rows()) {
        const std::vector<std::string> expected{
            setting->label,
            setting->shownAs(setting->preset.toText()),
            setting->tip,
            std::to_string(setting->access),
            std::to_string(setting->builder),
            std::to_string(setting->display),
            std::to_string(setting->type),
        };
        EXPECT_EQ(columns(setting->row), expected) << setting->property;
    }
    EXPECT_EQ(columns(block.rows()), std::vector<std::string>(7));
    EXPECT_EQ(object->GetElementFromMatrix(0, 7), "");
}

TEST_P(BlockClass, FillMatrixShowsThePresentFields) {
    object->FillMatrix();
    read(*object);
    const auto shown = [&](const Setting& setting) {
        return object->GetElementFromMatrix(static_cast<std::int16_t>(setting.row), 1);
    };
    for (const Setting* setting : rows())
        EXPECT_EQ(shown(*setting), setting->shownAs(setting->preset.toText())) << setting->label;
    object->FillMatrix();
    for (const Setting* setting : rows()) EXPECT_EQ(shown(*setting), setting->shownAs(setting->read)) << setting->label;
}

TEST_P(BlockClass, CountsAndHandsOutItsProperties) {
    EXPECT_EQ(object->GetNumOfProperties(), block.properties());
    read(*object);
    for (int position = -1; position <= block.properties() + 1; ++position) {
        const Setting* setting = position > 0 ? block.at(&Setting::position, position) : nullptr;
        EXPECT_EQ(object->GetPropertyAt(static_cast<std::int16_t>(position)), setting ? setting->read : "") << position;
    }
}

TEST_P(BlockClass, ComboRowsGiveTheirLists) {
    for (int row = -1; row <= block.rows() + 1; ++row) {
        const Setting* setting = row >= 0 ? block.at(&Setting::row, row) : nullptr;
        const auto& expected = setting && !setting->items.empty() ? setting->items : block.otherItems;
        EXPECT_EQ(testing::comboItems(*object, row), expected) << row;
    }
}

TEST_P(BlockClass, ACommittedCellIsCheckedUnlessItsRowIsExempt) {
    if (block.ownRules) return;
    for (const Setting* setting : rows()) {
        SCOPED_TRACE(setting->property);
        FakeChecker checker;
        const std::string text = otherText(*setting);
        const auto out = testing::commitCell(*object, setting->row, text, checker.object());
        EXPECT_TRUE(out.result);
        const std::vector<std::string> checked{"checkexpression(" + text + ",1,1)", "GetResult"};
        EXPECT_EQ(checker.calls, setting->cellChecked ? checked : std::vector<std::string>());
        const std::string stored = setting->storesTyped ? text : "[" + text + "]";
        EXPECT_EQ(textOf(*setting), setting->keptAs(stored));
        EXPECT_EQ(out.FormattedText, stored);
    }
}

TEST_P(BlockClass, ACommittedCellChangesNoOtherSetting) {
    if (block.ownRules) return;
    for (const Setting* setting : rows()) {
        const auto fresh = block.create();
        FakeChecker checker;
        testing::commitCell(*fresh, setting->row, otherText(*setting), checker.object());
        for (const Setting& other : block.settings)
            EXPECT_EQ(fresh->get(other.property) == other.preset, &other != setting)
                << setting->property << " and " << other.property;
    }
}

TEST_P(BlockClass, AWholePanelIsStoredAsTypedWhereItCanBe) {
    if (block.ownRules) return;
    FakeChecker checker;
    std::vector<std::string> texts;
    for (const Setting* setting : rows()) texts.push_back(otherText(*setting));
    EXPECT_EQ(testing::commitPanel(*object, 0, testing::panelOf(texts), checker.object()).result, block.wholePanel);
    for (const Setting& setting : block.settings) {
        const bool stored = block.wholePanel && setting.row >= 0;
        const std::string kept = stored ? setting.keptAs(otherText(setting)) : setting.preset.toText();
        EXPECT_EQ(textOf(setting), kept) << setting.property;
    }
    std::vector<std::string> expected;
    if (block.wholePanel) expected = {"checkexpression(" + texts[0] + ",1,1)", "GetResult"};
    EXPECT_EQ(checker.calls, expected);
}

TEST_P(BlockClass, WithoutACurrentRowNothingHappens) {
    if (block.ownRules) return;
    EXPECT_EQ(testing::commitPanel(*object, -1, nullptr, nullptr).result, block.wholePanel);
    EXPECT_EQ(testing::commitCell(*object, -1, "x", nullptr).result, block.panel);
    EXPECT_EQ(object->OutputToFile(""), block.fresh);
}

TEST_P(BlockClass, AProgramCheckSkipsExemptPositionsAndRecordsTheOthers) {
    if (block.ownRules) return;
    FakeChecker checker;
    std::vector<std::string> checks;
    std::string records = "earlier@";
    for (int position = 1; position <= block.properties(); ++position) {
        const Setting* setting = block.at(&Setting::position, position);
        if (!setting || !setting->programChecked) continue;
        const std::string place = "," + std::to_string(position) + ")";
        checks.push_back("checkexpression(" + setting->preset.toText() + ",12" + place);
        const Setting* row = block.at(&Setting::row, position - 1);
        if (row) records += "(12" + place + "ƒ" + std::to_string(row->type) + "ƒ16@";
    }
    std::string message = "earlier@";
    EXPECT_EQ(object->PropertiesSyntaxCheck(checker.object(), 12, message), block.panel);
    EXPECT_EQ(checker.checks(), checks);
    EXPECT_EQ(message, records);
}

TEST_P(BlockClass, ACopyIsEqualAndIndependent) {
    read(*object);
    for (const Setting* setting : named()) object->put(setting->property, otherValue(setting->preset));
    const auto copy = object->IsTheSame();
    ASSERT_NE(copy, object);
    EXPECT_EQ(copy->className(), block.name);
    EXPECT_TRUE(copy->SameAs(object));
    for (const Setting* setting : named()) {
        EXPECT_EQ(copy->get(setting->property), otherValue(setting->preset)) << setting->property;
        copy->put(setting->property, setting->preset);
        EXPECT_EQ(object->get(setting->property), otherValue(setting->preset)) << setting->property;
    }
}

TEST_P(BlockClass, SameAsFindsAChangeOfEveryProperty) {
    EXPECT_TRUE(object->SameAs(object));
    EXPECT_TRUE(object->SameAs(block.create()));
    for (const Setting* setting : named()) {
        const auto other = object->IsTheSame();
        other->put(setting->property, otherValue(setting->preset));
        EXPECT_FALSE(object->SameAs(other)) << setting->property;
        EXPECT_FALSE(other->SameAs(object)) << setting->property;
    }
}

TEST_P(BlockClass, PropertyNamesIgnoreCase) {
    for (const Setting* setting : named()) {
        std::string shouted = setting->property;
        for (char& letter : shouted)
            if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
        object->put(shouted, otherValue(setting->preset));
        EXPECT_EQ(object->get(setting->property), otherValue(setting->preset)) << setting->property;
        EXPECT_EQ(object->get(shouted), otherValue(setting->preset)) << setting->property;
    }
}

TEST_P(BlockClass, OffersTheProtocolUnderBothNames) {
    const struct {
        std::string operation;
        std::size_t arguments;
        bool plain = true;
    } operations[]{
        {"FillMatrix", 0},
        {"UpdateMatrix", 13},
        {"UpdateElementInMatrix", 11},
        {"GetElementFromMatrix", 2},
        {"MatrixRow", 0},
        {"MatrixCol", 0},
        {"GetComboItem", 2},
        {"GetNumOfProperties", 0},
        {"GetPropertyAt", 1},
        {"PropertiesSyntaxCheck", 3},
        {"AdvancedMatrixCol", 0, false},
        {"AdvancedMatrixRow", 0, false},
        {"GetElementFromAdvancedMatrix", 2, false},
        {"GetAdvancedComboItem", 2, false},
        {"IsAdvancedOn", 0, false},
    };
    for (const auto& row : operations) {
        std::vector<Value> tooMany(row.arguments + 1);
        const int withPrefix = block.plainRecord ? 438 : 450, without = row.plain ? withPrefix : 438;
        EXPECT_EQ(raisedBy([&] { object->call("IBlockAttribute_" + row.operation, tooMany); }), withPrefix)
            << row.operation;
        EXPECT_EQ(raisedBy([&] { object->call(row.operation, tooMany); }), without) << row.operation;
    }
}

INSTANTIATE_TEST_SUITE_P(Every, BlockClass, ::testing::ValuesIn(testing::allCases()),
                         [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace canvas
