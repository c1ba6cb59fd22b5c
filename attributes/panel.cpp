// The panel's protocol over the tables: the block matrix, its lists and its values by position.

#include "attributes/attribute.h"
#include "host/numbers.h"
#include "tracing/branch.h"

namespace canvas {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace {

std::string decimal(std::int32_t number) { return numbers::textOf(number); }

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
    std::int16_t row = 0;
    Procedure run(className(), "FillMatrix", this, [&](Locals& l) { l("row", row); });
    run([&] {
        for (row = 0; row < c.rows; ++row)
            if (run([&] { showCell(row, rowText(row)); }) == Flow::leave) return Flow::leave;
        return Flow::next;
    });
    if (m_shown) m_shown->filled = true;
    return false;
}

void AttributeObject::showCell(std::int16_t row, std::string text) {
    if (!m_shown) m_shown.reset(new Shown{false, std::vector<std::string>(static_cast<std::size_t>(attributeClass().rows))});
    m_shown->texts.at(static_cast<std::size_t>(row)) = std::move(text);
}

std::string AttributeObject::rowText(std::int16_t row) const {
    const Field& field = *attributeClass().rowField(row);
    if (field.shown) return std::string(field.shown->items[field.at.flag(*this) ? 0 : 1]);
    return field.at.asText(*this);
}

/// Empty for every column until something is shown there.
std::string AttributeObject::cell(std::int16_t row, Column column) const {
    if (!m_shown || (column != Column::value && !m_shown->filled)) return {};
    const Field& field = *attributeClass().rowField(row);
    switch (column) {
        case Column::label: return std::string(field.label);
        case Column::value: return m_shown->texts[static_cast<std::size_t>(row)];
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
        result = cell(row, static_cast<Column>(Col));
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

}  // namespace canvas
