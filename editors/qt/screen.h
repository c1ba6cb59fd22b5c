#pragma once
// The toolkit's application object, which there is one of in a process.

namespace canvas::view {

/// Makes the application when the host has none. False when no screen can be reached.
bool haveApplication();

}  // namespace canvas::view
