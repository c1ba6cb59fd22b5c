#pragma once
// The library's own view of forms: a shared library beside this one, loaded when it is first needed, so that nothing
// else depends on a toolkit.

#include <string_view>

#include "host/ports.h"

namespace canvas::editors {

/// Shows forms, message boxes and input boxes on the screen. Null when the view cannot be loaded here.
Interaction* ownView();

/// The file that `ownView` loads.
std::string_view ownViewFile() noexcept;

}  // namespace canvas::editors
