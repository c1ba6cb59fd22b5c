#pragma once
// The commands of the program `canvas`.

#include <functional>
#include <span>

#include "cli/console.h"

namespace CLI {
class App;
}

namespace canvas::cli {

/// What a command does once its line has been understood. Gives the exit code.
using Run = std::function<int(Console&)>;

struct Command {
    const char* name;
    const char* summary;
    /// Adds the command's options to its part of the line and gives what runs with them.
    Run (*declare)(CLI::App& line);
};

/// All commands, in the order of the help. A new one is a file with its `declare...`, and a row of this list.
std::span<const Command> commands() noexcept;

Run declareCheck(CLI::App& line);
Run declareShow(CLI::App& line);
Run declareDescribe(CLI::App& line);
Run declareStore(CLI::App& line);
Run declareForm(CLI::App& line);
Run declareReport(CLI::App& line);

}  // namespace canvas::cli
