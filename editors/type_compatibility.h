#pragma once
// Which data type may be assigned to a variable of which, and what the types are called in messages. Codes are those of
// brxDatatype.

#include <cstdint>
#include <string_view>

#include "host/value.h"

namespace canvas::editors {

/// 0 the assignment is good, 1 it may lose data, 2 it is refused. Error 9 for a code outside 0 to 64. A pair that nothing
/// is known about is good.
std::int16_t datatypeCompatibility(std::int32_t target, std::int32_t source);

/// "an integer"; empty for a code that has no word of its own. Error 9 for a code outside 0 to 64.
std::string_view typeName(std::int32_t code);

/// "Cannot assign a float value to a bit variable."
std::string refusedAssignment(std::int32_t target, std::int32_t source);
/// "Assigning a long value to a float variable may result in loss of data."
std::string lossyAssignment(std::int32_t target, std::int32_t source);

/// The tables whole, for the variable report: 65 by 65 small integers (target first), 65 texts.
Value datatypeCompatibilityTable();
Value typeNamesTable();

}  // namespace canvas::editors
