#pragma once
// A form that can be told of a character that one of its fields must not hold.

#include "editors/attribute_form.h"

namespace canvas::editors {

class BadCharacterForm : public AttributeForm {
public:
    BadCharacterForm(const Spec& spec, std::string_view field) : AttributeForm(spec), m_field(field) {}
    std::span<const Member> ownMembers() const override;

    /// Tells the user, and cuts the field before the place `iIndex`, counted from 1 in UTF-16 units; error 5 below 1.
    /// For callers that find such a character: the form itself never calls it.
    void HandleBadCharacterError(std::string_view strBadChar, std::int16_t iIndex);

private:
    std::string_view m_field;
};

}  // namespace canvas::editors
