#pragma once
// The library's own view of forms: a shared library beside this one, loaded when it is first needed, so that nothing
// else depends on a toolkit.

#include <string>
#include <string_view>

#include "host/ports.h"

namespace canvas::editors {

/// Shows forms, message boxes and input boxes on the screen. Null when the view cannot be loaded, or reaches no screen.
Interaction* ownView();

/// The file that `ownView` loads: it lies beside the library or program that holds this code, or in ../lib.
std::string_view ownViewFile() noexcept;

/// Why `ownView` gives null; empty when it does not.
std::string ownViewTrouble();

}  // namespace canvas::editors
