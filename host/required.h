#pragma once
// What a host's objects must offer: every member that the library reaches by name on an object it did not make.

#include <cstdint>
#include <span>
#include <string_view>

namespace canvas {

/// Whether the library calls or reads the member, or writes it.
enum class Use { call, write };

/// Names match without regard to case.
struct RequiredMember {
    std::string_view object;
    std::string_view member;
    int arguments = 0;
    /// How many of the last arguments some calls leave out.
    int optional = 0;
    /// Arguments that the member may write: bit 0 is the first.
    std::uint32_t byReference = 0;
    Use use = Use::call;
    std::string_view gives;

    constexpr bool writes(int argument) const noexcept { return (byReference >> argument & 1U) != 0; }
};

/// By object, in the order in which a host meets them.
std::span<const RequiredMember> requiredMembers() noexcept;

/// The row of a member (case ignored), or null.
const RequiredMember* requiredMember(std::string_view object, std::string_view member) noexcept;

}  // namespace canvas
