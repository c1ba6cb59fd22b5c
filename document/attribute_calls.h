#pragma once
// What blocks and canvas ask of an attribute object. This library's own go the short way; any other is asked by name.

#include "attributes/attribute.h"
#include "host/convert.h"

namespace canvas::attribute_calls {

inline Ref<Object> copy(const Ref<Object>& attribute) {
    if (auto* own = faceOf<AttributeObject>(required(attribute))) return own->IsTheSame();
    return invoke(*attribute, "IsTheSame").toObject();
}

/// Extends the line that begins at `lineStart` of a buffer.
inline void output(const Ref<Object>& attribute, std::string& buffer, std::size_t lineStart) {
    if (auto* own = faceOf<AttributeObject>(required(attribute))) return own->appendTo(buffer);
    const std::string line = invoke(*attribute, "OutputToFile", std::string_view(buffer).substr(lineStart)).toText();
    buffer.replace(lineStart, std::string::npos, line);
}

inline void assign(const Ref<Object>& attribute, std::int16_t number, std::string_view value) {
    if (auto* own = faceOf<AttributeObject>(required(attribute))) return own->AssignFromFile(number, value);
    invoke(*attribute, "AssignFromFile", number, value);
}

}  // namespace canvas::attribute_calls
