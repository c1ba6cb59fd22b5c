#include "host/value.h"

#include <gtest/gtest.h>

#include "host/array.h"
#include "host/composed.h"
#include "raised.h"

namespace canvas {
namespace {

constexpr std::int16_t integer(int v) { return static_cast<std::int16_t>(v); }

/// What a conversion gives: a value, or the number of its error.
struct Outcome {
    Outcome(int error) : error(error) {}
    Outcome(Value value) : value(std::move(value)) {}
    Value value;
    int error = 0;
};

template <class Convert>
void expectOutcome(const Outcome& expected, Convert convert, const std::string& what) {
    SCOPED_TRACE(what);
    Value value;
    const int error = raisedBy([&] { value = Value(convert()); });
    EXPECT_EQ(error, expected.error);
    EXPECT_EQ(value, expected.value);
}

/// What stands for an object in a conversion is its default member.
Ref<Object> objectWithDefault(Value value) {
    auto object = make<Composed>();
    object->property("", std::move(value));
    return object;
}

struct ConversionRow {
    std::string name;
    Value from;
    Outcome text, integer, longInteger, singleFloat, doubleFloat, boolean;
};

std::vector<ConversionRow> conversionRows() {
    const auto T = [](const char* text) { return Outcome(Value(text)); };
    const auto I = [](int v) { return Outcome(Value(integer(v))); };
    const auto L = [](std::int32_t v) { return Outcome(Value(v)); };
    const auto S = [](float v) { return Outcome(Value(v)); };
    const auto D = [](double v) { return Outcome(Value(v)); };
    const Outcome yes = Value(true), no = Value(false);
    const auto fails = [](int error) { return Outcome(error); };
    const auto all = [&](std::string name, Value from, int error) {
        return ConversionRow{std::move(name), std::move(from), error, error, error, error, error, error};
    };
    return {
        {"empty", Value(), T(""), I(0), L(0), S(0), D(0), no},
        all("null", Null{}, 94),
        {"true", true, T("True"), I(-1), L(-1), S(-1), D(-1), yes},
        {"false", false, T("False"), I(0), L(0), S(0), D(0), no},
        {"integer", integer(-7), T("-7"), I(-7), L(-7), S(-7), D(-7), yes},
        {"integer 0", integer(0), T("0"), I(0), L(0), S(0), D(0), no},
        {"long", std::int32_t{40000}, T("40000"), fails(6), L(40000), S(40000), D(40000), yes},
        {"long that a single rounds", std::int32_t{16777217}, T("16777217"), fails(6), L(16777217), S(16777216),
         D(16777217), yes},
        {"single", 2.5f, T("2.5"), I(2), L(2), S(2.5f), D(2.5), yes},
        {"single 0.1", 0.1f, T("0.1"), I(0), L(0), S(0.1f), D(static_cast<double>(0.1f)), yes},
        {"double", 3.5, T("3.5"), I(4), L(4), S(3.5f), D(3.5), yes},
        {"double 0", 0.0, T("0"), I(0), L(0), S(0), D(0), no},
        {"double beyond a long", 1e10, T("10000000000"), fails(6), fails(6), S(1e10f), D(1e10), yes},
        {"double beyond a single", 1e200, T("1E+200"), fails(6), fails(6), fails(6), D(1e200), yes},
        {"numeric text", "12.5", T("12.5"), I(12), L(12), S(12.5f), D(12.5), yes},
        {"loose numeric text", " 1,000 ", T(" 1,000 "), I(1000), L(1000), S(1000), D(1000), yes},
        {"text 0", "0", T("0"), I(0), L(0), S(0), D(0), no},
        {"hexadecimal text", "&HFFFF", T("&HFFFF"), I(-1), L(-1), S(-1), D(-1), yes},
        {"text beyond an integer", "40000", T("40000"), fails(6), L(40000), S(40000), D(40000), yes},
        {"text beyond a double", "1E400", T("1E400"), fails(6), fails(6), fails(6), fails(6), yes},
        {"boolean word", "tRUE", T("tRUE"), fails(13), fails(13), fails(13), fails(13), yes},
        {"other text", "abc", T("abc"), fails(13), fails(13), fails(13), fails(13), fails(13)},
        {"empty text", "", T(""), fails(13), fails(13), fails(13), fails(13), fails(13)},
        {"object", objectWithDefault("42"), T("42"), I(42), L(42), S(42), D(42), yes},
        all("object without a default member", Ref<Object>(make<Composed>()), 438),
        all("object in an object", objectWithDefault(objectWithDefault(1.0)), 13),
        all("nothing", Ref<Object>(), 91),
        all("array", Array::of("Long", {{0, 1}}), 13),
    };
}

TEST(Value, ConvertsAsAutomationDoes) {
    for (const ConversionRow& row : conversionRows()) {
        const Value& v = row.from;
        expectOutcome(
            row.text, [&] { return v.toText(); }, row.name + " to text");
        expectOutcome(
            row.integer, [&] { return v.toInteger(); }, row.name + " to integer");
        expectOutcome(
            row.longInteger, [&] { return v.toLong(); }, row.name + " to long");
        expectOutcome(
            row.singleFloat, [&] { return v.toSingle(); }, row.name + " to single");
        expectOutcome(
            row.doubleFloat, [&] { return v.toDouble(); }, row.name + " to double");
        expectOutcome(
            row.boolean, [&] { return v.toBoolean(); }, row.name + " to boolean");
    }
}

TEST(Value, OnlyAnObjectGivesAnObjectAndOnlyAnArrayAnArray) {
    for (const ConversionRow& row : conversionRows()) {
        EXPECT_EQ(raisedBy([&] { row.from.toObject(); }), row.from.is(Kind::object) ? 0 : 424) << row.name;
        EXPECT_EQ(raisedBy([&] { row.from.toArray(); }), row.from.is(Kind::array) ? 0 : 13) << row.name;
    }
    EXPECT_EQ(Value(Ref<Object>()).toObject(), nullptr);
}

TEST(Value, NamesItsType) {
    const struct {
        Value value;
        std::string_view name;
        Kind kind;
    } rows[] = {
        {Value(), "Empty", Kind::empty},
        {Null{}, "Null", Kind::null},
        {true, "Boolean", Kind::boolean},
        {integer(1), "Integer", Kind::integer},
        {std::int32_t{1}, "Long", Kind::longInteger},
        {1.0f, "Single", Kind::singleFloat},
        {1.0, "Double", Kind::doubleFloat},
        {"", "String", Kind::text},
        {Ref<Object>(), "Nothing", Kind::object},
        {Ref<Object>(make<Composed>("clsBVTBlock")), "clsBVTBlock", Kind::object},
        {Array::of("Boolean", {{1, 8}}), "Boolean()", Kind::array},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.value.typeName(), row.name);
        EXPECT_EQ(row.value.kind(), row.kind) << row.name;
    }
}

TEST(Value, EqualMeansSameKindAndContent) {
    EXPECT_EQ(Value(), Value());
    EXPECT_EQ(Value(Null{}), Value(Null{}));
    EXPECT_EQ(Value("a"), Value(std::string("a")));
    EXPECT_FALSE(Value("a") == Value("A"));
    EXPECT_FALSE(Value(integer(1)) == Value(std::int32_t{1}));
    EXPECT_FALSE(Value() == Value(Null{}));
    EXPECT_FALSE(Value("") == Value());
}

TEST(Value, ObjectsAreEqualByIdentity) {
    const auto first = make<Composed>();
    const auto second = make<Composed>();
    EXPECT_EQ(Value(first), Value(Ref<Object>(first)));
    EXPECT_FALSE(Value(first) == Value(second));
    EXPECT_FALSE(Value(first) == Value(Ref<Object>()));
}

TEST(Value, CopyingCopiesAnArray) {
    const Value original = arrayOf("String", std::vector<std::string>{"a", "b"});
    Value copy = original;
    EXPECT_EQ(copy, original);
    copy.toArray().at(0) = "changed";
    EXPECT_EQ(original.toArray().at(0), Value("a"));
    EXPECT_FALSE(copy == original);
    copy = original;
    EXPECT_EQ(copy, original);
}

TEST(Value, TextIsReachedWithoutACopy) {
    const Value value("label");
    ASSERT_NE(value.text(), nullptr);
    EXPECT_EQ(*value.text(), "label");
    EXPECT_EQ(Value(1.0).text(), nullptr);
}

}  // namespace
}  // namespace canvas
