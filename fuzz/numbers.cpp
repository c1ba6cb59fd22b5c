// The text of a number reads back as that number, whatever the signs in force; conversions fail with run-time errors
// alone. The input's first byte chooses the signs, the rest is a text and, where it is long enough, the bits of numbers.

#include "host/numbers.h"

#include <cmath>
#include <cstring>
#include <optional>

#include "fuzz/fuzzing.h"

namespace canvas::fuzz {
namespace {

constexpr numbers::Signs signs[]{{'.', ','}, {',', '.'}, {',', ' '}, {'.', '\''}};

/// Nothing when the conversion fails.
template <class Call>
auto result(Call call) -> std::optional<decltype(call())> {
    try {
        return call();
    } catch (const RuntimeError&) {
        return {};
    }
}

void checkText(std::string_view text) {
    const std::optional<double> value = numbers::parse(text);
    require(!value || !std::isnan(*value), "text is never NaN");
    require(numbers::parse(" \t" + std::string(text) + "\r\n") == value, "blanks around do not count");
    const auto asDouble = result([&] { return numbers::toDouble(text); });
    const auto asLong = result([&] { return numbers::toLong(text); });
    const auto asInteger = result([&] { return numbers::toInteger(text); });
    result([&] { return numbers::toBoolean(text); });
    require(asDouble.has_value() == (value && std::isfinite(*value)), "finite numbers convert, and nothing else");
    require(!asLong || std::fabs(*asLong - *asDouble) <= 0.5, "a whole number is the nearest one");
    require(!asInteger || asInteger == asLong, "both widths agree");
}

void checkDouble(double value) {
    const std::string text = numbers::textOf(value);
    if (!std::isfinite(value)) return require(!numbers::isNumeric(text), "an infinity's text is not numeric");
    const std::optional<double> back = numbers::parse(text);
    require(back.has_value(), "a number's text is numeric");
    // the fifteen digits of the largest numbers may round beyond them
    if (!std::isfinite(*back)) return require(std::fabs(value) > 1.79769313486231e308, "the text is no larger");
    require(std::fabs(*back - value) <= 6e-15 * std::fabs(value) + 5e-324, "fifteen digits are kept");
    if (std::fabs(value) >= 1e-300) require(numbers::textOf(*back) == text, "the text is the same again");
}

void checkSingle(float value) {
    if (!std::isfinite(value)) return;
    const std::optional<double> back = numbers::parse(numbers::textOf(value));
    require(back && std::fabs(*back - static_cast<double>(value)) <= 6e-7 * std::fabs(static_cast<double>(value)),
            "seven digits are kept");
}

void checkLong(std::int32_t value) {
    require(numbers::toLong(numbers::textOf(value)) == value, "a whole number comes back");
    require(numbers::textOf(static_cast<double>(value)) == numbers::textOf(value), "a double prints it as well");
}

template <class Number, class Check>
void checkBits(std::string_view bytes, Check check) {
    Number number;
    if (bytes.size() < sizeof number) return;
    std::memcpy(&number, bytes.data(), sizeof number);
    check(number);
}

}  // namespace
}  // namespace canvas::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace canvas::fuzz;
    if (size == 0 || size > longestInput) return 0;
    canvas::numbers::setSigns(signs[data[0] % std::size(signs)]);
    const std::string_view rest = textOf(data + 1, size - 1);
    checkText(rest);
    checkBits<double>(rest, checkDouble);
    checkBits<float>(rest, checkSingle);
    checkBits<std::int32_t>(rest, checkLong);
    return 0;
}
