#include "host/numbers.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <limits>

#include "host/errors.h"
#include "host/object.h"

namespace canvas::numbers {
namespace {

std::atomic<Signs> signsInForce{Signs{}};

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

std::string_view withoutBlanks(std::string_view text) noexcept {
    constexpr std::string_view blanks = " \t\n\v\f\r";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

int digitOf(char c) noexcept {
    if (isDigit(c)) return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return 99;
}

/// What follows "&". As in automation the bits are those of the narrowest signed kind that holds them, so that
/// "&HFFFF" is -1 and "&H10000" is 65536; more than 32 bits are a positive number.
std::optional<double> basedNumber(std::string_view text) noexcept {
    if (text.size() < 2) return {};
    const char letter = text[0];
    const int base = letter == 'H' || letter == 'h' ? 16 : letter == 'O' || letter == 'o' ? 8 : 0;
    double value = 0;
    for (const char c : text.substr(1)) {
        if (digitOf(c) >= base) return {};
        value = value * base + digitOf(c);
    }
    if (value <= 0xFFFF) return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
    if (value <= 0xFFFFFFFF) return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
    return value;
}

/// A few digits and nothing else, which most numbers are.
std::optional<double> shortWholeNumber(std::string_view text) noexcept {
    if (text.empty() || text.size() > 15) return {};
    std::int64_t value = 0;
    for (const char c : text) {
        if (!isDigit(c)) return {};
        value = value * 10 + (c - '0');
    }
    return static_cast<double>(value);
}

bool isBetweenDigits(std::string_view text, std::size_t i) noexcept {
    return i > 0 && isDigit(text[i - 1]) && i + 1 < text.size() && isDigit(text[i + 1]);
}

/// Moves digits from the front of `text` to `plain`, dropping single grouping signs between two of them.
void takeDigits(std::string_view& text, std::string& plain, std::optional<char> grouping) {
    std::size_t i = 0;
    for (; i < text.size(); ++i) {
        if (isDigit(text[i])) plain += text[i];
        else if (text[i] != grouping || !isBetweenDigits(text, i)) break;
    }
    text.remove_prefix(i);
}

/// The exponent with its letter, or nothing at all; false when a letter stands there without digits.
bool takeExponent(std::string_view& text, std::string& plain) {
    if (text.empty()) return true;
    if (std::string_view("EeDd").find(text[0]) == std::string_view::npos) return false;
    plain += 'e';
    text.remove_prefix(1);
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
        plain += text[0];
        text.remove_prefix(1);
    }
    if (text.empty() || !isDigit(text[0])) return false;
    takeDigits(text, plain, {});
    return true;
}

/// Whether a number that is out of range is so at the large end.
bool isHuge(std::string_view plain) noexcept {
    const std::size_t e = plain.find('e');
    const std::string_view mantissa = plain.substr(0, e);
    std::int32_t exponent = 0;
    if (e != std::string_view::npos) {
        const std::string_view digits = plain.substr(plain[e + 1] == '+' ? e + 2 : e + 1);
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        if (read.ec == std::errc::result_out_of_range) return digits[0] != '-';
    }
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto firstDigit = static_cast<std::int64_t>(mantissa.find_first_not_of("0."));
    return point - firstDigit + exponent > 0;
}

std::optional<double> decimalNumber(std::string_view text) {
    const Signs sign = signs();
    std::string plain;
    takeDigits(text, plain, sign.grouping);
    std::size_t digits = plain.size();
    if (!text.empty() && text[0] == sign.decimal) {
        text.remove_prefix(1);
        plain += '.';
        takeDigits(text, plain, {});
        digits = plain.size() - 1;
    }
    if (digits == 0 || !takeExponent(text, plain) || !text.empty()) return {};
    double value = 0;
    const auto read = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (read.ec != std::errc::result_out_of_range) return value;
    return isHuge(plain) ? std::numeric_limits<double>::infinity() : 0;
}

double numberOf(std::string_view text) {
    const std::optional<double> value = parse(text);
    if (!value) raise(Error::typeMismatch);
    return *value;
}

double roundHalfToEven(double value) noexcept {
    const double below = std::floor(value);
    const double rest = value - below;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0);
    return up ? below + 1 : below;
}

template <class Whole>
Whole rounded(double value) {
    using Limits = std::numeric_limits<Whole>;
    const double whole = roundHalfToEven(value);
    // The comparisons are also false for NaN.
    if (!(whole >= Limits::min() && whole <= Limits::max())) raise(Error::overflow);
    return static_cast<Whole>(whole);
}

/// A positive number as its significant digits, without trailing zeros, and the power of ten of the first one.
struct Digits {
    std::string text;
    int exponent = 0;
};

Digits digitsOf(double value, int most) {
    char buffer[40];
    const auto written = std::to_chars(buffer, std::end(buffer), value, std::chars_format::scientific, most - 1);
    const std::string_view all(buffer, static_cast<std::size_t>(written.ptr - buffer));
    const std::size_t e = all.find('e');
    Digits digits{std::string(1, all[0]), 0};
    if (e > 2) digits.text += all.substr(2, e - 2);
    digits.text.erase(digits.text.find_last_not_of('0') + 1);
    const std::size_t exponent = all[e + 1] == '+' ? e + 2 : e + 1;
    std::from_chars(all.data() + exponent, all.data() + all.size(), digits.exponent);
    return digits;
}

std::string withExponent(const Digits& digits, char decimal) {
    std::string text(1, digits.text[0]);
    if (digits.text.size() > 1) text.append(1, decimal).append(digits.text, 1);
    text += digits.exponent < 0 ? "E-" : "E+";
    const int exponent = std::abs(digits.exponent);
    if (exponent < 10) text += '0';
    append(text, exponent);
    return text;
}

std::string withoutExponent(const Digits& digits, char decimal) {
    if (digits.exponent < 0) {
        const auto zeros = static_cast<std::size_t>(-digits.exponent - 1);
        return std::string("0").append(1, decimal).append(zeros, '0').append(digits.text);
    }
    const auto whole = static_cast<std::size_t>(digits.exponent) + 1;
    if (digits.text.size() <= whole) return digits.text + std::string(whole - digits.text.size(), '0');
    return digits.text.substr(0, whole).append(1, decimal).append(digits.text, whole);
}

std::string textWith(double value, int most) {
    if (std::isnan(value)) return "1.#QNAN";
    if (std::isinf(value)) return value < 0 ? "-1.#INF" : "1.#INF";
    if (value == 0) return "0";
    if (std::fabs(value) < 1e6 && value == std::trunc(value)) return textOf(static_cast<std::int32_t>(value));
    const Digits digits = digitsOf(std::fabs(value), most);
    const int places = static_cast<int>(digits.text.size()) - 1 - digits.exponent;
    const char decimal = signs().decimal;
    const bool plain = digits.exponent < most && places <= most;
    std::string text = plain ? withoutExponent(digits, decimal) : withExponent(digits, decimal);
    return value < 0 ? "-" + text : text;
}

}  // namespace

Signs signs() noexcept { return signsInForce.load(std::memory_order_relaxed); }

void setSigns(Signs signs) noexcept { signsInForce.store(signs, std::memory_order_relaxed); }

std::optional<double> parse(std::string_view text) {
    text = withoutBlanks(text);
    if (text.empty()) return {};
    if (text[0] == '&') return basedNumber(text.substr(1));
    const bool negative = text[0] == '-';
    if (negative || text[0] == '+') text = withoutBlanks(text.substr(1));
    std::optional<double> value = shortWholeNumber(text);
    if (!value) value = decimalNumber(text);
    if (value && negative) value = -*value;
    return value;
}

double toDouble(std::string_view text) {
    const double value = numberOf(text);
    if (std::isinf(value)) raise(Error::overflow);
    return value;
}

std::int16_t toInteger(std::string_view text) { return roundToInteger(numberOf(text)); }

std::int32_t toLong(std::string_view text) { return roundToLong(numberOf(text)); }

bool toBoolean(std::string_view text) {
    if (sameName(text, "True")) return true;
    if (sameName(text, "False")) return false;
    return numberOf(text) != 0;
}

std::int16_t roundToInteger(double value) { return rounded<std::int16_t>(value); }

std::int32_t roundToLong(double value) { return rounded<std::int32_t>(value); }

float roundToSingle(double value) {
    // Halfway between the largest single and the next power of two: from here on rounding leaves the range.
    constexpr double limit = 0x1.ffffffp127;
    if (!(std::fabs(value) < limit)) raise(Error::overflow);
    return static_cast<float>(value);
}

std::string textOf(std::int32_t value) {
    std::string text;
    append(text, value);
    return text;
}

std::string textOf(float value) { return textWith(static_cast<double>(value), 7); }

std::string textOf(double value) { return textWith(value, 15); }

void append(std::string& text, std::int32_t value) {
    char buffer[11];
    const auto written = std::to_chars(buffer, std::end(buffer), value);
    text.append(buffer, static_cast<std::size_t>(written.ptr - buffer));
}

}  // namespace canvas::numbers
