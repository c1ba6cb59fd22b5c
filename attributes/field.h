#pragma once
// Field: one row of a block class's table, saying all there is to say of one of its settings.

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "attributes/datatypes.h"
#include "host/members.h"

namespace canvas {

class AttributeObject;

/// A fixed list of choices, under the name that the class gives it.
struct List {
    std::string_view name;
    std::span<const std::string_view> items;
};
inline constexpr std::string_view choiceItems[]{"True", "False"};
inline constexpr List choice{"choice", choiceItems};

/// Where a field lies in its class: a pointer to a member of any class derived from AttributeObject. A row whose text
/// the class works out itself lies nowhere.
class FieldAt {
public:
    using Text = std::string AttributeObject::*;
    using Flag = bool AttributeObject::*;
    using Integer = std::int16_t AttributeObject::*;
    using Long = std::int32_t AttributeObject::*;

    constexpr FieldAt() = default;
    template <class T, class V>
    constexpr FieldAt(V T::*member) : m_at(static_cast<V AttributeObject::*>(member)) {}

    constexpr explicit operator bool() const noexcept { return !std::holds_alternative<std::monostate>(m_at); }
    constexpr bool isText() const noexcept { return std::holds_alternative<Text>(m_at); }
    constexpr bool isFlag() const noexcept { return std::holds_alternative<Flag>(m_at); }
    const std::string& text(const AttributeObject& object) const { return object.*std::get<Text>(m_at); }
    std::string& text(AttributeObject& object) const { return object.*std::get<Text>(m_at); }
    bool flag(const AttributeObject& object) const { return object.*std::get<Flag>(m_at); }
    bool& flag(AttributeObject& object) const { return object.*std::get<Flag>(m_at); }

    /// "True" or "False" for a flag, decimal text for a number.
    std::string asText(const AttributeObject& object) const;
    Value asValue(const AttributeObject& object) const;
    /// Takes a value by automation's conversion to the field's type.
    void assign(AttributeObject& object, const Value& value) const;

private:
    std::variant<std::monostate, Text, Flag, Integer, Long> m_at;
};

/// Columns left out stay at their defaults. Row, position and file place are -1, 0 and 0 for a field without one.
struct Field {
    FieldAt at{};
    std::string_view name{};      ///< of the C++ member, for the variable report
    std::string_view property{};  ///< under which it is reached by name
    std::string_view preset{};  ///< text of the value a new block has

    std::int16_t row = -1;  ///< in the block matrix, from 0
    std::string_view label{};
    std::string_view tip{};
    brxFieldAccess access = brxReadAndWrite;
    brxExpressionBuilder builder = brxEnableBuilder;
    brxDisplaytype display = brxEditBox;
    brxDatatype type = brxUnknown;
    const List* list = nullptr;   ///< choices of a combo row

    const List* shown = nullptr;  ///< a flag's two texts on the panel, that of True first; "True" and "False" else

    bool cellChecked = true;     ///< UpdateElementInMatrix checks range and syntax
    bool programChecked = true;  ///< PropertiesSyntaxCheck hands the value to the checker
    bool storesTyped = false;    ///< UpdateElementInMatrix stores the text as typed, not the checker's normal form

    std::int16_t position = 0;  ///< in GetPropertyAt, from 1
    std::int16_t file = 0;      ///< place in the file line, from 1
    std::string_view fileConstant{};  ///< what stands at that place whatever the value is; reading passes over it
};

/// `.at` and `.name` of a field, so that the report's name cannot differ from the member's.
#define FIELD(member) .at = &Self::member, .name = #member

/// A combo row: no builder, and its texts are the class's own, so that no checker sees them.
#define COMBO(dataType, items) COMBO_ROW(dataType, items, nullptr)
/// The same for a flag that shows the two texts of its list.
#define COMBO_SHOWN(dataType, items) COMBO_ROW(dataType, items, &(items))
#define COMBO_ROW(dataType, items, shownAs)                                                                          \
    .builder = brxDisableBuilder, .display = brxComboBox, .type = dataType, .list = &(items), .shown = shownAs,      \
    .cellChecked = false, .programChecked = false

/// A block class: its fields in slot order, and in what its protocol differs from the common one.
struct AttributeClass {
    std::string_view name;
    std::span<const Field> fields;
    std::span<const Member> operations{};  ///< public members of its own, behind the properties

    bool panel = true;          ///< false: all operations of the panel's protocol are empty
    bool wholePanel = true;     ///< false: UpdateMatrix is empty, the panel can only commit cell by cell
    bool anyFileNumber = false; ///< AssignFromFile stores its one value whatever the number
    bool offersInterface = true;  ///< false: a plain record without the panel's protocol
    std::uint32_t exemptIndexes = 0;  ///< bits of indexes beyond the rows that UpdateElementInMatrix lets pass
    const List* listElsewhere = nullptr;  ///< what GetComboItem gives for rows without a list

    std::int16_t rows = 0;        ///< counted from the fields
    std::int16_t properties = 0;  ///< highest position
    std::int16_t values = 0;      ///< highest file place
    static constexpr std::size_t most = 16;
    /// Field numbers by row, by position - 1 and by file place - 1; -1 for a gap.
    std::array<std::int8_t, most> byRow{};
    std::array<std::int8_t, most> byPosition{};
    std::array<std::int8_t, most> byFile{};

    constexpr bool exempts(std::int16_t index) const {
        return index >= 0 && index < 32 && (exemptIndexes >> index & 1U) != 0;
    }
    constexpr const Field* rowField(std::int16_t row) const { return pick(byRow, rows, row); }
    constexpr const Field* positionField(std::int16_t position) const {
        return pick(byPosition, properties, static_cast<std::int16_t>(position - 1));
    }
    constexpr const Field* fileField(std::int16_t number) const {
        return pick(byFile, values, static_cast<std::int16_t>(number - 1));
    }

private:
    constexpr const Field* pick(const std::array<std::int8_t, most>& index, std::int16_t count, std::int16_t i) const {
        if (i < 0 || i >= count || index[static_cast<std::size_t>(i)] < 0) return nullptr;
        return &fields[static_cast<std::size_t>(index[static_cast<std::size_t>(i)])];
    }
};

namespace detail {
consteval bool sameLetters(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if ((a[i] | 0x20) != (b[i] | 0x20)) return false;
    return true;
}

consteval std::int16_t index(std::array<std::int8_t, AttributeClass::most>& places, std::span<const Field> fields,
                             std::int16_t Field::*place, std::int16_t first) {
    places.fill(-1);
    std::int16_t count = 0;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const int at = fields[i].*place - first;
        if (at < 0) continue;
        if (places.at(static_cast<std::size_t>(at)) >= 0) throw "two fields in one place";
        places[static_cast<std::size_t>(at)] = static_cast<std::int8_t>(i);
        if (at >= count) count = static_cast<std::int16_t>(at + 1);
    }
    return count;
}

consteval void requireDense(const std::array<std::int8_t, AttributeClass::most>& places, std::int16_t count) {
    for (std::int16_t i = 0; i < count; ++i)
        if (places[static_cast<std::size_t>(i)] < 0) throw "a place without a field";
}
}  // namespace detail

/// Completes a class's table. Does not compile when rows or file places have gaps, two fields share a place, or two
/// property names differ only in case.
consteval AttributeClass attributeClass(AttributeClass c) {
    c.rows = detail::index(c.byRow, c.fields, &Field::row, 0);
    c.properties = detail::index(c.byPosition, c.fields, &Field::position, 1);
    c.values = detail::index(c.byFile, c.fields, &Field::file, 1);
    detail::requireDense(c.byRow, c.rows);
    detail::requireDense(c.byFile, c.values);
    for (std::size_t i = 0; i < c.fields.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (!c.fields[i].property.empty() && detail::sameLetters(c.fields[i].property, c.fields[j].property)) throw "two properties of one name";
    return c;
}

}  // namespace canvas
