#include "editors/two_decimals.h"

#include <charconv>
#include <cmath>

#include "host/numbers.h"

namespace canvas::editors {
namespace {

/// Plain decimal digits of a number, with three of them behind the point, cut and not rounded.
struct Digits {
    std::string whole;
    std::string behind;
};

/// By the fifteen digits that a number shows, so that a tie is one of the text, not of the binary fraction.
Digits digitsOf(double value) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, 14).ptr;
    const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
    const std::size_t mark = text.find('e');
    std::string digits;
    digits += text[0];
    digits += text.substr(2, mark - 2);
    int exponent = 0;
    const bool negative = text[mark + 1] == '-';
    std::from_chars(text.data() + mark + 2, end, exponent);
    if (negative) digits.insert(0, static_cast<std::size_t>(exponent), '0'), exponent = 0;
    const std::size_t places = static_cast<std::size_t>(exponent) + 1;
    digits.resize(std::max(digits.size(), places + 3), '0');
    return {digits.substr(0, places), digits.substr(places, 3)};
}

/// One more in the last place; a carry out of the first makes the number longer.
void increase(std::string& digits) {
    std::size_t at = digits.size();
    while (at > 0 && digits[at - 1] == '9') digits[--at] = '0';
    if (at == 0) digits.insert(digits.begin(), '1');
    else ++digits[at - 1];
}

}  // namespace

std::string withTwoDecimals(std::string_view text) {
    const auto number = numbers::parse(text);
    if (!number || !std::isfinite(*number)) return std::string(text);
    const Digits cut = digitsOf(std::abs(*number));
    std::string digits = cut.whole + cut.behind.substr(0, 2);
    if (cut.behind[2] >= '5') increase(digits);
    const bool isZero = digits.find_first_not_of('0') == std::string::npos;
    std::string whole = digits.substr(0, digits.size() - 2);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    return (*number < 0 && !isZero ? "-" : "") + whole + numbers::signs().decimal + digits.substr(digits.size() - 2);
}

}  // namespace canvas::editors
