#pragma once
// The modules of a record store, as their classes show them.

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "attributes/datatypes.h"
#include "hardware/module.h"

namespace canvas::cli {

/// All modules, by group.
std::span<const mtModuleType> modules() noexcept;
/// "RVQD", "COM1" ...: what users call a module.
std::string_view moduleName(mtModuleType module);
/// By that name or the class's, case ignored; mtNone when there is none.
mtModuleType moduleNamed(std::string_view name);

/// An object of the module's class.
Ref<Module> newModule(mtModuleType module);
/// One that has read its rows.
Ref<Module> openModule(mtModuleType module, const std::string& store);

/// Whether a file's name leads to the store.
bool isStore(const std::string& file, const std::string& store) noexcept;

struct StoredProperty {
    std::int16_t number = 0;           ///< from 1 in its module
    std::string name;                  ///< empty: the query gives no such row
    std::optional<std::string> value;  ///< as the module shows it; nothing for a null
    std::optional<std::string> preset;
    brxDatatype type = brxUnknown;
    bool readOnly = false;
    bool hexadecimal = false;
    bool expressions = false;  ///< it takes expressions too
    std::vector<std::string> choices;
    std::optional<double> least, most;
    std::string tip;
};

std::vector<StoredProperty> propertiesOf(const Module& module);
/// By name, case ignored, or by number; null when there is none.
const StoredProperty* propertyNamed(const std::vector<StoredProperty>& properties, std::string_view name);

struct PropertyChange {
    mtModuleType module = mtNone;
    std::int16_t number = 0;
    std::string name;
    std::optional<std::string> before, after;
    int line = 0;  ///< of the file that brings it; 0: none
};

/// What differs between two readings of a module, of the properties that both could read.
std::vector<PropertyChange> changesBetween(mtModuleType module, const std::vector<StoredProperty>& before,
                                           const std::vector<StoredProperty>& after);

}  // namespace canvas::cli
