#pragma once
// The host's syntax checker, called by name.

#include <cstdint>
#include <string>
#include <string_view>

#include "host/value.h"

namespace canvas {

/// What the checker found in a good text.
struct Checked {
    std::int32_t dataType = 0;  ///< a code of brxDatatype
    bool isLValue = false;      ///< can be assigned to
    Value value;
    std::string formatted;  ///< the text in the checker's normal form
};

/// What the checker has against a bad text.
struct Complaint {
    std::string text;
    std::int32_t selStart = 0;  ///< from 1, counted in UTF-16 units
    std::int32_t selLength = 0;
};

/// Speaks to a host's object for the time of a check; the object must outlive it. Every argument that the checker
/// may write goes by reference with its present value; what it leaves there comes back converted (error 13 when it
/// does not convert, 94 for a null). A member that the object lacks is error 438.
class SyntaxChecker {
public:
    explicit SyntaxChecker(Object& checker) noexcept : m_checker(checker) {}

    /// Whether the text is good: the checker's status is 0, as a number or as text; Empty counts as 0.
    bool check(std::string_view expression, std::int32_t blockId, std::int16_t index);

    /// About the last text that was good.
    void result(std::int32_t& dataType, bool& isLValue, Value& value, std::string& formatted);
    Checked result();

    /// About the last text that was bad.
    void complaint(std::string& text, std::int32_t& selStart, std::int32_t& selLength);
    Complaint complaint();

private:
    Object& m_checker;
};

}  // namespace canvas
