#pragma once
// What a new record store holds: the rows of its tables, as tables that a person can review.

#include <optional>
#include <span>
#include <string_view>

#include "attributes/datatypes.h"

namespace canvas::schema {

/// Keys of tblDropDownComboLookUp. The serial ports know three of them by number: `function`, `protocol` and
/// `transmissionMode` are what they put in when a store lacks the lists.
enum class List : int {
    none = 0,
    baudRate = 1,
    dataBits = 2,
    parity = 3,
    stopBits = 4,
    encoder = 5,
    load = 6,
    motion = 7,
    userUnit = 8,
    drive = 9,
    pulse = 10,
    network = 11,
    networkFunction = 12,
    networkRate = 13,
    function = 14,
    protocol = 15,
    transmissionMode = 16,
    lossOfNetwork = 17,
    controlMode = 18,
    motor = 19,
    commutation = 20,
    stop = 21,
    faultAction = 22,
    input = 23,
    output = 24,
    monitor = 25,
    message = 26,
};

struct ListRow {
    List id;
    std::string_view items;  ///< joined by "|"
};

/// A property of a module: its row of tblSystemProperties and of tblPropertyNumberLookup.
struct PropertyRow {
    std::string_view name;
    std::string_view preset;  ///< `Value` of a new store, and `Default`
    brxDatatype type = brxNotApplicable;
    std::optional<double> least = {}, most = {};
    List list = List::none;
    std::string_view tip;
    brxFieldAccess access = brxReadAndWrite;
    std::string_view format = "0";  ///< "2": stored in decimal, shown in hexadecimal

    constexpr brxDisplaytype display() const noexcept {
        return list != List::none ? brxComboBox : type == brxBool ? brxCheckBox : brxEditBox;
    }
};

/// A device that an Axiolane node can be.
struct DeviceRow {
    std::string_view node;
    std::string_view typeCode;
    std::string_view inputWords, outputWords;
};

// How the rows are written.

constexpr PropertyRow number(std::string_view name, brxDatatype type, std::string_view preset, double least,
                             double most, std::string_view tip) {
    return {.name = name, .preset = preset, .type = type, .least = least, .most = most, .tip = tip};
}
constexpr PropertyRow hexadecimal(std::string_view name, std::string_view preset, std::string_view tip) {
    PropertyRow row = number(name, brxPositiveLong, preset, 0, 0xFFFF, tip);
    row.format = "2";
    return row;
}
constexpr PropertyRow choice(std::string_view name, List list, std::string_view preset, std::string_view tip) {
    return {.name = name, .preset = preset, .type = brxChoice, .list = list, .tip = tip};
}
constexpr PropertyRow flag(std::string_view name, std::string_view preset, std::string_view tip) {
    return {.name = name, .preset = preset, .type = brxBool, .tip = tip};
}
constexpr PropertyRow text(std::string_view name, std::string_view preset, std::string_view tip) {
    return {.name = name, .preset = preset, .tip = tip};
}
constexpr PropertyRow readOnly(PropertyRow row) {
    row.access = brxReadOnly;
    return row;
}

/// By module number less 1; row r of a module is its property number r + 1.
std::span<const std::span<const PropertyRow>> modules() noexcept;
std::span<const PropertyRow> amplifierRows() noexcept;  ///< of module 1, which fill a page of their own
std::span<const ListRow> lists() noexcept;
std::span<const DeviceRow> devices() noexcept;

}  // namespace canvas::schema
