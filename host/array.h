#pragma once
// Arrays inside values: any number of dimensions, each with its own bounds.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/value.h"

namespace canvas {

struct Bounds {
    std::int32_t lower = 0;
    std::int32_t upper = -1;
    friend bool operator==(Bounds, Bounds) = default;
};

/// Elements lie with the first index running fastest. No dimensions: declared, not yet dimensioned.
struct Array {
    std::string elementType = "Variant";
    std::vector<Bounds> dimensions;
    std::vector<Value> elements;

    static Array undimensioned(std::string_view elementType);
    /// All elements Empty.
    static Array of(std::string_view elementType, std::vector<Bounds> dimensions);

    /// Error 9 for an index outside its bounds or another number of indexes than dimensions.
    Value& at(std::span<const std::int32_t> indexes);
    const Value& at(std::span<const std::int32_t> indexes) const;
    Value& at(std::int32_t index) { return at(std::span(&index, 1)); }
    const Value& at(std::int32_t index) const { return at(std::span(&index, 1)); }

    friend bool operator==(const Array&, const Array&) = default;
};

/// One dimension counted from `lower`, elements converted by Value's constructors.
template <class Range>
Array arrayOf(std::string_view elementType, const Range& range, std::int32_t lower = 0) {
    Array array;
    array.elementType = elementType;
    for (const auto& element : range) array.elements.push_back(Value(element));
    const auto count = static_cast<std::int32_t>(array.elements.size());
    array.dimensions.push_back({lower, lower + count - 1});
    return array;
}

}  // namespace canvas
