// A dialog as a whole: opening and closing, the order of the focus, failures, what assistive tools read out, scale.

#include <clocale>

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>

#include "attributes/datatypes.h"
#include "editors/error_form.h"
#include "tests/view/driving.h"
#include "tracing/branch.h"

namespace canvas::editors {
namespace {

constexpr ControlRow rows[] = {
    caption("lblFirst", "&First:", 0),
    text("txbFirst", "", 0),
    text("txbGone", "", 1).hidden(),
    text("txbSecond", "", 2),
    okButton(),
    cancelButton(),
};
constexpr Form::Design design{"frmPlain", "Plain", rows};
constexpr Form::Design heldDesign{"frmHeld", "Held", rows, false, true};

class WindowTest final : public QObject {
    Q_OBJECT

    OnScreen screen;
    Ref<TestForm> form;

    void play(std::function<void(QWidget&)> script) {
        next([this, script = std::move(script)](QWidget& window) {
            script(window);
            form->Hide();
        });
        form->Show();
    }

private Q_SLOTS:
    void init() { form = make<TestForm>(design); }

    void moveAxisIsTypedIntoAndWritten() {
        const Ref<Form> moveAxis = makeForm("frmMoveAxis");
        invoke(*moveAxis, "SetData", Ref<Object>(), Ref<Object>(), Ref<Object>(checker()));
        next([](QWidget& window) {
            QCOMPARE(window.windowTitle(), QStringLiteral("Move Axis"));
            QCOMPARE(part(window, "txbVelocity").accessibleName(), QStringLiteral("Velocity"));
            QCOMPARE(part(window, "txbVelocity").accessibleDescription(), QStringLiteral("unit/sec"));
            part<QLineEdit>(window, "txbVelocity").setFocus();
            key(Qt::Key_A, Qt::ControlModifier);
            type("12.5");
            key(Qt::Key_Return);
        });
        moveAxis->Show();
        QVERIFY(moveAxis->get("OKClicked").toBoolean());
        QCOMPARE(moveAxis->get("BVTAttribute").toObject()->get("Velocity").toText(), "12.5");
        QVERIFY(!QApplication::activeModalWidget());
    }
    void theErrorDialogAsksOnTheScreen() {
        ErrorDialog dialog;
        const tracing::WithErrorHandler asking(dialog);
        int tries = 0;
        next([](QWidget& window) {
            QVERIFY(!window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
            QVERIFY(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
            QVERIFY(part<QLabel>(window, "lblErrorString").text().contains(QStringLiteral("Division by zero")));
            click(part(window, "cmdAction(1)"));
        });
        tracing::Procedure run("clsTest", "Work", nullptr, [](tracing::Locals&) {});
        run([&] {
            if (++tries == 1) raise(Error::divisionByZero);
        });
        QCOMPARE(tries, 2);
    }
    void aRefusedOkTellsAndStays() {
        const Ref<Form> moveAxis = makeForm("frmMoveAxis");
        invoke(*moveAxis, "SetData", Ref<Object>(), Ref<Object>(), Ref<Object>(checker("Velocity")));
        bool told = false;
        next([&](QWidget& window) {
            next([&](QWidget& box) {
                told = true;
                QCOMPARE(box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->text(),
                         QStringLiteral("bad Velocity"));
                key(Qt::Key_Return);
            });
            click(part(window, "btnOK"));
            QVERIFY(moveAxis->Visible());
            click(part(window, "btnCancel"));
        });
        moveAxis->Show();
        QVERIFY(told);
        QVERIFY(!moveAxis->get("OKClicked").toBoolean());
    }
    void theFocusMovesInTheOrderOfTheRows() {
        play([&](QWidget&) {
            std::vector<std::string> order;
            for (int i = 0; i < 5; ++i) {
                order.push_back(form->focused()->Name());
                QCOMPARE(QApplication::focusWidget()->objectName().toStdString(), form->focused()->Name());
                key(Qt::Key_Tab);
            }
            QCOMPARE(order, (std::vector<std::string>{"txbFirst", "txbSecond", "btnOK", "btnCancel", "txbFirst"}));
            key(Qt::Key_Backtab, Qt::ShiftModifier);
            QCOMPARE(form->focused()->Name(), "txbFirst");
        });
    }
    void theFormMovesTheFocusToo() {
        play([&](QWidget& window) {
            form->the<TextControl>("txbSecond").SetFocus();
            QTest::qWait(0);
            QCOMPARE(QApplication::focusWidget(), &part(window, "txbSecond"));
            click(part(window, "txbFirst"));
            QCOMPARE(form->focused()->Name(), "txbFirst");
            key(Qt::Key_F, Qt::AltModifier);
            QCOMPARE(form->focused()->Name(), "txbFirst");
        });
    }
    void theFormSeesEachKeyFirst() {
        std::u32string seen;
        form->keyHandler = [&](char32_t key) {
            seen += key;
            return key == U'x';
        };
        play([&](QWidget&) {
            type("axb");
            key(Qt::Key_Backspace);
            QCOMPARE(form->the<TextControl>("txbFirst").Text(), "a");
        });
        QVERIFY(seen == U"axb\b");
    }
    void theCloseBoxIsTheForms() {
        next([](QWidget& window) { window.close(); });
        form->Show();
        QVERIFY(!form->Visible());
    }
    void aFormWithoutACloseBoxStays() {
        form = make<TestForm>(heldDesign);
        play([&](QWidget& window) {
            window.close();
            QVERIFY(form->Visible());
            QVERIFY(window.isVisible());
            QVERIFY(!(window.windowFlags() & Qt::WindowCloseButtonHint));
            QVERIFY(window.windowFlags() & Qt::WindowStaysOnTopHint);
        });
    }
    void nestedFormsBlockTheOneBelow() {
        const Ref<TestForm> inner = make<TestForm>(heldDesign);
        form->handler = [&](Event event, Control& control) {
            if (event == Event::click && control.Name() == "btnOK") inner->Show();
        };
        play([&](QWidget& window) {
            next([&](QWidget& front) {
                QCOMPARE(front.windowTitle(), QStringLiteral("Held"));
                QCOMPARE(front.windowModality(), Qt::ApplicationModal);
                QVERIFY(window.isVisible());
                inner->Hide();
            });
            click(part(window, "btnOK"));
            QVERIFY(!inner->Visible());
            QCOMPARE(QApplication::activeModalWidget(), &window);
        });
    }
    void aFormHiddenWhileANestedOneIsOpenEndsBehindIt() {
        const Ref<TestForm> inner = make<TestForm>(design);
        form->handler = [&](Event event, Control& control) {
            if (event == Event::click && control.Name() == "btnOK") inner->Show();
        };
        next([&](QWidget& window) {
            next([&](QWidget& front) {
                form->Hide();
                QTest::qWait(5);
                QVERIFY(front.isVisible());
                QVERIFY(inner->Visible());
                inner->Hide();
            });
            click(part(window, "btnOK"));
        });
        form->Show();
        QVERIFY(!form->Visible() && !inner->Visible());
    }
    void aFailureThatAHandlerHandsOnEndsTheShowingAndArrives() {
        form->handler = [](Event event, Control&) {
            if (event == Event::click) raise(Error::overflow, "too much");
        };
        next([](QWidget& window) { click(part(window, "btnOK")); });
        std::string said;
        try {
            form->Show();
        } catch (const RuntimeError& error) {
            said = error.description;
        }
        QCOMPARE(said, "too much");
        QVERIFY(!form->Visible());
        QVERIFY(!QApplication::activeModalWidget());
    }
    void aProgrammersMistakeArrivesToo() {
        form->handler = [this](Event event, Control&) {
            if (event == Event::click) form->the<Label>("none");
        };
        next([](QWidget& window) { click(part(window, "btnOK")); });
        QVERIFY_EXCEPTION_THROWN(form->Show(), ContractViolation);
    }
    void aFailureOfANestedFormReachesTheHandlerThatOpenedIt() {
        const Ref<TestForm> inner = make<TestForm>(design);
        inner->handler = [](Event event, Control&) {
            if (event == Event::click) raise(Error::overflow);
        };
        bool caught = false;
        form->handler = [&](Event event, Control&) {
            if (event != Event::click) return;
            try {
                inner->Show();
            } catch (const RuntimeError&) {
                caught = true;
            }
        };
        play([&](QWidget& window) {
            next([](QWidget& front) { click(part(front, "btnOK")); });
            click(part(window, "btnOK"));
            QVERIFY(form->Visible());
        });
        QVERIFY(caught);
    }
    void captionChangesAreShown() {
        play([&](QWidget& window) {
            form->setCaption("Other");
            QCOMPARE(window.windowTitle(), QStringLiteral("Other"));
        });
    }
    void closingManyTimesLeavesNoWindowBehind() {
        const auto windows = QApplication::topLevelWidgets().size();
        for (int i = 0; i < 50; ++i) play([](QWidget&) {});
        QCOMPARE(QApplication::topLevelWidgets().size(), windows);
    }

    void everyFormOpensWithNamesForAssistiveTools_data() {
        QTest::addColumn<QString>("name");
        for (const FormEntry& entry : forms())
            QTest::newRow(entry.name.data()) << QString::fromLatin1(entry.name.data());
    }
    void everyFormOpensWithNamesForAssistiveTools() {
        QFETCH(QString, name);
        const Ref<Form> any = makeForm(name.toStdString());
        next([&](QWidget& window) {
            for (const Ref<Control>& control : any->controls()) {
                QWidget& widget = part(window, control->Name().c_str());
                if (control->row().kind == ControlKind::label) continue;
                QVERIFY2(!widget.accessibleName().isEmpty(), control->Name().c_str());
            }
            any->Hide();
        });
        any->Show();
    }
    /// No text is cut: each widget has at least the size that it asks for.
    void everyFormHasRoomForItsTextsInATwiceAsLargeFont() {
        const QFont before = QApplication::font();
        QFont large = before;
        large.setPointSizeF(before.pointSizeF() * 2);
        QApplication::setFont(large);
        for (const FormEntry& entry : forms()) {
            const Ref<Form> any = entry.make();
            next([&](QWidget& window) {
                for (QWidget* widget : window.findChildren<QWidget*>()) {
                    const bool shows = qobject_cast<QAbstractButton*>(widget) ||
                                       (qobject_cast<QLabel*>(widget) && !static_cast<QLabel*>(widget)->wordWrap());
                    if (!shows || !widget->isVisible() || !any->find(widget->objectName().toStdString())) continue;
                    const QSize wanted = widget->minimumSizeHint();
                    QVERIFY2(widget->width() >= wanted.width() && widget->height() >= wanted.height(),
                             qPrintable(window.windowTitle() + QLatin1Char(' ') + widget->objectName()));
                }
                any->Hide();
            });
            any->Show();
        }
        QApplication::setFont(before);
    }
    void numbersKeepTheirDecimalPoint() {
        const char* numbers = std::setlocale(LC_NUMERIC, nullptr);  // banned-ok: asked only
        QCOMPARE(numbers, "C");
    }
};

}  // namespace

QObject* makeWindowTest() { return new WindowTest; }

}  // namespace canvas::editors

#include "window_test.moc"
