// The text field: what keys do to it.

#include "editors/form.h"
#include "host/text.h"
#include "host/utf8.h"

namespace canvas::editors {
namespace {

std::size_t bytesOf(std::string_view text, std::int32_t units) {
    return text::left(text, static_cast<std::size_t>(units)).size();
}
std::int32_t unitsOf(std::string_view text) { return static_cast<std::int32_t>(text::length(text)); }

/// The next whole character; an invalid byte stands alone.
std::string_view firstKey(std::string_view keys) {
    return keys.substr(0, std::max<std::size_t>(1, utf8::first(keys).size));
}

}  // namespace

std::span<const Member> TextControl::table() noexcept {
    using C = TextControl;
    static constexpr auto members = joined(
        commonMembers<C>(), std::array{byDefault(property<&C::Text, &C::setText>("Text")),
                                       property<&C::SelStart, &C::setSelStart>("SelStart"),
                                       property<&C::SelLength, &C::setSelLength>("SelLength"), method<&C::Type>("Type"),
                                       method<&C::DblClick>("DblClick"), method<&C::Leave>("Leave")});
    return members;
}

void TextControl::setText(std::string_view text) {
    const bool differs = m_text != text;
    m_text = text;
    m_start = m_length = 0;
    touched();
    if (differs) raise(Event::change);
}

void TextControl::take(std::string_view text, std::int32_t start, std::int32_t length) {
    const bool differs = m_text != text;
    m_text = text;
    m_start = start, m_length = length;
    if (differs) raise(Event::change);
}

void TextControl::setSelStart(std::int32_t start) {
    if (start < 0) canvas::raise(Error::invalidCall);
    m_start = std::min(start, unitsOf(m_text));
    m_length = 0;
    touched();
}

void TextControl::setSelLength(std::int32_t length) {
    if (length < 0) canvas::raise(Error::invalidCall);
    m_length = std::min(length, unitsOf(m_text) - m_start);
    touched();
}

void TextControl::selectAll() {
    m_start = 0;
    m_length = unitsOf(m_text);
    touched();
}

void TextControl::replaceSelection(std::string_view text) {
    const std::size_t begin = bytesOf(m_text, m_start), end = bytesOf(m_text, m_start + m_length);
    m_text.replace(begin, end - begin, text);
    m_start += unitsOf(text);
    m_length = 0;
    touched();
    raise(Event::change);
}

bool TextControl::accepts(char32_t key) const noexcept {
    switch (row().keys) {
        case Keys::all: return true;
        case Keys::noQuote: return key != U'"';
        case Keys::noQuoteNorSemicolon: return key != U'"' && key != U';';
    }
    return true;
}

void TextControl::eraseBackwards() {
    if (m_length == 0) {
        if (m_start == 0) return;
        // a character outside the basic plane is two units and goes whole
        const std::string_view before(m_text.data(), bytesOf(m_text, m_start));
        std::size_t last = before.size() - 1;
        while (last > 0 && (static_cast<unsigned char>(before[last]) & 0xC0) == 0x80) --last;
        m_length = m_start - unitsOf(before.substr(0, last));
        m_start -= m_length;
    }
    replaceSelection({});
}

void TextControl::typeKey(std::string_view key) {
    const utf8::Decoded decoded = utf8::first(key);
    const char32_t code = decoded.size ? decoded.character : static_cast<unsigned char>(key.front());
    const bool enter = code == U'\r' || code == U'\n';
    if (!(enter && row().multiline) && form()->keyPressed(enter ? U'\r' : code)) return;
    if (row().readOnly || !Enabled()) return;
    if (code == U'\b') return eraseBackwards();
    if (enter) {
        if (row().multiline) replaceSelection("\r\n");
        return;
    }
    if (accepts(code)) replaceSelection(key);
}

void TextControl::Type(std::string_view keys) {
    const Ref<Form> keep(form());
    if (!keep || !canTakeFocus() || !keep->focus(this)) return;
    while (!keys.empty() && HasFocus() && form()) {
        const std::string_view key = firstKey(keys);
        keys.remove_prefix(key.size());
        if (key == "\t") return keep->focusNext();
        typeKey(key);
    }
}

void TextControl::DblClick() {
    const Ref<Form> keep(form());
    if (keep && canTakeFocus() && keep->focus(this)) raise(Event::doubleClick);
}

void TextControl::Leave() {
    const Ref<Form> keep(form());
    if (keep && canTakeFocus() && keep->focus(this)) keep->focusNext();
}

}  // namespace canvas::editors
