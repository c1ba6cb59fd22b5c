#include "attributes/validation.h"

#include "host/numbers.h"

namespace canvas {
namespace {

/// One range check: whole numbers refuse a decimal point even in "1.0", and single precision rounds the number
/// before it compares.
struct Range {
    double lowest;
    double highest;
    bool whole;
    bool single;
    std::string_view message;
};

constexpr double largestSingle = static_cast<double>(3.402823E+38F);
constexpr Range word{-32768, 32767, true, false, "Expecting an integer in the range of [-32768 To 32767]"};
constexpr Range real{-largestSingle, largestSingle, false, true,
                     "Expecting a real number in the range of [-3.402823E+38 To 3.402823E+38]"};
constexpr Range longWord{-2147483648.0, 2147483647, true, false,
                         "Expecting a number in the range of [-2147483648 To 2147483647]"};
constexpr std::string_view positiveWordMessage = "Expecting a postion integer in the range of [0 To 32767].";
constexpr std::string_view positiveRealMessage =
    "Expecting a positive real number in the range of [0.0 To 3.402823E+38].";
constexpr std::string_view positiveLongMessage = "Expecting a postion long in the range of [0 To 2147483647].";
constexpr std::string_view scaledWordMessage = "Expecting a positive real number in the range of [0.0 To 327.67].";
constexpr std::string_view scaledLongMessage =
    "Expecting a positive real number in the range of [0.0 To 21474836.47].";

bool inRange(std::string_view text, double number, const Range& range) {
    // rounding through float: beyond its range the conversion gives an infinity, which fails as it should
    if (range.single) number = static_cast<double>(static_cast<float>(number));
    if (!(number >= range.lowest && number <= range.highest)) return false;
    return !range.whole || text.find('.') == std::string_view::npos;
}

bool check(std::string_view text, const Range& range, std::string_view message, bool positive, std::string& strError) {
    const auto number = numbers::parse(text);
    if (!number) return true;
    if (inRange(text, *number, range) && (!positive || *number >= 0.0)) return true;
    strError = message;
    return false;
}

bool plain(std::string_view text, const Range& range, std::string& strError) {
    return check(text, range, range.message, false, strError);
}

bool scaled(std::string_view text, double highest, std::string_view message, std::string& strError) {
    const auto number = numbers::parse(text);
    if (!check(text, real, positiveRealMessage, true, strError) || !number) return true;
    if (*number <= highest) return true;
    strError = message;
    return false;
}

}  // namespace

bool validate(std::string_view text, brxDatatype type, std::string& strError) {
    switch (type) {
        case brxWord: return plain(text, word, strError);
        case brxScaledWord: return scaled(text, 327.67, scaledWordMessage, strError);
        case brxPositiveWord: return check(text, word, positiveWordMessage, true, strError);
        case brxLong: return plain(text, longWord, strError);
        case brxScaledLong: return scaled(text, 21474836.47, scaledLongMessage, strError);
        case brxPositiveLong: return check(text, longWord, positiveLongMessage, true, strError);
        case brxFloat: return plain(text, real, strError);
        case brxPositiveFloat: return check(text, real, positiveRealMessage, true, strError);
        default: return true;
    }
}

bool clsBVTDataValidation::IsInteger(std::string_view strData, std::string& strError) {
    return validate(strData, brxWord, strError);
}
bool clsBVTDataValidation::IsFloat(std::string_view strData, std::string& strError) {
    return validate(strData, brxFloat, strError);
}
bool clsBVTDataValidation::IsLong(std::string_view strData, std::string& strError) {
    return validate(strData, brxLong, strError);
}
bool clsBVTDataValidation::IsPositiveInteger(std::string_view strData, std::string& strError) {
    return validate(strData, brxPositiveWord, strError);
}
bool clsBVTDataValidation::IsPositiveFloat(std::string_view strData, std::string& strError) {
    return validate(strData, brxPositiveFloat, strError);
}
bool clsBVTDataValidation::IsPositiveLong(std::string_view strData, std::string& strError) {
    return validate(strData, brxPositiveLong, strError);
}
bool clsBVTDataValidation::IsScaledInteger(std::string_view strData, std::string& strError) {
    return validate(strData, brxScaledWord, strError);
}
bool clsBVTDataValidation::IsScaledLong(std::string_view strData, std::string& strError) {
    return validate(strData, brxScaledLong, strError);
}
bool clsBVTDataValidation::Validate(std::string_view strData, brxDatatype brxType, std::string& strError,
                                    Ref<Object>& NameList) {
    if (brxType == brxTableName) return IsTableName(NameList, strData, strError);
    return validate(strData, brxType, strError);
}
bool clsBVTDataValidation::IsTableName(Ref<Object>&, std::string_view, std::string&) { return true; }

std::span<const Member> clsBVTDataValidation::table() noexcept {
    using C = clsBVTDataValidation;
    static constexpr Member members[] = {
        method<&C::IsInteger>("IsInteger", 1),
        method<&C::IsFloat>("IsFloat", 1),
        method<&C::IsLong>("IsLong", 1),
        method<&C::IsPositiveInteger>("IsPositiveInteger"),
        method<&C::IsPositiveFloat>("IsPositiveFloat"),
        method<&C::IsPositiveLong>("IsPositiveLong"),
        method<&C::IsScaledInteger>("IsScaledInteger"),
        method<&C::IsScaledLong>("IsScaledLong"),
        method<&C::Validate>("Validate", 1),
        method<&C::IsTableName>("IsTableName"),
    };
    return members;
}

}  // namespace canvas
