// canvas check

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/check_folders.h"
#include "cli/check_report.h"
#include "cli/commands.h"
#include "cli/inputs.h"
#include "cli/progress.h"

namespace canvas::cli {
namespace {

struct Options {
    std::vector<std::string> paths;
    bool json = false;
    bool quiet = false;
    unsigned jobs = std::thread::hardware_concurrency();  // 0 where it is not known
};

int check(const Options& options, Console& console) {
    const Inputs inputs = findInputs(options.paths);
    for (const std::string& path : inputs.unmatched) console.complain("no file matches '" + printable(path) + "'");
    if (!inputs.unmatched.empty()) return wrongUsage;
    std::vector<FileReport> reports;
    {
        ProgressLine line(inputs.files.size(), !options.quiet);
        reports = checkFiles(inputs.files, options.jobs, [&](std::size_t done) { line.show(done); });
    }
    checkFolders(reports);
    if (options.json) {
        console.print(jsonOf(reports));
    } else {
        for (const FileReport& report : reports) console.print(textOf(report));
        if (!options.quiet) console.print(summaryOf(reports));
    }
    for (const FileReport& report : reports)
        if (!report.internalError.empty())
            console.complain("internal error: " + printable(report.file) + ": " + report.internalError);
    return exitCodeOf(reports);
}

}  // namespace

Run declareCheck(CLI::App& line) {
    const auto options = std::make_shared<Options>();
    line.add_flag("--json", options->json, "Print one JSON document (docs/check.schema.json)");
    line.add_flag("-q,--quiet", options->quiet, "Print findings only: no summary, no progress");
    line.add_option("-j,--jobs", options->jobs, "Threads; as many as there are cores when left out")
        ->check(CLI::Range(1U, 1024U));
    line.add_option("PATH", options->paths,
                    "Program files, folders (all *.bpa below) or quoted patterns (*, ?, [a-z], ** for any folders)")
        ->required();
    return [options](Console& console) { return check(*options, console); };
}

}  // namespace canvas::cli
