#pragma once
// Asks the user on a terminal, in plain text: message boxes, input boxes, and the error dialog.

#include <memory>

#include "host/ports.h"

namespace canvas::cli {

/// Speaks on standard output and reads lines from standard input. The end of the input answers as Cancel, No or Ignore
/// would. Of the forms it shows the error dialog alone.
std::shared_ptr<Interaction> makeTerminal();

}  // namespace canvas::cli
