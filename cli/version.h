#pragma once
// The version of the program.

#include <string>

#include "host/ports.h"

namespace canvas::cli {

/// "1.0.0": the version by which the application calls itself in reports.
inline std::string version() {
    const Application& application = environment().application;
    return std::to_string(application.major) + "." + std::to_string(application.minor) + "." +
           std::to_string(application.revision);
}

inline std::string versionText() {
    return "canvas " + version() + " (program files of version " + environment().utility->FileFormatVersion() + ")";
}

}  // namespace canvas::cli
