// canvas: the command line of the flowchart library.

#include <algorithm>
#include <csignal>
#include <exception>
#include <functional>
#include <string>
#include <string_view>

#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/version.h"
#include "tracing/options.h"

namespace canvas::cli {
namespace {

constexpr const char* about =
    "Checks and prints the flowchart programs (.bpa) of motion controllers, and keeps their hardware configuration.\n"
    "Exit codes: 0 good, 1 findings, 2 wrong usage, 3 unreadable input, 4 refused to overwrite, 5 internal error.";

/// The parser would only say that a command is missing.
bool isUnknown(std::string_view word) {
    if (word.starts_with('-')) return false;
    const auto list = commands();
    return std::none_of(list.begin(), list.end(), [&](const Command& command) { return command.name == word; });
}

std::string allCommands() {
    std::string all;
    for (const Command& command : commands()) all += (all.empty() ? "" : ", ") + std::string(command.name);
    return all;
}

int run(int count, char** words, Console& console) {
    if (count > 1 && isUnknown(words[1])) {
        console.complain("no command '" + printable(words[1]) + "'; there are " + allCommands());
        return wrongUsage;
    }
    CLI::App line(about, "canvas");
    line.set_version_flag("--version", versionText());
    line.require_subcommand(1);
    std::function<int()> chosen;
    for (const Command& command : commands()) {
        CLI::App* part = line.add_subcommand(command.name, command.summary);
        part->callback(
            [&chosen, &console, run = command.declare(*part)] { chosen = [&, run] { return run(console); }; });
    }
    try {
        line.parse(count, words);
    } catch (const CLI::ParseError& said) {  // help and version come this way too
        return line.exit(said) == 0 ? good : wrongUsage;
    }
    const int code = chosen();
    if (console.flush()) return code;
    console.complain("the output cannot be written");
    return internalError;
}

}  // namespace
}  // namespace canvas::cli

int main(int count, char** words) {
    using namespace canvas;
    // a closed pipe is met where output is written
    std::signal(SIGPIPE, SIG_IGN);
    cli::Console console;
    try {
        tracing::vbwInitialize();
        return cli::run(count, words, console);
    } catch (const std::exception& error) {
        console.complain(std::string("internal error: ") + error.what());
    } catch (...) {
        console.complain("internal error");
    }
    return cli::internalError;
}
