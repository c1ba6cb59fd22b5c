#include "component/text.h"

#include <new>

#include "host/utf8.h"

namespace canvas::component {
namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr bool isHigh(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLow(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

std::string utf8Of(std::basic_string_view<OLECHAR> units) {
    std::string text;
    text.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        const char32_t unit = units[i];
        if (unit < 0x80) {
            text += static_cast<char>(unit);
        } else if (isHigh(unit) && i + 1 < units.size() && isLow(units[i + 1])) {
            utf8::append(text, 0x10000 + ((unit - 0xD800) << 10) + (units[i + 1] - 0xDC00u));
            ++i;
        } else {
            utf8::append(text, isHigh(unit) || isLow(unit) ? replacement : unit);
        }
    }
    return text;
}

std::string utf8Of(BSTR text) {
    return text ? utf8Of(std::basic_string_view<OLECHAR>(text, SysStringLen(text))) : std::string();
}

std::string utf8OfName(const OLECHAR* text) {
    return text ? utf8Of(std::basic_string_view<OLECHAR>(text)) : std::string();
}

namespace {

/// Calls `put` for each UTF-16 unit of a text that is not all ASCII.
template <class Put>
void eachUnit(std::string_view text, Put&& put) {
    while (!text.empty()) {
        const utf8::Decoded next = utf8::first(text);
        const char32_t character = next.size ? next.character : replacement;
        if (character >= 0x10000) {
            put(static_cast<OLECHAR>(0xD800 + ((character - 0x10000) >> 10)));
            put(static_cast<OLECHAR>(0xDC00 + ((character - 0x10000) & 0x3FF)));
        } else {
            put(static_cast<OLECHAR>(character));
        }
        text.remove_prefix(next.size ? next.size : 1);
    }
}

}  // namespace

BSTR bstrOf(std::string_view utf8) {
    const bool ascii = utf8::isAscii(utf8);
    std::size_t units = ascii ? utf8.size() : 0;
    if (!ascii) eachUnit(utf8, [&](OLECHAR) { ++units; });
    BSTR text = units <= 0x3FFFFFFF ? SysAllocStringLen(nullptr, static_cast<UINT>(units)) : nullptr;
    if (!text) throw std::bad_alloc();
    BSTR next = text;
    if (ascii)
        for (const char c : utf8) *next++ = static_cast<OLECHAR>(c);
    else eachUnit(utf8, [&](OLECHAR unit) { *next++ = unit; });
    return text;
}

}  // namespace canvas::component
