// canvas show

#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "cli/check_report.h"
#include "cli/commands.h"
#include "cli/inputs.h"
#include "cli/show_report.h"
#include "document/program_check.h"

namespace canvas::cli {
namespace {

struct Options {
    std::string file;
    bool json = false;
};

int show(const Options& options, Console& console) {
    const std::string file = fileOf(options.file);
    CheckedProgram program = checkProgramFile(file);
    if (!program.readable) {
        console.tell(
            textOf({.file = file, .readable = false, .findings = std::move(program.findings), .links = {}, .internalError = {}}));
        return unreadableInput;
    }
    console.print((options.json ? programJson : programPage)(*program.document, file));
    return good;
}

}  // namespace

Run declareShow(CLI::App& line) {
    const auto options = std::make_shared<Options>();
    line.add_flag("--json", options->json, "Print one JSON document (docs/show.schema.json)");
    line.add_option("FILE", options->file, "The program file")->required();
    return [options](Console& console) { return show(*options, console); };
}

}  // namespace canvas::cli
