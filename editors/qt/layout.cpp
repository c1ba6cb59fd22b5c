// Where the widgets stand: lines and columns of a container become the cells of a grid layout, and the form's own
// buttons a column at its right.

#include <map>

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "editors/qt/form_window.h"
#include "editors/qt/text.h"

namespace canvas::view {
namespace {

/// Grows with the height of the form.
bool isTall(const ControlRow& row) {
    switch (row.kind) {
        case ControlKind::list:
        case ControlKind::tree:
        case ControlKind::grid:
        case ControlKind::tabs: return true;
        case ControlKind::text: return row.multiline;
        default: return false;
    }
}

/// Holds other controls.
bool isContainer(const ControlRow& row) { return row.kind == ControlKind::frame || row.kind == ControlKind::tabs; }

bool isWide(const ControlRow& row) {
    return isTall(row) || row.kind == ControlKind::text || row.kind == ControlKind::combo;
}

/// Fields for whole expressions.
bool isLong(const ControlRow& row) { return row.checkType == brxExpression || (row.in.empty() && row.column == 0); }

bool standsAtTheRight(const ControlRow& row) {
    return row.kind == ControlKind::button && row.in.empty() && (row.role != Role::none || row.column >= 3);
}

/// The widget that `in` names: a frame, a tab as "SSCAMTab(1)", or the form for the empty name.
QWidget* containerOf(FormWindow& window, std::string_view in, QWidget* form) {
    if (in.empty()) return form;
    for (const auto& view : window.views()) {
        const ControlRow& row = view->control.row();
        if (!isContainer(row) || !in.starts_with(row.name)) continue;
        const std::string_view rest = in.substr(row.name.size());
        if (rest.empty()) return view->page(0);
        if (rest.size() >= 3 && rest.front() == '(')
            if (QWidget* page = view->page(rest[1] - '0')) return page;
    }
    throw ContractViolation("no container " + std::string(in));
}

void giveSize(QWidget& widget, const ControlRow& row) {
    const QFontMetrics font = widget.fontMetrics();
    const int letter = font.averageCharWidth(), line = font.lineSpacing();
    if (row.kind == ControlKind::grid) {
        const auto columns = static_cast<int>(std::count(row.caption.begin(), row.caption.end(), '|'));
        widget.setMinimumSize(letter * std::max(56, 18 * columns), line * 18);
    } else if (row.kind == ControlKind::list || row.kind == ControlKind::tree) {
        widget.setMinimumSize(letter * 32, line * 9);
    } else if (row.kind == ControlKind::text) {
        if (row.multiline) widget.setMinimumSize(letter * 40, line * 5);
        else widget.setMinimumWidth(letter * (isLong(row) ? 40 : 20));
    }
}

using Rows = std::vector<ControlView*>;

/// Up to the next control of the line; a single field does not grow into a column of units.
int spanOf(const Rows& rows, const ControlRow& row, int columns) {
    const bool field = isWide(row) && !isTall(row);
    if (field && row.column > 0) return 1;
    int end = columns;
    for (const ControlView* other : rows) {
        const ControlRow& next = other->control.row();
        if (next.line == row.line && next.column > row.column) end = std::min<int>(end, next.column);
    }
    if (field) {  // alone in its line it spans all, else it stays beside what stands in other lines of its column
        return end == columns ? std::max(1, end - row.column) : 1;
    }
    return std::max(1, end - row.column);
}

void fillContainer(QGridLayout& grid, const Rows& rows) {
    int columns = 1;
    bool tall = false;
    for (const ControlView* view : rows) columns = std::max<int>(columns, view->control.row().column + 1);
    for (ControlView* view : rows) {
        const ControlRow& row = view->control.row();
        giveSize(*view->widget(), row);
        const int span = spanOf(rows, row, columns);
        const bool beside = std::any_of(rows.begin(), rows.end(), [&](const ControlView* other) {
            return other->control.row().line == row.line && isTall(other->control.row());
        });
        Qt::Alignment alignment =
            beside && !isTall(row) && row.kind != ControlKind::frame ? Qt::AlignTop : Qt::Alignment();
        if (row.kind == ControlKind::button && span > 1) alignment |= Qt::AlignLeft;
        grid.addWidget(view->widget(), row.line, row.column, 1, span, alignment);
        if (isWide(row) && span == 1) grid.setColumnStretch(row.column, 1);
        if (isTall(row) && row.visible) grid.setRowStretch(row.line, 1), tall = true;
    }
    if (!tall) grid.setRowStretch(grid.rowCount(), 1);
}

}  // namespace

void layOut(FormWindow& window) {
    auto* outer = new QHBoxLayout(&window);
    auto* area = new QWidget;
    auto* buttons = new QVBoxLayout;
    outer->addWidget(area, 1);
    outer->addLayout(buttons);
    std::map<QWidget*, Rows> containers;
    std::multimap<int, QWidget*> right;
    for (const auto& view : window.views()) {
        const ControlRow& row = view->control.row();
        if (standsAtTheRight(row)) right.emplace(row.line, view->widget());
        else containers[containerOf(window, row.in, area)].push_back(view.get());
    }
    for (const auto& [line, button] : right) buttons->addWidget(button);
    buttons->addStretch(1);
    for (const auto& [widget, rows] : containers) {
        auto* grid = new QGridLayout(widget);
        if (widget == area) grid->setContentsMargins(0, 0, 0, 0);
        fillContainer(*grid, rows);
    }
}

namespace {

QString withoutColon(QString text) {
    text = text.trimmed();
    if (text.endsWith(QLatin1Char(':'))) text.chop(1);
    return text;
}

/// The label that stands before the control in its line, else the one above it.
const ControlView* labelOf(const FormWindow& window, const ControlRow& row) {
    const ControlView* found = nullptr;
    int best = 1 << 20;
    for (const auto& view : window.views()) {
        const ControlRow& label = view->control.row();
        if (label.kind != ControlKind::label || label.unit != Unit::none || label.in != row.in || label.caption.empty())
            continue;
        int distance = best;
        if (label.line == row.line && label.column < row.column) distance = row.column - label.column;
        else if (label.line == row.line - 1 && label.column == row.column) distance = 1000;
        if (distance < best) best = distance, found = view.get();
    }
    return found;
}

QString nameOf(const FormWindow& window, const ControlView& view) {
    const ControlRow& row = view.control.row();
    const bool ownCaption = row.kind != ControlKind::tabs && row.kind != ControlKind::grid && !row.caption.empty();
    if (ownCaption) return withoutColon(plainCaption(row.caption));
    if (const ControlView* label = labelOf(window, row))
        return withoutColon(plainCaption(label->control.row().caption));
    for (const auto& other : window.views())
        if (other->control.row().kind == ControlKind::frame && other->control.row().name == row.in)
            return plainCaption(other->control.row().caption);
    return shown(window.form().Caption());
}

}  // namespace

void nameForAssistance(FormWindow& window) {
    QWidget* before = nullptr;
    for (const auto& view : window.views()) {
        const ControlRow& row = view->control.row();
        if (row.kind == ControlKind::label) continue;
        QWidget* widget = view->focusWidget();
        widget->setAccessibleName(nameOf(window, *view));
        if (widget != view->widget()) view->widget()->setAccessibleName(widget->accessibleName());
        if (row.kind == ControlKind::frame) continue;
        if (const ControlView* label = labelOf(window, row); label && row.caption.empty())
            static_cast<QLabel*>(label->widget())->setBuddy(widget);
        if (before) QWidget::setTabOrder(before, widget);
        before = widget;
    }
}

}  // namespace canvas::view
