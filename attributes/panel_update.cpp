// The two ways of editing: one cell, and the whole panel.

#include "attributes/attribute.h"
#include "attributes/validation.h"

namespace canvas {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

bool AttributeObject::UpdateElementInMatrix(bool bGeneralTab, std::int16_t iCurrentIndex, std::string_view strNewData,
                                            std::string& strError, Ref<Object>& SyntaxValidation,
                                            std::int32_t& selStart, std::int32_t& selLength, std::int32_t& dataType,
                                            bool& isLValue, Value& Value_, std::string& FormattedText) {
    if (!attributeClass().panel) return false;
    CellEdit edit{{strError, SyntaxValidation, selStart, selLength, dataType, isLValue, Value_, FormattedText},
                  bGeneralTab,
                  iCurrentIndex,
                  strNewData};
    return updateCell(edit);
}

bool AttributeObject::UpdateMatrix(bool bGeneralTab, std::int16_t iCurrentIndex, Ref<Object>& colGenContent,
                                   Ref<Object>& colAdvContent, std::string& strError, std::int16_t& iIndex,
                                   Ref<Object>& SyntaxValidation, std::int32_t& selStart, std::int32_t& selLength,
                                   std::int32_t& dataType, bool& isLValue, Value& Value_, std::string& FormattedText) {
    if (!attributeClass().panel || !attributeClass().wholePanel) return false;
    PanelEdit edit{{strError, SyntaxValidation, selStart, selLength, dataType, isLValue, Value_, FormattedText},
                   bGeneralTab,
                   iCurrentIndex,
                   colGenContent,
                   colAdvContent,
                   iIndex};
    return updatePanel(edit);
}

void AttributeObject::storeCell(std::int16_t row, std::string_view text) {
    const Field* field = attributeClass().rowField(row);
    if (!field) return;
    if (field->shown) field->at.flag(*this) = text == field->shown->items[0];
    else field->at.assign(*this, Value(text));
}

/// The panel shows a flag as its text, so only that text is true here.
void AttributeObject::storePanel(std::int16_t row, std::string_view text) {
    const Field& field = *attributeClass().rowField(row);
    if (field.at.isFlag()) field.at.flag(*this) = text == (field.shown ? *field.shown : choice).items[0];
    else field.at.assign(*this, Value(text));
}

bool AttributeObject::updateCell(CellEdit& edit) {
    bool result = true;
    const std::int16_t row = edit.iCurrentIndex;
    if (row < 0) return result;

    const AttributeClass& c = attributeClass();
    const Field* field = c.rowField(row);
    const bool advanced = !edit.bGeneralTab && advancedRows() > 0;
    const bool checked = advanced || (field ? field->cellChecked : !c.exempts(row));
    bool good = true;
    std::string text(edit.strNewData);
    adjustCell(row, text);
    Procedure run(className(), "UpdateElementInMatrix", this, [&](Locals& l) { edit.report(l); });
    run(
        [&] {
            if (!checked) edit.FormattedText = text;
            if (!checked || advanced || validate(text, rowType(row), edit.strError)) return Flow::next;
            edit.mark(edit.strNewData);
            result = false;
            return Flow::leave;
        },
        [&] {
            if (checked) good = edit.isExpression(text);
        },
        [&] {
            if (!checked) return;
            if (good) edit.takeResult();
            else edit.takeComplaint();
        },
        [&] {
            if (!good) {  // text with a fault of syntax is kept, so that the user can go on with it
                edit.FormattedText = text;
                result = false;
            }
            if (field && field->storesTyped) edit.FormattedText = text;
            if (advanced || row != limitedRow()) return Flow::next;
            const auto message = refusal(edit.FormattedText);
            if (message.empty()) return Flow::next;
            edit.strError = message;
            edit.mark(edit.FormattedText);
            result = false;
            return Flow::leave;
        },
        [&] {
            if (advanced) storeAdvancedCell(row, edit.FormattedText);
            else storeCell(row, edit.FormattedText);
        });
    return result;
}

bool AttributeObject::updatePanel(PanelEdit& edit) {
    if (edit.iCurrentIndex < 0) return true;

    bool result = false;
    bool good = true;
    std::int16_t row = 0;
    std::string text;
    const bool advanced = !edit.bGeneralTab && advancedRows() > 0;
    Procedure run(className(), "UpdateMatrix", this, [&](Locals& l) {
        edit.report(l);
        l("row", row);
    });
    const auto checkLimit = [&] {
        const std::string value = edit.general(limitedRow());
        const auto message = refusal(value);
        if (message.empty()) return Flow::next;
        edit.iIndex = static_cast<std::int16_t>(limitedRow() + 1);
        edit.strError = message;
        edit.mark(value);
        return Flow::leave;
    };
    run([&] { text = advanced ? edit.advanced(edit.iCurrentIndex) : edit.general(edit.iCurrentIndex); },
        [&] {
            if (advanced || validate(text, rowType(edit.iCurrentIndex), edit.strError)) return Flow::next;
            edit.mark(text);
            return Flow::leave;
        },
        [&] { good = edit.isExpression(text); },
        [&] {
            if (good) edit.takeResult();
            else edit.takeComplaint();
        },
        [&] {
            if (!good) return Flow::leave;
            return advanced || limitedRow() < 0 ? Flow::next : checkLimit();
        },
        [&] {
            const std::int16_t rows = advanced ? advancedRows() : attributeClass().rows;
            for (row = 0; row < rows; ++row) {
                const auto store = [&] {
                    if (advanced) storeAdvancedPanel(row, edit.advanced(row));
                    else storePanel(row, edit.general(row));
                };
                if (run(store) == Flow::leave) return Flow::leave;
            }
            result = true;
            return Flow::next;
        });
    return result;
}

}  // namespace canvas
