#include "cli/settings.h"

#include "attributes/lists.h"
#include "attributes/program_control.h"
#include "host/numbers.h"

namespace canvas::cli {
namespace {

using Settings = std::vector<Setting>;

std::string numbered(std::string_view noun, std::size_t number) {
    return std::string(noun) + ' ' + numbers::textOf(static_cast<std::int32_t>(number));
}

std::string shown(AttributeObject& attribute, std::int16_t row) {
    return attribute.GetElementFromMatrix(row, static_cast<std::int16_t>(Column::value));
}

void addRows(AttributeObject& attribute, Settings& settings) {
    const AttributeClass& table = attribute.attributeClass();
    for (std::int16_t row = 0; row < table.rows; ++row) {
        const Field& field = *table.rowField(row);
        if (field.at) settings.push_back({std::string(field.label), shown(attribute, row)});
    }
}

/// What no panel shows: the name of Start and End, cam points. A constant of the file tells nothing.
void addRest(const AttributeObject& attribute, Settings& settings) {
    const AttributeClass& table = attribute.attributeClass();
    for (std::int16_t number = 1; number <= table.values; ++number) {
        const Field& field = *table.fileField(number);
        if (field.row >= 0 || !field.fileConstant.empty()) continue;
        const std::string value = field.at.asText(attribute);
        if (!value.empty()) settings.push_back({std::string(field.property), value});
    }
}

void addEquations(const clsBVTSetVariable& block, Settings& settings) {
    for (std::size_t i = 0; i + 1 < block.arVariables.size(); ++i)
        settings.push_back({block.arVariables[i], block.arExpressions[i]});
}

void addSwitches(const clsBVTProgrammableLimitSwitch& block, Settings& settings) {
    for (std::size_t i = 0; i < entryCount(block.strArray); ++i) {
        const auto& s = block.arSwitches[i];
        settings.push_back({numbered("Switch", i + 1), "> " + s[0] + ", < " + s[1] + ", " + s[2] + ", " +
                                                           block.GetActiveState(static_cast<std::int16_t>(i))});
    }
}

void addLaunches(const clsBVTRestartProgram& block, Settings& settings) {
    for (std::int16_t task = 1; task <= taskCount; ++task)
        if (block.blnArTask[task])
            settings.push_back({numbered("Program", static_cast<std::size_t>(task)),
                                "launched at block " + numbers::textOf(std::int32_t{block.intArBlockNumber[task]})});
}

void addSuspensions(const clsBVTSuspendProgram& block, Settings& settings) {
    for (std::int16_t task = 1; task <= taskCount; ++task)
        if (block.blnArTask[task])
            settings.push_back({numbered("Program", static_cast<std::size_t>(task)), "suspended"});
}

}  // namespace

std::vector<Setting> settingsOf(const clsBVTBlock& block) {
    Settings settings;
    auto* attribute = block.vntAttribute ? faceOf<AttributeObject>(*block.vntAttribute) : nullptr;
    if (!attribute) return settings;
    attribute->FillMatrix();  // which also unpacks lists
    addRows(*attribute, settings);
    const AttributeClass* table = &attribute->attributeClass();
    if (table == &clsBVTSetVariable::table) addEquations(static_cast<clsBVTSetVariable&>(*attribute), settings);
    else if (table == &clsBVTProgrammableLimitSwitch::table)
        addSwitches(static_cast<clsBVTProgrammableLimitSwitch&>(*attribute), settings);
    else if (table == &clsBVTRestartProgram::table)
        addLaunches(static_cast<clsBVTRestartProgram&>(*attribute), settings);
    else if (table == &clsBVTSuspendProgram::table)
        addSuspensions(static_cast<clsBVTSuspendProgram&>(*attribute), settings);
    else if (table != &clsBVTSuperBlock::table)  // its name holds the folder of whoever reads; the title says it
        addRest(*attribute, settings);
    return settings;
}

}  // namespace canvas::cli
