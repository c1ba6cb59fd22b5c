#include "attributes/attribute.h"

#include "host/numbers.h"
#include "tracing/branch.h"

namespace canvas {

using tracing::Locals;
using tracing::Procedure;

std::string FieldAt::asText(const AttributeObject& object) const { return asValue(object).toText(); }

Value FieldAt::asValue(const AttributeObject& object) const {
    return std::visit(
        [&](auto member) {
            if constexpr (std::is_same_v<decltype(member), std::monostate>) return Value();
            else return Value(object.*member);
        },
        m_at);
}

void FieldAt::assign(AttributeObject& object, const Value& value) const {
    std::visit(
        [&](auto member) {
            if constexpr (!std::is_same_v<decltype(member), std::monostate>) {
                auto& field = object.*member;
                field = fromValue<std::remove_reference_t<decltype(field)>>(value);
            }
        },
        m_at);
}

void AttributeObject::setPresets() {
    for (const Field& field : attributeClass().fields)
        if (!field.preset.empty()) field.at.assign(*this, Value(field.preset));
}

void* AttributeObject::face(const void* asked) noexcept {
    if (asked == &tag) return this;
    if (asked == &IBlockAttribute::tag && !attributeClass().offersInterface) return nullptr;
    return IBlockAttribute::face(asked);
}

bool AttributeObject::SameAs(const Ref<Object>& vValue) const {
    bool result = false;
    Procedure run(className(), "SameAs", this, [&](Locals& l) { l("vValue", vValue); });
    run([&] {
        result = sameProperties(required(vValue));
    });
    return result;
}

bool AttributeObject::sameProperties(Object& other) const {
    auto* twin = faceOf<AttributeObject>(other);
    const bool ofThisClass = twin && &twin->attributeClass() == &attributeClass();
    for (const Field& field : attributeClass().fields) {
        if (field.property.empty()) continue;
        const Value theirs = ofThisClass ? field.at.asValue(*twin) : other.get(field.property);
        const bool same = field.at.isFlag() ? field.at.flag(*this) == theirs.toBoolean()
                                            : field.at.asText(*this) == theirs.toText();
        if (!same) return false;
    }
    return true;
}

std::string AttributeObject::OutputToFile(std::string_view strDescription) const {
    std::string line(strDescription);
    appendTo(line);
    return line;
}

void AttributeObject::appendTo(std::string& line) const {
    const AttributeClass& c = attributeClass();
    numbers::append(line, c.values);
    line += ' ';
    for (std::int16_t number = 1; number <= c.values; ++number) {
        if (number > 1) line += ' ';
        appendValue(*c.fileField(number), line);
    }
}

void AttributeObject::appendValue(const Field& field, std::string& line) const {
    if (!field.fileConstant.empty()) {
        line += field.fileConstant;
    } else if (field.at.isFlag()) {
        line += field.at.flag(*this) ? '1' : '0';
    } else {
        line += '"';
        if (field.at.isText()) line += field.at.text(*this);
        else line += field.at.asText(*this);
        line += '"';
    }
}

void AttributeObject::AssignFromFile(std::int16_t intVarNum, std::string_view strNewValue) {
    const AttributeClass& c = attributeClass();
    const Field* field = c.fileField(c.anyFileNumber ? std::int16_t{1} : intVarNum);
    if (!field || !field->fileConstant.empty()) return;
    if (field->at.isText()) {
        field->at.text(*this) = strNewValue;
        return;
    }
    Procedure run(className(), "AssignFromFile", this, [&](Locals& l) {
        l("intVarNum", intVarNum);
        l("strNewValue", strNewValue);
    });
    run([&] { field->at.assign(*this, Value(strNewValue)); });
}

std::string AttributeObject::GetElementFromAdvancedMatrix(std::int16_t, std::int16_t) { return {}; }

bool AttributeObject::GetAdvancedComboItem(std::int16_t&, Ref<Object>&) { return false; }

std::span<const Member> AttributeObject::commonMembers(bool withPanel) noexcept {
    constexpr std::size_t plain = 4;  // those of a record without the panel's protocol
    using A = AttributeObject;
    static constexpr Member members[] = {
        method<&A::IsTheSame>("IsTheSame"),
        method<&A::SameAs>("SameAs"),
        method<&A::OutputToFile>("OutputToFile"),
        method<&A::AssignFromFile>("AssignFromFile"),
        method<&A::AdvancedMatrixCol>("IBlockAttribute_AdvancedMatrixCol"),
        method<&A::AdvancedMatrixRow>("IBlockAttribute_AdvancedMatrixRow"),
        method<&A::GetElementFromAdvancedMatrix>("IBlockAttribute_GetElementFromAdvancedMatrix"),
        method<&A::GetAdvancedComboItem>("IBlockAttribute_GetAdvancedComboItem"),
        method<&A::IsAdvancedOn>("IBlockAttribute_IsAdvancedOn"),
    };
    return withPanel ? std::span<const Member>(members) : std::span<const Member>(members).first(plain);
}

namespace {

constexpr std::string_view interfacePrefix = "IBlockAttribute_";

const Field* propertyOf(const AttributeClass& c, std::string_view member) {
    for (const Field& field : c.fields)
        if (!field.property.empty() && sameName(field.property, member)) return &field;
    return nullptr;
}

/// The table that serves a name: the class's own operations, those of all classes, then the interface's, whose names
/// may carry its prefix. Where two know the name, the count of arguments decides.
std::span<const Member> tableFor(const AttributeClass& c, std::string_view& member, std::size_t arguments) {
    const auto serves = [&](std::span<const Member> table, std::string_view name) {
        const Member* found = findMember(table, name, arguments);
        return found && arguments <= static_cast<std::size_t>(found->arguments) &&
               arguments + static_cast<std::size_t>(found->optional) >= static_cast<std::size_t>(found->arguments);
    };
    if (serves(c.operations, member)) return c.operations;
    const auto common = AttributeObject::commonMembers(c.offersInterface);
    if (findMember(common, member, arguments)) return common;
    if (!c.offersInterface) return c.operations;
    std::string_view plain = member;
    if (plain.size() > interfacePrefix.size() && sameName(plain.substr(0, interfacePrefix.size()), interfacePrefix))
        plain.remove_prefix(interfacePrefix.size());
    if (findMember(IBlockAttribute::table(), plain, arguments)) {
        member = plain;
        return IBlockAttribute::table();
    }
    return c.operations;
}

}  // namespace

Value AttributeObject::get(std::string_view member, Args args) {
    const AttributeClass& c = attributeClass();
    if (const Field* field = propertyOf(c, member)) {
        if (!args.empty()) raise(Error::argumentCount);
        return field->at.asValue(*this);
    }
    const auto table = tableFor(c, member, args.size());
    return readMember(table, *this, member, args);
}

void AttributeObject::put(std::string_view member, const Value& value, Args args) {
    const AttributeClass& c = attributeClass();
    if (const Field* field = propertyOf(c, member)) {
        if (!args.empty()) raise(Error::argumentCount);
        field->at.assign(*this, value);
        return;
    }
    writeMember(c.operations, *this, member, value, args);
}

void AttributeObject::reportVariables(VariableSink& sink) const {
    const AttributeClass& c = attributeClass();
    for (const Field& field : c.fields)
        if (!field.name.empty()) sink.variable(field.name, field.at.asValue(*this));
    if (c.rows == 0) return;
    const std::int32_t columns = static_cast<std::int32_t>(Column::type);
    Array matrix = Array::of("String", {{0, c.rows - 1}, {0, columns}});
    for (std::int32_t row = 0; row < c.rows; ++row)
        for (std::int32_t col = 0; col <= columns; ++col) {
            const std::int32_t place[] = {row, col};
            matrix.at(place) = cell(static_cast<std::int16_t>(row), static_cast<Column>(col));
        }
    sink.variable("blockmatrix", Value(std::move(matrix)));
    const List* reported = nullptr;  // fields that share a list stand side by side
    for (const Field& field : c.fields) {
        if (!field.list || field.list == reported) continue;
        reported = field.list;
        sink.variable(reported->name, Value(arrayOf("String", reported->items)));
    }
}

}  // namespace canvas
