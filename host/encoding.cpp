#include "host/encoding.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "host/text.h"
#include "host/utf8.h"

namespace canvas::encoding {
namespace {

constexpr std::string_view mark = "\xEF\xBB\xBF";

/// Characters of the Windows-1252 bytes from 80 to 9F; all other bytes are their own characters.
constexpr char32_t specials[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char32_t characterOf(char byte) noexcept {
    const auto code = static_cast<unsigned char>(byte);
    return code >= 0x80 && code < 0xA0 ? specials[code - 0x80] : code;
}

std::optional<char> byteOf(char32_t character) noexcept {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
    const auto* found = std::find(std::begin(specials), std::end(specials), character);
    if (found == std::end(specials)) return {};
    return static_cast<char>(0x80 + (found - specials));
}

std::string fromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    while (!bytes.empty()) {
        const std::size_t plain = utf8::asciiPrefix(bytes);
        text.append(bytes, 0, plain);
        bytes.remove_prefix(plain);
        if (bytes.empty()) break;
        utf8::append(text, characterOf(bytes[0]));
        bytes.remove_prefix(1);
    }
    return text;
}

/// Nothing when a character does not fit. A byte that is no valid UTF-8 stands for itself.
std::optional<std::string> toWindows1252(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const std::size_t plain = utf8::asciiPrefix(text);
        bytes.append(text, 0, plain);
        text.remove_prefix(plain);
        if (text.empty()) break;
        const utf8::Decoded decoded = utf8::first(text);
        const std::optional<char> byte = decoded.size == 0 ? text[0] : byteOf(decoded.character);
        if (!byte) return {};
        bytes += *byte;
        text.remove_prefix(std::max<std::size_t>(decoded.size, 1));
    }
    return bytes;
}

/// Valid UTF-8: bytes that are none are taken as Windows-1252.
std::string mended(std::string bytes) {
    if (text::isUtf8(bytes)) return bytes;
    std::string text;
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::size_t size = utf8::first(rest).size;
        if (size == 0) utf8::append(text, characterOf(rest[0]));
        else text.append(rest, 0, size);
        rest.remove_prefix(std::max<std::size_t>(size, 1));
    }
    return text;
}

}  // namespace

std::string decode(std::string bytes) {
    if (bytes.starts_with(mark)) return mended(std::move(bytes.erase(0, mark.size())));
    if (text::isUtf8(bytes)) return bytes;
    return fromWindows1252(bytes);
}

std::string encode(std::string text) {
    if (utf8::isAscii(text)) return text;
    // Bytes that a reader would take for UTF-8 must not be written as Windows-1252.
    std::optional<std::string> bytes = toWindows1252(text);
    if (bytes && !bytes->starts_with(mark) && !text::isUtf8(*bytes)) return *std::move(bytes);
    return std::string(mark) + mended(std::move(text));
}

}  // namespace canvas::encoding
