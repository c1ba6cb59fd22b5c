#pragma once
// What this library needs of arrays beyond the functions it exports.

#include "component/platform/automation.h"

namespace canvas::component {

/// A copy with all elements; null gives null.
HRESULT copySafeArray(SAFEARRAY* from, SAFEARRAY*& to);

}  // namespace canvas::component
