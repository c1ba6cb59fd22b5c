#include "host/array.h"

#include <gtest/gtest.h>

#include "raised.h"

namespace canvas {
namespace {

Value number(std::int32_t v) { return Value(v); }

TEST(Array, StartsWithEmptyElements) {
    const Array array = Array::of("Variant", {{1, 3}});
    ASSERT_EQ(array.elements.size(), 3u);
    for (const Value& element : array.elements) EXPECT_EQ(element, Value());
}

TEST(Array, AnIndexCountsFromTheLowerBound) {
    Array array = Array::of("Long", {{-1, 1}});
    array.at(-1) = number(10);
    array.at(1) = number(30);
    EXPECT_EQ(array.elements[0], number(10));
    EXPECT_EQ(array.elements[2], number(30));
}

TEST(Array, TheFirstIndexRunsFastest) {
    Array array = Array::of("Long", {{0, 1}, {1, 3}, {5, 6}});
    ASSERT_EQ(array.elements.size(), 12u);
    const std::int32_t indexes[] = {1, 2, 6};
    array.at(indexes) = number(7);
    EXPECT_EQ(array.elements[1 + 1 * 2 + 1 * 6], number(7));
    EXPECT_EQ(std::as_const(array).at(indexes), number(7));
}

TEST(Array, AnIndexOutsideItsBoundsIsASubscriptError) {
    Array array = Array::of("Long", {{1, 2}, {1, 3}});
    const std::int32_t bad[][2] = {{0, 1}, {3, 1}, {1, 0}, {1, 4}, {-1, -1}};
    for (const auto& indexes : bad)
        EXPECT_EQ(raisedBy([&] { array.at(indexes); }), 9) << indexes[0] << ',' << indexes[1];
}

TEST(Array, AnotherNumberOfIndexesIsASubscriptError) {
    Array array = Array::of("Long", {{1, 2}, {1, 3}});
    const std::int32_t three[] = {1, 1, 1};
    EXPECT_EQ(raisedBy([&] { array.at(1); }), 9);
    EXPECT_EQ(raisedBy([&] { array.at(three); }), 9);
    EXPECT_EQ(raisedBy([&] { array.at(std::span<const std::int32_t>()); }), 9);
}

TEST(Array, AnUndimensionedArrayHasNoElements) {
    Array array = Array::undimensioned("String");
    EXPECT_EQ(array.elementType, "String");
    EXPECT_TRUE(array.dimensions.empty());
    EXPECT_EQ(raisedBy([&] { array.at(0); }), 9);
    EXPECT_EQ(raisedBy([&] { array.at(std::span<const std::int32_t>()); }), 9);
}

TEST(Array, AnEmptyDimensionHasNoElements) {
    Array array = Array::of("String", {{0, -1}});
    EXPECT_TRUE(array.elements.empty());
    EXPECT_EQ(raisedBy([&] { array.at(0); }), 9);
}

TEST(Array, IsMadeFromARange) {
    const Array array = arrayOf("Boolean", std::vector<bool>{true, false}, 1);
    EXPECT_EQ(array.elementType, "Boolean");
    EXPECT_EQ(array.dimensions, (std::vector<Bounds>{{1, 2}}));
    EXPECT_EQ(array.at(1), Value(true));
    EXPECT_EQ(array.at(2), Value(false));
}

TEST(Array, OfNothingHasBoundsThatHoldNothing) {
    const Array array = arrayOf("String", std::vector<std::string>{});
    EXPECT_EQ(array.dimensions, (std::vector<Bounds>{{0, -1}}));
    EXPECT_TRUE(array.elements.empty());
}

TEST(Array, EqualMeansTypeBoundsAndElements) {
    const Array array = arrayOf("String", std::vector<std::string>{"a"});
    EXPECT_EQ(array, arrayOf("String", std::vector<std::string>{"a"}));
    EXPECT_FALSE(array == arrayOf("Variant", std::vector<std::string>{"a"}));
    EXPECT_FALSE(array == arrayOf("String", std::vector<std::string>{"a"}, 1));
    EXPECT_FALSE(array == arrayOf("String", std::vector<std::string>{"b"}));
}

}  // namespace
}  // namespace canvas
