// canvas report

#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/terminal.h"
#include "document/canvas.h"
#include "editors/error_form.h"
#include "host/ports.h"
#include "host/text.h"
#include "tracing/archive.h"
#include "tracing/branch.h"
#include "tracing/options.h"

namespace canvas::cli {
namespace {

constexpr std::uint64_t largestArchive = 64u << 20;
constexpr std::uint64_t largestContent = 256u << 20;

int showArchive(const std::string& path, Console& console) {
    try {
        const std::string bytes = environment().files->read(path, largestArchive);
        for (const tracing::ArchiveFile& file : tracing::unzipped(bytes, largestContent)) {
            const std::string text = printable(text::replaced(text::replaced(file.bytes, "\r\n", "\n"), "\t", "    "));
            console.print("==== " + printable(file.name) + " ====\n" + text + (text.ends_with('\n') ? "\n" : "\n\n"));
        }
        return good;
    } catch (const RuntimeError& error) {
        console.complain("'" + path + "': " + error.description);
        return unreadableInput;
    }
}

/// Counts the corners of a document through a statement that fails: until it is repeated, it divides by zero.
class clsDemo final : public Tabled<clsDemo> {
public:
    static constexpr std::string_view name = "clsDemo";
    static std::span<const Member> table() noexcept { return {}; }
    void reportVariables(VariableSink& sink) const override {
        sink.variable("intTries", Value(intTries));
        sink.variable("Document", Value(Document));
    }

    std::int16_t intTries = 0;
    Ref<clsBVTCanvas> Document = make<clsBVTCanvas>();

    /// What became of the failing statement.
    std::string Count() {
        std::string outcome = "skipped";
        tracing::Procedure run(name, "Count", this, [&](tracing::Locals& l) { l("outcome", outcome); });
        run(
            [&] {
                if (++intTries == 1) raise(Error::divisionByZero);
                outcome = "repeated";
            },
            [] {});
        return outcome;
    }
};

int demo(Console& console) {
    editors::ErrorDialog dialog;
    const WithEnvironment asked{Environment{.interaction = makeTerminal()}};
    const tracing::WithErrorHandler handler{dialog};
    console.print("A seeded failure follows: a statement divides by zero the first time it runs.\n");
    console.flush();
    const auto failing = make<clsDemo>();
    const std::string outcome = failing->Count();
    console.print("\nThe failing statement was " + outcome + "; the procedure went on behind it.\n");
    if (tracing::vbwErrHandler.vbwfHasReported)
        console.print("The report lies in " + tracing::vbwErrHandler.vbwErrorPath + "\n");
    return good;
}

}  // namespace

Run declareReport(CLI::App& line) {
    const auto archive = std::make_shared<std::string>();
    line.require_subcommand(1);
    CLI::App* show = line.add_subcommand("show", "Print the files of a report's archive");
    show->add_option("ARCHIVE", *archive, "The .zip of a report")->required();
    line.add_subcommand("demo", "Raise a seeded failure and walk through the error dialogue on this terminal");
    return [archive, show](Console& console) { return show->parsed() ? showArchive(*archive, console) : demo(console); };
}

}  // namespace canvas::cli
