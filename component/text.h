#pragma once
// Between the library's UTF-8 and the UTF-16 of interfaces. What is no character (half a surrogate pair, an invalid
// byte) becomes U+FFFD, one for each unit or byte.

#include <string>
#include <string_view>

#include "component/platform/automation.h"

namespace canvas::component {

std::string utf8Of(std::basic_string_view<OLECHAR> units);
/// Null is the empty text.
std::string utf8Of(BSTR text);
/// A text that ends at its first zero; null is the empty text.
std::string utf8OfName(const OLECHAR* text);

/// The caller frees it. Throws std::bad_alloc.
BSTR bstrOf(std::string_view utf8);

/// Frees a BSTR at the end of a scope.
class OwnedText {
public:
    explicit OwnedText(std::string_view utf8) : m_text(bstrOf(utf8)) {}
    ~OwnedText() { SysFreeString(m_text); }
    OwnedText(const OwnedText&) = delete;
    OwnedText& operator=(const OwnedText&) = delete;
    BSTR get() const noexcept { return m_text; }

private:
    BSTR m_text;
};

}  // namespace canvas::component
