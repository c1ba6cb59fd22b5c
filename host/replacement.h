#pragma once
// The disk's way to replace a file: a temporary file beside it, renamed over it when it is whole.

#include <memory>
#include <string>

#include "host/files.h"

namespace canvas {

/// `path` is a native name. A link is followed, so that it stays a link; a file that is there keeps its mode.
/// The temporary file is hidden, named after this process (".canvas-<process>-<count>.tmp") and there until commit.
std::unique_ptr<Replacement> replaceOnDisk(const std::string& path);

}  // namespace canvas
