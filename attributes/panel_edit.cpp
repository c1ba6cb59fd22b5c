#include "attributes/panel_edit.h"

#include "host/convert.h"
#include "host/text.h"

namespace canvas {

void TextCheck::mark(std::string_view bad) const {
    selStart = 1;
    selLength = static_cast<std::int32_t>(text::length(bad));
}

bool TextCheck::isExpression(std::string_view text) const {
    return SyntaxChecker(required(SyntaxValidation)).check(text, 1, 1);
}

void TextCheck::takeResult() const {
    SyntaxChecker(required(SyntaxValidation)).result(dataType, isLValue, Value_, FormattedText);
}

void TextCheck::takeComplaint() const {
    SyntaxChecker(required(SyntaxValidation)).complaint(strError, selStart, selLength);
}

void TextCheck::report(tracing::Locals& l) const {
    l("strError", strError);
    l("SyntaxValidation", SyntaxValidation);
    l("selStart", selStart);
    l("selLength", selLength);
    l("dataType", dataType);
    l("isLValue", isLValue);
    l("Value", Value_);
    l("FormattedText", FormattedText);
}

void CellEdit::report(tracing::Locals& l) const {
    l("bGeneralTab", bGeneralTab);
    l("iCurrentIndex", iCurrentIndex);
    l("strNewData", strNewData);
    TextCheck::report(l);
}

void PanelEdit::report(tracing::Locals& l) const {
    l("bGeneralTab", bGeneralTab);
    l("iCurrentIndex", iCurrentIndex);
    l("colGenContent", colGenContent);
    l("colAdvContent", colAdvContent);
    l("iIndex", iIndex);
    TextCheck::report(l);
}

std::string PanelEdit::element(const Ref<Object>& collection, std::int16_t row) {
    return invoke(required(collection), "Item", std::int32_t{row} + 2).toText();
}

}  // namespace canvas
