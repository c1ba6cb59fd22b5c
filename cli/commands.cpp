#include "cli/commands.h"

namespace canvas::cli {

std::span<const Command> commands() noexcept {
    static constexpr Command list[] = {
        {"check", "Check program files and name what is wrong with them", declareCheck},
        {"show", "Print a program as text", declareShow},
        {"describe", "Print what a block's settings are: properties, panel rows, checks, file line", declareDescribe},
        {"store", "Keep the hardware configuration of a project: modules, properties, remote nodes", declareStore},
        {"form", "Open a dialog, for a block of a program file or for none", declareForm},
        {"report", "Read an error report's archive, or try the error dialogue", declareReport},
    };
    return list;
}

}  // namespace canvas::cli
