#pragma once
// A host's lists of names, as its data and controller objects give them.

#include <initializer_list>
#include <string>

#include "tests/editors/host_objects.h"

namespace canvas::editors {

inline Ref<Collection> manyNames(int count) {
    auto list = make<Collection>();
    for (int i = 0; i < count; ++i) list->Add(Value("Name" + std::to_string(i)));
    return list;
}

/// Each member gives a list of one name, which is the member's own.
inline Ref<Composed> listsNamed(std::initializer_list<std::string> members) {
    auto object = make<Composed>("Lists");
    for (const std::string& member : members)
        object->method(member, [member](Args) { return Value(listOf({member})); });
    return object;
}

/// A list without enumeration, whose items are reached by Count and Item from 1; the one at `bad` cannot be read.
inline Ref<Composed> countedNames(std::int32_t count, std::int32_t bad = 0) {
    auto list = make<Composed>("Counted");
    list->method("Count", [count](Args) { return Value(count); });
    list->method("Item", [bad](Args args) {
        const std::int32_t place = args[0].toLong();
        if (place == bad) throw RuntimeError(1234, "list is broken", "Host");
        return Value("Item" + std::to_string(place));
    });
    return list;
}

inline std::vector<std::string> shownIn(Object& list) {
    std::vector<std::string> shown;
    for (std::int32_t i = 0; i < list.get("ListCount").toLong(); ++i) shown.push_back(invoke(list, "List", i).toText());
    return shown;
}

}  // namespace canvas::editors
