#pragma once
// Patterns of file names.

#include <string>
#include <string_view>
#include <vector>

namespace canvas::cli {

/// Whether the text holds one of `*`, `?` and `[`.
bool isPattern(std::string_view text) noexcept;

/// Whether one name (no "/") fits a pattern: `*` any text, `?` one character, `[a-z]` and `[!a-z]` one of ASCII, `[`
/// without its end itself. A leading dot is only met by a dot.
bool fits(std::string_view name, std::string_view pattern);

/// The entries of the disk whose path fits, `**` standing for any number of folders. In no order, folders among them.
std::vector<std::string> expand(const std::string& pattern);

}  // namespace canvas::cli
