// The grid: its header row and fixed column are the table's headers, and the one cell in edit has an editor over it.

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTableView>

#include "editors/qt/colors.h"
#include "editors/qt/form_window.h"
#include "editors/qt/text.h"

namespace canvas::view {
namespace {

/// Rows and columns from 0 here are those from 1 there.
class Cells final : public QAbstractTableModel {
public:
    Cells(Grid& grid, QObject* parent) : QAbstractTableModel(parent), m_grid(grid) {}
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_rows; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_grid.Cols() - 1; }
    QVariant data(const QModelIndex& index, int role) const override {
        const std::int32_t row = index.row() + 1, col = index.column() + 1;
        if (row >= m_grid.Rows()) return {};
        const bool checks = m_grid.columnKind(col) == ColumnKind::check;
        const std::int32_t color = m_grid.CellBackColor(row, col);
        switch (role) {
            case Qt::DisplayRole: return checks ? QVariant() : QVariant(shown(m_grid.Cell(row, col)));
            case Qt::CheckStateRole:
                if (!checks) return {};
                return m_grid.Cell(row, col) == "True" ? Qt::Checked : Qt::Unchecked;
            case Qt::BackgroundRole: return color < 0 ? QVariant() : QVariant(colorOf(color));
            case Qt::ForegroundRole: return color < 0 ? QVariant() : QVariant(textOn(colorOf(color)));
            case Qt::AccessibleTextRole: return shown(m_grid.Cell(row, col));
            default: return {};
        }
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::DisplayRole) return {};
        if (orientation == Qt::Horizontal) return shown(m_grid.Cell(0, section + 1));
        return section + 1 < m_grid.Rows() ? shown(m_grid.Cell(section + 1, 0)) : QString();
    }
    void follow() {
        const int rows = m_grid.Rows() - 1;
        if (rows > m_rows) {
            beginInsertRows({}, m_rows, rows - 1);
            m_rows = rows;
            endInsertRows();
        } else if (rows < m_rows) {
            beginRemoveRows({}, rows, m_rows - 1);
            m_rows = rows;
            endRemoveRows();
        }
        if (m_rows == 0) return;
        Q_EMIT dataChanged(index(0, 0), index(m_rows - 1, columnCount() - 1));
        Q_EMIT headerDataChanged(Qt::Vertical, 0, m_rows - 1);
    }

private:
    Grid& m_grid;
    int m_rows = 0;
};

/// Where the button of a cell stands.
QRect buttonIn(const QRect& cell) {
    const int side = std::min(cell.height(), cell.width());
    return {cell.right() - side + 1, cell.top(), side, cell.height()};
}

class CellLook final : public QStyledItemDelegate {
public:
    CellLook(Grid& grid, QObject* parent) : QStyledItemDelegate(parent), m_grid(grid) {}
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem cell = option;
        const bool button = m_grid.columnKind(index.column() + 1) == ColumnKind::button;
        if (button) cell.rect.setRight(buttonIn(option.rect).left() - 1);
        QStyledItemDelegate::paint(painter, cell, index);
        if (!button) return;
        QStyleOptionButton look;
        look.rect = buttonIn(option.rect);
        look.text = QStringLiteral("...");
        look.state = QStyle::State_Enabled | QStyle::State_Raised;
        look.palette = option.widget->palette();
        option.widget->style()->drawControl(QStyle::CE_PushButton, &look, painter, option.widget);
    }

private:
    Grid& m_grid;
};

/// The codes that handlers of key events know.
std::int32_t keyCode(int key) {
    switch (key) {
        case Qt::Key_Delete: return Grid::deleteKey;
        case Qt::Key_Insert: return 45;
        case Qt::Key_Return:
        case Qt::Key_Enter: return 13;
        case Qt::Key_Escape: return 27;
        case Qt::Key_Space: return 32;
        case Qt::Key_PageUp: return 33;
        case Qt::Key_PageDown: return 34;
        case Qt::Key_End: return 35;
        case Qt::Key_Home: return 36;
        case Qt::Key_Left: return 37;
        case Qt::Key_Up: return 38;
        case Qt::Key_Right: return 39;
        case Qt::Key_Down: return 40;
        default: break;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return 112 + key - Qt::Key_F1;
    return (key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z) ? key : 0;
}

class GridView final : public ControlView {
public:
    GridView(FormWindow& window, Grid& control)
        : ControlView(window, control),
          grid(control),
          table(new QTableView(&window)),
          cells(new Cells(control, table)),
          editor(new QLineEdit(table->viewport())) {
        table->setModel(cells);
        table->setItemDelegate(new CellLook(control, table));
        table->setEditTriggers(QAbstractItemView::NoEditTriggers);
        table->setSelectionMode(QAbstractItemView::ContiguousSelection);
        table->setTabKeyNavigation(false);
        table->setWordWrap(false);
        table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        table->horizontalHeader()->setHighlightSections(false);
        table->verticalHeader()->setHighlightSections(false);
        table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 9);
        table->verticalHeader()->setFixedWidth(table->fontMetrics().height() + 8);
        editor->setFrame(false);
        editor->hide();
        QObject::connect(editor, &QLineEdit::textChanged, editor, [this](const QString& typed) {
            this->window.guarded(*this, [&] { grid.setEditText(taken(typed)); });
        });
        QObject::connect(table->verticalHeader(), &QHeaderView::sectionPressed, table,
                         [this](int row) { click(row + 1, 0); });
        QObject::connect(table->horizontalHeader(), &QHeaderView::sectionPressed, table,
                         [this](int col) { click(0, col + 1); });
        for (QWidget* part : {static_cast<QWidget*>(table), table->viewport(), static_cast<QWidget*>(editor)})
            window.watch(*part, *this);
    }
    QWidget* widget() const override { return table; }
    QWidget* focusWidget() const override { return grid.editing() ? static_cast<QWidget*>(editor) : table; }
    bool accepts(char32_t key) const override { return !grid.editing() || grid.accepts(key); }

    void follow() override {
        followCommon(*table);
        cells->follow();
        followCurrent();
        followEditor();
    }

    /// The keys of the editor: none of them reaches the form, so that a held cell is not left by them.
    bool owns(const QKeyEvent& event) const override {
        if (!grid.editing()) return false;
        switch (event.key()) {
            case Qt::Key_Return:
            case Qt::Key_Enter:
            case Qt::Key_Escape:
            case Qt::Key_Up:
            case Qt::Key_Down: return true;
            default: return false;
        }
    }
    bool key(QKeyEvent& event) override { return grid.editing() ? editorKey(event) : tableKey(event); }
    bool mouse(QMouseEvent& event) override;

    Grid& grid;
    QTableView* table;
    Cells* cells;
    QLineEdit* editor;

private:
    void followCurrent();
    void followEditor();
    bool editorKey(QKeyEvent& event);
    bool tableKey(QKeyEvent& event);
    void move(std::int32_t rows, std::int32_t cols);
    void click(std::int32_t row, std::int32_t col) {
        window.guarded(*this, [&] { grid.Click(row, col); });
    }

    /// The cell that the mouse went down on; a release elsewhere is no click.
    QModelIndex m_pressed;
    bool m_onButton = false;
};

void GridView::followCurrent() {
    const int row = grid.Row() - 1, col = grid.Col() - 1;
    const QModelIndex current = cells->index(row, std::max(col, 0));
    if (!current.isValid()) {
        table->clearSelection();
        return;
    }
    table->setSelectionBehavior(grid.RowSelection() ? QAbstractItemView::SelectRows : QAbstractItemView::SelectItems);
    const auto how = QItemSelectionModel::ClearAndSelect |
                     (grid.RowSelection() ? QItemSelectionModel::Rows : QItemSelectionModel::NoUpdate);
    table->selectionModel()->setCurrentIndex(current, how);
}

void GridView::followEditor() {
    if (!grid.editing()) {
        const bool had = editor->hasFocus();
        editor->hide();
        if (had) table->setFocus(Qt::OtherFocusReason);
        return;
    }
    const QModelIndex cell = cells->index(grid.editRow() - 1, grid.editCol() - 1);
    const QString wanted = shown(grid.editText());
    const bool opens = editor->isHidden();
    if (opens) table->scrollTo(cell);
    QRect place = table->visualRect(cell);
    if (grid.columnKind(grid.editCol()) == ColumnKind::button) place.setRight(buttonIn(place).left() - 1);
    editor->setGeometry(place);
    editor->setPalette(colored(grid.CellBackColor(grid.editRow(), grid.editCol())));
    editor->setAccessibleName(shown(grid.Cell(0, grid.editCol())));
    if (editor->text() != wanted) editor->setText(wanted);
    if (!opens) return;
    editor->selectAll();
    editor->show();
    editor->setFocus(Qt::OtherFocusReason);
}

bool GridView::editorKey(QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter: window.guarded(*this, [&] { grid.finishEdit(); }); return true;
        case Qt::Key_Escape: window.guarded(*this, [&] { grid.cancelEdit(); }); return true;
        case Qt::Key_Up: return move(-1, 0), true;
        case Qt::Key_Down: return move(1, 0), true;
        default: return false;
    }
}

/// As the arrow keys move. Column 0, the row header, is reached like any other.
void GridView::move(std::int32_t rows, std::int32_t cols) {
    const std::int32_t row = grid.Row() + rows, col = grid.Col() + cols;
    window.guarded(*this, [&] {
        if (row < 1 || row >= grid.Rows() || col < 0 || col >= grid.Cols()) return void(grid.finishEdit());
        if (rows != 0) grid.setRow(row);
        if (cols != 0) grid.setCol(col);
    });
}

bool GridView::tableKey(QKeyEvent& event) {
    const std::int32_t code = keyCode(event.key());
    const bool shortcut = event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier);
    if (code != 0) window.guarded(*this, [&] { grid.KeyDown(code); });
    if (!window.form().Visible() || grid.editing()) return true;
    const std::int32_t row = grid.Row(), col = grid.Col();
    switch (event.key()) {
        case Qt::Key_Up: return move(-1, 0), true;
        case Qt::Key_Down:
            if (!(event.modifiers() & Qt::AltModifier)) return move(1, 0), true;
            [[fallthrough]];
        case Qt::Key_F4: window.guarded(*this, [&] { grid.ButtonClick(row, col); }); return true;
        case Qt::Key_Left: return move(0, -1), true;
        case Qt::Key_Right: return move(0, 1), true;
        case Qt::Key_Home: return move(0, 1 - col), true;
        case Qt::Key_End: return move(0, grid.Cols() - 1 - col), true;
        case Qt::Key_PageUp: return move(std::max(1, row - 10) - row, 0), true;
        case Qt::Key_PageDown: return move(std::min(grid.Rows() - 1, row + 10) - row, 0), true;
        case Qt::Key_Delete: return true;
        case Qt::Key_F2: window.guarded(*this, [&] { grid.beginEdit(row, col); }); return true;
        default: break;
    }
    if (shortcut || event.text().isEmpty() || !event.text().front().isPrint()) return false;
    if (row < 1 || col < 1) return true;
    if (grid.columnKind(col) == ColumnKind::check) {
        if (event.key() == Qt::Key_Space) click(row, col);
        return true;
    }
    const QString typed = event.text();
    window.guarded(*this, [&] {
        for (const char32_t key : typed.toStdU32String())
            if (!grid.accepts(key)) return;
        if (grid.beginEdit(row, col)) grid.setEditText(taken(typed));
    });
    if (grid.editing()) editor->setCursorPosition(static_cast<int>(editor->text().size()));
    return true;
}

bool GridView::mouse(QMouseEvent& event) {
    if (editor->isVisible() &&
        editor->geometry().contains(table->viewport()->mapFromGlobal(event.globalPosition().toPoint())))
        return false;
    const QPoint place = table->viewport()->mapFromGlobal(event.globalPosition().toPoint());
    const QModelIndex cell = table->indexAt(place);
    if (!cell.isValid()) return false;
    const std::int32_t row = cell.row() + 1, col = cell.column() + 1;
    const bool onButton =
        grid.columnKind(col) == ColumnKind::button && buttonIn(table->visualRect(cell)).contains(place);
    switch (event.type()) {
        case QEvent::MouseButtonPress:
            m_onButton = onButton;
            window.guarded(*this, [&] {
                grid.setRow(row);
                grid.setCol(col);
                const bool there = grid.Row() == row && grid.Col() == col;
                m_pressed = there ? cell : QModelIndex();
            });
            return true;
        case QEvent::MouseButtonRelease:
            if (std::exchange(m_pressed, {}) != cell || event.button() != Qt::LeftButton || onButton != m_onButton)
                return true;
            if (!onButton) return click(row, col), true;
            window.guarded(*this, [&] { grid.ButtonClick(row, col); });
            return true;
        case QEvent::MouseButtonDblClick:
            if (!onButton) window.guarded(*this, [&] { grid.DblClick(row, col); });
            return true;
        default: return false;
    }
}

}  // namespace

std::unique_ptr<ControlView> makeGridView(FormWindow& window, Grid& control) {
    return std::make_unique<GridView>(window, control);
}

}  // namespace canvas::view
