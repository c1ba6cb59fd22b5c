#include "host/array.h"

namespace canvas {
namespace {

std::size_t place(const Array& array, std::span<const std::int32_t> indexes) {
    if (indexes.size() != array.dimensions.size() || indexes.empty()) raise(Error::subscript);
    std::size_t offset = 0;
    std::size_t stride = 1;
    for (std::size_t d = 0; d < indexes.size(); ++d) {
        const Bounds& bounds = array.dimensions[d];
        if (indexes[d] < bounds.lower || indexes[d] > bounds.upper) raise(Error::subscript);
        offset += static_cast<std::size_t>(indexes[d] - bounds.lower) * stride;
        stride *= static_cast<std::size_t>(bounds.upper - bounds.lower + 1);
    }
    return offset;
}

}  // namespace

Array Array::undimensioned(std::string_view elementType) { return {std::string(elementType), {}, {}}; }

Array Array::of(std::string_view elementType, std::vector<Bounds> dimensions) {
    std::size_t count = dimensions.empty() ? 0 : 1;
    for (const Bounds& b : dimensions)
        count *= b.upper < b.lower ? 0 : static_cast<std::size_t>(b.upper) - static_cast<std::size_t>(b.lower) + 1;
    return {std::string(elementType), std::move(dimensions), std::vector<Value>(count)};
}

Value& Array::at(std::span<const std::int32_t> indexes) { return elements[place(*this, indexes)]; }

const Value& Array::at(std::span<const std::int32_t> indexes) const { return elements[place(*this, indexes)]; }

}  // namespace canvas
