// What the two list blocks share.

#include "attributes/lists.h"

#include "host/checker.h"
#include "host/numbers.h"
#include "host/text.h"

namespace canvas {

std::vector<std::string> parseList(std::string_view list) {
    const auto parts = text::split(list, ";");
    return {parts.begin(), parts.end()};
}

std::size_t entryCount(const std::vector<std::string>& parts) noexcept { return parts.empty() ? 0 : parts.size() - 1; }

bool ListCheck::CheckSyntax(const Ref<Object>& SyntaxValidation, std::string_view strExpression,
                            std::int32_t lngBlockID, std::int16_t lngPropertyID) {
    SyntaxChecker checker(required(SyntaxValidation));
    const std::string place =
        "(" + numbers::textOf(lngBlockID) + "," + numbers::textOf(std::int32_t{lngPropertyID} + 1) + ") ";
    if (checker.check(strExpression, lngBlockID, lngPropertyID)) {
        Value value;
        std::string formatted;
        checker.result(dataType, isLValue, value, formatted);
        if (!value.is(Kind::null) && value.toText().find("ô") != std::string::npos)
            messages += place + value.toText() + "@";
        return true;
    }
    std::string strError;
    std::int32_t selStart = 0;
    std::int32_t selLength = 0;
    checker.complaint(strError, selStart, selLength);
    messages += "Error:  " + place + strError + "@";
    return false;
}

}  // namespace canvas
