#pragma once
// The enumerations of the hardware modules, and the names of the store's tables.

#include <cstdint>
#include <string_view>

namespace canvas {

/// Numbers of the groups in the store.
enum mtModuleType : std::int16_t {
    mtNone = 0,
    mtRVQD = 1,
    mtKX410 = 2,
    mtCOM1 = 3,
    mtCOM2 = 4,
    mtNetwork = 5,
    mtExternalEncoder = 6,
    mtRemoteIO = 7,
};

/// What a property's column of the matrix holds.
enum DataArray : std::int16_t {
    PropertyName = 0,
    PropertyValue = 1,
    PropertyDisplayID = 2,
    PropertyDataType = 3,
    PropertyToolTipText = 4,
    PropertyExpressionBuilder = 5,
    PropertyAccessibility = 6,
    PropertyComboLookupID = 7,
    PropertyListItem = 8,
    PropertyValidation = 9,
    PropertyMinimumValue = 10,
    PropertyMaximumValue = 11,
    PropertyDefaultValue = 12,
    PropertyDisplayFormat = 13,
    PropertyValidateType = 14,
};

/// The query column of each member of DataArray, in that order.
inline constexpr std::string_view queryColumns[]{
    "PropertyName",  "Value",         "DisplayTypeID", "DataTypeID",   "ToolTipText",
    "ExpressionBuilder", "Accessibility", "ComboLookupID", "ListItem",     "Validation",
    "MinimumValue",  "MaximumValue",  "Default",       "DisplayFormat", "ValidateTypeID",
};

inline constexpr std::string_view systemProperties = "tblSystemProperties";
inline constexpr std::string_view numberLookup = "tblPropertyNumberLookup";
inline constexpr std::string_view comboLookup = "tblDropDownComboLookUp";
inline constexpr std::string_view remoteNodes = "tblRemoteIO";
inline constexpr std::string_view axiolaneNodes = "qryAxiolaneNodes";

/// The kinds of fieldbus, as every operation with an `iNetworkType` takes them.
inline constexpr std::int16_t axiolane = 0, deviceNet = 1, unknownNetwork = -1;

}  // namespace canvas
