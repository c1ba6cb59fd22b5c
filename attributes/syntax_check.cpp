// The program check: every value to the host's syntax checker, its findings as records that end in "@".

#include "attributes/attribute.h"
#include "host/checker.h"
#include "host/numbers.h"
#include "tracing/branch.h"

namespace canvas {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace {

/// A checker's Value that carries one of these is a message for the host; "ô" and "#" mark it.
bool carriesMessage(const Value& value) {
    if (value.is(Kind::null)) return false;
    const std::string text = value.toText();
    return text.find("ô") != std::string::npos || text.find('#') != std::string::npos;
}

}  // namespace

bool AttributeObject::PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
                                            std::string& strSyntaxMessage) {
    const AttributeClass& c = attributeClass();
    if (!c.panel) return false;
    std::int16_t i = 1;
    std::string value;
    bool good = true;
    std::string strError;
    std::string FormattedText;
    std::int32_t selStart = 0;
    std::int32_t selLength = 0;
    std::int32_t dataType = 0;
    bool isLValue = false;
    bool result = false;
    Value found;
    Procedure run(className(), "PropertiesSyntaxCheck", this, [&](Locals& l) {
        l("SyntaxValidation", SyntaxValidation);
        l("lngBlockID", lngBlockID);
        l("strSyntaxMessage", strSyntaxMessage);
        l("i", i);
        l("strError", strError);
        l("selStart", selStart);
        l("selLength", selLength);
        l("dataType", dataType);
        l("isLValue", isLValue);
        l("Value", found);
        l("FormattedText", FormattedText);
    });
    const auto place = [&] { return "(" + numbers::textOf(lngBlockID) + "," + numbers::textOf(std::int32_t{i}) + ")"; };
    const auto checkOne = [&] {
        return run(
            [&] {
                value = GetPropertyAt(i);
                good = SyntaxChecker(required(SyntaxValidation)).check(value, lngBlockID, i);
            },
            [&] {
                SyntaxChecker checker(required(SyntaxValidation));
                if (good) checker.result(dataType, isLValue, found, FormattedText);
                else checker.complaint(strError, selStart, selLength);
            },
            [&] {
                if (!good) {
                    strSyntaxMessage += "Error:  " + place() + " " + strError + "@";
                } else if (carriesMessage(found)) {
                    strSyntaxMessage += place() + " " + found.toText() + "@";
                } else if (const Field* expected = c.rowField(static_cast<std::int16_t>(i - 1))) {
                    FillMatrix();
                    strSyntaxMessage += place() + "ƒ" + numbers::textOf(static_cast<std::int32_t>(expected->type)) + "ƒ" +
                                        numbers::textOf(dataType) + "@";
                }
            });
    };
    run([&] {
        for (i = 1; i <= c.properties; ++i) {
            const Field* field = c.positionField(i);
            if (!field || !field->programChecked) continue;
            if (checkOne() == Flow::leave) return Flow::leave;
        }
        result = true;
        return Flow::next;
    });
    return result;
}

}  // namespace canvas
