#include "editors/type_compatibility.h"

#include <array>

#include "attributes/datatypes.h"
#include "host/array.h"
#include "host/errors.h"

namespace canvas::editors {
namespace {

constexpr std::size_t codes = brxTypeMax + 1;
using Entries = std::array<std::uint8_t, codes>;
using Compatibility = std::array<Entries, codes>;  ///< by target, then source

constexpr brxDatatype targets[] = {brxBool,         brxWord,  brxPositiveWord, brxLong,
                                   brxPositiveLong, brxFloat, brxPositiveFloat};

struct Source {
    brxDatatype type;
    std::array<std::uint8_t, std::size(targets)> entries;
};

constexpr Source sources[] = {
    {brxBool, {0, 0, 0, 0, 0, 0, 0}},
    {brxWord, {2, 0, 0, 0, 0, 0, 0}},
    {brxPositiveWord, {2, 0, 0, 0, 0, 0, 0}},
    {brxLong, {2, 1, 1, 0, 0, 1, 1}},
    {brxPositiveLong, {2, 1, 1, 0, 0, 1, 1}},
    {brxIntegral, {2, 0, 0, 0, 0, 0, 0}},
    {brxFloat, {2, 1, 1, 1, 1, 0, 0}},
    {brxPositiveFloat, {2, 1, 1, 1, 1, 0, 0}},
    {brxReal, {2, 1, 1, 1, 1, 0, 0}},
    {brxNumber, {2, 0, 0, 1, 1, 0, 0}},
};

constexpr Compatibility compatibility = [] {
    Compatibility table{};
    for (const Source& source : sources)
        for (std::size_t i = 0; i < std::size(targets); ++i)
            table[static_cast<std::size_t>(targets[i])][static_cast<std::size_t>(source.type)] = source.entries[i];
    return table;
}();

constexpr std::array<std::string_view, codes> names = [] {
    std::array<std::string_view, codes> table{};
    table[brxUnknown] = "none";
    table[brxBool] = "a bit";
    table[brxByte] = "a byte";
    table[brxWord] = table[brxPositiveWord] = table[brxIntegral] = "an integer";
    table[brxLong] = table[brxPositiveLong] = "a long";
    table[brxFloat] = table[brxPositiveFloat] = "a float";
    table[brxDouble] = "a double";
    table[brxReal] = "a real";
    table[brxNumber] = "a number";
    return table;
}();

std::size_t index(std::int32_t code) {
    if (code < 0 || code > brxTypeMax) raise(Error::subscript);
    return static_cast<std::size_t>(code);
}

}  // namespace

std::int16_t datatypeCompatibility(std::int32_t target, std::int32_t source) {
    return compatibility[index(target)][index(source)];
}

std::string_view typeName(std::int32_t code) { return names[index(code)]; }

std::string refusedAssignment(std::int32_t target, std::int32_t source) {
    return "Cannot assign " + std::string(typeName(source)) + " value to " + std::string(typeName(target)) + " variable.";
}

std::string lossyAssignment(std::int32_t target, std::int32_t source) {
    return "Assigning " + std::string(typeName(source)) + " value to " + std::string(typeName(target)) +
           " variable may result in loss of data.";
}

Value datatypeCompatibilityTable() {
    Array table = Array::of("Integer", {{0, brxTypeMax}, {0, brxTypeMax}});
    for (std::size_t i = 0; i < table.elements.size(); ++i)  // the first index runs fastest
        table.elements[i] = Value(static_cast<std::int16_t>(compatibility[i % codes][i / codes]));
    return Value(std::move(table));
}

Value typeNamesTable() { return Value(arrayOf("String", names)); }

}  // namespace canvas::editors
