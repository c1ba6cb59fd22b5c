#pragma once
// A grid of texts with a fixed header row and a fixed first column. One cell at a time is in edit, and stays so while
// the form finds it bad.

#include <string>
#include <vector>

#include "editors/control.h"

namespace canvas::editors {

enum class ColumnKind : std::uint8_t { text, button, check };

/// What a form is told of its grid.
enum class GridEvent : std::uint8_t {
    validateEdit,    ///< the user leaves the cell in edit; `editText` is what was typed. False keeps it in edit
    cellButton,      ///< the button of a cell was clicked
    click,
    doubleClick,
    keyDown,         ///< `keyCode` tells the key
    currentChanged,  ///< another cell became the current one
};

class Grid final : public Tabled<Grid, Control> {
public:
    Grid(Form& form, const ControlRow& row);
    static constexpr std::string_view name = "Grid";
    static std::span<const Member> table() noexcept;

    static constexpr std::int32_t deleteKey = 46;

    /// Counted with the header row and the fixed column. Indexes from 0; error 9 outside.
    std::int32_t Rows() const noexcept { return static_cast<std::int32_t>(m_cells.size()); }
    std::int32_t Cols() const noexcept { return static_cast<std::int32_t>(m_kinds.size()); }
    std::int32_t Row() const noexcept { return m_row; }
    std::int32_t Col() const noexcept { return m_col; }
    /// As the arrow keys move; refused while the cell in edit cannot be left.
    void setRow(std::int32_t row) { moveTo(row, m_col); }
    void setCol(std::int32_t col) { moveTo(m_row, col); }
    /// "True" or "False" in a check column.
    std::string Cell(std::int32_t row, std::int32_t col) const { return cell(row, col).text; }
    std::int32_t CellBackColor(std::int32_t row, std::int32_t col) const { return cell(row, col).backColor; }

    /// Opens the cell's editor with its text selected, types through the key filter, and leaves. True when the cell
    /// could be left; one that could not stays in edit. An empty text empties the cell; "\b" deletes backwards, "\r" and
    /// "\t" leave at once. Where the filter lets nothing through, the cell keeps its text.
    bool Edit(std::int32_t row, std::int32_t col, std::string_view text);
    /// The same without the key filter.
    bool Paste(std::int32_t row, std::int32_t col, std::string_view text);
    /// The Escape key: the cell keeps its old text.
    void Cancel(std::int32_t row, std::int32_t col);
    void ButtonClick(std::int32_t row, std::int32_t col);
    void Click(std::int32_t row, std::int32_t col);
    void DblClick(std::int32_t row, std::int32_t col);
    /// Nothing while a cell is in edit: its editor has the keys.
    void KeyDown(std::int32_t code);
    bool RowSelection() const noexcept { return m_rowSelection; }

    // For the form
    void setColumnKind(std::int32_t col, ColumnKind kind);
    ColumnKind columnKind(std::int32_t col) const { return m_kinds.at(static_cast<std::size_t>(col)); }
    /// Texts of the columns from 1 on; short rows are filled up. The first row to come becomes the current one.
    void addRow(const std::vector<std::string>& texts = {});
    void removeRow(std::int32_t row);
    void removeAllRows();
    void setCell(std::int32_t row, std::int32_t col, std::string_view text);
    void setCellBackColor(std::int32_t row, std::int32_t col, std::int32_t color);
    void setRowSelection(bool rows);
    std::int32_t keyCode() const noexcept { return m_keyCode; }

    // The editor, for the form and the view
    bool editing() const noexcept { return m_editing; }
    std::int32_t editRow() const noexcept { return m_editRow; }
    std::int32_t editCol() const noexcept { return m_editCol; }
    const std::string& editText() const noexcept { return m_editText; }
    /// False when the cell cannot be edited or another one cannot be left.
    bool beginEdit(std::int32_t row, std::int32_t col);
    void setEditText(std::string_view text);
    bool finishEdit();
    void cancelEdit();
    /// Whether the editor takes the character.
    bool accepts(char32_t key) const noexcept;

    bool canLeave() override { return !m_editing || finishEdit(); }

private:
    struct One {
        std::string text;
        std::int32_t backColor = -1;
    };
    const One& cell(std::int32_t row, std::int32_t col) const;
    One& cell(std::int32_t row, std::int32_t col) { return const_cast<One&>(std::as_const(*this).cell(row, col)); }
    bool moveTo(std::int32_t row, std::int32_t col);
    bool raiseGrid(GridEvent event, std::int32_t row, std::int32_t col);

    std::vector<ColumnKind> m_kinds;
    std::vector<std::vector<One>> m_cells;
    std::int32_t m_row = 0;
    std::int32_t m_col = 0;
    bool m_rowSelection = false;
    std::int32_t m_keyCode = 0;
    bool m_editing = false;
    bool m_validating = false;
    std::int32_t m_editRow = 0;
    std::int32_t m_editCol = 0;
    std::string m_editText;
};

}  // namespace canvas::editors
