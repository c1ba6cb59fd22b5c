#pragma once
// Text is UTF-8. Lengths and positions that a host sees count UTF-16 units.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace canvas::text {

/// Upper and lower case by Unicode's simple mappings, one character for one. Invalid UTF-8 bytes stand as they are.
std::string upper(std::string_view text);
std::string lower(std::string_view text);

/// UTF-16 units; an invalid byte counts as one unit.
std::size_t length(std::string_view text) noexcept;

/// The first `units` UTF-16 units, all of the text when it is shorter. Never splits a character: one that does not
/// fit whole is left out.
std::string_view left(std::string_view text, std::size_t units) noexcept;
/// The text without its last `units` UTF-16 units, empty when it is shorter; a character split by the cut goes too.
std::string_view withoutLast(std::string_view text, std::size_t units) noexcept;

/// Without the blanks (U+0020) at both ends.
std::string_view trimmed(std::string_view text) noexcept;

/// The parts between separators; an empty text gives no part, one without separator gives itself.
std::vector<std::string_view> split(std::string_view text, std::string_view separator);

std::string replaced(std::string_view text, std::string_view what, std::string_view with);

/// Bytes of a whole UTF-8 text, all sequences valid (RFC 3629).
bool isUtf8(std::string_view bytes) noexcept;

}  // namespace canvas::text
