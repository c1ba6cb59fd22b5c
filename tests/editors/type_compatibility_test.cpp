// What may be assigned to what: the whole table, and the words for the types.

#include "editors/type_compatibility.h"

#include <gtest/gtest.h>

#include <map>

#include "host/array.h"
#include "tests/host/raised.h"

namespace canvas::editors {
namespace {

constexpr std::int32_t targets[] = {1, 4, 6, 8, 10, 16, 18};

struct Row {
    std::int32_t source;
    std::int16_t entries[7];
};
constexpr Row rows[] = {
    {1, {0, 0, 0, 0, 0, 0, 0}},  {4, {2, 0, 0, 0, 0, 0, 0}},  {6, {2, 0, 0, 0, 0, 0, 0}},  {8, {2, 1, 1, 0, 0, 1, 1}},
    {10, {2, 1, 1, 0, 0, 1, 1}}, {14, {2, 0, 0, 0, 0, 0, 0}}, {16, {2, 1, 1, 1, 1, 0, 0}}, {18, {2, 1, 1, 1, 1, 0, 0}},
    {48, {2, 1, 1, 1, 1, 0, 0}}, {62, {2, 0, 0, 1, 1, 0, 0}},
};

std::int16_t expected(std::int32_t target, std::int32_t source) {
    for (const Row& row : rows)
        for (std::size_t i = 0; i < std::size(targets); ++i)
            if (row.source == source && targets[i] == target) return row.entries[i];
    return 0;
}

TEST(TypeCompatibility, EveryPairOfCodesHasItsEntryAndTheUnknownOnesAreGood) {
    for (std::int32_t target = 0; target <= 64; ++target)
        for (std::int32_t source = 0; source <= 64; ++source)
            EXPECT_EQ(datatypeCompatibility(target, source), expected(target, source)) << target << " from " << source;
}

TEST(TypeCompatibility, ACodeOutside0To64IsError9) {
    EXPECT_EQ(raisedBy([] { datatypeCompatibility(65, 0); }), 9);
    EXPECT_EQ(raisedBy([] { datatypeCompatibility(0, 65); }), 9);
    EXPECT_EQ(raisedBy([] { datatypeCompatibility(-1, 0); }), 9);
    EXPECT_EQ(raisedBy([] { datatypeCompatibility(0, -1); }), 9);
    EXPECT_EQ(raisedBy([] { typeName(65); }), 9);
    EXPECT_EQ(raisedBy([] { typeName(-1); }), 9);
    EXPECT_EQ(raisedBy([] { datatypeCompatibility(64, 64); }), 0);
}

TEST(TypeCompatibility, TypesHaveWordsAndTheOtherCodesNone) {
    const std::map<std::int32_t, std::string_view> words{
        {0, "none"},     {1, "a bit"},   {2, "a byte"},  {4, "an integer"}, {6, "an integer"}, {8, "a long"},
        {10, "a long"},  {14, "an integer"}, {16, "a float"}, {18, "a float"}, {32, "a double"}, {48, "a real"},
        {62, "a number"},
    };
    for (std::int32_t code = 0; code <= 64; ++code) {
        const auto word = words.find(code);
        EXPECT_EQ(typeName(code), word == words.end() ? "" : word->second) << code;
    }
}

TEST(TypeCompatibility, MessagesNameSourceAndTarget) {
    EXPECT_EQ(refusedAssignment(1, 4), "Cannot assign an integer value to a bit variable.");
    EXPECT_EQ(lossyAssignment(16, 8), "Assigning a long value to a float variable may result in loss of data.");
}

TEST(TypeCompatibility, ReportsSeeTheTablesWhole) {
    const Value value = datatypeCompatibilityTable();
    EXPECT_EQ(value.typeName(), "Integer()");
    const Array& table = value.toArray();
    EXPECT_EQ(table.dimensions, (std::vector<Bounds>{{0, 64}, {0, 64}}));
    EXPECT_EQ(table.at(std::array{1, 16}), Value(std::int16_t{2}));
    EXPECT_EQ(table.at(std::array{16, 1}), Value(std::int16_t{0}));
    EXPECT_EQ(table.at(std::array{4, 8}), Value(std::int16_t{1}));
    const Value names = typeNamesTable();
    EXPECT_EQ(names.typeName(), "String()");
    EXPECT_EQ(names.toArray().dimensions, (std::vector<Bounds>{{0, 64}}));
    EXPECT_EQ(names.toArray().at(62), Value("a number"));
}

}  // namespace
}  // namespace canvas::editors
