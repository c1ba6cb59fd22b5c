#include "editors/qt/form_window.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

#include "editors/qt/text.h"

namespace canvas::view {

InFront::InFront(QWidget& window) {
    QWidget* front = QApplication::activeModalWidget();
    if (!front) front = QApplication::activeWindow();
    window.adjustSize();
    window.winId();  // makes the window, so that it can be tied to the one below
    if (!front || !front->windowHandle()) return;
    m_below = front;
    window.windowHandle()->setTransientParent(front->windowHandle());
    const QRect room = front->screen()->availableGeometry();
    QRect frame = window.rect();
    frame.moveCenter(front->frameGeometry().center());
    frame.moveTo(qBound(room.left(), frame.left(), std::max(room.left(), room.right() - frame.width())),
                 qBound(room.top(), frame.top(), std::max(room.top(), room.bottom() - frame.height())));
    window.move(frame.topLeft());
}

InFront::~InFront() {
    if (m_below) m_below->activateWindow();
}

FormWindow::FormWindow(Form& form) : m_form(form) {
    setObjectName(shown(form.Name()));
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowModality(Qt::ApplicationModal);
    Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    if (form.design().closeBox) flags |= Qt::WindowCloseButtonHint;
    if (form.design().topmost) flags |= Qt::WindowStaysOnTopHint;
    setWindowFlags(flags);
    setWindowTitle(shown(form.Caption()));
    m_views.reserve(form.controls().size());
    for (const Ref<Control>& control : form.controls()) {
        m_views.push_back(makeView(*this, *control));
        m_byControl[control.get()] = m_views.back().get();
        m_views.back()->widget()->setObjectName(shown(control->Name()));
    }
    layOut(*this);
    nameForAssistance(*this);
    for (const auto& view : m_views) m_dirty.push_back(view.get());
    followChanges();
    form.setWatcher(this);
}

FormWindow::~FormWindow() {
    m_form.setWatcher(nullptr);
    m_following = true;  // widgets tell of their end
    qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

void FormWindow::run() {
    QEventLoop loop;
    m_loop = &loop;
    const InFront here(*this);
    show();
    activateWindow();
    followLater();  // the focus has nowhere to go before there is a window
    if (m_form.Visible()) loop.exec(QEventLoop::DialogExec);
    m_loop = nullptr;
    hide();  // before the one below comes to the front
    if (m_failure) std::rethrow_exception(m_failure);
}

ControlView* FormWindow::viewOf(const Control* control) const noexcept {
    const auto found = m_byControl.find(control);
    return found == m_byControl.end() ? nullptr : found->second;
}

void FormWindow::watch(QWidget& widget, ControlView& view) {
    m_byWidget[&widget] = &view;
    widget.installEventFilter(this);
    // the toolkit would move its focus before anybody is asked: presses come by the filter, which asks the form
    if (widget.focusPolicy() & Qt::ClickFocus) widget.setFocusPolicy(Qt::TabFocus);
}

void FormWindow::failed(std::exception_ptr failure) noexcept {
    if (!m_failure) m_failure = std::move(failure);
    if (m_loop) m_loop->quit();
}

void FormWindow::controlChanged(Control& control) {
    ControlView* view = viewOf(&control);
    if (!view || (!m_dirty.empty() && m_dirty.back() == view)) return;
    m_dirty.push_back(view);
    followLater();
}

void FormWindow::focusMoved(Control*) {
    m_focusDirty = true;
    followLater();
}

void FormWindow::formChanged() {
    if (!m_form.Visible() && m_loop) m_loop->quit();
    setWindowTitle(shown(m_form.Caption()));
}

/// Handlers change many things in a row; the screen follows once, at the latest when the event loop runs again.
void FormWindow::followLater() {
    if (m_followsLater || m_following) return;
    m_followsLater = true;
    QMetaObject::invokeMethod(
        this, [this] { followChanges(); }, Qt::QueuedConnection);
}

void FormWindow::followChanges() noexcept {
    m_followsLater = false;
    if (m_following) return;
    m_following = true;
    try {
        std::vector<ControlView*> dirty = std::move(m_dirty);
        m_dirty.clear();
        std::sort(dirty.begin(), dirty.end());
        dirty.erase(std::unique(dirty.begin(), dirty.end()), dirty.end());
        for (ControlView* view : dirty) view->follow();
        if (m_focusDirty) followFocus();
    } catch (...) {
        failed(std::current_exception());
    }
    m_following = false;
}

void FormWindow::followFocus() {
    if (!isVisible()) return;
    m_focusDirty = false;
    ControlView* view = viewOf(m_form.focused());
    if (view && view->focusWidget()) view->focusWidget()->setFocus(Qt::OtherFocusReason);
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (m_form.design().closeBox) guarded([&] { m_form.Close(); });
}

/// Keys that no control took, as when none has the focus.
void FormWindow::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter || event->key() == Qt::Key_Escape) return guarded([&] { m_form.keyPressed(enter ? U'\r' : U'\x1B'); });
    event->ignore();
}

void FormWindow::focusArrived(ControlView& view) {
    guarded([&] {
        if (!m_form.focus(&view.control)) m_focusDirty = true;
    });
}

/// True when the text is not to reach the field.
bool FormWindow::typed(ControlView& view, const QString& text) {
    bool refused = false;
    guarded([&] {
        for (const char32_t key : text.toStdU32String()) {
            if (m_form.keyPressed(key) || !m_form.Visible() || !view.accepts(key)) {
                refused = true;
                return;
            }
        }
    });
    return refused;
}

bool FormWindow::keyPressed(ControlView& view, QKeyEvent& event) {
    if (view.owns(event)) return view.key(event);
    const bool plain = !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    switch (event.key()) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            if (!plain) return false;
            guarded([&] { m_form.focusNext(event.key() == Qt::Key_Backtab); });
            return true;
        case Qt::Key_Escape:
        case Qt::Key_Return:
        case Qt::Key_Enter: {
            const bool escape = event.key() == Qt::Key_Escape;
            const bool pressesButton = !escape && view.control.row().kind == ControlKind::button;
            guarded([&] {
                if (pressesButton) static_cast<Button&>(view.control).Click();
                else m_form.keyPressed(escape ? U'\x1B' : U'\r');
            });
            return true;
        }
        case Qt::Key_Backspace:
            if (plain && typed(view, QStringLiteral("\b"))) return true;
            break;
        default:
            // AltGr comes as Control and Alt on some platforms, but with a printable character
            if (!event.text().isEmpty() && event.text().front().isPrint() && typed(view, event.text())) return true;
    }
    return view.key(event);
}

bool FormWindow::eventFilter(QObject* object, QEvent* event) {
    const auto found = m_byWidget.find(object);
    if (found == m_byWidget.end() || m_following) return false;
    ControlView& view = *found->second;
    switch (event->type()) {
        case QEvent::FocusIn: {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            // coming back to the window or from a menu is no move within the form
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) focusArrived(view);
            return false;
        }
        case QEvent::KeyPress: return keyPressed(view, *static_cast<QKeyEvent*>(event));
        case QEvent::InputMethod: {
            const QString& committed = static_cast<QInputMethodEvent*>(event)->commitString();
            return !committed.isEmpty() && typed(view, committed);
        }
        case QEvent::MouseButtonPress: {
            const ControlKind kind = view.control.row().kind;
            const bool waitsForRelease =
                kind == ControlKind::button || kind == ControlKind::check || kind == ControlKind::option;
            bool refused = false;
            if (view.control.canTakeFocus() && !waitsForRelease)
                guarded([&] {
                    m_focusDirty = true;
                    refused = !m_form.focus(&view.control);
                });
            return refused || view.mouse(*static_cast<QMouseEvent*>(event));
        }
        case QEvent::Wheel:  // scrolling past a combo box is not to change it
            if (view.control.row().kind != ControlKind::combo || view.control.HasFocus()) return false;
            event->ignore();
            return true;
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick: return view.mouse(*static_cast<QMouseEvent*>(event));
        default: return false;
    }
}

}  // namespace canvas::view
