#pragma once
// What a form's table says of each of its controls.
//
//     constexpr ControlRow controls[] = {
//         caption("lblVelocity", "Velocity:", 2),
//         text("txbVelocity", "Velocity", 2).writes(5).checks(1, "Velocity", brxFloat),
//         unitLabel("lblVelocityUnit", Unit::perSecond, 2),
//         check("chkWaitForCompletion", "Wait for completion", "WaitForCompletion", 4).writes(6),
//     };
//
// Rows stand in the order in which the focus moves. Where a control stands on the screen is the view's matter; it gets
// lines and columns within the form, or within the frame or tab named by `in`.

#include <cstdint>
#include <span>
#include <string_view>

#include "attributes/datatypes.h"

namespace canvas::editors {

/// A frame is a label to scripts.
enum class ControlKind : std::uint8_t { label, frame, text, button, check, option, combo, list, tabs, tree, grid };

/// What a label shows of the project's unit word: "mm", "mm/sec", "msec or mm".
enum class Unit : std::uint8_t { none, word, perSecond, msecOr };

/// Keys that never reach a field: double quote and semicolon delimit values in program files.
enum class Keys : std::uint8_t { all, noQuote, noQuoteNorSemicolon };

/// What a double click on a text field does. The message dialogs' builder gives nothing back, so it empties the field.
enum class DoubleClick : std::uint8_t { nothing, builder };

enum class Role : std::uint8_t { none, ok, cancel, help };

struct ControlRow {
    std::string_view name;
    ControlKind kind = ControlKind::label;
    /// Of a label, button, check or option; a frame's title; tab captions and grid headers separated by "|"; for a
    /// field without a label of its own, the name that assistive tools read out.
    std::string_view caption = {};
    /// The frame it stands in, or a tab as "SSCAMTab(1)"; empty for the form itself.
    std::string_view in = {};
    std::int16_t line = 0;
    std::int16_t column = 0;
    Role role = Role::none;

    /// The attribute's property that fills the control; for an option the one that it stands for.
    std::string_view property = {};
    /// Place in the order in which OK writes, from 1; 0: OK does not write it.
    std::int16_t write = 0;
    /// The option that shows the negation of an option's property.
    std::string_view otherwise = {};
    /// Place in the order of the checks, from 1; 0: not checked.
    std::int16_t check = 0;
    std::string_view checkName = {};
    brxDatatype checkType = brxDatatype{};

    Unit unit = Unit::none;
    Keys keys = Keys::all;
    DoubleClick doubleClick = DoubleClick::nothing;
    /// The fixed entries of a combo box.
    std::span<const std::string_view> list = {};
    bool visible = true;
    bool enabled = true;
    /// A number is shown with two decimals once the focus has left.
    bool twoDecimals = false;
    /// Takes more than one line; the Enter key then belongs to the text.
    bool multiline = false;
    bool readOnly = false;

    constexpr ControlRow writes(std::int16_t place) const {
        ControlRow row = *this;
        row.write = place;
        return row;
    }
    constexpr ControlRow checks(std::int16_t place, std::string_view shownName, brxDatatype type) const {
        ControlRow row = *this;
        row.check = place, row.checkName = shownName, row.checkType = type;
        return row;
    }
    constexpr ControlRow within(std::string_view container) const {
        ControlRow row = *this;
        row.in = container;
        return row;
    }
    constexpr ControlRow at(std::int16_t newLine, std::int16_t newColumn) const {
        ControlRow row = *this;
        row.line = newLine, row.column = newColumn;
        return row;
    }
    constexpr ControlRow refuses(Keys which) const {
        ControlRow row = *this;
        row.keys = which;
        return row;
    }
    constexpr ControlRow onDoubleClick(DoubleClick what) const {
        ControlRow row = *this;
        row.doubleClick = what;
        return row;
    }
    constexpr ControlRow withTwoDecimals() const {
        ControlRow row = *this;
        row.twoDecimals = true;
        return row;
    }
    /// What assistive tools read out for a field without a label of its own.
    constexpr ControlRow named(std::string_view readOut) const {
        ControlRow row = *this;
        row.caption = readOut;
        return row;
    }
    constexpr ControlRow hidden() const {
        ControlRow row = *this;
        row.visible = false;
        return row;
    }
    constexpr ControlRow disabled() const {
        ControlRow row = *this;
        row.enabled = false;
        return row;
    }
    constexpr ControlRow withLines() const {
        ControlRow row = *this;
        row.multiline = true;
        return row;
    }
    constexpr ControlRow viewOnly() const {
        ControlRow row = *this;
        row.readOnly = true;
        return row;
    }
};

// Makers of rows. Columns: captions 0, fields 1, units 2, buttons of the form 3.

constexpr ControlRow caption(std::string_view name, std::string_view shown, std::int16_t line, std::int16_t column = 0) {
    return {.name = name, .kind = ControlKind::label, .caption = shown, .line = line, .column = column};
}
constexpr ControlRow unitLabel(std::string_view name, Unit unit, std::int16_t line, std::int16_t column = 2) {
    // What the form's design shows until the unit is drawn.
    return {.name = name, .kind = ControlKind::label, .caption = unit == Unit::perSecond ? "unit/sec" : "unit",
            .line = line, .column = column, .unit = unit};
}
/// A double click opens the expression builder.
constexpr ControlRow text(std::string_view name, std::string_view property, std::int16_t line, std::int16_t column = 1) {
    return {.name = name, .kind = ControlKind::text, .line = line, .column = column, .property = property,
            .doubleClick = DoubleClick::builder};
}
constexpr ControlRow check(std::string_view name, std::string_view shown, std::string_view property, std::int16_t line,
                           std::int16_t column = 1) {
    return {.name = name, .kind = ControlKind::check, .caption = shown, .line = line, .column = column,
            .property = property};
}
/// One of a pair: `negation` is the other option, which needs a row of its own.
constexpr ControlRow option(std::string_view name, std::string_view shown, std::string_view property,
                            std::string_view negation, std::int16_t line, std::int16_t column = 1) {
    return {.name = name, .kind = ControlKind::option, .caption = shown, .line = line, .column = column,
            .property = property, .otherwise = negation};
}
constexpr ControlRow option(std::string_view name, std::string_view shown, std::int16_t line, std::int16_t column = 1) {
    return {.name = name, .kind = ControlKind::option, .caption = shown, .line = line, .column = column};
}
constexpr ControlRow combo(std::string_view name, std::span<const std::string_view> list, std::string_view property,
                           std::int16_t line, std::int16_t column = 1) {
    return {.name = name, .kind = ControlKind::combo, .line = line, .column = column, .property = property,
            .list = list};
}
constexpr ControlRow frame(std::string_view name, std::string_view title, std::int16_t line, std::int16_t column = 0) {
    return {.name = name, .kind = ControlKind::frame, .caption = title, .line = line, .column = column};
}
constexpr ControlRow tabs(std::string_view name, std::string_view captions, std::int16_t line, std::int16_t column = 0) {
    return {.name = name, .kind = ControlKind::tabs, .caption = captions, .line = line, .column = column};
}
constexpr ControlRow listBox(std::string_view name, std::int16_t line, std::int16_t column = 0) {
    return {.name = name, .kind = ControlKind::list, .line = line, .column = column};
}
constexpr ControlRow tree(std::string_view name, std::int16_t line, std::int16_t column = 0) {
    return {.name = name, .kind = ControlKind::tree, .line = line, .column = column};
}
/// `headers` is a format text: "|Variable|Expression" has a fixed column without a header.
constexpr ControlRow grid(std::string_view name, std::string_view headers, std::int16_t line, std::int16_t column = 0) {
    return {.name = name, .kind = ControlKind::grid, .caption = headers, .line = line, .column = column};
}
/// The ampersand marks the mnemonic; a double one stands for itself.
constexpr ControlRow button(std::string_view name, std::string_view shown, std::int16_t line, std::int16_t column = 3) {
    return {.name = name, .kind = ControlKind::button, .caption = shown, .line = line, .column = column};
}
constexpr ControlRow okButton(std::string_view name = "btnOK", std::int16_t line = 0) {
    ControlRow row = button(name, "OK", line);
    row.role = Role::ok;
    return row;
}
constexpr ControlRow cancelButton(std::string_view name = "btnCancel", std::int16_t line = 1) {
    ControlRow row = button(name, "Cancel", line);
    row.role = Role::cancel;
    return row;
}
constexpr ControlRow helpButton(std::string_view name = "btnHelp", std::int16_t line = 2) {
    ControlRow row = button(name, "&Help", line);
    row.role = Role::help;
    return row;
}

}  // namespace canvas::editors
