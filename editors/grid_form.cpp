#include "editors/grid_form.h"

#include "attributes/lists.h"
#include "host/checker.h"
#include "host/ports.h"
#include "host/text.h"
#include "tracing/branch.h"

namespace canvas::editors {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

void Finding::check(Ref<Object> checker, std::string_view text) {
    good = SyntaxChecker(required(checker)).check(text, 0, 0);
}

void Finding::take(Ref<Object> checker) {
    SyntaxChecker asked(required(checker));
    if (good) asked.result(dataType, isLValue, value, FormattedText);
    else asked.complaint(strError, selStart, selLength);
}

bool Finding::carriesMessage() const {
    return !value.is(Kind::null) && value.toText().find("ô") != std::string::npos;
}

void Finding::report(Locals& locals) const {
    locals("strError", strError);
    locals("selStart", selStart);
    locals("selLength", selLength);
    locals("dataType", dataType);
    locals("isLValue", isLValue);
    locals("Value", value);
    locals("FormattedText", FormattedText);
}

GridForm::GridForm(const Spec& spec, std::string_view gridName, std::int32_t leastRows)
    : AttributeForm(spec), m_grid(the<Grid>(gridName)), m_leastRows(leastRows) {
    emptyRows();
}

void GridForm::emptyRows() {
    while (m_grid.Rows() <= m_leastRows) m_grid.addRow();
}

Value GridForm::ParseList(std::string_view strList) const { return Value(arrayOf("String", parseList(strList))); }

void GridForm::FillGrid() {
    std::vector<std::string> parts;
    Procedure run(className(), "FillGrid", this, [](Locals&) {});
    run([&] { parts = parseList(BVTAttribute()->get("Variable").toText()); },
        [&] {
            m_grid.removeAllRows();
            for (std::size_t i = 0; i < entryCount(parts); ++i) m_grid.addRow(rowOf(parts[i]));
            emptyRows();
        });
}

void GridForm::fill() {
    Procedure run(className(), "BVTAttribute", this, [](Locals&) {});
    run([&] { FillGrid(); });
}

std::string GridForm::SaveGridContent() {
    std::string list;
    for (std::int32_t row = 1; row < m_grid.Rows(); ++row) list += entryOf(row);
    return list;
}

std::string GridForm::checkedText(std::int32_t row, std::int32_t col) const {
    const bool inEdit = m_grid.editing() && m_grid.editRow() == row && m_grid.editCol() == col;
    return inEdit ? m_grid.editText() : m_grid.Cell(row, col);
}

std::string GridForm::trimmedCell(std::int32_t row, std::int32_t col) const {
    return std::string(text::trimmed(m_grid.Cell(row, col)));
}

bool GridForm::onGrid(GridEvent event, Grid&, std::int32_t row, std::int32_t col) {
    switch (event) {
        case GridEvent::validateEdit: return validateEdit(row, col);
        case GridEvent::cellButton: cellButton(row, col); return true;
        case GridEvent::click:
            m_grid.setRowSelection(m_grid.Col() == 0);
            cellClicked(row, col);
            return true;
        case GridEvent::currentChanged: m_grid.setRowSelection(m_grid.Col() == 0); return true;
        case GridEvent::doubleClick: cellDoubleClicked(row, col); return true;
        case GridEvent::keyDown: keyDown(row); return true;
    }
    return true;
}

bool GridForm::blank(std::int32_t row) const {
    for (std::int32_t col = 1; col < m_grid.Cols(); ++col) {
        const std::string text = trimmedCell(row, col);
        if (m_grid.columnKind(col) == ColumnKind::check ? text == "True" : !text.empty()) return false;
    }
    return true;
}

void GridForm::keyDown(std::int32_t row) {
    if (m_grid.keyCode() != Grid::deleteKey || row == 0 || !m_grid.RowSelection() || blank(row)) return;
    Reply answer = Reply::cancel;
    const std::string procedure = m_grid.Name() + "_KeyDown";
    Procedure run(className(), procedure, this, [](Locals&) {});
    run(
        [&] {
            answer = environment().interaction->messageBox({.text = "Do you want to delete selected expression?",
                                                            .buttons = Buttons::yesNoCancel,
                                                            .icon = Icon::information,
                                                            .title = {}});
        },
        [&] {
            if (answer != Reply::yes) return;
            m_grid.removeRow(row);
            if (m_grid.Rows() == 1) m_grid.addRow();
        });
}

}  // namespace canvas::editors
