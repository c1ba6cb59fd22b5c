#pragma once
// Between values and VARIANTs.

#include "component/failure.h"
#include "host/value.h"

namespace canvas::component {

/// What a VARIANT holds, by value or by reference. Error 13 for a kind that has no value here. 64-bit and unsigned
/// integers that do not fit 32 bits become doubles, as do currency and dates.
Value valueOf(const VARIANT& variant);

/// Into an initialised VARIANT that owns nothing.
void give(const Value& value, VARIANT& variant);

/// Through a VT_BYREF, converted to the type that it leads to; what stood there is freed. By value nothing happens.
void giveBack(const Value& value, VARIANT& reference);

/// Automation's conversion into a VARIANT of a plain type that owns nothing yet.
void giveAs(const Value& value, VARTYPE type, VARIANT& variant);

/// True for an argument that the caller left out.
bool isLeftOut(const VARIANT& variant) noexcept;

/// Frees what it holds, which may be an object of a host.
inline void clear(VARIANT& variant) noexcept {
    outside([&] { return VariantClear(&variant); });
}

/// A VARIANT that frees what it holds.
class OwnedVariant : public VARIANT {
public:
    OwnedVariant() noexcept : VARIANT{} {}
    ~OwnedVariant() { clear(*this); }
    OwnedVariant(const OwnedVariant&) = delete;
    OwnedVariant& operator=(const OwnedVariant&) = delete;
};

}  // namespace canvas::component
