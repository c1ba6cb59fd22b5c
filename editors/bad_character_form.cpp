#include "editors/bad_character_form.h"

#include "host/ports.h"
#include "host/text.h"
#include "tracing/branch.h"

namespace canvas::editors {

std::span<const Member> BadCharacterForm::ownMembers() const {
    static constexpr Member members[] = {method<&BadCharacterForm::HandleBadCharacterError>("HandleBadCharacterError")};
    return members;
}

void BadCharacterForm::HandleBadCharacterError(std::string_view strBadChar, std::int16_t iIndex) {
    TextControl& field = the<TextControl>(m_field);
    const auto tellUser = [&] {
        tell("The character " + std::string(strBadChar) + " cannot be allowed!\rPlease modify entry!",
             Icon::exclamation);
    };
    const auto cut = [&] {
        if (iIndex < 1) raise(Error::invalidCall);
        field.setText(std::string(text::left(field.Text(), static_cast<std::size_t>(iIndex - 1))));
    };
    const auto toEnd = [&] { field.setSelStart(static_cast<std::int32_t>(text::length(field.Text()))); };
    tracing::Procedure run(className(), "HandleBadCharacterError", this, [&](tracing::Locals& l) {
        l("strBadChar", strBadChar);
        l("iIndex", iIndex);
    });
    run(tellUser, cut, toEnd);
}

}  // namespace canvas::editors
