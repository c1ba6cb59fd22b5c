// The panel's protocol over the tables: the block matrix, its two ways of editing, and the program check.

#include "attributes/attribute.h"
#include "attributes/validation.h"
#include "host/checker.h"
#include "host/numbers.h"
#include "host/text.h"
#include "tracing/branch.h"

namespace canvas {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace {

std::string decimal(std::int32_t number) { return numbers::textOf(number); }

std::int32_t units(std::string_view text) { return static_cast<std::int32_t>(text::length(text)); }

/// Element `place` of a panel's collection, as text.
std::string element(const Ref<Object>& collection, std::int32_t place) {
    return invoke(required(collection), "Item", place).toText();
}

}  // namespace

std::int16_t AttributeObject::MatrixRow() {
    const AttributeClass& c = attributeClass();
    return c.panel ? static_cast<std::int16_t>(c.rows - 1) : std::int16_t{0};
}

std::int16_t AttributeObject::MatrixCol() {
    return attributeClass().panel ? static_cast<std::int16_t>(Column::type) : std::int16_t{0};
}

bool AttributeObject::FillMatrix() {
    const AttributeClass& c = attributeClass();
    if (!c.panel) return false;
    if (!m_shown) m_shown = std::make_unique<std::vector<std::string>>(static_cast<std::size_t>(c.rows));
    for (std::int16_t row = 0; row < c.rows; ++row)
        (*m_shown)[static_cast<std::size_t>(row)] = c.rowField(row)->at.asText(*this);
    return false;
}

std::string AttributeObject::cell(std::int16_t row, Column column) const {
    const Field& field = *attributeClass().rowField(row);
    switch (column) {
        case Column::label: return std::string(field.label);
        case Column::value: return (*m_shown)[static_cast<std::size_t>(row)];
        case Column::tip: return std::string(field.tip);
        case Column::access: return decimal(field.access);
        case Column::builder: return decimal(field.builder);
        case Column::display: return decimal(field.display);
        case Column::type: return decimal(field.type);
    }
    return {};
}

std::string AttributeObject::GetElementFromMatrix(std::int16_t row, std::int16_t Col) {
    std::string result;
    if (!attributeClass().panel) return result;
    Procedure run(className(), "GetElementFromMatrix", this, [&](Locals& l) {
        l("row", row);
        l("Col", Col);
    });
    run([&] {
        if (row > MatrixRow() || Col > MatrixCol()) return;
        if (row < 0 || Col < 0) raise(Error::subscript);
        if (m_shown) result = cell(row, static_cast<Column>(Col));
    });
    return result;
}

bool AttributeObject::GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) {
    const AttributeClass& c = attributeClass();
    const Field* field = c.rowField(iIndex);
    const List* list = field && field->list ? field->list : c.listElsewhere;
    if (!c.panel || !list) return false;
    Procedure run(className(), "GetComboItem", this, [&](Locals& l) {
        l("iIndex", iIndex);
        l("colItem", colItem);
    });
    run([&] {
        for (const std::string_view item : list->items)
            if (run([&] { invoke(required(colItem), "Add", item); }) == Flow::leave) return Flow::leave;
        return Flow::next;
    });
    return false;
}

std::int16_t AttributeObject::GetNumOfProperties() {
    return attributeClass().panel ? attributeClass().properties : std::int16_t{0};
}

std::string AttributeObject::GetPropertyAt(std::int16_t iIndex) {
    const Field* field = attributeClass().panel ? attributeClass().positionField(iIndex) : nullptr;
    return field ? field->at.asText(*this) : std::string();
}

brxDatatype AttributeObject::rowType(std::int16_t row) const {
    const Field* field = attributeClass().rowField(row);
    if (!field) raise(Error::subscript);
    return field->type;
}

void AttributeObject::storeCell(std::int16_t row, std::string_view text) {
    if (const Field* field = attributeClass().rowField(row)) field->at.assign(*this, Value(text));
}

/// The panel shows a flag as its text, so only "True" is true here.
void AttributeObject::storePanel(std::int16_t row, std::string_view text) {
    const Field& field = *attributeClass().rowField(row);
    field.at.assign(*this, field.at.isFlag() ? Value(text == "True") : Value(text));
}

bool AttributeObject::UpdateElementInMatrix(bool bGeneralTab, std::int16_t iCurrentIndex, std::string_view strNewData,
                                            std::string& strError, Ref<Object>& SyntaxValidation,
                                            std::int32_t& selStart, std::int32_t& selLength, std::int32_t& dataType,
                                            bool& isLValue, Value& Value_, std::string& FormattedText) {
    const AttributeClass& c = attributeClass();
    if (!c.panel) return false;
    bool result = true;
    if (iCurrentIndex < 0) return result;

    const Field* field = c.rowField(iCurrentIndex);
    const bool checked = field ? field->cellChecked : iCurrentIndex != c.exemptIndex;
    bool valid = true;
    bool good = true;
    std::string text(strNewData);
    adjustCell(iCurrentIndex, text);
    const auto mark = [&](std::string_view bad) {
        selStart = 1;
        selLength = units(bad);
        result = false;
    };
    Procedure run(className(), "UpdateElementInMatrix", this, [&](Locals& l) {
        l("bGeneralTab", bGeneralTab);
        l("iCurrentIndex", iCurrentIndex);
        l("strNewData", strNewData);
        l("strError", strError);
        l("SyntaxValidation", SyntaxValidation);
        l("selStart", selStart);
        l("selLength", selLength);
        l("dataType", dataType);
        l("isLValue", isLValue);
        l("Value", Value_);
        l("FormattedText", FormattedText);
    });
    run(
        [&] {
            if (!checked) {
                FormattedText = text;
                return;
            }
            valid = validate(text, rowType(iCurrentIndex), strError);
            if (!valid) mark(strNewData);
        },
        [&] {
            if (!valid) return Flow::leave;
            if (checked) good = SyntaxChecker(required(SyntaxValidation)).check(text, 1, 1);
            return Flow::next;
        },
        [&] {
            if (!checked) return;
            if (good) {
                SyntaxChecker(required(SyntaxValidation)).result(dataType, isLValue, Value_, FormattedText);
            } else {
                FormattedText = text;
                result = false;
                SyntaxChecker(required(SyntaxValidation)).complaint(strError, selStart, selLength);
            }
        },
        [&] {
            if (field && field->storesTyped) FormattedText = text;
            if (iCurrentIndex != limitedRow()) return Flow::next;
            const auto message = refusal(FormattedText);
            if (message.empty()) return Flow::next;
            strError = message;
            mark(FormattedText);
            return Flow::leave;
        },
        [&] { storeCell(iCurrentIndex, FormattedText); });
    return result;
}

bool AttributeObject::UpdateMatrix(bool bGeneralTab, std::int16_t iCurrentIndex, Ref<Object>& colGenContent,
                                   Ref<Object>& colAdvContent, std::string& strError, std::int16_t& iIndex,
                                   Ref<Object>& SyntaxValidation, std::int32_t& selStart, std::int32_t& selLength,
                                   std::int32_t& dataType, bool& isLValue, Value& Value_, std::string& FormattedText) {
    const AttributeClass& c = attributeClass();
    if (!c.panel || !c.wholePanel) return false;
    if (iCurrentIndex < 0) return true;

    bool result = false;
    bool valid = true;
    bool good = true;
    std::string text;
    std::int16_t row = 0;
    Procedure run(className(), "UpdateMatrix", this, [&](Locals& l) {
        l("bGeneralTab", bGeneralTab);
        l("iCurrentIndex", iCurrentIndex);
        l("colGenContent", colGenContent);
        l("colAdvContent", colAdvContent);
        l("strError", strError);
        l("iIndex", iIndex);
        l("SyntaxValidation", SyntaxValidation);
        l("selStart", selStart);
        l("selLength", selLength);
        l("dataType", dataType);
        l("isLValue", isLValue);
        l("Value", Value_);
        l("FormattedText", FormattedText);
    });
    const auto checkLimit = [&] {
        const std::string value = element(colGenContent, limitedRow() + 2);
        const auto message = refusal(value);
        if (message.empty()) return Flow::next;
        iIndex = static_cast<std::int16_t>(limitedRow() + 1);
        selStart = 1;
        selLength = units(value);
        strError = message;
        return Flow::leave;
    };
    run([&] { text = element(colGenContent, iCurrentIndex + 2); },
        [&] {
            valid = validate(text, rowType(iCurrentIndex), strError);
            if (valid) return Flow::next;
            selStart = 1;
            selLength = units(text);
            return Flow::leave;
        },
        [&] { good = SyntaxChecker(required(SyntaxValidation)).check(text, 1, 1); },
        [&] {
            SyntaxChecker checker(required(SyntaxValidation));
            if (good) checker.result(dataType, isLValue, Value_, FormattedText);
            else checker.complaint(strError, selStart, selLength);
            return good ? Flow::next : Flow::leave;
        },
        [&] { return limitedRow() < 0 ? Flow::next : checkLimit(); },
        [&] {
            for (row = 0; row < c.rows; ++row)
                if (run([&] { storePanel(row, element(colGenContent, row + 2)); }) == Flow::leave) return Flow::leave;
            result = true;
            return Flow::next;
        });
    return result;
}

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
    const auto place = [&] { return "(" + decimal(lngBlockID) + "," + decimal(i) + ")"; };
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
                } else {
                    FillMatrix();
                    strSyntaxMessage += place() + "ƒ" + decimal(rowType(static_cast<std::int16_t>(i - 1))) + "ƒ" +
                                        decimal(dataType) + "@";
                }
            });
    };
    run([&] {
        for (i = 1; i <= c.properties; ++i) {
            const Field* field = c.positionField(i);
            if (field && !field->programChecked) continue;
            if (checkOne() == Flow::leave) return Flow::leave;
        }
        result = true;
        return Flow::next;
    });
    return result;
}

}  // namespace canvas
