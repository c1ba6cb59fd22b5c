#pragma once
// One control on the screen. It follows its control when that changes, and hands every act of the user on to it.

#include <memory>

#include "editors/form.h"

class QKeyEvent;
class QMouseEvent;
class QObject;
class QWidget;

namespace canvas::view {

using namespace editors;

class FormWindow;

class ControlView {
public:
    ControlView(FormWindow& window, Control& control) : window(window), control(control) {}
    virtual ~ControlView() = default;
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;

    /// What stands in the layout.
    virtual QWidget* widget() const = 0;
    /// What has the toolkit's focus while the control has the form's.
    virtual QWidget* focusWidget() const { return widget(); }
    /// Brings the screen up to the control.
    virtual void follow() = 0;

    /// Whether the key is the control's alone: the form is not asked.
    virtual bool owns(const QKeyEvent&) const { return false; }
    /// A key that the form has let pass. True: used up, else the toolkit gets it.
    virtual bool key(QKeyEvent&) { return false; }
    /// Whether the character may go in.
    virtual bool accepts(char32_t) const { return true; }
    /// A press, release or double click; true: used up.
    virtual bool mouse(QMouseEvent&) { return false; }
    /// Of the container that a control may stand in: the widget that carries its page. Tabs have one for each tab.
    virtual QWidget* page(int) const { return nullptr; }

    FormWindow& window;
    Control& control;

protected:
    /// Visibility, enabling and colour.
    void followCommon(QWidget& widget) const;
};

std::unique_ptr<ControlView> makeView(FormWindow& window, Control& control);

// The kinds, by file.
std::unique_ptr<ControlView> makeTextView(FormWindow& window, TextControl& control);
std::unique_ptr<ControlView> makeButtonView(FormWindow& window, Control& control);
std::unique_ptr<ControlView> makeLabelView(FormWindow& window, Label& control);
std::unique_ptr<ControlView> makeTabsView(FormWindow& window, Tabs& control);
std::unique_ptr<ControlView> makeChoiceView(FormWindow& window, Choice& control);
std::unique_ptr<ControlView> makeTreeView(FormWindow& window, Tree& control);
std::unique_ptr<ControlView> makeGridView(FormWindow& window, Grid& control);

}  // namespace canvas::view
