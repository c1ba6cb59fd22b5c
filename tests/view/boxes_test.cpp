// Message boxes, input boxes, the clipboard.

#include <QClipboard>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "tests/view/driving.h"

namespace canvas::editors {
namespace {

class BoxesTest final : public QObject {
    Q_OBJECT

    OnScreen screen;
    Interaction& view = *ownView();

    Reply answer(Buttons buttons, QMessageBox::StandardButton button) {
        next([button](QWidget& window) { click(*dynamic_cast<QMessageBox&>(window).button(button)); });
        return view.messageBox({.text = "?", .buttons = buttons, .title = {}});
    }
    Reply closed(Buttons buttons) {
        next([](QWidget&) { key(Qt::Key_Escape); });
        return view.messageBox({.text = "Well?", .buttons = buttons, .title = {}});
    }

private Q_SLOTS:
    void everyButtonIsItsAnswer() {
        using B = QMessageBox;
        QCOMPARE(answer(Buttons::ok, B::Ok), Reply::ok);
        QCOMPARE(answer(Buttons::okCancel, B::Cancel), Reply::cancel);
        QCOMPARE(answer(Buttons::yesNo, B::Yes), Reply::yes);
        QCOMPARE(answer(Buttons::yesNoCancel, B::No), Reply::no);
        QCOMPARE(answer(Buttons::abortRetryIgnore, B::Abort), Reply::abort);
        QCOMPARE(answer(Buttons::abortRetryIgnore, B::Retry), Reply::retry);
        QCOMPARE(answer(Buttons::abortRetryIgnore, B::Ignore), Reply::ignore);
    }
    void escapeIsTheSafeAnswer() {
        QCOMPARE(closed(Buttons::ok), Reply::ok);
        QCOMPARE(closed(Buttons::okCancel), Reply::cancel);
        QCOMPARE(closed(Buttons::yesNo), Reply::no);
        QCOMPARE(closed(Buttons::yesNoCancel), Reply::cancel);
        QCOMPARE(closed(Buttons::abortRetryIgnore), Reply::abort);
    }
    void textTitleAndIconAreShownAsTheyStand() {
        next([](QWidget& window) {
            auto& box = dynamic_cast<QMessageBox&>(window);
            QCOMPARE(box.text(), QStringLiteral("<b>a\nb\nc"));
            QCOMPARE(box.textFormat(), Qt::PlainText);
            QCOMPARE(box.windowTitle(), QStringLiteral("Data Entry"));
            QCOMPARE(box.icon(), QMessageBox::Warning);
            key(Qt::Key_Return);
        });
        view.messageBox({.text = "<b>a\rb\r\nc", .icon = Icon::exclamation, .title = "Data Entry"});
    }
    void anInputBoxGivesWhatWasTyped() {
        next([](QWidget& window) {
            QCOMPARE(window.windowTitle(), QStringLiteral("Table"));
            auto* field = window.findChild<QLineEdit*>();
            QCOMPARE(field->text(), QStringLiteral("0"));
            QCOMPARE(field->accessibleName(), QStringLiteral("Index?"));
            field->selectAll();
            QTest::keyClicks(field, QStringLiteral("17"));
            key(Qt::Key_Return);
        });
        QCOMPARE(view.inputBox("Index?", "Table", "0"), "17");
    }
    void aCancelledInputBoxGivesNothing() {
        next([](QWidget&) { key(Qt::Key_Escape); });
        QCOMPARE(view.inputBox("Index?", "Table", "5"), "");
    }
    void theClipboardTakesText() {
        view.setClipboard("\xC3\xA4;1");
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("\u00E4;1"));
    }
    void whatIsNoFormIsNotShown() { QVERIFY(!view.showForm(*make<Composed>())); }
};

}  // namespace

QObject* makeBoxesTest() { return new BoxesTest; }

}  // namespace canvas::editors

#include "boxes_test.moc"
