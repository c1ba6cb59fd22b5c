// What the two list blocks share.

#include "attributes/lists.h"

#include "host/checker.h"
#include "host/numbers.h"
#include "host/text.h"
#include "tracing/branch.h"

namespace canvas {

std::vector<std::string> parseList(std::string_view list) {
    const auto parts = text::split(list, ";");
    return {parts.begin(), parts.end()};
}

std::size_t entryCount(const std::vector<std::string>& parts) noexcept { return parts.empty() ? 0 : parts.size() - 1; }

bool ListCheck::CheckSyntax(const Object& block, const Ref<Object>& SyntaxValidation, std::string_view strExpression,
                            std::int32_t lngBlockID, std::int32_t lngPropertyID) {
    bool result = false;
    bool good = false;
    Value value;
    std::string strError;
    tracing::Procedure run(block.className(), "CheckSyntax", &block, [&](tracing::Locals& l) {
        l("SyntaxValidation", SyntaxValidation);
        l("strExpression", strExpression);
        l("lngBlockID", lngBlockID);
        l("lngPropertyID", lngPropertyID);
        l("Value", value);
        l("strError", strError);
    });
    const std::string place =
        "(" + numbers::textOf(lngBlockID) + "," + numbers::textOf(lngPropertyID + 1) + ") ";
    run(
        [&] {
            good = SyntaxChecker(required(SyntaxValidation))
                       .check(strExpression, lngBlockID, Value(lngPropertyID).toInteger());
        },
        [&] {
            SyntaxChecker checker(required(SyntaxValidation));
            std::string formatted;
            std::int32_t selStart = 0;
            std::int32_t selLength = 0;
            if (good) checker.result(dataType, isLValue, value, formatted);
            else checker.complaint(strError, selStart, selLength);
        },
        [&] {
            if (!good) messages += "Error:  " + place + strError + "@";
            else if (!value.is(Kind::null) && value.toText().find("ô") != std::string::npos)
                messages += place + value.toText() + "@";
            result = good;
        });
    return result;
}

}  // namespace canvas
