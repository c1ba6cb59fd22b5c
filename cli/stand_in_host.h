#pragma once
// A host for dialogs that are opened without one: the objects that the dialogs ask, and few names in their lists.

#include <string>
#include <string_view>
#include <vector>

#include "host/object.h"

namespace canvas::cli {

/// What the lists of the dialogs show.
struct StandInNames {
    std::string unit;
    std::string folder;  ///< the project's
    std::vector<std::string> variables, bits, constants, io, tables, network, system, parameters;
    std::vector<std::string> tasks;  ///< of eight; empty where there is none
    std::vector<std::string> subroutines;
};

/// A main window as the canvas expects it. Its checker refuses what the range check of values refuses, and the double
/// quote and the semicolon, which delimit values in program files.
Ref<Object> standInHost(const StandInNames& names);

/// Opens the dialog of that name for nobody's block. `prepare` may fill the block's attribute (null for a dialog that
/// no block opens). False for a name that no dialog has.
bool openForm(std::string_view name, const Ref<Object>& host, void (*prepare)(Object& attribute));

}  // namespace canvas::cli
