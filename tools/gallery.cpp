// canvas_gallery FOLDER: takes a picture of every dialog as the view shows it, FOLDER/<form>.png, and writes the page
// FOLDER/README.md. Needs no screen.

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include <QApplication>
#include <QPixmap>
#include <QStyleFactory>
#include <QTimer>
#include <QWidget>

#include "cli/stand_in_host.h"
#include "editors/forms.h"
#include "editors/own_view.h"
#include "host/array.h"
#include "host/value.h"

namespace {

using namespace canvas;

/// What the pictures show in the attributes' properties, where there is one of the name.
struct Content {
    const char* property;
    const char* value;
};
constexpr Content contents[] = {
    {"Acceleration", "1000.0"},
    {"Deceleration", "1000.0"},
    {"Velocity", "250.0"},
    {"Position", "120.5"},
    {"SCurve", "50"},
    {"Offset", "12.5"},
    {"Time", "200"},
    {"TimeOut", "5000"},
    {"ScaleFactor", "1.2500"},
    {"Master", "3"},
    {"Slave", "2"},
    {"Main", "Home_Offset"},
    {"MainChanged", "True"},
    {"External", "360.0"},
    {"Torque", "80.0"},
    {"SpeedLimit", "500.0"},
    {"ApproachVelocity", "-25.0"},
    {"CreepSpeed", "2.5"},
    {"HomeSwitchInput", "Home_Switch"},
    {"CAMProfileTable", "Profile_1"},
    {"EventK", "Part_Ready && Count < 10"},
    {"InputBlock", "Start_Button"},
    {"Message", "Guard open"},
    {"UserVariable", "Line_Speed"},
    {"DistanceAfterLatch", "35.0"},
    {"DefaultDistance", "400.0"},
    {"LatchStartDistance", "300.0"},
    {"LatchFinishDistance", "380.0"},
    {"NodeText", "The labeler starts once the first carton has passed the gate."},
    {"MasterVariable", "Actual_Position"},
    {"title", "Clamp.bps"},
};

/// The two lists, which have the same name.
constexpr const char* assignments = "Count=Count + 1;Speed=Line_Speed * 1.5;Done=0;";
constexpr const char* switches = "0.0,90.0,Clamp_Valve,1;180.0,200.0,Done,0;";

constexpr const char* failure = "Run-time error 13: Type mismatch, in frmMoveAxis.btnOK_Click.";

void prepare(Object& attribute) {
    const auto put = [&](const char* property, const char* value) {
        try {
            attribute.put(property, Value(value));
        } catch (const RuntimeError&) {  // the attribute has no such property, or one of another kind
        }
    };
    for (const Content& content : contents) put(content.property, content.value);
    put("Variable", attribute.className() == "clsBVTSetVariable" ? assignments : switches);
}

cli::StandInNames names() {
    return {.unit = "mm",
            .folder = "/projects/line",
            .variables = {"Count", "Speed", "Line_Speed", "Home_Offset"},
            .bits = {"Done", "Part_Ready", "Guard_Closed"},
            .constants = {"Pi"},
            .io = {"Home_Switch", "Clamp_Valve", "Start_Button"},
            .tables = {"Profile_1", "Profile_2"},
            .network = {"Remote_Start"},
            .system = {"Actual_Position", "Actual_Velocity", "Drive_Fault"},
            .parameters = {"Max_Velocity"},
            .tasks = {"Main.bpg", "Feeder.bpg", "Labeler.bpg"},
            .subroutines = {"/projects/line/Clamp.bps", "/projects/line/Eject.bps"}};
}

editors::Tabs* tabsOf(const editors::Form& form) {
    for (const Ref<editors::Control>& control : form.controls())
        if (auto* tabs = dynamic_cast<editors::Tabs*>(control.get())) return tabs;
    return nullptr;
}

/// The picture of a tab behind the first one.
std::string pictureOf(const editors::Form& form, std::int32_t tab) {
    return form.Name() + "_tab" + std::to_string(tab + 1);
}

/// Takes the picture once the dialog is painted, and ends the showing.
class Photographer final : public Interaction {
public:
    explicit Photographer(std::string folder) : m_folder(std::move(folder)) {}
    Reply messageBox(const MessageBox& box) override {
        std::fprintf(stderr, "canvas_gallery: %s\n", box.text.c_str());
        failed = true;
        return Reply::ok;
    }
    std::string inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
    void beep() override {}
    std::int32_t openAddress(std::string_view) override { return 0; }
    void setClipboard(std::string_view) override {}
    bool showForm(Object& object) override {
        auto& form = dynamic_cast<editors::Form&>(object);
        if (auto* error = dynamic_cast<editors::Label*>(form.find("lblErrorString"))) error->setCaption(failure);
        QTimer::singleShot(0, qApp, [&form, this] {
            take(form.Name());
            if (editors::Tabs* tabs = tabsOf(form)) {
                for (std::int32_t tab = 1; tab < tabs->TabCount(); ++tab) {
                    tabs->setTabEnabled(tab, true);
                    tabs->setTab(tab);
                    take(pictureOf(form, tab));
                }
            }
            form.Hide();
        });
        return editors::ownView()->showForm(object);
    }

    bool failed = false;

private:
    void take(const std::string& picture) {
        QApplication::sendPostedEvents();  // processEvents within an event leaves those posted with it for later
        QApplication::processEvents();
        QWidget* window = QApplication::activeModalWidget();
        failed = !window || !window->grab().save(QString::fromStdString(m_folder + "/" + picture + ".png")) || failed;
    }

    std::string m_folder;
};

bool writePage(const std::string& folder) {
    std::ofstream page(folder + "/README.md", std::ios::binary);
    page
        << "# The dialogs\n\nEvery dialog as its view shows it, by the name that scripts know it by. Each can be tried "
           "without a host:\n`canvas form MoveAxis`, or for block 12 of a program `canvas form MoveAxis press.bpa "
           "12`.\n\n"
           "`tools/gallery` takes the pictures anew and writes this page.\n";
    for (const editors::FormEntry& entry : editors::forms()) {
        const Ref<editors::Form> form = entry.make();
        page << "\n## " << form->Name() << ": " << form->Caption() << "\n\n![" << form->Caption() << "]("
             << form->Name() << ".png)\n";
        if (const editors::Tabs* tabs = tabsOf(*form))
            for (std::int32_t tab = 1; tab < tabs->TabCount(); ++tab)
                page << "\n![" << tabs->TabCaption(tab) << "](" << pictureOf(*form, tab) << ".png)\n";
    }
    page.close();
    return page.good();
}

}  // namespace

int main(int count, char** words) {
    if (count != 2) return std::fputs("canvas_gallery FOLDER\n", stderr), 2;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!editors::ownView()) return std::fprintf(stderr, "canvas_gallery: %s\n", editors::ownViewTrouble().c_str()), 1;
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const auto photographer = std::make_shared<Photographer>(words[1]);
    const WithEnvironment with(Environment{.interaction = photographer, .forms = editors::dialogs()});
    const Ref<Object> host = cli::standInHost(names());
    for (const editors::FormEntry& entry : editors::forms()) {
        try {
            cli::openForm(entry.name, host, prepare);
        } catch (const RuntimeError& error) {
            std::fprintf(stderr, "canvas_gallery: %s: %s\n", std::string(entry.name).c_str(),
                         error.description.c_str());
            photographer->failed = true;
        }
    }
    return writePage(words[1]) && !photographer->failed ? 0 : 1;
}
