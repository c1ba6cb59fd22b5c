#pragma once
// The classes that hosts see.

#include <span>
#include <string_view>

#include "component/member_list.h"

namespace canvas::component {

struct Class {
    std::string_view name;
    Ref<Object> (*create)();          ///< null for what is only handed out
    const MemberList& (*members)();
};

/// Every class that the component knows, in the order of the library's parts.
std::span<const Class> classes() noexcept;
/// By its exact name; null when absent.
const Class* classNamed(std::string_view name) noexcept;
/// Of the object's class; of a form its common members, its own, and its controls; an open list for another class that
/// has no line here.
const MemberList& membersOf(const Object& object);

}  // namespace canvas::component
