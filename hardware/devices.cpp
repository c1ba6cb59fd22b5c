#include "hardware/devices.h"

#include "host/numbers.h"

namespace canvas {

std::span<const Member> clsBVTDX260::table() noexcept {
    using C = clsBVTDX260;
    static constexpr Member members[] = {
        property<&C::NodeNumber>("NodeNumber"),
        method<&C::IsTheSame>("IsTheSame"),
        method<&C::SameAs>("SameAs"),
        method<&C::OutputToFile>("OutputToFile"),
    };
    return members;
}

std::string clsBVTDX260::OutputToFile(std::string_view strDescription) const {
    std::string text(strDescription);
    numbers::append(text, NodeNumber);
    return text;
}

void clsBVTDX260::reportVariables(VariableSink& sink) const { sink.variable("NodeNumber", NodeNumber); }

}  // namespace canvas
