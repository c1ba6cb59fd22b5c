// Combo boxes, list boxes and trees on the screen.

#include <QComboBox>
#include <QListView>
#include <QTreeView>
#include <QWheelEvent>

#include "tests/view/driving.h"

namespace canvas::editors {
namespace {

constexpr std::string_view kinds[] = {"Absolute", "Relative", "Rotary Shortest"};
constexpr ControlRow rows[] = {
    caption("lblKind", "Kind:", 0),
    combo("cmbKind", kinds, "", 0),
    listBox("lstNames", 1),
    tree("tvData", 1, 1),
    okButton(),
    cancelButton(),
};
constexpr Form::Design design{"frmLists", "Lists", rows};

class ListsTest final : public QObject {
    Q_OBJECT

    OnScreen screen;
    Ref<TestForm> form;
    std::vector<std::pair<std::string, Event>> events;

    void play(std::function<void(QWidget&)> script) {
        next([this, script = std::move(script)](QWidget& window) {
            script(window);
            form->Hide();
        });
        form->Show();
    }
    template <class C>
    C& at(std::string_view name) {
        return form->the<C>(name);
    }
    std::ptrdiff_t count(std::string_view name, Event event) const {
        return std::count(events.begin(), events.end(), std::pair(std::string(name), event));
    }
    static void press(QAbstractItemView& view, const QModelIndex& index) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    }

private Q_SLOTS:
    void init() {
        form = make<TestForm>(design);
        events.clear();
        for (const std::string_view kind : kinds) at<Choice>("cmbKind").AddItem(kind);
        for (const char* name : {"alpha", "beta", "gamma"}) at<Choice>("lstNames").AddItem(name);
        auto& nodes = at<Tree>("tvData");
        nodes.add({"r", "Root", "", true});
        nodes.add({"a", "A", "r", false});
        nodes.add({"b", "B", "r", false});
        nodes.add({"x", "X", "a", false});
        form->handler = [this](Event event, Control& control) { events.emplace_back(control.Name(), event); };
    }

    void aComboBoxShowsItsEntriesAndTheChosenOne() {
        play([&](QWidget& window) {
            auto& box = part<QComboBox>(window, "cmbKind");
            QCOMPARE(box.count(), 3);
            QCOMPARE(box.currentIndex(), -1);
            at<Choice>("cmbKind").setText("Relative");
            QTest::qWait(0);
            QCOMPARE(box.currentText(), QStringLiteral("Relative"));
        });
    }
    void aComboBoxIsChangedByKeys() {
        play([&](QWidget&) {
            at<Choice>("cmbKind").SetFocus();
            QTest::qWait(0);
            key(Qt::Key_Down);
            key(Qt::Key_Down);
            QCOMPARE(at<Choice>("cmbKind").Text(), "Relative");
        });
        QCOMPARE(count("cmbKind", Event::click), 2);
    }
    void scrollingPastAComboBoxDoesNotChangeIt() {
        play([&](QWidget& window) {
            at<Choice>("lstNames").SetFocus();
            QTest::qWait(0);
            auto& box = part<QComboBox>(window, "cmbKind");
            QWheelEvent down(QPointF(5, 5), box.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), Qt::NoButton, {},
                             Qt::NoScrollPhase, false);
            QApplication::sendEvent(&box, &down);
            QCOMPARE(at<Choice>("cmbKind").ListIndex(), -1);
        });
    }
    void aListIsChosenFromByClickAndKey() {
        play([&](QWidget& window) {
            auto& list = part<QListView>(window, "lstNames");
            press(list, list.model()->index(1, 0));
            QCOMPARE(at<Choice>("lstNames").Text(), "beta");
            QVERIFY(at<Choice>("lstNames").HasFocus());
            key(Qt::Key_Down);
            QCOMPARE(at<Choice>("lstNames").ListIndex(), 2);
            at<Choice>("lstNames").setListIndex(-1);
            QTest::qWait(0);
            QVERIFY(!list.selectionModel()->hasSelection());
        });
    }
    void aListTellsOfADoubleClickOnceItsLineIsChosen() {
        std::string chosen;
        form->handler = [&](Event event, Control& control) {
            if (event == Event::doubleClick) chosen = static_cast<Choice&>(control).Text();
        };
        play([&](QWidget& window) {
            auto& list = part<QListView>(window, "lstNames");
            const QPoint place = list.visualRect(list.model()->index(2, 0)).center();
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
        });
        QCOMPARE(chosen, "gamma");
    }
    void newEntriesReplaceThoseShown() {
        play([&](QWidget& window) {
            at<Choice>("lstNames").Clear();
            at<Choice>("lstNames").AddItem("delta");
            QTest::qWait(0);
            auto& list = part<QListView>(window, "lstNames");
            QCOMPARE(list.model()->rowCount(), 1);
            QCOMPARE(list.model()->index(0, 0).data().toString(), QStringLiteral("delta"));
        });
    }
    void aHandlerMayChangeTheEntriesThatAreBeingClicked() {
        form->handler = [&](Event event, Control& control) {
            if (event == Event::click && control.Name() == "lstNames") at<Choice>("lstNames").Clear();
        };
        play([&](QWidget& window) {
            auto& list = part<QListView>(window, "lstNames");
            press(list, list.model()->index(1, 0));
            QCOMPARE(list.model()->rowCount(), 0);
        });
    }
    void namesOfEveryPlaneAreShown() {
        play([&](QWidget& window) {
            at<Choice>("lstNames").AddItem("\xF0\x9D\x94\x98\xE4\xB8\xAD\xD7\x90");
            QTest::qWait(0);
            auto& list = part<QListView>(window, "lstNames");
            QCOMPARE(list.model()->index(3, 0).data().toString(), QStringLiteral("\U0001D518\u4E2D\u05D0"));
        });
    }
    void aTreeShowsItsNodesAndTellsOfTheClickedOne() {
        play([&](QWidget& window) {
            auto& view = part<QTreeView>(window, "tvData");
            const QModelIndex root = view.model()->index(0, 0), b = view.model()->index(1, 0, root);
            QVERIFY(view.isExpanded(root));
            QCOMPARE(view.model()->rowCount(root), 2);
            QCOMPARE(view.model()->index(0, 0, view.model()->index(0, 0, root)).data().toString(), QStringLiteral("X"));
            press(view, b);
            QCOMPARE(at<Tree>("tvData").selected(), "b");
            QCOMPARE(count("tvData", Event::nodeClick), 1);
            press(view, b);
            QCOMPARE(count("tvData", Event::nodeClick), 2);
            key(Qt::Key_Up);
            QCOMPARE(at<Tree>("tvData").selected(), "a");
            at<Tree>("tvData").NodeClick("r");
            QTest::qWait(0);
            QCOMPARE(view.currentIndex(), root);
        });
    }
};

}  // namespace

QObject* makeListsTest() { return new ListsTest; }

}  // namespace canvas::editors

#include "lists_test.moc"
