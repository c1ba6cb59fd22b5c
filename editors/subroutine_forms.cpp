// Call Subroutine: the name of the subroutine, and the list to choose it from.

#include "editors/file_names.h"
#include "editors/plain_form.h"
#include "editors/program_forms.h"
#include "host/collection.h"
#include "host/ports.h"
#include "host/text.h"
#include "tracing/branch.h"

namespace canvas::editors {

using tracing::Locals;
using tracing::onFailure;
using tracing::Procedure;

namespace {

constexpr ControlRow listSubroutine[] = {
    caption("lblItem", "Select Item:", 0),
    listBox("lstItem", 1),
    listBox("lstItemInvisible", 2).hidden(),
    okButton(), cancelButton(), helpButton(),
};

constexpr ControlRow superBlock[] = {
    caption("lblName", "Name:", 0),
    text("txbName", {}, 0).onDoubleClick(DoubleClick::nothing),
    button("btnSelect", "&Select ...", 0, 2),
    button("cmdOpen", "Ope&n", 1, 2).disabled(),
    okButton(), cancelButton(), helpButton(),
};

constexpr Form::Design listDesign{"frmListSubroutine", "Call Subroutine", listSubroutine};
constexpr AttributeForm::Spec superSpec{{"frmSuperBlock", "Call Subroutine", superBlock}, SUPERBLOCK, Filled::onWrite,
                                        false, false, 0, false};

/// A dialog for a name in two lists in step: titles that show, names that do not.
class frmListSubroutine final : public PlainForm {
public:
    frmListSubroutine() : PlainForm(listDesign) {}

    bool bClickedOK = false;
    std::string strProgramName;
    std::string strProgramTitle;

    void add(std::string_view title, std::string_view name) {
        the<Choice>("lstItem").AddItem(title);
        the<Choice>("lstItemInvisible").AddItem(name);
    }

    std::span<const Member> ownMembers() const override {
        using F = frmListSubroutine;
        static constexpr Member members[] = {property<&F::bClickedOK, nullptr>("ClickedOK"),
                                             property<&F::strProgramName, nullptr>("ProgramName"),
                                             property<&F::strProgramTitle, nullptr>("ProgramTitle")};
        return members;
    }

protected:
    void on(Event event, Control& control) override {
        if (event == Event::doubleClick && control.row().name == "lstItem") return ok();
        PlainForm::on(event, control);
    }
    void ownVariables(VariableSink& sink) const override {
        sink.variable("bClickedOK", Value(bClickedOK));
        sink.variable("strProgramName", Value(strProgramName));
        sink.variable("strProgramTitle", Value(strProgramTitle));
    }

private:
    void ok() override {
        const std::int32_t selected = the<Choice>("lstItem").ListIndex();
        if (selected >= 0) {
            strProgramName = the<Choice>("lstItemInvisible").List(selected);
            strProgramTitle = the<Choice>("lstItem").List(selected);
            bClickedOK = true;
        }
        Hide();
    }
};

std::string fileTitle(std::string_view path) { return environment().utility->FileTitleOf(path); }

bool sameFile(std::string_view a, std::string_view b) { return text::upper(fileTitle(a)) == text::upper(fileTitle(b)); }

constexpr std::string_view notInProject = "Subroutine does not exist in current project!\r";

class frmSuperBlock final : public AttributeForm {
public:
    frmSuperBlock() : AttributeForm(superSpec) {}

    std::string strProgramName;
    std::string strCanvasName;
    bool blnCreateNew = false;  ///< nothing sets it: an existing subroutine is opened, never a new one made
    Ref<Object> frmMainForm;

    std::span<const Member> ownMembers() const override {
        using F = frmSuperBlock;
        static constexpr Member members[] = {property<&F::blnCreateNew, nullptr>("CreateNew"),
                                             property<&F::frmMainForm>("MainForm"),
                                             property<&F::strCanvasName>("CanvasName")};
        return members;
    }

protected:
    void fill() override {
        Procedure run(className(), "BVTAttribute", this, [](Locals&) {});
        run([&] { the<TextControl>("txbName").setText(BVTAttribute()->get("title").toText()); },
            [&] { strProgramName = BVTAttribute()->get("Name").toText(); });
    }
    void on(Event event, Control& control) override {
        const std::string_view name = control.row().name;
        if (event == Event::change && name == "txbName")
            return the<Button>("cmdOpen").setEnabled(!text::trimmed(the<TextControl>("txbName").Text()).empty());
        if (event == Event::click && name == "btnSelect") return select();
        if (event == Event::click && name == "cmdOpen") return open();
        AttributeForm::on(event, control);
    }
    void ok() override {
        Procedure run(className(), "btnOK_Click", this, [](Locals&) {});
        run([&] { accept(); });
    }
    void cancel() override { Unload(); }  // the other dialogs only hide
    void ownVariables(VariableSink& sink) const override {
        sink.variable("btnOKClicked", Value(btnOKClicked));
        sink.variable("strProgramName", Value(strProgramName));
        sink.variable("strCanvasName", Value(strCanvasName));
        sink.variable("strUserUnit", Value(strUserUnit));
        sink.variable("blnCreateNew", Value(blnCreateNew));
        sink.variable("clsAttribute", Value(clsAttribute));
        sink.variable("frmMainForm", Value(frmMainForm));
    }

private:
    Ref<Object> project() { return objectAt(required(frmMainForm), "currentproject"); }

    void select() {
        onFailure(
            [&] {
                const Ref<frmListSubroutine> list(new frmListSubroutine);
                list->Load();
                forEach(*objectAt(*project(), "SubroutineList"), [&](const Value& entry) {
                    const std::string name = entry.toText();
                    if (!sameFile(name, strCanvasName)) list->add(fileTitle(name), name);  // never the document itself
                    return true;
                });
                list->Show();
                if (list->bClickedOK) {
                    strProgramName = list->strProgramName;
                    the<TextControl>("txbName").setText(list->strProgramTitle);
                }
                list->Unload();
            },
            [](const RuntimeError& error) { tell("frmSuperBlock.btnSelect_Click: " + bracketed(error)); });
    }

    /// The name with its extension, when such a file lies in the project's folder.
    bool DoesFileExist(std::string_view strName, std::string& strFound) {
        std::string name(text::trimmed(strName));
        const std::string_view withoutExtension = text::withoutLast(name, 4);
        if (text::upper(std::string_view(name).substr(withoutExtension.size())) != ".BPG") name += ".bpg";
        if (!environment().files->exists(project()->get("WorkingDirectory").toText() + "\\" + name)) return false;
        strFound = std::move(name);
        return true;
    }

    void open() {
        Procedure run(className(), "cmdOpen_Click", this, [](Locals&) {});
        bool there = false;
        run(
            [&] {
                std::string found;
                there = DoesFileExist(the<TextControl>("txbName").Text(), found);
                if (!there) tell("Specified file cannot be opened.", Icon::exclamation);
            },
            [&] {
                if (there) ok();
            });
    }

    void accept() {
        const std::string name = the<TextControl>("txbName").Text();
        if (name.empty()) return leaveWithoutSubroutine();
        if (!IsValidFilename(name))
            return tell("Invalid subroutine name.\r\rA filename can contain up to 255 characters, including spaces.\r"
                        "But, it cannot contain any of the following characters: \\ / : * ? \" < > |",
                        Icon::critical);
        std::string found;
        if (!DoesFileExist(name, found))
            return tell(std::string(notInProject) + "Choose an existing subroutine in the project.", Icon::exclamation);
        if (sameFile(found, strCanvasName))
            return tell("Subroutine cannot call itself.\r\rPlease choose another subroutine.", Icon::critical);
        if (!invoke(*project(), "IsASubroutine", found).toBoolean() ||
            !invoke(*project(), "IsWithinSubroutineList", found).toBoolean())
            return tell(std::string(notInProject) + "Add/import subroutine to project before making call for it.",
                        Icon::exclamation);
        store(found);
    }

    void leaveWithoutSubroutine() {
        const Reply reply = environment().interaction->messageBox(
            {"No subroutine is selected. Do you want to exit Call Subroutine?", Buttons::yesNo, Icon::exclamation, {}});
        if (reply != Reply::yes) return;
        BVTAttribute()->put("Name", Value(""));
        BVTAttribute()->put("title", Value(""));
        Unload();
    }

    /// A full path that the list gave stands; any other name lies in the project's folder.
    void store(const std::string& found) {
        const bool listed = strProgramName.find_first_of("\\/:") != std::string::npos && sameFile(strProgramName, found);
        const std::string path = listed ? strProgramName : project()->get("WorkingDirectory").toText() + "\\" + found;
        BVTAttribute()->put("Name", Value(path));
        BVTAttribute()->put("title", Value(fileTitle(path)));
        project()->put("NeedsSaving", Value(true));
        btnOKClicked = true;
        Unload();
    }
};

}  // namespace

Ref<Form> makeListSubroutine() { return Ref<Form>(new frmListSubroutine); }
Ref<Form> makeSuperBlock() { return Ref<Form>(new frmSuperBlock); }

}  // namespace canvas::editors
