#pragma once
// Plays the user of a dialog on the (offscreen) screen: finds its widgets by the names of their controls.

#include <functional>

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include "editors/forms.h"
#include "editors/own_view.h"
#include "tests/editors/playing.h"

namespace canvas::editors {

/// What goes on inside the modal dialog that comes up next.
inline void next(std::function<void(QWidget& window)> script) {
    QTimer::singleShot(0, qApp, [script = std::move(script)] {
        QWidget* window = QApplication::activeModalWidget();
        if (!window) qFatal("no dialog has come up");
        QTest::qWait(0);  // what was left for the event loop
        const QPointer<QWidget> still = window;
        script(*window);
        if (QTest::currentTestFailed() && still) still->close();
    });
}

template <class W = QWidget>
W& part(QWidget& window, const char* name) {
    W* found = window.findChild<W*>(QString::fromLatin1(name));
    if (!found) qFatal("the dialog has no %s", name);
    return *found;
}

/// Coming back from a box takes the platform a moment.
inline QWidget& focused() {
    if (!QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }, 2000)) qFatal("nothing has the focus");
    return *QApplication::focusWidget();
}
inline void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&focused(), key, modifiers); }
inline void type(const char* text) {
    for (; *text; ++text) QTest::keyClick(&focused(), *text);
}

/// At the left, where also wide check boxes are met.
inline void click(QWidget& widget) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(std::min(8, widget.width() / 2), widget.height() / 2));
}

/// The view answers message boxes and input boxes too.
struct OnScreen {
    WithEnvironment with{
        Environment{.interaction = std::shared_ptr<Interaction>(ownView(), [](Interaction*) {}), .forms = dialogs()}};
};

/// A form made for a test: its table, and what its handlers do.
class TestForm final : public Form {
public:
    explicit TestForm(const Design& design) : Form(design) {}
    std::function<void(Event, Control&)> handler;
    std::function<bool(GridEvent, Grid&, std::int32_t, std::int32_t)> gridHandler;
    std::function<bool(char32_t)> keyHandler;

protected:
    void on(Event event, Control& control) override {
        if (handler) handler(event, control);
    }
    bool onGrid(GridEvent event, Grid& grid, std::int32_t row, std::int32_t col) override {
        return !gridHandler || gridHandler(event, grid, row, col);
    }
    bool onKey(char32_t key) override { return (keyHandler && keyHandler(key)) || Form::onKey(key); }
};

/// Each test class by its name, made by its file.
struct TestClass {
    const char* name;
    QObject* (*make)();
};
QObject* makeFieldsTest();
QObject* makeListsTest();
QObject* makeGridTest();
QObject* makeWindowTest();
QObject* makeBoxesTest();

}  // namespace canvas::editors
