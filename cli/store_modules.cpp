#include "cli/store_modules.h"

#include <filesystem>
#include <system_error>

#include "hardware/modules.h"
#include "host/numbers.h"
#include "host/text.h"

namespace canvas::cli {
namespace {

constexpr mtModuleType all[] = {mtRVQD, mtKX410, mtCOM1, mtCOM2, mtNetwork, mtExternalEncoder, mtRemoteIO};

bool isNothing(const Value& value) { return value.is(Kind::null) || value.is(Kind::empty); }

std::optional<std::string> textOf(const Value& value) {
    if (isNothing(value)) return std::nullopt;
    return value.toText();
}

std::optional<double> numberOf(const Value& value) {
    if (isNothing(value)) return std::nullopt;
    return numbers::parse(value.toText());
}

/// 0 for what is no number, as in a store that somebody filled by hand.
int codeOf(const Value& value) {
    const double number = numberOf(value).value_or(0);
    return number >= 0 && number <= int{brxTypeMax} ? static_cast<int>(number) : 0;
}

std::vector<std::string> choicesOf(const Value& items) {
    const std::string list = textOf(items).value_or("");
    std::vector<std::string> choices;
    for (const std::string_view item : text::split(list, "|")) choices.emplace_back(item);
    return choices;
}

}  // namespace

std::span<const mtModuleType> modules() noexcept { return all; }

std::string_view moduleName(mtModuleType module) {
    return moduleClass(module).query.substr(std::string_view("qry").size());
}

mtModuleType moduleNamed(std::string_view name) {
    for (const mtModuleType module : all)
        if (sameName(moduleName(module), name) || sameName(moduleClass(module).name, name)) return module;
    return mtNone;
}

Ref<Module> newModule(mtModuleType module) {
    switch (module) {
        case mtRVQD: return make<clsBVTRVQD>();
        case mtKX410: return make<clsBVTKX410>();
        case mtCOM1: return make<clsBVTCOM1>();
        case mtCOM2: return make<clsBVTCOM2>();
        case mtNetwork: return make<clsBVTNetwork>();
        case mtExternalEncoder: return make<clsBVTExternalEncoder>();
        case mtRemoteIO: return make<clsBVTRemoteIO>();
        case mtNone: break;
    }
    throw ContractViolation("no such module");
}

Ref<Module> openModule(mtModuleType module, const std::string& store) {
    Ref<Module> object = newModule(module);
    object->SetDBPath(store);
    return object;
}

bool isStore(const std::string& file, const std::string& store) noexcept {
    std::error_code unknown;
    return std::filesystem::equivalent(file, store, unknown);
}

std::vector<StoredProperty> propertiesOf(const Module& module) {
    Value matrix;
    module.GetBlockMatrix(matrix);
    std::vector<StoredProperty> properties;
    for (std::int16_t row = 0; row < module.moduleClass().rows; ++row) {
        const auto cell = [&](DataArray member) -> const Value& {
            const std::int32_t at[] = {member, row};
            return std::as_const(matrix).toArray().at(at);
        };
        properties.push_back(
            {.number = static_cast<std::int16_t>(row + 1),
             .name = textOf(cell(PropertyName)).value_or(""),
             .value = textOf(cell(PropertyValue)),
             .preset = textOf(cell(PropertyDefaultValue)),
             .type = static_cast<brxDatatype>(codeOf(cell(PropertyDataType))),
             .readOnly = codeOf(cell(PropertyAccessibility)) == brxReadOnly,
             .hexadecimal = module.moduleClass().group == mtRVQD && textOf(cell(PropertyDisplayFormat)) == "2",
             .expressions = codeOf(cell(PropertyExpressionBuilder)) == brxEnableBuilder,
             .choices = choicesOf(cell(PropertyListItem)),
             .least = numberOf(cell(PropertyMinimumValue)),
             .most = numberOf(cell(PropertyMaximumValue)),
             .tip = textOf(cell(PropertyToolTipText)).value_or("")});
    }
    return properties;
}

const StoredProperty* propertyNamed(const std::vector<StoredProperty>& properties, std::string_view name) {
    for (const StoredProperty& property : properties)
        if (!property.name.empty() && sameName(property.name, name)) return &property;
    for (const StoredProperty& property : properties)
        if (numbers::textOf(std::int32_t{property.number}) == name) return &property;
    return nullptr;
}

std::vector<PropertyChange> changesBetween(mtModuleType module, const std::vector<StoredProperty>& before,
                                           const std::vector<StoredProperty>& after) {
    std::vector<PropertyChange> changes;
    for (std::size_t i = 0; i < before.size() && i < after.size(); ++i)
        if (!before[i].name.empty() && before[i].value != after[i].value)
            changes.push_back({module, after[i].number, after[i].name, before[i].value, after[i].value});
    return changes;
}

}  // namespace canvas::cli
