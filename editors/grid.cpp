#include "editors/grid.h"

#include "editors/form.h"
#include "host/text.h"
#include "host/utf8.h"

namespace canvas::editors {

std::span<const Member> Grid::table() noexcept {
    using C = Grid;
    static constexpr auto members = joined(
        commonMembers<C>(),
        std::array{property<&C::Rows, nullptr>("Rows"), property<&C::Cols, nullptr>("Cols"),
                   property<&C::Row, &C::setRow>("Row"), property<&C::Col, &C::setCol>("Col"),
                   property<&C::Cell, nullptr>("Cell"), property<&C::CellBackColor, nullptr>("CellBackColor"),
                   method<&C::Edit>("Edit"), method<&C::Paste>("Paste"), method<&C::Cancel>("Cancel"),
                   method<&C::ButtonClick>("ButtonClick"), method<&C::Click>("Click"), method<&C::DblClick>("DblClick"),
                   method<&C::KeyDown>("KeyDown"), property<&C::RowSelection, nullptr>("RowSelection")});
    return members;
}

Grid::Grid(Form& form, const ControlRow& row) : Tabled(form, row) {
    m_cells.emplace_back();
    for (const std::string_view header : text::split(row.caption, "|")) {
        m_kinds.push_back(ColumnKind::text);
        m_cells.front().push_back({std::string(header), -1});
    }
    m_col = std::min(1, Cols() - 1);
}

const Grid::One& Grid::cell(std::int32_t row, std::int32_t col) const {
    if (row < 0 || row >= Rows() || col < 0 || col >= Cols()) canvas::raise(Error::subscript);
    return m_cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
}

bool Grid::raiseGrid(GridEvent event, std::int32_t row, std::int32_t col) {
    return !form() || form()->happened(event, *this, row, col);
}

bool Grid::moveTo(std::int32_t row, std::int32_t col) {
    cell(row, col);
    if (m_row == row && m_col == col) return true;
    if (m_editing && (row != m_editRow || col != m_editCol) && !finishEdit()) return false;
    m_row = row, m_col = col;
    touched();
    raiseGrid(GridEvent::currentChanged, row, col);
    return true;
}

bool Grid::accepts(char32_t key) const noexcept {
    return key != U'"' && key != U';' ? true : row().keys == Keys::all || (row().keys == Keys::noQuote && key == U';');
}

bool Grid::beginEdit(std::int32_t row, std::int32_t col) {
    cell(row, col);
    if (row == 0 || col == 0 || columnKind(col) == ColumnKind::check) return false;
    if (m_editing && row == m_editRow && col == m_editCol) return true;
    const Ref<Form> keep(form());
    if (!keep || !canTakeFocus() || !keep->focus(this) || !moveTo(row, col)) return false;
    if (m_editing && !finishEdit()) return false;
    m_editing = true;
    m_editRow = row, m_editCol = col;
    m_editText = cell(row, col).text;
    touched();
    return true;
}

void Grid::setEditText(std::string_view text) {
    if (!m_editing || m_editText == text) return;
    m_editText = text;
    touched();
}

bool Grid::finishEdit() {
    if (!m_editing) return true;
    if (m_validating) return false;  // a handler's message box may take the focus away while the text is looked at
    struct Looking {
        bool& flag;
        explicit Looking(bool& f) : flag(f) { flag = true; }
        ~Looking() { flag = false; }
    };
    const std::int32_t row = m_editRow, col = m_editCol;
    {
        const Looking looking(m_validating);
        if (!raiseGrid(GridEvent::validateEdit, row, col)) return false;
    }
    if (!m_editing) return true;  // a handler has taken the cell away
    m_editing = false;
    setCell(row, col, m_editText);
    touched();
    return true;
}

void Grid::cancelEdit() {
    if (!m_editing) return;
    m_editing = false;
    touched();
}

bool Grid::Edit(std::int32_t row, std::int32_t col, std::string_view text) {
    if (!beginEdit(row, col)) return false;
    std::string typed;
    bool taken = text.empty();
    while (!text.empty() && text.front() != '\r' && text.front() != '\t') {
        const utf8::Decoded key = utf8::first(text);
        const std::size_t size = std::max<std::size_t>(1, key.size);
        const bool erases = text.front() == '\b';
        if (erases) typed = text::withoutLast(typed, 1);
        else if (!key.size || accepts(key.character)) typed += text.substr(0, size);
        taken = taken || erases || !typed.empty();
        text.remove_prefix(size);
    }
    if (taken) setEditText(typed);
    return finishEdit();
}

bool Grid::Paste(std::int32_t row, std::int32_t col, std::string_view text) {
    if (!beginEdit(row, col)) return false;
    setEditText(text);
    return finishEdit();
}

void Grid::Cancel(std::int32_t row, std::int32_t col) {
    cell(row, col);
    if (m_editing && row == m_editRow && col == m_editCol) cancelEdit();
}

void Grid::ButtonClick(std::int32_t row, std::int32_t col) {
    cell(row, col);
    const Ref<Form> keep(form());
    if (!keep || !canTakeFocus() || row == 0 || columnKind(col) != ColumnKind::button) return;
    if (keep->focus(this) && moveTo(row, col) && (!m_editing || finishEdit())) raiseGrid(GridEvent::cellButton, row, col);
}

void Grid::Click(std::int32_t row, std::int32_t col) {
    cell(row, col);
    const Ref<Form> keep(form());
    if (!keep || !canTakeFocus() || !keep->focus(this) || !moveTo(row, col)) return;
    if (row > 0 && columnKind(col) == ColumnKind::check) setCell(row, col, Cell(row, col) == "True" ? "False" : "True");
    raiseGrid(GridEvent::click, row, col);
}

void Grid::DblClick(std::int32_t row, std::int32_t col) {
    cell(row, col);
    const Ref<Form> keep(form());
    if (!keep || !canTakeFocus() || !keep->focus(this) || !moveTo(row, col)) return;
    raiseGrid(GridEvent::doubleClick, row, col);
}

void Grid::KeyDown(std::int32_t code) {
    const Ref<Form> keep(form());
    if (!keep || !canTakeFocus() || !keep->focus(this) || m_editing) return;
    m_keyCode = code;
    raiseGrid(GridEvent::keyDown, m_row, m_col);
}

void Grid::setColumnKind(std::int32_t col, ColumnKind kind) {
    m_kinds.at(static_cast<std::size_t>(col)) = kind;
    touched();
}

void Grid::addRow(const std::vector<std::string>& texts) {
    std::vector<One> row(m_kinds.size());
    for (std::size_t col = 1; col < row.size(); ++col) {
        if (col <= texts.size()) row[col].text = texts[col - 1];
        else if (m_kinds[col] == ColumnKind::check) row[col].text = "False";
    }
    m_cells.push_back(std::move(row));
    if (m_row == 0) m_row = 1;
    touched();
}

void Grid::removeRow(std::int32_t row) {
    cell(row, 0);
    cancelEdit();
    m_cells.erase(m_cells.begin() + row);
    m_row = std::min(m_row, Rows() - 1);
    touched();
}

void Grid::removeAllRows() {
    cancelEdit();
    m_cells.resize(1);
    m_row = 0;
    touched();
}

void Grid::setCell(std::int32_t row, std::int32_t col, std::string_view text) {
    cell(row, col).text = text;
    touched();
}

void Grid::setCellBackColor(std::int32_t row, std::int32_t col, std::int32_t color) {
    cell(row, col).backColor = color;
    touched();
}

void Grid::setRowSelection(bool rows) {
    if (m_rowSelection == rows) return;
    m_rowSelection = rows;
    touched();
}

}  // namespace canvas::editors
