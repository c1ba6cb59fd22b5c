// canvas form

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "cli/check_report.h"
#include "cli/commands.h"
#include "cli/inputs.h"
#include "cli/stand_in_host.h"
#include "document/catalogue.h"
#include "document/form_dispatch.h"
#include "document/program_check.h"
#include "editors/error_form.h"
#include "editors/forms.h"
#include "editors/own_view.h"
#include "host/numbers.h"
#include "host/text.h"

namespace canvas::cli {
namespace {

struct Options {
    std::string form;
    std::string file;
    std::optional<std::int16_t> block;
};

/// "MoveAxis" serves for "frmMoveAxis".
std::string formNamed(std::string_view name) {
    for (const editors::FormEntry& entry : editors::forms())
        if (sameName(entry.name, name) || sameName(entry.name, "frm" + std::string(name)))
            return std::string(entry.name);
    return {};
}

std::string allForms() {
    std::string all;
    for (const editors::FormEntry& entry : editors::forms()) all += (all.empty() ? "" : ", ") + std::string(entry.name);
    return all;
}

/// The name by which the document reads and writes the file; empty for one that it cannot name.
std::string documentName(const std::string& file) {
    if (!file.ends_with(".bpa")) return {};
    return file.substr(0, file.size() - 4) + ".bpg";
}

/// The block of that number, if the dialog is its own; says why not.
const clsBVTBlock* blockOf(clsBVTCanvas& document, std::int16_t id, std::string_view form, Console& console) {
    const std::string number = numbers::textOf(id);
    if (document.GetBlockPosition(id) == 0) {
        console.complain("the program has no block " + number);
        return nullptr;
    }
    const clsBVTBlock& block = document.BlockCollection->byKey(id);
    const std::string_view own = formOf(block.intBlockType);
    if (sameName(own, form)) return &block;
    const std::string what = "block " + number + " (" + document.BlockName(block.intBlockType) + ")";
    console.complain(own.empty() ? what + " has no dialog" : what + " has another dialog: " + std::string(own));
    return nullptr;
}

bool haveView(Console& console) {
    if (editors::ownView()) return true;
    console.complain("dialogs cannot be shown here: " + editors::ownViewTrouble());
    return false;
}

/// Puts the view in place of the console for boxes and dialogs.
Environment onScreen() {
    return {.interaction = std::shared_ptr<Interaction>(editors::ownView(), [](Interaction*) {}),
            .forms = editors::dialogs()};
}

/// The file keeps a note as the block's label, which shows it with carriage returns; hosts carry a new text over.
void carryNote(clsBVTBlock& block) {
    constexpr std::string_view pilcrow = "¶";
    const std::string note = block.vntAttribute->get("NodeText").toText();
    std::string_view shown = note;
    while (shown.ends_with(pilcrow)) shown.remove_suffix(pilcrow.size());
    block.strBlockLabel = text::replaced(shown, pilcrow, "\r");
}

/// Whether reading passes over something of the file. Values, wiring and references may be bad, as they are in a program
/// that is being made: they come through as they are.
bool loses(Rule rule) {
    if (rule == Rule::valueRange || rule == Rule::valueList) return false;
    return rule < Rule::danglingTarget || rule == Rule::message;
}

/// What reading loses, writing would lose from the file: such a file is not opened.
int refuseLosses(const std::string& file, Console& console) {
    CheckedProgram program = checkProgramFile(file);
    const bool readable = program.readable;
    std::erase_if(program.findings, [](const Finding& finding) { return !loses(finding.rule); });
    if (readable && program.findings.empty()) return good;
    console.tell(textOf({.file = file, .readable = readable, .findings = std::move(program.findings), .links = {},
                         .internalError = {}}));
    if (!readable) return unreadableInput;
    console.complain("'" + file + "' is left as it is: what cannot be read would be lost");
    return findings;
}

int editBlock(const Options& options, const std::string& form, Console& console) {
    const std::string file = fileOf(options.file), name = documentName(file);
    if (name.empty()) return console.complain("no program file: " + options.file), wrongUsage;
    if (const int code = refuseLosses(file, console); code != good) return code;
    auto document = make<clsBVTCanvas>();
    std::error_code failed;
    if (!document->Readfile(name)) return console.complain("cannot read " + file), unreadableInput;
    if (!blockOf(*document, *options.block, form, console)) return wrongUsage;
    if (!haveView(console)) return internalError;
    const WithEnvironment with(onScreen());
    editors::ErrorDialog dialog;
    const tracing::WithErrorHandler asking(dialog);
    const std::filesystem::path folder = std::filesystem::absolute(file, failed).parent_path();
    StandInNames names;
    names.folder = folder.string();
    if (!showAttributeForm(*document, *options.block, standInHost(names)))
        return console.print(file + ": unchanged\n"), good;
    clsBVTBlock& block = document->BlockCollection->byKey(*options.block);
    if (block.intBlockType == NodeText) carryNote(block);
    document->blnChanged = true;
    document->WriteFile(name);
    if (document->blnChanged) return console.complain("cannot write " + file), internalError;
    return console.print(file + ": block " + numbers::textOf(*options.block) + " written\n"), good;
}

int open(const Options& options, Console& console) {
    const std::string form = formNamed(options.form);
    if (form.empty())
        return console.complain("no dialog of the name " + options.form + "; there are " + allForms()), wrongUsage;
    if (options.file.empty() != !options.block)
        return console.complain("give the number of a block with the file: canvas form NAME FILE BLOCK"), wrongUsage;
    try {
        if (options.block) return editBlock(options, form, console);
        if (!haveView(console)) return internalError;
        const WithEnvironment with(onScreen());
        editors::ErrorDialog dialog;
        const tracing::WithErrorHandler asking(dialog);
        openForm(form, standInHost({}), nullptr);
        return good;
    } catch (const RuntimeError& error) {
        console.complain(form + ": [" + numbers::textOf(error.number) + "] " + error.description);
        return internalError;
    }
}

}  // namespace

Run declareForm(CLI::App& line) {
    const auto options = std::make_shared<Options>();
    line.add_option("NAME", options->form, "The dialog: frmMoveAxis, or MoveAxis")->required();
    line.add_option("FILE", options->file, "A program file, written when the dialog changed the block");
    line.add_option("BLOCK", options->block, "The number of the block");
    return [options](Console& console) { return open(*options, console); };
}

}  // namespace canvas::cli
