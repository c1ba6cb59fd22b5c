#pragma once
// The objects of the system itself, as the variable report shows them: App, Err, Screen, Printer.

#include <array>
#include <string_view>

#include "host/errors.h"
#include "host/object.h"

namespace canvas::tracing {

struct NamedObject {
    std::string_view name;
    Ref<Object> object;
};

/// In the order of the report. They only report: none answers to a member by name.
std::array<NamedObject, 4> systemObjects(const RuntimeError& error);

}  // namespace canvas::tracing
