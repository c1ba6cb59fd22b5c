#pragma once
// Text as it lies in files: Windows-1252 where it fits, else UTF-8 with a byte order mark.

#include <string>
#include <string_view>

namespace canvas::encoding {

/// Bytes of a file to UTF-8. A byte order mark means UTF-8; else text with at least one valid multi-byte sequence
/// and no invalid one is UTF-8; else Windows-1252, whose five undefined bytes (81, 8D, 8F, 90, 9D) become the
/// control characters of the same number. After a byte order mark, invalid bytes are taken as Windows-1252.
std::string decode(std::string bytes);

/// UTF-8 to the bytes of a file: Windows-1252 (without a mark) when every character fits and `decode` would give
/// the text back, else UTF-8 with a byte order mark. Nothing is lost: decode(encode(t)) == t for valid UTF-8.
std::string encode(std::string text);

}  // namespace canvas::encoding
