#pragma once
// A form on the screen, from its opening to its end.

#include <exception>
#include <unordered_map>

#include <QDialog>
#include <QPointer>

#include "editors/qt/control_view.h"

class QEventLoop;

namespace canvas::view {

class FormWindow final : public QDialog, private FormWatcher {
public:
    explicit FormWindow(Form& form);
    ~FormWindow() override;

    /// Shows the form until it is hidden or unloaded. What a handler let through ends the showing and is raised here.
    void run();

    Form& form() const noexcept { return m_form; }
    ControlView* viewOf(const Control* control) const noexcept;
    const std::vector<std::unique_ptr<ControlView>>& views() const noexcept { return m_views; }

    /// The view's events come to this window first.
    void watch(QWidget& widget, ControlView& view);

    /// Runs what the user did, and brings the screen up to what came of it. Nothing while the screen itself is being
    /// brought up: then it was not the user. No exception leaves.
    template <class Act>
    void guarded(Act&& act) noexcept {
        if (m_following) return;
        const Ref<Form> keep(&m_form);
        try {
            act();
        } catch (...) {
            failed(std::current_exception());
        }
        followChanges();
    }
    /// For what the user did to one control: its view is brought up in any case, also when the control refused.
    template <class Act>
    void guarded(ControlView& view, Act&& act) noexcept {
        if (m_following) return;
        controlChanged(view.control);
        guarded(act);
    }

    bool eventFilter(QObject* object, QEvent* event) override;
    void reject() override {}  // the Escape key is the form's, the close box comes as a close event
    void accept() override {}

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void controlChanged(Control& control) override;
    void focusMoved(Control* to) override;
    void formChanged() override;

    void failed(std::exception_ptr failure) noexcept;
    void followLater();
    void followChanges() noexcept;
    void followFocus();
    bool keyPressed(ControlView& view, QKeyEvent& event);
    bool typed(ControlView& view, const QString& text);
    void focusArrived(ControlView& view);

    Form& m_form;
    std::vector<std::unique_ptr<ControlView>> m_views;
    std::unordered_map<const Control*, ControlView*> m_byControl;
    std::unordered_map<const QObject*, ControlView*> m_byWidget;
    std::vector<ControlView*> m_dirty;
    bool m_focusDirty = true;
    bool m_following = false;
    bool m_followsLater = false;
    QEventLoop* m_loop = nullptr;
    std::exception_ptr m_failure;
};

/// Places the widgets by the lines and columns of the form's rows.
void layOut(FormWindow& window);
/// Names for assistive tools, buddies of mnemonics, and the tab order.
void nameForAssistance(FormWindow& window);

/// Lets a window without a parent stand over the one that is in front, which comes to the front again at the end of the
/// scope.
class InFront {
public:
    explicit InFront(QWidget& window);
    ~InFront();
    InFront(const InFront&) = delete;
    InFront& operator=(const InFront&) = delete;

private:
    QPointer<QWidget> m_below;
};

}  // namespace canvas::view
