#pragma once
// Small members of the project's device list.

#include <string>
#include <string_view>

#include "host/members.h"

namespace canvas {

class clsBVTDX260 final : public Tabled<clsBVTDX260> {
public:
    static constexpr std::string_view name = "clsBVTDX260";
    static std::span<const Member> table() noexcept;

    /// A copy, in spite of its name.
    Ref<clsBVTDX260> IsTheSame() const { return Ref<clsBVTDX260>(new clsBVTDX260(*this)); }
    bool SameAs(const clsBVTDX260& vValue) const { return NodeNumber == vValue.NodeNumber; }
    /// The description followed by the node number.
    std::string OutputToFile(std::string_view strDescription) const;
    void reportVariables(VariableSink& sink) const override;

    std::int16_t NodeNumber = 0;
};

/// A device that holds nothing: all of a kind are the same.
template <class T>
class PlainDevice : public Tabled<T> {
public:
    static std::span<const Member> table() noexcept {
        static constexpr Member members[] = {
            method<&PlainDevice::IsTheSame>("IsTheSame"),
            method<&PlainDevice::SameAs>("SameAs"),
            method<&PlainDevice::OutputToFile>("OutputToFile"),
            method<&PlainDevice::AssignFromFile>("AssignFromFile"),
        };
        return members;
    }

    /// A new one.
    Ref<T> IsTheSame() const { return make<T>(); }
    bool SameAs(const T&) const { return true; }
    std::string OutputToFile(std::string_view) const { return {}; }
    void AssignFromFile(std::int16_t, std::string_view) {}
};

class clsBVTOperatorInterface final : public PlainDevice<clsBVTOperatorInterface> {
public:
    static constexpr std::string_view name = "clsBVTOperatorInterface";
};

class clsBVTPC final : public PlainDevice<clsBVTPC> {
public:
    static constexpr std::string_view name = "clsBVTPC";
};

/// Has no members at all.
class clsBVTAxioLane final : public Tabled<clsBVTAxioLane> {
public:
    static constexpr std::string_view name = "clsBVTAxioLane";
    static std::span<const Member> table() noexcept { return {}; }
};

}  // namespace canvas
