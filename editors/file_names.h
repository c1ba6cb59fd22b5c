#pragma once
// The rule for names of files.

#include <string_view>

#include "host/text.h"

namespace canvas::editors {

/// Shorter than 256 characters (UTF-16 units) and without \ / : * ? " < > |. The empty name passes: callers test for it.
inline bool IsValidFilename(std::string_view strFileName) {
    return strFileName.find_first_of("\\/:*?\"<>|") == std::string_view::npos && text::length(strFileName) < 256;
}

}  // namespace canvas::editors
