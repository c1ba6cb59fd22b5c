// Text fields, buttons, check boxes, options, labels, frames and tabs on the screen.

#include <QCheckBox>
#include <QClipboard>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

#include "tests/view/driving.h"

namespace canvas::editors {
namespace {

constexpr ControlRow rows[] = {
    caption("lblName", "Name:", 0),
    text("txbName", "", 0).refuses(Keys::noQuoteNorSemicolon),
    caption("lblUnit", "mm", 0, 2),
    caption("lblNote", "Note:", 1),
    text("txbNote", "", 1).withLines(),
    caption("lblFixed", "Fixed:", 2),
    text("txbFixed", "", 2).viewOnly(),
    check("chkOn", "Switched on", "", 3),
    frame("fraKind", "Kind", 4),
    option("optFirst", "First", 0, 0).within("fraKind"),
    option("optSecond", "Second", 1, 0).within("fraKind"),
    tabs("tabMore", "Plain|Advanced", 5),
    text("txbPlain", "", 0, 0).within("tabMore(0)"),
    text("txbAdvanced", "", 0, 0).within("tabMore(1)"),
    button("btnDo", "&Do it", 3),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr Form::Design design{"frmFields", "Fields", rows};

class FieldsTest final : public QObject {
    Q_OBJECT

    OnScreen screen;
    Ref<TestForm> form;
    std::vector<std::pair<std::string, Event>> events;

    /// Shows the form, runs the script, closes.
    void play(std::function<void(QWidget&)> script) {
        next([this, script = std::move(script)](QWidget& window) {
            script(window);
            form->Hide();
        });
        form->Show();
    }
    bool happened(std::string_view name, Event event) const {
        return std::find(events.begin(), events.end(), std::pair(std::string(name), event)) != events.end();
    }
    template <class C>
    C& at(std::string_view name) {
        return form->the<C>(name);
    }

private Q_SLOTS:
    void init() {
        form = make<TestForm>(design);
        events.clear();
        form->handler = [this](Event event, Control& control) { events.emplace_back(control.Name(), event); };
    }

    void typedKeysReachTheField() {
        play([&](QWidget& window) {
            QCOMPARE(QApplication::focusWidget(), &part(window, "txbName"));
            type("12.5");
            QCOMPARE(at<TextControl>("txbName").Text(), "12.5");
            QCOMPARE(at<TextControl>("txbName").SelStart(), 4);
        });
        QVERIFY(happened("txbName", Event::change));
    }
    void refusedKeysDoNot() {
        play([&](QWidget&) {
            type("a\"b;c");
            QCOMPARE(at<TextControl>("txbName").Text(), "abc");
        });
    }
    void pastedTextIsNotFiltered() {
        play([&](QWidget&) {
            QGuiApplication::clipboard()->setText(QStringLiteral("x;y"));
            key(Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(at<TextControl>("txbName").Text(), "x;y");
        });
    }
    void theSelectionIsTheFieldsInBothDirections() {
        play([&](QWidget& window) {
            auto& editor = part<QLineEdit>(window, "txbName");
            at<TextControl>("txbName").setText("a\xF0\x9F\x98\x80z");  // the middle one is two units long
            at<TextControl>("txbName").setSelStart(1);
            at<TextControl>("txbName").setSelLength(2);
            QTest::qWait(0);
            QCOMPARE(editor.selectionStart(), 1);
            QCOMPARE(editor.selectionLength(), 2);
            key(Qt::Key_End);
            QCOMPARE(at<TextControl>("txbName").SelStart(), 4);
            QCOMPARE(at<TextControl>("txbName").SelLength(), 0);
            key(Qt::Key_Backspace);
            key(Qt::Key_Backspace);
            QCOMPARE(at<TextControl>("txbName").Text(), "a");
        });
    }
    void whatAHandlerPutsIntoTheFieldIsShownBeforeTheNextKey() {
        form->handler = [this](Event event, Control& control) {
            auto* field = control.Name() == "txbName" ? &at<TextControl>("txbName") : nullptr;
            if (field && event == Event::change && field->Text() == "a") field->setText("<a>");
        };
        play([&](QWidget& window) {
            type("ab");
            QCOMPARE(part<QLineEdit>(window, "txbName").text(), QStringLiteral("b<a>"));
        });
    }
    void doubleClickIsTold() {
        play([&](QWidget& window) { QTest::mouseDClick(&part(window, "txbName"), Qt::LeftButton); });
        QVERIFY(happened("txbName", Event::doubleClick));
    }
    void linesEndWithCarriageReturnAndLineFeed() {
        play([&](QWidget& window) {
            auto& note = at<TextControl>("txbNote");
            note.setText("one\r\ntwo");
            note.SetFocus();
            note.setSelStart(8);
            QTest::qWait(0);
            QCOMPARE(part<QPlainTextEdit>(window, "txbNote").toPlainText(), QStringLiteral("one\ntwo"));
            type("!");
            key(Qt::Key_Return);
            type("x");
            QCOMPARE(note.Text(), "one\r\ntwo!\r\nx");
            QCOMPARE(note.SelStart(), 12);
            QVERIFY(form->Visible());
        });
    }
    void aFieldForReadingTakesNothing() {
        play([&](QWidget&) {
            at<TextControl>("txbFixed").setText("kept");
            at<TextControl>("txbFixed").SetFocus();
            QTest::qWait(0);
            type("x");
            QCOMPARE(at<TextControl>("txbFixed").Text(), "kept");
        });
    }
    void checkBoxFollowsBothWays() {
        play([&](QWidget& window) {
            auto& box = part<QCheckBox>(window, "chkOn");
            click(box);
            QVERIFY(at<Toggle>("chkOn").value());
            QVERIFY(at<Toggle>("chkOn").HasFocus());
            at<Toggle>("chkOn").setValue(false);
            QTest::qWait(0);
            QVERIFY(!box.isChecked());
            key(Qt::Key_Space);
            QVERIFY(at<Toggle>("chkOn").value());
        });
    }
    void oneOptionOfAFrameIsSet() {
        play([&](QWidget& window) {
            click(part(window, "optFirst"));
            QVERIFY(part<QRadioButton>(window, "optFirst").isChecked());
            click(part(window, "optFirst"));
            QVERIFY(part<QRadioButton>(window, "optFirst").isChecked());
            key(Qt::Key_Down);
            QVERIFY(at<Toggle>("optSecond").value());
            QVERIFY(!at<Toggle>("optFirst").value());
            QVERIFY(!part<QRadioButton>(window, "optFirst").isChecked());
            QCOMPARE(part<QRadioButton>(window, "optFirst").parentWidget(), &part(window, "fraKind"));
        });
    }
    void labelsAndFramesShowTheirCaption() {
        play([&](QWidget& window) {
            at<Label>("lblUnit").setCaption("inch");
            at<Label>("fraKind").setCaption("Sort");
            QTest::qWait(0);
            QCOMPARE(part<QLabel>(window, "lblUnit").text(), QStringLiteral("inch"));
            QCOMPARE(part<QGroupBox>(window, "fraKind").title(), QStringLiteral("Sort"));
        });
    }
    void tabsTakeTheirPageToTheFront() {
        play([&](QWidget& window) {
            auto& pages = part<QTabWidget>(window, "tabMore");
            QVERIFY(part(window, "txbPlain").isVisible());
            QVERIFY(!part(window, "txbAdvanced").isVisible());
            pages.setCurrentIndex(1);
            QCOMPARE(at<Tabs>("tabMore").Tab(), 1);
            QVERIFY(part(window, "txbAdvanced").isVisible());
            at<Tabs>("tabMore").setTab(0);
            at<Tabs>("tabMore").SetFocus();
            QTest::qWait(0);
            at<Tabs>("tabMore").setTab(1);
            QTest::qWait(0);
            QCOMPARE(pages.currentIndex(), 1);
            at<Tabs>("tabMore").setTab(0);
            at<Tabs>("tabMore").setTabEnabled(1, false);
            QTest::qWait(0);
            QCOMPARE(pages.currentIndex(), 0);
            QVERIFY(!pages.isTabEnabled(1));
        });
    }
    void aMnemonicPressesItsButton() {
        play([&](QWidget&) {
            key(Qt::Key_D, Qt::AltModifier);
            QTRY_VERIFY(happened("btnDo", Event::click));
        });
    }
    void enterAndEscapePressTheirButtons() {
        play([&](QWidget&) {
            key(Qt::Key_Return);
            QVERIFY(happened("btnOK", Event::click));
            key(Qt::Key_Escape);
            QVERIFY(happened("btnCancel", Event::click));
        });
    }
    void enterOnAButtonPressesThatButton() {
        play([&](QWidget&) {
            at<Button>("btnCancel").SetFocus();
            QTest::qWait(0);
            key(Qt::Key_Return);
        });
        QVERIFY(happened("btnCancel", Event::click));
        QVERIFY(!happened("btnOK", Event::click));
    }
    void hiddenAndDisabledControlsAreSo() {
        play([&](QWidget& window) {
            at<TextControl>("txbName").setEnabled(false);
            at<Button>("btnDo").setVisible(false);
            QTest::qWait(0);
            QVERIFY(!part(window, "txbName").isEnabled());
            QVERIFY(!part(window, "btnDo").isVisible());
        });
    }
    void aColouredFieldBringsItsTextColour() {
        play([&](QWidget& window) {
            at<TextControl>("txbName").setBackColor(255);  // red is the low byte
            at<TextControl>("txbNote").setBackColor(65535);
            QTest::qWait(0);
            QCOMPARE(part(window, "txbName").palette().color(QPalette::Base), QColor(255, 0, 0));
            QCOMPARE(part(window, "txbName").palette().color(QPalette::Text), QColor(Qt::white));
            QCOMPARE(part(window, "txbNote").palette().color(QPalette::Base), QColor(255, 255, 0));
            QCOMPARE(part(window, "txbNote").palette().color(QPalette::Text), QColor(Qt::black));
            at<TextControl>("txbName").setBackColor(-1);
            QTest::qWait(0);
            QCOMPARE(part(window, "txbName").palette().color(QPalette::Base), window.palette().color(QPalette::Base));
        });
    }
};

}  // namespace

QObject* makeFieldsTest() { return new FieldsTest; }

}  // namespace canvas::editors

#include "fields_test.moc"
