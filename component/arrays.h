#pragma once
// Between arrays inside values and SAFEARRAYs, of any number of dimensions.

#include "component/platform/automation.h"
#include "host/array.h"

namespace canvas::component {

/// Every element converted; null gives an array without dimensions. Error 13 for element types without a value here.
Array arrayFrom(SAFEARRAY* array, int elementType);

/// VT_BSTR for an array of strings, else VT_VARIANT.
VARTYPE elementTypeOf(const Array& array) noexcept;

/// Every element converted to the type; null for an array without dimensions. The caller destroys it.
SAFEARRAY* safeArrayOf(const Array& array, int elementType);

}  // namespace canvas::component
