// The grid on the screen.

#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "tests/view/driving.h"

namespace canvas::editors {
namespace {

constexpr ControlRow rows[] = {
    text("txbOther", "", 0, 0),
    grid("grdList", "|Variable|Expression|Active", 1),
    button("btnDo", "&Do it", 3),
    okButton(),
    cancelButton(),
};
constexpr Form::Design design{"frmGrid", "Grid", rows};

class GridTest final : public QObject {
    Q_OBJECT

    OnScreen screen;
    Ref<TestForm> form;
    Grid* grid = nullptr;
    std::vector<GridEvent> events;
    std::vector<std::string> clicked;

    void play(std::function<void(QTableView&)> script) {
        next([this, script = std::move(script)](QWidget& window) {
            script(part<QTableView>(window, "grdList"));
            form->Hide();
        });
        form->Show();
    }
    std::ptrdiff_t count(GridEvent event) const { return std::count(events.begin(), events.end(), event); }
    /// Rows and columns as the form counts them.
    static QRect cell(QTableView& table, int row, int col) {
        return table.visualRect(table.model()->index(row - 1, col - 1));
    }
    static void press(QTableView& table, int row, int col) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell(table, row, col).center());
    }
    static void startEdit(QTableView& table, int row, int col) {
        press(table, row, col);
        key(Qt::Key_F2);
    }
    static QLineEdit& editor(QTableView& table) { return *table.viewport()->findChild<QLineEdit*>(); }

    /// A checker that knows every expression but "wrong".
    static Ref<Object> expressions() {
        auto object = make<Composed>("Checker");
        object->method("checkexpression", [](Args args) { return Value(std::int32_t{args[0].toText() == "wrong"}); });
        object->method("GetResult", [](Args args) {
            args[0] = Value(std::int32_t{16});
            args[1] = Value(true);
            return Value();
        });
        object->method("GetErrorInfo", [](Args args) {
            args[0] = Value("no such name");
            return Value();
        });
        return object;
    }

private Q_SLOTS:
    void init() {
        form = make<TestForm>(design);
        grid = &form->the<Grid>("grdList");
        grid->setColumnKind(1, ColumnKind::button);
        grid->setColumnKind(3, ColumnKind::check);
        for (int i = 0; i < 10; ++i) grid->addRow({"v" + std::to_string(i + 1), "1"});
        events.clear();
        clicked.clear();
        form->gridHandler = [this](GridEvent event, Grid&, std::int32_t, std::int32_t) {
            events.push_back(event);
            return event != GridEvent::validateEdit || grid->editText() != "bad";
        };
        form->handler = [this](Event event, Control& control) {
            if (event == Event::click) clicked.push_back(control.Name());
        };
    }

    void showsHeadersAndCells() {
        play([&](QTableView& table) {
            QCOMPARE(table.model()->rowCount(), 10);
            QCOMPARE(table.model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Variable"));
            QCOMPARE(table.model()->index(2, 0).data().toString(), QStringLiteral("v3"));
            grid->setCell(3, 1, "other");
            grid->addRow();
            QTest::qWait(0);
            QCOMPARE(table.model()->index(2, 0).data().toString(), QStringLiteral("other"));
            QCOMPARE(table.model()->rowCount(), 11);
            grid->removeAllRows();
            QTest::qWait(0);
            QCOMPARE(table.model()->rowCount(), 0);
        });
    }
    void aClickMakesTheCellTheCurrentOne() {
        play([&](QTableView& table) {
            press(table, 4, 2);
            QCOMPARE(grid->Row(), 4);
            QCOMPARE(grid->Col(), 2);
            QVERIFY(grid->HasFocus());
            QCOMPARE(count(GridEvent::click), 1);
        });
    }
    void theKeysMoveWithinTheGridAndOverToTheRowHeader() {
        play([&](QTableView& table) {
            press(table, 4, 2);
            key(Qt::Key_Down);
            key(Qt::Key_Left);
            QCOMPARE(grid->Row(), 5);
            QCOMPARE(grid->Col(), 1);
            key(Qt::Key_Left);
            QCOMPARE(grid->Col(), 0);
            key(Qt::Key_Right);
            QCOMPARE(grid->Col(), 1);
            QCOMPARE(table.currentIndex().row(), 4);
        });
    }
    void returnEndsTheEdit() {
        play([&](QTableView& table) {
            startEdit(table, 1, 2);
            QVERIFY(editor(table).isVisible());
            QCOMPARE(editor(table).selectedText(), QStringLiteral("1"));
            type("2+3");
            QCOMPARE(grid->editText(), "2+3");
            key(Qt::Key_Return);
            QVERIFY(!grid->editing());
            QVERIFY(!editor(table).isVisible());
            QCOMPARE(grid->Cell(1, 2), "2+3");
            QCOMPARE(QApplication::focusWidget(), &table);
            QVERIFY(form->Visible());
        });
    }
    void aTypedKeyBeginsTheEditAndReplacesTheText() {
        play([&](QTableView& table) {
            press(table, 2, 2);
            type("78");
            QCOMPARE(editor(table).text(), QStringLiteral("78"));
            key(Qt::Key_Return);
            QCOMPARE(grid->Cell(2, 2), "78");
        });
    }
    void escapeKeepsTheOldTextAndTheForm() {
        play([&](QTableView& table) {
            startEdit(table, 1, 2);
            type("bad");
            key(Qt::Key_Escape);
            QVERIFY(!grid->editing());
            QCOMPARE(grid->Cell(1, 2), "1");
            QVERIFY(form->Visible());
            QVERIFY(clicked.empty());
        });
    }
    void aBadCellStaysInEditAgainstReturnTabAndClicksElsewhere() {
        play([&](QTableView& table) {
            QWidget& window = *table.window();
            startEdit(table, 1, 2);
            type("bad");
            const auto held = [&](const char* against) {
                QVERIFY2(grid->editing() && grid->editText() == "bad", against);
                QVERIFY2(QApplication::focusWidget() == &editor(table), against);
                QVERIFY2(grid->HasFocus(), against);
            };
            key(Qt::Key_Return);
            held("Return");
            key(Qt::Key_Tab);
            held("Tab");
            key(Qt::Key_Down);
            held("the arrow keys");
            press(table, 5, 2);
            held("a click on another cell");
            QCOMPARE(grid->Row(), 1);
            const auto looked = count(GridEvent::validateEdit);
            click(part(window, "txbOther"));
            held("a click on another field");
            QCOMPARE(count(GridEvent::validateEdit), looked + 1);
            click(part(window, "btnDo"));
            held("a click on a button");
            key(Qt::Key_D, Qt::AltModifier);
            QTest::qWait(200);  // a mnemonic's press is drawn before it counts
            held("a mnemonic");
            click(part(window, "btnOK"));
            held("the OK button");
            QVERIFY(clicked.empty());
            editor(table).setText(QStringLiteral("good"));
            click(part(window, "btnOK"));
            QCOMPARE(grid->Cell(1, 2), "good");
            QCOMPARE(clicked, std::vector<std::string>{"btnOK"});
        });
    }
    void cancelActsAlsoWhileACellIsHeld() {
        play([&](QTableView& table) {
            startEdit(table, 1, 2);
            type("bad");
            click(part(*table.window(), "btnCancel"));
        });
        QCOMPARE(clicked, std::vector<std::string>{"btnCancel"});
    }
    void aCellsButtonIsPressedByMouseAndKey() {
        play([&](QTableView& table) {
            const QRect place = cell(table, 3, 1);
            QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, QPoint(place.right() - 5, place.center().y()));
            QCOMPARE(count(GridEvent::cellButton), 1);
            QCOMPARE(count(GridEvent::click), 0);
            QCOMPARE(grid->Row(), 3);
            key(Qt::Key_F4);
            key(Qt::Key_Down, Qt::AltModifier);
            QCOMPARE(count(GridEvent::cellButton), 3);
        });
    }
    void doubleClickIsTold() {
        play([&](QTableView& table) {
            QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, cell(table, 2, 2).center());
        });
        QCOMPARE(count(GridEvent::doubleClick), 1);
    }
    void aCheckColumnTogglesByClickAndSpace() {
        play([&](QTableView& table) {
            press(table, 2, 3);
            QCOMPARE(grid->Cell(2, 3), "True");
            QCOMPARE(table.model()->index(1, 2).data(Qt::CheckStateRole).toInt(), static_cast<int>(Qt::Checked));
            key(Qt::Key_Space);
            QCOMPARE(grid->Cell(2, 3), "False");
        });
    }
    void theRowHeaderIsColumnZero() {
        play([&](QTableView& table) {
            auto* header = table.verticalHeader();
            const int y = header->sectionViewportPosition(4) + header->sectionSize(4) / 2;
            QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(4, y));
            QCOMPARE(grid->Row(), 5);
            QCOMPARE(grid->Col(), 0);
            grid->setRowSelection(true);
            QTest::qWait(0);
            QCOMPARE(table.selectionModel()->selectedRows().size(), 1);
            QCOMPARE(table.selectionModel()->selectedRows().front().row(), 4);
        });
    }
    void theDeleteKeyIsTold() {
        std::int32_t code = 0;
        form->gridHandler = [&](GridEvent event, Grid&, std::int32_t, std::int32_t) {
            if (event == GridEvent::keyDown) code = grid->keyCode();
            return true;
        };
        play([&](QTableView& table) {
            press(table, 2, 2);
            key(Qt::Key_Delete);
        });
        QCOMPARE(code, Grid::deleteKey);
    }
    void colouredCellsBringTheirTextColour() {
        play([&](QTableView& table) {
            grid->setCellBackColor(1, 1, 255);
            grid->setCellBackColor(2, 1, 16777215);
            QTest::qWait(0);
            const auto role = [&](int row, int what) {
                return table.model()->index(row, 0).data(what).value<QColor>();
            };
            QCOMPARE(role(0, Qt::BackgroundRole), QColor(255, 0, 0));
            QCOMPARE(role(0, Qt::ForegroundRole), QColor(Qt::white));
            QCOMPARE(role(1, Qt::BackgroundRole), QColor(Qt::white));
            QCOMPARE(role(1, Qt::ForegroundRole), QColor(Qt::black));
            QVERIFY(!table.model()->index(2, 0).data(Qt::BackgroundRole).isValid());
        });
    }
    void setVariableIsFilledInByHand() {
        const Ref<Form> dialog = makeForm("frmSetVariable");
        const Ref<Object> attribute = dialog->get("BVTAttribute").toObject();
        attribute->put("Variable", Value("Count=1;"));
        dialog->put("BVTAttribute", Value(attribute));
        invoke(*dialog, "SetData", Ref<Object>(), Ref<Object>(), expressions());
        bool told = false;
        next([&](QWidget& window) {
            auto& table = part<QTableView>(window, "VSGridUserVariable");
            auto& cells = dialog->the<Grid>("VSGridUserVariable");
            const auto doubleClick = [&](int row, int col) {
                press(table, row, col);
                QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, cell(table, row, col).center());
                QVERIFY(editor(table).isVisible());
            };
            doubleClick(1, 2);
            next([&](QWidget&) {
                told = true;
                key(Qt::Key_Return);
            });
            type("wr\"o;ng");
            key(Qt::Key_Return);
            QVERIFY(told);
            QVERIFY(cells.editing());
            QCOMPARE(cells.editText(), "wrong");
            QCOMPARE(editor(table).palette().color(QPalette::Base), QColor(255, 0, 0));
            key(Qt::Key_A, Qt::ControlModifier);
            type("Count + 1");
            key(Qt::Key_Return);
            QVERIFY(!cells.editing());
            doubleClick(2, 1);
            type("Done");
            doubleClick(2, 2);
            type("0");
            click(part(window, "btnOK"));
        });
        dialog->Show();
        QVERIFY(dialog->get("OKClicked").toBoolean());
        QCOMPARE(dialog->get("BVTAttribute").toObject()->get("Variable").toText(), "Count=Count + 1;Done=0;");
    }
    void messageBoxOverAHeldCellDoesNotAskTwice() {
        form->gridHandler = [&](GridEvent event, Grid&, std::int32_t, std::int32_t) {
            events.push_back(event);
            if (event != GridEvent::validateEdit) return true;
            next([](QWidget&) { key(Qt::Key_Return); });
            tell("Bad.", Icon::exclamation);
            return false;
        };
        play([&](QTableView& table) {
            startEdit(table, 1, 2);
            type("x");
            key(Qt::Key_Return);
            QCOMPARE(count(GridEvent::validateEdit), 1);
            QVERIFY(grid->editing());
            key(Qt::Key_Escape);
        });
    }
};

}  // namespace

QObject* makeGridTest() { return new GridTest; }

}  // namespace canvas::editors

#include "grid_test.moc"
