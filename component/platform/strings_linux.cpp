// Text as the component's callers own it.

#include <cstdlib>
#include <string>

#include "component/platform/automation.h"

namespace {

/// The count of bytes, behind four bytes that keep text on an 8-byte boundary.
struct Prefix {
    std::uint32_t padding;
    std::uint32_t bytes;
};

constexpr UINT mostUnits = 0x7FFFFFF0 / sizeof(OLECHAR);

Prefix* prefixOf(BSTR text) noexcept { return reinterpret_cast<Prefix*>(text) - 1; }

}  // namespace

BSTR SysAllocStringLen(const OLECHAR* text, UINT units) {
    if (units > mostUnits) return nullptr;
    const std::size_t bytes = units * sizeof(OLECHAR);
    auto* prefix = static_cast<Prefix*>(std::malloc(sizeof(Prefix) + bytes + sizeof(OLECHAR)));
    if (!prefix) return nullptr;
    *prefix = {0, static_cast<std::uint32_t>(bytes)};
    auto* result = reinterpret_cast<BSTR>(prefix + 1);
    if (text && bytes) std::memcpy(result, text, bytes);
    else std::memset(result, 0, bytes);
    result[units] = 0;
    return result;
}

BSTR SysAllocString(const OLECHAR* text) {
    if (!text) return nullptr;
    return SysAllocStringLen(text, static_cast<UINT>(std::char_traits<OLECHAR>::length(text)));
}

void SysFreeString(BSTR text) {
    if (text) std::free(prefixOf(text));
}

UINT SysStringLen(BSTR text) { return text ? prefixOf(text)->bytes / static_cast<UINT>(sizeof(OLECHAR)) : 0; }
