// Values as VARIANTs, by value and by reference, and the memory functions behind them.

#include <gtest/gtest.h>

#include "component/text.h"
#include "component/variant.h"
#include "component/wrappers.h"
#include "host/array.h"
#include "host/collection.h"
#include "tests/host/raised.h"

namespace canvas::component {
namespace {

TEST(Variant, EveryValueHasItsKindAndComesBack) {
    const std::pair<Value, int> rows[] = {
        {Value(), VT_EMPTY},
        {Value(Null{}), VT_NULL},
        {Value(true), VT_BOOL},
        {Value(false), VT_BOOL},
        {Value(std::int16_t{-7}), VT_I2},
        {Value(std::int32_t{70000}), VT_I4},
        {Value(1.5f), VT_R4},
        {Value(-2.25), VT_R8},
        {Value(""), VT_BSTR},
        {Value("Grüße \xF0\x9F\x98\x80"), VT_BSTR},
        {Value(Ref<Object>()), VT_DISPATCH},
        {Value(Ref<Object>(make<Collection>())), VT_DISPATCH},
        {Value(arrayOf("Variant", std::vector<std::int32_t>{1, 2})), VT_ARRAY | VT_VARIANT},
        {Value(arrayOf("String", std::vector<std::string>{"a", "b"}, 1)), VT_ARRAY | VT_BSTR},
    };
    for (const auto& [value, type] : rows) {
        SCOPED_TRACE(value.typeName());
        OwnedVariant variant;
        give(value, variant);
        EXPECT_EQ(variant.vt, type);
        EXPECT_EQ(valueOf(variant), value);
    }
    OwnedVariant yes;
    give(Value(true), yes);
    EXPECT_EQ(yes.boolVal, -1);
}

TEST(Variant, ReferencesOfEveryTypeAreReadAndWritten) {
    struct Row {
        int type;
        Value read, written;
    };
    const Row rows[] = {
        {VT_I1, Value(std::int16_t{0}), Value(std::int16_t{12})},  {VT_UI1, Value(std::int16_t{0}), Value(std::int16_t{12})},
        {VT_I2, Value(std::int16_t{0}), Value(std::int16_t{12})},  {VT_UI2, Value(std::int16_t{0}), Value(std::int16_t{12})},
        {VT_I4, Value(std::int32_t{0}), Value(std::int32_t{12})},  {VT_UI4, Value(std::int32_t{0}), Value(std::int32_t{12})},
        {VT_I8, Value(std::int32_t{0}), Value(std::int32_t{12})},  {VT_UI8, Value(std::int32_t{0}), Value(std::int32_t{12})},
        {VT_INT, Value(std::int32_t{0}), Value(std::int32_t{12})}, {VT_UINT, Value(std::int32_t{0}), Value(std::int32_t{12})},
        {VT_R4, Value(0.0f), Value(12.0f)},                        {VT_R8, Value(0.0), Value(12.0)},
        {VT_CY, Value(0.0), Value(12.0)},                          {VT_DATE, Value(0.0), Value(12.0)},
        {VT_BOOL, Value(false), Value(true)},                      {VT_BSTR, Value(""), Value("12")},
        {VT_VARIANT, Value(), Value("12")},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        OwnedVariant target;
        VARIANT reference{};
        reference.vt = static_cast<VARTYPE>(VT_BYREF | row.type);
        reference.byref = row.type == VT_VARIANT ? static_cast<void*>(&target) : &target.llVal;
        EXPECT_EQ(valueOf(reference), row.read);
        giveBack(Value("12"), reference);
        EXPECT_EQ(valueOf(reference), row.written);
        if (row.type == VT_BSTR) target.vt = VT_BSTR;  // it owns the text now
    }
}

TEST(Variant, WhatDoesNotFitAReferenceLeavesItAlone) {
    std::uint8_t byte = 7;
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_UI1;
    reference.byref = &byte;
    EXPECT_EQ(raisedBy([&] { giveBack(Value(256), reference); }), 6);
    EXPECT_EQ(raisedBy([&] { giveBack(Value(-1), reference); }), 6);
    EXPECT_EQ(raisedBy([&] { giveBack(Value("x"), reference); }), 13);
    EXPECT_EQ(byte, 7);
}

TEST(Variant, ArraysOfTwoDimensionsGoBothWaysAndByReference) {
    Array grid = Array::of("Variant", {{0, 1}, {1, 3}});
    for (std::int32_t row = 0; row < 2; ++row)
        for (std::int32_t col = 1; col <= 3; ++col) {
            const std::int32_t place[] = {row, col};
            grid.at(place) = Value(std::int32_t{10 * row + col});
        }
    OwnedVariant variant;
    give(Value(grid), variant);
    EXPECT_EQ(SafeArrayGetDim(variant.parray), 2u);
    LONG lower = 0, upper = 0;
    EXPECT_EQ(SafeArrayGetLBound(variant.parray, 2, &lower), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(variant.parray, 2, &upper), S_OK);
    EXPECT_EQ(lower, 1);
    EXPECT_EQ(upper, 3);
    LONG place[] = {1, 2};
    OwnedVariant element;
    EXPECT_EQ(SafeArrayGetElement(variant.parray, place, &element), S_OK);
    EXPECT_EQ(valueOf(element), Value(std::int32_t{12}));
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
    reference.pparray = &variant.parray;
    EXPECT_EQ(valueOf(reference), Value(grid));
    giveBack(Value(arrayOf("Variant", std::vector<std::string>{"x"})), reference);
    EXPECT_EQ(valueOf(variant), Value(arrayOf("Variant", std::vector<std::string>{"x"})));
}

TEST(Variant, WholeNumbersBeyond32BitsBecomeDoubles) {
    VARIANT variant{};
    variant.vt = VT_I8;
    variant.llVal = 5'000'000'000;
    EXPECT_EQ(valueOf(variant), Value(5e9));
    variant.vt = VT_CY;
    variant.cyVal.int64 = 12345;
    EXPECT_EQ(valueOf(variant), Value(1.2345));
}

TEST(Variant, AReferenceThatLeadsToItselfIsRefused) {
    VARIANT loop{};
    loop.vt = VT_BYREF | VT_VARIANT;
    loop.pvarVal = &loop;
    EXPECT_EQ(raisedBy([&] { valueOf(loop); }), 13);
    EXPECT_FALSE(isLeftOut(loop));
}

TEST(Text, HalvesOfPairsAndInvalidBytesAreReplaced) {
    const OLECHAR units[] = {u'a', 0xD83D, u'b', 0xDE00};
    EXPECT_EQ(utf8Of(std::basic_string_view<OLECHAR>(units, 4)), "a\xEF\xBF\xBD" "b\xEF\xBF\xBD");
    const OwnedText text("a\xFF" "b");
    EXPECT_EQ(SysStringLen(text.get()), 3u);
    EXPECT_EQ(utf8Of(text.get()), "a\xEF\xBF\xBD" "b");
    const OwnedText zero(std::string_view("a\0b", 3));
    EXPECT_EQ(utf8Of(zero.get()), std::string("a\0b", 3));
}

TEST(Memory, NullIsTheEmptyTextAndNoArray) {
    SysFreeString(nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0xFFFFFFFF), nullptr);
    VariantInit(nullptr);
    EXPECT_EQ(VariantClear(nullptr), E_INVALIDARG);
    VARIANT variant{};
    EXPECT_EQ(VariantCopy(&variant, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayCreate(VT_VARIANT, 0, nullptr), nullptr);
    SAFEARRAYBOUND huge[] = {{0xFFFFFFFF, 0}};
    EXPECT_EQ(SafeArrayCreate(VT_VARIANT, 1, huge), nullptr);
    EXPECT_EQ(SafeArrayDestroy(nullptr), S_OK);
    EXPECT_EQ(SafeArrayGetDim(nullptr), 0u);
    LONG index = 0;
    EXPECT_EQ(SafeArrayGetElement(nullptr, &index, &variant), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetUBound(nullptr, 1, &index), E_INVALIDARG);
}

TEST(Memory, ACopyIsDeepAndElementsHaveBounds) {
    SAFEARRAYBOUND bounds[] = {{2, 5}};
    OwnedVariant first, second;
    first.parray = SafeArrayCreate(VT_BSTR, 1, bounds);
    first.vt = VT_ARRAY | VT_BSTR;
    LONG place = 6, beyond = 7;
    const OwnedText text("kept");
    EXPECT_EQ(SafeArrayPutElement(first.parray, &place, text.get()), S_OK);
    EXPECT_EQ(SafeArrayPutElement(first.parray, &beyond, text.get()), DISP_E_BADINDEX);
    EXPECT_EQ(VariantCopy(&second, &first), S_OK);
    EXPECT_NE(second.parray, first.parray);
    EXPECT_EQ(valueOf(second).toArray().at(6), Value("kept"));
    LONG bound = 0;
    EXPECT_EQ(SafeArrayGetLBound(first.parray, 2, &bound), DISP_E_BADINDEX);
    first.parray->cLocks = 1;
    EXPECT_EQ(VariantClear(&first), DISP_E_ARRAYISLOCKED);
    first.parray->cLocks = 0;
}

}  // namespace
}  // namespace canvas::component
