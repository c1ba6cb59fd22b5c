#pragma once
// Numbers and their text. Nothing here depends on the process's locale.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace canvas::numbers {

/// The signs in numeric text; a host may set others for the process. The decimal sign is also the one that `textOf`
/// writes, so that the text of a number always reads back as that number.
struct Signs {
    char decimal = '.';
    char grouping = ',';
};
Signs signs() noexcept;
void setSigns(Signs signs) noexcept;

/// The one loose test of numeric text: blanks (U+0020 and U+0009 to U+000D) around it and after the sign, one leading
/// sign, digits with at most one decimal sign, single grouping signs between digits before it, an exponent with E or
/// D of any case. "&H" and "&O" whole numbers have no sign; up to 16 and up to 32 bits they are signed numbers of that
/// width ("&HFFFF" is -1), beyond that positive. Empty text is not numeric.
/// Gives the number, with an infinity where it is too large for IEEE 754 binary64 and 0 where it is too small, or
/// nothing.
std::optional<double> parse(std::string_view text);
inline bool isNumeric(std::string_view text) { return parse(text).has_value(); }

/// Conversions of text: error 13 when it is not numeric, 6 when it does not fit.
double toDouble(std::string_view text);
std::int16_t toInteger(std::string_view text);
std::int32_t toLong(std::string_view text);
/// "True" and "False" in any case, and every number (0 is false).
bool toBoolean(std::string_view text);

/// Half to even; error 6 when out of range or no number (NaN).
std::int16_t roundToInteger(double value);
std::int32_t roundToLong(double value);
float roundToSingle(double value);

/// At most 15 significant digits for a double and 7 for a single, without trailing zeros, in plain decimal while no
/// more than that many places are needed before or behind the decimal sign ("100000000000000", "0.00001"), else with
/// an exponent of at least two digits ("1E+15", "3.33333333333333E-02"). Infinities and NaN, which automation lets a
/// value hold, are "1.#INF", "-1.#INF" and "1.#QNAN".
std::string textOf(std::int32_t value);
std::string textOf(float value);
std::string textOf(double value);

/// Appends the decimal digits without a temporary.
void append(std::string& text, std::int32_t value);

}  // namespace canvas::numbers
