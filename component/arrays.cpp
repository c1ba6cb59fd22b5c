#include "component/arrays.h"

#include <new>

#include "component/variant.h"
#include "host/errors.h"

namespace canvas::component {
namespace {

struct Type {
    VARTYPE type;
    ULONG size;
    std::string_view name;  ///< as Value's type names call it
};
constexpr Type types[] = {
    {VT_VARIANT, sizeof(VARIANT), "Variant"}, {VT_BSTR, sizeof(BSTR), "String"}, {VT_I2, 2, "Integer"},
    {VT_I4, 4, "Long"},         {VT_INT, 4, "Long"},       {VT_R4, 4, "Single"},   {VT_R8, 8, "Double"},
    {VT_BOOL, 2, "Boolean"},    {VT_UI1, 1, "Byte"},       {VT_I1, 1, "Integer"},  {VT_UI2, 2, "Long"},
    {VT_UI4, 4, "Double"},      {VT_UINT, 4, "Double"},    {VT_I8, 8, "Double"},   {VT_UI8, 8, "Double"},
    {VT_CY, 8, "Currency"},     {VT_DATE, 8, "Date"},      {VT_DISPATCH, sizeof(void*), "Object"},
    {VT_UNKNOWN, sizeof(void*), "Object"},
};

const Type& typeOf(int elementType) {
    for (const Type& row : types)
        if (row.type == elementType) return row;
    raise(Error::typeMismatch);
}

constexpr std::size_t mostElements = 50'000'000;

}  // namespace

Array arrayFrom(SAFEARRAY* from, int elementType) {
    const Type& type = typeOf(elementType);
    if (!from || from->cDims == 0) return Array::undimensioned(type.name);
    if (from->cbElements != type.size) raise(Error::typeMismatch);
    Array array;
    array.elementType = type.name;
    std::size_t count = 1;
    for (UINT d = from->cDims; d-- > 0;) {
        const SAFEARRAYBOUND& bound = from->rgsabound[d];
        const std::int64_t upper = std::int64_t{bound.lLbound} + bound.cElements - 1;
        if (upper > INT32_MAX || (bound.cElements && count > mostElements / bound.cElements)) raise(Error::outOfMemory);
        array.dimensions.push_back({bound.lLbound, static_cast<std::int32_t>(upper)});
        count *= bound.cElements;
    }
    if (count && !from->pvData) raise(Error::typeMismatch);
    array.elements.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        VARIANT element{};
        element.vt = static_cast<VARTYPE>(VT_BYREF | type.type);
        element.byref = static_cast<char*>(from->pvData) + i * type.size;
        array.elements.push_back(valueOf(element));
    }
    return array;
}

VARTYPE elementTypeOf(const Array& array) noexcept {
    return array.elementType == "String" ? VARTYPE{VT_BSTR} : VARTYPE{VT_VARIANT};
}

SAFEARRAY* safeArrayOf(const Array& array, int elementType) {
    const Type& type = typeOf(elementType);
    if (array.dimensions.empty()) return nullptr;
    std::vector<SAFEARRAYBOUND> bounds;
    for (const Bounds& b : array.dimensions)
        bounds.push_back({b.upper < b.lower ? 0 : static_cast<ULONG>(std::int64_t{b.upper} - b.lower + 1), b.lower});
    SAFEARRAY* result = SafeArrayCreate(type.type, static_cast<UINT>(bounds.size()), bounds.data());
    if (!result) throw std::bad_alloc();
    VARIANT whole{};  // frees the array when an element does not convert
    whole.vt = static_cast<VARTYPE>(VT_ARRAY | type.type);
    whole.parray = result;
    try {
        for (std::size_t i = 0; i < array.elements.size(); ++i) {
            VARIANT element{};
            element.vt = static_cast<VARTYPE>(VT_BYREF | type.type);
            element.byref = static_cast<char*>(result->pvData) + i * type.size;
            giveBack(array.elements[i], element);
        }
    } catch (...) {
        clear(whole);
        throw;
    }
    return result;
}

}  // namespace canvas::component
