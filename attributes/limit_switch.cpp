#include "attributes/lists.h"
#include "attributes/validation.h"
#include "host/convert.h"
#include "host/numbers.h"
#include "host/text.h"
#include "tracing/branch.h"

namespace canvas {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace limit_switch {
using Self = clsBVTProgrammableLimitSwitch;
constexpr std::string_view items[]{"ON", "OFF"};
constexpr List choice{"choice", items};
enum Row : std::int16_t { encoder, count, current, greaterThan, lessThan, output, state, add };
enum Place : std::size_t { above, below, target, on };
constexpr Field fields[]{
    {FIELD(strVariable), .property = "Variable", .file = 2},
    {FIELD(strMasterVariable), .property = "MasterVariable", .row = encoder, .label = "Encoder Variable",
     .tip = "Returns encoder variable.", .builder = brxDisableBuilder, .display = brxEditButton,
     .type = brxNotApplicable, .file = 1},
    {.row = count, .label = "SwitchesDefined", .tip = "Returns the number of switches defined.",
     .access = brxReadOnly, .builder = brxDisableBuilder, .type = brxWord, .cellChecked = false},
    {.row = current, .label = "CurrentSwitch", .tip = "Returns a list of defined switches.",
     .builder = brxDisableBuilder, .display = brxComboBox, .type = brxChoice, .cellChecked = false},
    {.row = greaterThan, .label = "GreaterThan(>)", .tip = "Returns the greater than value for current switch.",
     .builder = brxDisableBuilder, .type = brxFloat},
    {.row = lessThan, .label = "LessThan(<)", .tip = "Returns the less than value for current switch.",
     .builder = brxDisableBuilder, .type = brxFloat},
    {.row = output, .label = "Output", .tip = "Returns the output for current switch.",
     .builder = brxDisableBuilder, .display = brxEditButton, .type = brxNotApplicable},
    {.row = state, .label = "State", .tip = "Returns the state for current switch.", COMBO(brxChoice, choice)},
    {.row = add, .label = "Add",
     .tip = "Click on button to show detail window. Definitions can be added and deleted from there.",
     .builder = brxDisableBuilder, .display = brxEditButton, .type = brxNotApplicable, .cellChecked = false},
};
constexpr Member operations[]{
    property<&Self::Switches, nullptr>("Switches"),
    property<nullptr, &Self::setSelected>("Selected"),
    method<&Self::GetActiveLessThanValue>("GetActiveLessThanValue"),
    method<&Self::GetActiveGreaterThanValue>("GetActiveGreaterThanValue"),
    method<&Self::GetActiveOutputValue>("GetActiveOutputValue"),
    method<&Self::GetActiveState>("GetActiveState"),
    method<static_cast<bool (Self::*)(std::int16_t)>(&Self::UpdateMatrix)>("UpdateMatrix"),
    method<&Self::ParseList>("ParseList"),
};

Self::Switch fieldsOf(std::string_view entry) {
    Self::Switch result;
    const auto parts = text::split(entry, ",");
    for (std::size_t i = 0; i < result.size() && i < parts.size(); ++i) result[i] = parts[i];
    return result;
}

template <class Switches>
auto& at(Switches& switches, std::int32_t i) {
    if (i < 0 || static_cast<std::size_t>(i) >= switches.size()) raise(Error::subscript);
    return switches[static_cast<std::size_t>(i)];
}

std::string_view stateText(std::string_view digit) { return items[digit == "1" ? 0 : 1]; }
std::string_view stateDigit(std::string_view text) { return text == items[0] ? "1" : "0"; }
}  // namespace limit_switch
const AttributeClass clsBVTProgrammableLimitSwitch::table =
    canvas::attributeClass({.name = "clsBVTProgrammableLimitSwitch",
                            .fields = limit_switch::fields,
                            .operations = limit_switch::operations});

Value clsBVTProgrammableLimitSwitch::Switches() const {
    if (arSwitches.empty()) return Value(Array::undimensioned("String"));
    const auto last = static_cast<std::int32_t>(arSwitches.size()) - 1;
    Array array = Array::of("String", {{0, last}, {0, 3}});
    for (std::int32_t i = 0; i <= last; ++i)
        for (std::int32_t j = 0; j < 4; ++j) {
            const std::int32_t place[]{i, j};
            array.at(place) = arSwitches[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
        }
    return Value(std::move(array));
}

Value clsBVTProgrammableLimitSwitch::ParseList(std::string_view strList) const {
    return Value(arrayOf("String", parseList(strList)));
}

bool clsBVTProgrammableLimitSwitch::UpdateMatrix(std::int16_t i) {
    iSelected = i;
    return false;
}

std::string clsBVTProgrammableLimitSwitch::field(std::string_view procedure, std::int16_t i, std::size_t place) const {
    std::string result;
    Procedure run(className(), procedure, this, [&](Locals& l) { l("i", i); });
    run([&] { result = limit_switch::at(arSwitches, i)[place]; });
    return result;
}

std::string clsBVTProgrammableLimitSwitch::GetActiveLessThanValue(std::int16_t i) const {
    return field("GetActiveLessThanValue", i, limit_switch::above);
}
std::string clsBVTProgrammableLimitSwitch::GetActiveGreaterThanValue(std::int16_t i) const {
    return field("GetActiveGreaterThanValue", i, limit_switch::below);
}
std::string clsBVTProgrammableLimitSwitch::GetActiveOutputValue(std::int16_t i) const {
    return field("GetActiveOutputValue", i, limit_switch::target);
}
std::string clsBVTProgrammableLimitSwitch::GetActiveState(std::int16_t i) const {
    std::string result;
    Procedure run(className(), "GetActiveState", this, [&](Locals& l) { l("i", i); });
    run([&] { result = limit_switch::stateText(limit_switch::at(arSwitches, i)[limit_switch::on]); });
    return result;
}

void clsBVTProgrammableLimitSwitch::unpack() {
    strArray = parseList(strVariable);
    const std::size_t switches = entryCount(strArray);
    arSwitches.assign(switches == 0 ? 1 : switches, {});
    for (std::size_t i = 0; i < switches; ++i) arSwitches[i] = limit_switch::fieldsOf(strArray[i]);
}

/// Every switch ends in ";", the last one too.
void clsBVTProgrammableLimitSwitch::rebuild() {
    std::string list;
    for (std::size_t i = 0; i < entryCount(strArray); ++i) {
        const Switch& s = limit_switch::at(arSwitches, static_cast<std::int32_t>(i));
        list += s[0] + "," + s[1] + "," + s[2] + "," + s[3] + ";";
    }
    strVariable = std::move(list);
}

bool clsBVTProgrammableLimitSwitch::FillMatrix() {
    unpack();
    return Attribute::FillMatrix();
}

std::string clsBVTProgrammableLimitSwitch::rowText(std::int16_t row) const {
    using namespace limit_switch;
    if (row == encoder) return strMasterVariable;
    if (row == count) return numbers::textOf(static_cast<std::int32_t>(entryCount(strArray)));
    if (row == add) return "New";
    if (entryCount(strArray) == 0) return {};
    const Switch& selected = at(arSwitches, iSelected);
    switch (row) {
        case current: return "Switch " + numbers::textOf(std::int32_t{iSelected} + 1);
        case greaterThan: return selected[above];
        case lessThan: return selected[below];
        case output: return selected[target];
        default: return std::string(stateText(selected[on]));
    }
}

bool clsBVTProgrammableLimitSwitch::GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) {
    if (iIndex != limit_switch::current) return Attribute::GetComboItem(iIndex, colItem);
    Procedure run(className(), "GetComboItem", this, [&](Locals& l) {
        l("iIndex", iIndex);
        l("colItem", colItem);
    });
    run([&] {
        for (std::size_t i = 0; i < entryCount(strArray); ++i) {
            const auto addOne = [&] {
                invoke(required(colItem), "Add", "Switch " + numbers::textOf(static_cast<std::int32_t>(i) + 1));
            };
            if (run(addOne) == Flow::leave) return Flow::leave;
        }
        return Flow::next;
    });
    return false;
}

void clsBVTProgrammableLimitSwitch::storeCell(std::int16_t row, std::string_view text) {
    using namespace limit_switch;
    if (arSwitches.empty()) unpack();  // edited before the panel was first filled
    switch (row) {
        case encoder: strMasterVariable = text; break;
        case greaterThan: at(arSwitches, iSelected)[above] = text; break;
        case lessThan: at(arSwitches, iSelected)[below] = text; break;
        case output: at(arSwitches, iSelected)[target] = text; break;
        case state: at(arSwitches, iSelected)[on] = stateDigit(text); break;
        default: break;
    }
    rebuild();
}

bool clsBVTProgrammableLimitSwitch::updatePanel(PanelEdit& edit) {
    using namespace limit_switch;
    if (edit.iCurrentIndex < 0) return true;
    bool result = false;
    std::int16_t row = 0;
    std::int32_t chosen = 0;
    Procedure run(className(), "UpdateMatrix", this, [&](Locals& l) { edit.report(l); });
    const auto validateRow = [&] {
        if (validate(edit.general(row), rowType(row), edit.strError)) return Flow::next;
        edit.iIndex = static_cast<std::int16_t>(row + 1);
        return Flow::leave;
    };
    const auto storeField = [&](Place place, Row from) {
        return [this, &edit, &chosen, place, from] { at(arSwitches, chosen)[place] = edit.general(from); };
    };
    run(
        [&] {
            for (row = 0; row < table.rows; ++row)
                if (run(validateRow) == Flow::leave) return Flow::leave;
            return Flow::next;
        },
        [&] {
            if (arSwitches.empty()) unpack();
            strMasterVariable = edit.general(encoder);
        },
        [&] {
            // one digit tells the switch, so that the tenth and those above it cannot be told from the first ones
            const std::string name = edit.general(current);
            chosen = numbers::toLong(std::string_view(name).substr(text::withoutLast(name, 1).size())) - 1;
        },
        storeField(above, greaterThan), storeField(below, lessThan), storeField(target, output),
        [&] { at(arSwitches, chosen)[on] = stateDigit(edit.general(state)); },
        [&] {
            rebuild();
            result = true;
        });
    return result;
}

template <class Run>
Flow clsBVTProgrammableLimitSwitch::checkSwitch(Run& run, const Ref<Object>& checker, std::int32_t lngBlockID,
                                                std::int32_t i, std::string& strSyntaxMessage) const {
    const Switch fields = limit_switch::fieldsOf(strArray[static_cast<std::size_t>(i)]);
    // expected types: two reals, and a boolean for the output; the state has no record
    constexpr std::string_view expected[]{"16", "16", "1"};
    std::array<ListCheck, 4> checks;
    for (std::size_t place = 0; place < fields.size(); ++place) {
        const bool isState = place == limit_switch::on;
        ListCheck& check = checks[place];
        const Flow flow = run(
            [&] { check.CheckSyntax(*this, checker, fields[place], lngBlockID, isState ? i + 1 : i); },
            [&] {
                if (isState) return;
                strSyntaxMessage += "(" + numbers::textOf(lngBlockID) + "," + numbers::textOf(i + 1) + ")ƒ" +
                                    std::string(expected[place]) + "ƒ" + numbers::textOf(check.dataType) + "@";
            });
        if (flow == Flow::leave) return Flow::leave;
    }
    for (const ListCheck& check : checks) strSyntaxMessage += check.messages;
    return Flow::next;
}

bool clsBVTProgrammableLimitSwitch::PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
                                                          std::string& strSyntaxMessage) {
    bool result = false;
    std::int32_t i = -1;
    ListCheck encoder;
    Procedure run(className(), "PropertiesSyntaxCheck", this, [&](Locals& l) {
        l("SyntaxValidation", SyntaxValidation);
        l("lngBlockID", lngBlockID);
        l("strSyntaxMessage", strSyntaxMessage);
        l("i", i);
    });
    run(
        [&] { encoder.CheckSyntax(*this, SyntaxValidation, strMasterVariable, lngBlockID, i); },
        [&] {
            strSyntaxMessage += "(" + numbers::textOf(lngBlockID) + ",0)ƒ16ƒ" + numbers::textOf(encoder.dataType) + "@" +
                                encoder.messages;
            strArray = parseList(strVariable);
            for (i = 0; static_cast<std::size_t>(i) < entryCount(strArray); ++i)
                if (checkSwitch(run, SyntaxValidation, lngBlockID, i, strSyntaxMessage) == Flow::leave)
                    return Flow::leave;
            result = true;
            return Flow::next;
        });
    return result;
}

void clsBVTProgrammableLimitSwitch::reportVariables(VariableSink& sink) const {
    Attribute::reportVariables(sink);
    sink.variable("strArray", Value(strArray.empty() ? Array::undimensioned("String") : arrayOf("String", strArray)));
    sink.variable("arSwitches", Switches());
    sink.variable("iSelected", iSelected);
}

}  // namespace canvas
