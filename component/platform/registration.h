#pragma once
// Where hosts find the component.

#include "component/platform/automation.h"

namespace canvas::component {

/// Makes the classes known to the platform; a failure leaves what was there as it was.
HRESULT registerClasses();
/// Takes that away again; nothing to take away is no failure.
HRESULT unregisterClasses();

}  // namespace canvas::component
