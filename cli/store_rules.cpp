#include "cli/store_rules.h"

#include <algorithm>

#include "attributes/validation.h"
#include "host/numbers.h"
#include "host/ports.h"
#include "host/text.h"

namespace canvas::cli {
namespace {

constexpr std::string_view hexadecimalMark = " H";

/// Types that are sets of bits hold numbers; the codes above are told apart by comparison.
bool isNumber(brxDatatype type) { return type > brxBool && type <= brxReal; }

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string boundsText(const StoredProperty& property) {
    const auto shown = [&](double bound) { return shownText(property, numbers::textOf(bound)); };
    if (!property.most) return "at least " + shown(*property.least);
    if (!property.least) return "at most " + shown(*property.most);
    return "between " + shown(*property.least) + " and " + shown(*property.most);
}

std::optional<Fault> typeFault(const StoredProperty& property, std::string_view value) {
    if (property.type == brxBool) {
        if (numbers::isNumeric(value) || sameName(value, "True") || sameName(value, "False")) return std::nullopt;
        return Fault{rule::type, quoted(value) + " is neither True nor False"};
    }
    if (isNumber(property.type) && !property.expressions && !numbers::isNumeric(value))
        return Fault{rule::type, quoted(value) + " is no number"};
    std::string error;
    if (!validate(value, property.type, error)) return Fault{rule::type, quoted(value) + ": " + error};
    return std::nullopt;
}

std::optional<Fault> boundsFault(const StoredProperty& property, std::string_view value) {
    const auto number = numbers::parse(value);
    if (!number) return std::nullopt;  // an expression, or text
    if ((!property.least || *number >= *property.least) && (!property.most || *number <= *property.most))
        return std::nullopt;
    return Fault{rule::bounds, shownText(property, std::string(value)) + " is not " + boundsText(property)};
}

std::optional<Fault> listFault(const StoredProperty& property, std::string_view value) {
    const auto& choices = property.choices;
    if (choices.empty() || std::find(choices.begin(), choices.end(), value) != choices.end()) return std::nullopt;
    std::string reason = quoted(value) + " is none of ";
    for (const std::string& choice : choices) reason += (&choice == &choices.front() ? "" : ", ") + choice;
    return Fault{rule::list, reason};
}

}  // namespace

std::optional<Fault> faultOf(const StoredProperty& property, std::string_view stored) {
    if (auto fault = typeFault(property, stored)) return fault;
    if (auto fault = boundsFault(property, stored)) return fault;
    return listFault(property, stored);
}

std::optional<std::string> storedText(const StoredProperty& property, const std::string& shown) {
    if (!property.hexadecimal) return shown;
    std::string_view digits = shown;
    if (digits.ends_with(hexadecimalMark)) digits.remove_suffix(hexadecimalMark.size());
    const auto number = numbers::parse("&H" + std::string(digits));
    if (!number) return std::nullopt;
    // Four digits count as a signed word; the amplifier's parameters have no sign.
    return numbers::textOf(*number < 0 && digits.size() <= 4 ? *number + 0x10000 : *number);
}

std::string shownText(const StoredProperty& property, const std::string& stored) {
    const auto number = property.hexadecimal ? numbers::parse(stored) : std::nullopt;
    if (!number || *number < 0 || *number > 0x7FFFFFFF) return stored;
    std::string digits;
    for (auto rest = static_cast<std::uint32_t>(*number); rest > 0 || digits.empty(); rest /= 16)
        digits.insert(digits.begin(), "0123456789ABCDEF"[rest % 16]);
    return environment().utility->HexText(digits) + std::string(hexadecimalMark);
}

}  // namespace canvas::cli
