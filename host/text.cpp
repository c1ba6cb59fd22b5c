#include "host/text.h"

#include <utf8proc.h>

#include <algorithm>

#include "host/utf8.h"

namespace canvas::text {
namespace {

using CharacterCase = utf8proc_int32_t (*)(utf8proc_int32_t);

void appendInCase(std::string& result, std::string_view text, CharacterCase convert) {
    while (!text.empty()) {
        const utf8::Decoded decoded = utf8::first(text);
        // The sharp s has no capital of its own in Unicode's simple case pairs; the table used here gives it one.
        if (decoded.size == 0 || decoded.character == U'\u00DF') {
            result.append(text, 0, std::max<std::size_t>(decoded.size, 1));
        } else {
            utf8::append(result, static_cast<char32_t>(convert(static_cast<utf8proc_int32_t>(decoded.character))));
        }
        text.remove_prefix(std::max<std::size_t>(decoded.size, 1));
    }
}

template <class AsciiCase>
std::string inCase(std::string_view text, AsciiCase ascii, CharacterCase convert) {
    const std::size_t plain = utf8::asciiPrefix(text);
    std::string result(text.substr(0, plain));
    std::transform(result.begin(), result.end(), result.begin(), ascii);
    appendInCase(result, text.substr(plain), convert);
    return result;
}

std::size_t unitsOf(utf8::Decoded decoded) noexcept { return decoded.size == 4 ? 2 : 1; }

}  // namespace

std::string upper(std::string_view text) {
    return inCase(
        text, [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }, utf8proc_toupper);
}

std::string lower(std::string_view text) {
    return inCase(
        text, [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }, utf8proc_tolower);
}

std::size_t length(std::string_view text) noexcept {
    std::size_t units = utf8::asciiPrefix(text);
    text.remove_prefix(units);
    while (!text.empty()) {
        const utf8::Decoded decoded = utf8::first(text);
        units += unitsOf(decoded);
        text.remove_prefix(std::max<std::size_t>(decoded.size, 1));
    }
    return units;
}

std::string_view left(std::string_view text, std::size_t units) noexcept {
    std::size_t end = std::min(units, utf8::asciiPrefix(text));
    units -= end;
    while (units > 0 && end < text.size()) {
        const utf8::Decoded decoded = utf8::first(text.substr(end));
        if (unitsOf(decoded) > units) break;
        units -= unitsOf(decoded);
        end += std::max<std::size_t>(decoded.size, 1);
    }
    return text.substr(0, end);
}

std::string_view withoutLast(std::string_view text, std::size_t units) noexcept {
    const std::size_t all = length(text);
    return units >= all ? std::string_view() : left(text, all - units);
}

std::string_view trimmed(std::string_view text) noexcept {
    const std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

std::vector<std::string_view> split(std::string_view text, std::string_view separator) {
    std::vector<std::string_view> parts;
    if (text.empty()) return parts;
    std::size_t at = separator.empty() ? std::string_view::npos : text.find(separator);
    while (at != std::string_view::npos) {
        parts.push_back(text.substr(0, at));
        text.remove_prefix(at + separator.size());
        at = text.find(separator);
    }
    parts.push_back(text);
    return parts;
}

std::string replaced(std::string_view text, std::string_view what, std::string_view with) {
    std::string result;
    std::size_t at = what.empty() ? std::string_view::npos : text.find(what);
    while (at != std::string_view::npos) {
        result.append(text, 0, at).append(with);
        text.remove_prefix(at + what.size());
        at = text.find(what);
    }
    return result.append(text);
}

bool isUtf8(std::string_view bytes) noexcept {
    while (true) {
        bytes.remove_prefix(utf8::asciiPrefix(bytes));
        if (bytes.empty()) return true;
        const std::size_t size = utf8::first(bytes).size;
        if (size == 0) return false;
        bytes.remove_prefix(size);
    }
}

}  // namespace canvas::text
