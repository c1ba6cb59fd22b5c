#include "component/variant.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

#include "component/arrays.h"
#include "component/com.h"
#include "component/text.h"
#include "component/wrappers.h"
#include "host/errors.h"

namespace canvas::component {
namespace {

constexpr double currencyScale = 10000;

template <class T>
T read(const void* place) noexcept {
    T value;
    std::memcpy(&value, place, sizeof value);
    return value;
}

template <class T>
Value whole(const void* place) noexcept {
    const T number = read<T>(place);
    if (std::in_range<std::int16_t>(number) && sizeof(T) <= 2) return Value(static_cast<std::int16_t>(number));
    if (std::in_range<std::int32_t>(number)) return Value(static_cast<std::int32_t>(number));
    return Value(static_cast<double>(number));
}

Value objectOf(IUnknown* object, bool isDispatch) {
    if (!object) return Value(Ref<Object>());
    if (isDispatch) return Value(objectBehind(static_cast<IDispatch*>(object)));
    const auto dispatch = ask<IDispatch>(object, IID_IDispatch);
    if (!dispatch) raise(Error::typeMismatch);
    return Value(objectBehind(dispatch.get()));
}

/// `place` leads to a value of a plain type.
Value plainValue(VARTYPE type, const void* place) {
    switch (type) {
        case VT_EMPTY: return {};
        case VT_NULL: return Null{};
        case VT_I1: return whole<std::int8_t>(place);
        case VT_UI1: return whole<std::uint8_t>(place);
        case VT_I2: return whole<std::int16_t>(place);
        case VT_UI2: return whole<std::uint16_t>(place);
        case VT_I4:
        case VT_INT: return whole<std::int32_t>(place);
        case VT_UI4:
        case VT_UINT: return whole<std::uint32_t>(place);
        case VT_I8: return whole<std::int64_t>(place);
        case VT_UI8: return whole<std::uint64_t>(place);
        case VT_R4: return Value(read<float>(place));
        case VT_R8:
        case VT_DATE: return Value(read<double>(place));
        case VT_CY: return Value(static_cast<double>(read<std::int64_t>(place)) / currencyScale);
        case VT_BOOL: return Value(read<VARIANT_BOOL>(place) != 0);
        case VT_BSTR: return Value(utf8Of(read<BSTR>(place)));
        case VT_DISPATCH:
        case VT_UNKNOWN: return objectOf(read<IUnknown*>(place), type == VT_DISPATCH);
        default: raise(Error::typeMismatch);
    }
}

}  // namespace

Value valueOf(const VARIANT& variant) {
    const bool byReference = (variant.vt & VT_BYREF) != 0;
    const auto type = static_cast<VARTYPE>(variant.vt & ~VT_BYREF);
    if (byReference && !variant.byref) raise(Error::typeMismatch);
    if (byReference && type == VT_VARIANT) {
        const VARIANT& inner = *variant.pvarVal;
        if (inner.vt == (VT_BYREF | VT_VARIANT)) raise(Error::typeMismatch);  // a chain of these may have no end
        return valueOf(inner);
    }
    const void* const place = byReference ? variant.byref : static_cast<const void*>(&variant.llVal);
    if (type & VT_ARRAY) return Value(arrayFrom(read<SAFEARRAY*>(place), type & VT_TYPEMASK));
    return plainValue(type, place);
}

void give(const Value& value, VARIANT& variant) {
    switch (value.kind()) {
        case Kind::empty: variant.vt = VT_EMPTY; return;
        case Kind::null: variant.vt = VT_NULL; return;
        case Kind::boolean: giveAs(value, VT_BOOL, variant); return;
        case Kind::integer:
            variant.iVal = std::get<std::int16_t>(value.storage());
            variant.vt = VT_I2;
            return;
        case Kind::longInteger:
            variant.lVal = std::get<std::int32_t>(value.storage());
            variant.vt = VT_I4;
            return;
        case Kind::singleFloat:
            variant.fltVal = std::get<float>(value.storage());
            variant.vt = VT_R4;
            return;
        case Kind::doubleFloat:
            variant.dblVal = std::get<double>(value.storage());
            variant.vt = VT_R8;
            return;
        case Kind::text:
            variant.bstrVal = bstrOf(*value.text());
            variant.vt = VT_BSTR;
            return;
        case Kind::object: giveAs(value, VT_DISPATCH, variant); return;
        case Kind::array: {
            const VARTYPE elements = elementTypeOf(value.toArray());
            variant.parray = safeArrayOf(value.toArray(), elements);
            variant.vt = static_cast<VARTYPE>(VT_ARRAY | elements);
            return;
        }
    }
}

namespace {

/// A whole number within a type's limits, rounded half to even.
template <class T>
T rounded(const Value& value, double scale = 1) {
    const double number = std::nearbyint(value.toDouble() * scale);
    const bool below = number < static_cast<double>(std::numeric_limits<T>::min());
    // the highest 64-bit number is no double: the next one is already too high
    const bool above = sizeof(T) == 8 ? number >= static_cast<double>(std::numeric_limits<T>::max())
                                      : number > static_cast<double>(std::numeric_limits<T>::max());
    if (below || above || std::isnan(number)) raise(Error::overflow);
    return static_cast<T>(number);
}

template <class T>
void store(VARIANT& variant, T value) noexcept {
    std::memcpy(&variant.llVal, &value, sizeof value);
}

}  // namespace

void giveAs(const Value& value, VARTYPE type, VARIANT& variant) {
    switch (type) {
        case VT_I1: store(variant, rounded<std::int8_t>(value)); break;
        case VT_UI1: store(variant, rounded<std::uint8_t>(value)); break;
        case VT_I2: store(variant, value.toInteger()); break;
        case VT_UI2: store(variant, rounded<std::uint16_t>(value)); break;
        case VT_I4:
        case VT_INT: store(variant, value.toLong()); break;
        case VT_UI4:
        case VT_UINT: store(variant, rounded<std::uint32_t>(value)); break;
        case VT_I8: store(variant, rounded<std::int64_t>(value)); break;
        case VT_UI8: store(variant, rounded<std::uint64_t>(value)); break;
        case VT_R4: store(variant, value.toSingle()); break;
        case VT_R8:
        case VT_DATE: store(variant, value.toDouble()); break;
        case VT_CY: store(variant, rounded<std::int64_t>(value, currencyScale)); break;
        case VT_BOOL: store(variant, value.toBoolean() ? VARIANT_TRUE : VARIANT_FALSE); break;
        case VT_BSTR: store(variant, bstrOf(value.toText())); break;
        case VT_DISPATCH:
        case VT_UNKNOWN: store(variant, dispatchOf(value.toObject()).detach()); break;
        default: raise(Error::typeMismatch);
    }
    variant.vt = type;
}

namespace {

std::size_t sizeOfPlain(VARTYPE type) noexcept {
    switch (type) {
        case VT_I1:
        case VT_UI1: return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL: return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4: return 4;
        default: return 8;
    }
}

/// The new value stands there before the old one is freed: a Release may come back here.
void replace(void* place, VARTYPE type, VARIANT& fresh) {
    VARIANT old{};
    const std::size_t size = type & VT_ARRAY ? sizeof(void*) : sizeOfPlain(type);
    std::memcpy(&old.llVal, place, size);
    std::memcpy(place, &fresh.llVal, size);
    old.vt = type;
    fresh.vt = VT_EMPTY;
    clear(old);
}

}  // namespace

void giveBack(const Value& value, VARIANT& reference) {
    if (!(reference.vt & VT_BYREF) || !reference.byref) return;
    const auto type = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
    OwnedVariant fresh;
    if (type == VT_VARIANT) {
        VARIANT& inner = *reference.pvarVal;
        if (inner.vt & VT_BYREF && inner.vt != (VT_BYREF | VT_VARIANT)) return giveBack(value, inner);
        give(value, fresh);
        std::swap(inner, static_cast<VARIANT&>(fresh));
        return;
    }
    if (type & VT_ARRAY) {
        fresh.parray = safeArrayOf(value.toArray(), type & VT_TYPEMASK);
        fresh.vt = type;
    } else {
        giveAs(value, type, fresh);
    }
    replace(reference.byref, type, fresh);
}

bool isLeftOut(const VARIANT& variant) noexcept {
    const bool leads = variant.vt == (VT_BYREF | VT_VARIANT) && variant.pvarVal;
    const VARIANT& inner = leads ? *variant.pvarVal : variant;
    return inner.vt == VT_ERROR && inner.scode == DISP_E_PARAMNOTFOUND;
}

}  // namespace canvas::component
