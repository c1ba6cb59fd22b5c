// Dialogs: the form object alone, and on the (offscreen) screen beside a dialog put together by hand from the toolkit's
// own parts. Needs no screen; QT_QPA_PLATFORM=xcb takes one.

#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "editors/forms.h"
#include "editors/own_view.h"
#include "host/composed.h"
#include "host/convert.h"

namespace canvas::editors {
namespace {

constexpr ControlRow eightFields[] = {
    caption("lbl0", "Velocity:", 0),
    text("txb0", "", 0),
    caption("lblUnit0", "mm/sec", 0, 2),
    caption("lbl1", "Acceleration:", 1),
    text("txb1", "", 1),
    caption("lblUnit1", "mm/sec", 1, 2),
    caption("lbl2", "Deceleration:", 2),
    text("txb2", "", 2),
    caption("lblUnit2", "mm/sec", 2, 2),
    caption("lbl3", "Position:", 3),
    text("txb3", "", 3),
    caption("lblUnit3", "mm", 3, 2),
    caption("lbl4", "Offset:", 4),
    text("txb4", "", 4),
    caption("lblUnit4", "mm", 4, 2),
    caption("lbl5", "Start:", 5),
    text("txb5", "", 5),
    caption("lblUnit5", "mm", 5, 2),
    caption("lbl6", "End:", 6),
    text("txb6", "", 6),
    caption("lblUnit6", "mm", 6, 2),
    caption("lbl7", "Time:", 7),
    text("txb7", "", 7),
    caption("lblUnit7", "msec", 7, 2),
    okButton(),
    cancelButton(),
    helpButton(),
};
constexpr Form::Design eight{"frmEight", "Eight fields", eightFields};

constexpr ControlRow namesAndButtons[] = {listBox("lstNames", 0), okButton(), cancelButton()};
constexpr Form::Design listDesign{"frmNames", "Names", namesAndButtons};

class OneForm final : public Form {
public:
    explicit OneForm(const Design& design) : Form(design) {}
};

/// Calls `done` once the next dialog has been painted.
class Painted final : public QObject {
public:
    std::function<void()> done;
    Painted() { qApp->installEventFilter(this); }

private:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint && done && qobject_cast<QDialog*>(object))
            QTimer::singleShot(0, this, std::exchange(done, nullptr));
        return false;
    }
};

/// As an application's programmer writes it, with what the form has too: names for assistive tools and a modal loop.
void byHand(Painted& painted) {
    static constexpr const char* labels[] = {
        "Velocity:", "Acceleration:", "Deceleration:", "Position:", "Offset:", "Start:", "End:", "Time:"};
    static constexpr const char* units[] = {"mm/sec", "mm/sec", "mm/sec", "mm", "mm", "mm", "mm", "msec"};
    QDialog dialog;
    dialog.setWindowTitle(QStringLiteral("Eight fields"));
    auto* outer = new QHBoxLayout(&dialog);
    auto* grid = new QGridLayout;
    auto* buttons = new QVBoxLayout;
    outer->addLayout(grid, 1);
    outer->addLayout(buttons);
    for (int i = 0; i < 8; ++i) {
        auto* label = new QLabel(QLatin1String(labels[i]));
        auto* field = new QLineEdit(QStringLiteral("100.0"));
        field->setMinimumWidth(field->fontMetrics().averageCharWidth() * 20);
        field->setAccessibleName(label->text());
        label->setBuddy(field);
        grid->addWidget(label, i, 0);
        grid->addWidget(field, i, 1);
        grid->addWidget(new QLabel(QLatin1String(units[i])), i, 2);
    }
    for (const char* caption : {"OK", "Cancel", "&Help"}) buttons->addWidget(new QPushButton(QLatin1String(caption)));
    buttons->addStretch(1);
    painted.done = [&] { dialog.accept(); };
    dialog.exec();
}

void byForm(Painted& painted) {
    auto form = make<OneForm>(eight);
    for (const Ref<Control>& control : form->controls())
        if (control->row().kind == ControlKind::text) static_cast<TextControl&>(*control).setText("100.0");
    painted.done = [&] { form->Hide(); };
    form->Show();
}

Ref<Object> checker() {
    auto object = make<Composed>("Checker");
    object->method("ValidateUserInput", [](Args) { return Value(true); });
    return object;
}

void formObject(benchmark::State& state) {
    const Ref<Object> checking = checker();
    for (auto _ : state) {
        const Ref<Form> form = makeForm("frmMoveAxis");
        form->put("UserUnit", Value("mm"));
        form->Load();
        invoke(*form, "SetData", Ref<Object>(), Ref<Object>(), checking);
        std::string message;
        benchmark::DoNotOptimize(invoke(*form, "CheckParameter", std::ref(message)));
        form->Unload();
    }
}
BENCHMARK(formObject)->Name("form object filled and checked (aim 0.2 ms)")->Unit(benchmark::kMicrosecond);

/// One after the other within each round, so that both meet the same machine.
void dialogs(benchmark::State& state) {
    Painted painted;
    double hand = 0, form = 0;
    const auto timed = [](double& sum, auto&& what) {
        const auto begun = std::chrono::steady_clock::now();
        what();
        sum += std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begun).count();
    };
    for (auto _ : state) {
        timed(hand, [&] { byHand(painted); });
        timed(form, [&] { byForm(painted); });
    }
    const auto rounds = static_cast<double>(state.iterations());
    state.counters["hand_ms"] = hand / rounds;
    state.counters["form_ms"] = form / rounds;
    state.counters["ratio"] = form / hand;
}
BENCHMARK(dialogs)->Name("eight fields opened, painted, closed (aim 1.3)")->Unit(benchmark::kMillisecond)->MinTime(2);

void tenThousandNames(benchmark::State& state) {
    Painted painted;
    std::vector<std::string> names;
    for (int i = 0; i < 10'000; ++i) names.push_back("Variable_" + std::to_string(i));
    for (auto _ : state) {
        auto form = make<OneForm>(listDesign);
        Choice& list = form->the<Choice>("lstNames");
        for (const std::string& name : names) list.AddItem(name);
        painted.done = [&] { form->Hide(); };
        form->Show();
    }
}
BENCHMARK(tenThousandNames)->Name("list of 10,000 names opened (aim 100 ms)")->Unit(benchmark::kMillisecond);

void tenThousandOpenings(benchmark::State& state) {
    Painted painted;
    for (int i = 0; i < 200; ++i) byForm(painted);  // what the toolkit keeps for good is there by then
    const auto widgets = QApplication::allWidgets().size();
    const std::size_t before = mallinfo2().uordblks;
    for (auto _ : state) byForm(painted);
    state.counters["bytes_left"] = static_cast<double>(mallinfo2().uordblks) - static_cast<double>(before);
    state.counters["widgets_left"] = static_cast<double>(QApplication::allWidgets().size() - widgets);
}
BENCHMARK(tenThousandOpenings)
    ->Name("10,000 openings (aim: nothing left)")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10'000);

}  // namespace
}  // namespace canvas::editors

int main(int count, char** words) {
    // the offscreen platform complains once a dialog
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!canvas::editors::ownView()) return std::fprintf(stderr, "%s\n", canvas::editors::ownViewTrouble().c_str()), 1;
    benchmark::Initialize(&count, words);
    benchmark::RunSpecifiedBenchmarks();
}
