// Text fields, buttons, check boxes, options, labels, frames and tabs.

#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

#include "editors/qt/colors.h"
#include "editors/qt/form_window.h"
#include "editors/qt/text.h"

namespace canvas::view {

void ControlView::followCommon(QWidget& widget) const {
    if (widget.isVisibleTo(widget.parentWidget()) != control.Visible()) widget.setVisible(control.Visible());
    widget.setEnabled(control.Enabled());
    widget.setPalette(colored(control.BackColor()));
}

namespace {

/// What is the same for both kinds of text field. `Editor` is the toolkit's.
template <class Editor>
class TextView : public ControlView {
public:
    TextView(FormWindow& window, TextControl& control)
        : ControlView(window, control), text(control), editor(new Editor(&window)) {
        editor->setReadOnly(control.row().readOnly);
        window.watch(*editor, *this);
    }
    QWidget* widget() const override { return editor; }
    bool accepts(char32_t key) const override { return text.accepts(key); }
    bool mouse(QMouseEvent& event) override {
        if (event.type() != QEvent::MouseButtonDblClick) return false;
        window.guarded(*this, [&] { text.DblClick(); });
        return text.row().doubleClick != DoubleClick::nothing;
    }

    TextControl& text;
    Editor* editor;

protected:
    /// What the editor came to. A text that only looks different on the screen stays as it is.
    void take(const QString& typed, const QString& before, int start, int length) {
        window.guarded([&] { text.take(typed == before ? text.Text() : taken(typed), start, length); });
    }
};

class LineView final : public TextView<QLineEdit> {
public:
    LineView(FormWindow& window, TextControl& control) : TextView(window, control) {
        const auto told = [this] {
            const int start = editor->selectionStart();
            take(editor->text(), shown(text.Text()), start < 0 ? editor->cursorPosition() : start,
                 editor->selectionLength());
        };
        QObject::connect(editor, &QLineEdit::textChanged, editor, told);
        QObject::connect(editor, &QLineEdit::cursorPositionChanged, editor, told);
        QObject::connect(editor, &QLineEdit::selectionChanged, editor, told);
    }
    void follow() override {
        followCommon(*editor);
        const QString wanted = shown(text.Text());
        if (editor->text() != wanted) editor->setText(wanted);
        const int start = editor->selectionStart();
        const int at = start < 0 ? editor->cursorPosition() : start;
        if (at == text.SelStart() && editor->selectionLength() == text.SelLength()) return;
        if (text.SelLength() > 0) editor->setSelection(text.SelStart(), text.SelLength());
        else editor->setCursorPosition(text.SelStart()), editor->deselect();
    }
};

/// Counts line ends as one place where the control counts two.
class LinesView final : public TextView<QPlainTextEdit> {
public:
    LinesView(FormWindow& window, TextControl& control) : TextView(window, control) {
        editor->setTabChangesFocus(true);
        editor->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // lines are broken instead
        const auto told = [this] {
            const QTextCursor cursor = editor->textCursor();
            const QString all = editor->toPlainText();
            const int start = outer(all, cursor.selectionStart()), end = outer(all, cursor.selectionEnd());
            QString lines = all;
            lines.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
            take(lines, shownLines(text.Text()).replace(QLatin1Char('\n'), QLatin1String("\r\n")), start, end - start);
        };
        QObject::connect(editor, &QPlainTextEdit::textChanged, editor, told);
        QObject::connect(editor, &QPlainTextEdit::cursorPositionChanged, editor, told);
        QObject::connect(editor, &QPlainTextEdit::selectionChanged, editor, told);
        window.watch(*editor->viewport(), *this);
    }
    bool owns(const QKeyEvent& event) const override {
        return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
               !(event.modifiers() & Qt::ControlModifier);
    }
    void follow() override {
        followCommon(*editor);
        const QString wanted = shownLines(text.Text());
        if (editor->toPlainText() != wanted) editor->setPlainText(wanted);
        const int start = inner(text.SelStart()), end = inner(text.SelStart() + text.SelLength());
        QTextCursor cursor = editor->textCursor();
        if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        editor->setTextCursor(cursor);
    }

private:
    static int outer(const QString& lines, int place) {
        return place + static_cast<int>(QStringView(lines).left(place).count(QLatin1Char('\n')));
    }
    int inner(int place) const {
        return place - static_cast<int>(shown(text.Text()).left(place).count(QLatin1String("\r\n")));
    }
};

class ButtonView final : public ControlView {
public:
    ButtonView(FormWindow& window, Button& control) : ControlView(window, control), button(new QPushButton(&window)) {
        button->setText(shown(control.row().caption));
        button->setAutoDefault(false);
        button->setDefault(control.row().role == Role::ok);
        QObject::connect(button, &QPushButton::clicked, button,
                         [this, &control] { this->window.guarded(*this, [&] { control.Click(); }); });
        window.watch(*button, *this);
    }
    QWidget* widget() const override { return button; }
    void follow() override { followCommon(*button); }

    QPushButton* button;
};

class ToggleView final : public ControlView {
public:
    ToggleView(FormWindow& window, Toggle& control)
        : ControlView(window, control),
          toggle(control),
          button(control.row().kind == ControlKind::option ? static_cast<QAbstractButton*>(new QRadioButton(&window))
                                                           : new QCheckBox(&window)) {
        button->setText(shown(control.row().caption));
        button->setAutoExclusive(false);  // the form knows which options go together
        QObject::connect(button, &QAbstractButton::clicked, button, [this](bool on) { click(on); });
        window.watch(*button, *this);
    }
    QWidget* widget() const override { return button; }
    void follow() override {
        followCommon(*button);
        button->setChecked(toggle.value());
    }
    /// Arrow keys go on to the next option of the group and set it.
    bool key(QKeyEvent& event) override {
        const bool forward = event.key() == Qt::Key_Down || event.key() == Qt::Key_Right;
        if (!forward && event.key() != Qt::Key_Up && event.key() != Qt::Key_Left) return false;
        const auto& views = window.views();
        std::vector<ToggleView*> group;
        std::size_t at = 0;
        for (const auto& view : views) {
            const ControlRow& row = view->control.row();
            if (row.kind != toggle.row().kind || row.in != toggle.row().in || !view->control.canTakeFocus()) continue;
            if (view.get() == this) at = group.size();
            group.push_back(static_cast<ToggleView*>(view.get()));
        }
        if (toggle.row().kind == ControlKind::option && !group.empty())
            group[(at + (forward ? 1 : group.size() - 1)) % group.size()]->click(true);
        return true;
    }

    Toggle& toggle;
    QAbstractButton* button;

private:
    void click(bool on) {
        window.guarded(*this, [&] { toggle.click(on); });
    }
};

class LabelView final : public ControlView {
public:
    LabelView(FormWindow& window, Label& control)
        : ControlView(window, control), text(control), label(new QLabel(&window)) {
        label->setTextFormat(Qt::PlainText);
    }
    QWidget* widget() const override { return label; }
    void follow() override {
        followCommon(*label);
        label->setAutoFillBackground(text.BackColor() >= 0);
        const QString caption = shownLines(text.Caption());
        if (caption == label->text()) return;
        label->setText(caption);
        if (text.row().unit != Unit::none) describeField(caption);
        label->setWordWrap(caption.size() > longCaption);
        label->setMinimumWidth(label->wordWrap() ? longCaption * label->fontMetrics().averageCharWidth() : 0);
    }

    /// Letters of a line; what is longer is broken.
    static constexpr int longCaption = 70;

    Label& text;
    QLabel* label;

private:
    /// Assistive tools read the unit out with the field before it.
    void describeField(const QString& unit) {
        for (const auto& view : window.views()) {
            const ControlRow& row = view->control.row();
            if (row.kind == ControlKind::text && row.in == text.row().in && row.line == text.row().line &&
                row.column < text.row().column)
                view->focusWidget()->setAccessibleDescription(unit);
        }
    }
};

class FrameView final : public ControlView {
public:
    FrameView(FormWindow& window, Label& control)
        : ControlView(window, control), text(control), box(new QGroupBox(&window)) {}
    QWidget* widget() const override { return box; }
    QWidget* page(int) const override { return box; }
    void follow() override {
        followCommon(*box);
        box->setTitle(shown(text.Caption()));
    }

    Label& text;
    QGroupBox* box;
};

class TabsView final : public ControlView {
public:
    TabsView(FormWindow& window, Tabs& control)
        : ControlView(window, control), tabs(control), pages(new QTabWidget(&window)) {
        pages->setUsesScrollButtons(false);  // all tabs are seen
        for (std::int32_t i = 0; i < tabs.TabCount(); ++i) pages->addTab(new QWidget, shown(tabs.TabCaption(i)));
        QObject::connect(pages, &QTabWidget::currentChanged, pages, [this](int tab) {
            this->window.guarded(*this, [&] {
                if (this->window.form().focus(&tabs)) tabs.setTab(tab);
            });
        });
        window.watch(*pages->tabBar(), *this);
    }
    QWidget* widget() const override { return pages; }
    QWidget* focusWidget() const override { return pages->tabBar(); }
    QWidget* page(int tab) const override { return pages->widget(tab); }
    void follow() override {
        followCommon(*pages);
        for (std::int32_t i = 0; i < tabs.TabCount(); ++i) {
            pages->setTabEnabled(i, tabs.TabEnabled(i));
            pages->setTabText(i, shown(tabs.TabCaption(i)));
        }
        pages->setCurrentIndex(tabs.Tab());
    }

    Tabs& tabs;
    QTabWidget* pages;
};

}  // namespace

std::unique_ptr<ControlView> makeTextView(FormWindow& window, TextControl& control) {
    if (control.row().multiline) return std::make_unique<LinesView>(window, control);
    return std::make_unique<LineView>(window, control);
}

std::unique_ptr<ControlView> makeButtonView(FormWindow& window, Control& control) {
    if (control.row().kind == ControlKind::button)
        return std::make_unique<ButtonView>(window, static_cast<Button&>(control));
    return std::make_unique<ToggleView>(window, static_cast<Toggle&>(control));
}

std::unique_ptr<ControlView> makeLabelView(FormWindow& window, Label& control) {
    if (control.row().kind == ControlKind::frame) return std::make_unique<FrameView>(window, control);
    return std::make_unique<LabelView>(window, control);
}

std::unique_ptr<ControlView> makeTabsView(FormWindow& window, Tabs& control) {
    return std::make_unique<TabsView>(window, control);
}

std::unique_ptr<ControlView> makeView(FormWindow& window, Control& control) {
    switch (control.row().kind) {
        case ControlKind::label:
        case ControlKind::frame: return makeLabelView(window, static_cast<Label&>(control));
        case ControlKind::text: return makeTextView(window, static_cast<TextControl&>(control));
        case ControlKind::button:
        case ControlKind::check:
        case ControlKind::option: return makeButtonView(window, control);
        case ControlKind::combo:
        case ControlKind::list: return makeChoiceView(window, static_cast<Choice&>(control));
        case ControlKind::tabs: return makeTabsView(window, static_cast<Tabs&>(control));
        case ControlKind::tree: return makeTreeView(window, static_cast<Tree&>(control));
        case ControlKind::grid: return makeGridView(window, static_cast<Grid&>(control));
    }
    throw ContractViolation("a control of no kind");
}

}  // namespace canvas::view
