#include "host/object.h"

#include "host/value.h"

namespace canvas {

Value Object::get(std::string_view, Args) { raise(Error::noSuchMember); }

Value Object::call(std::string_view name, Args args) { return get(name, args); }

void Object::put(std::string_view, const Value&, Args) { raise(Error::noSuchMember); }

std::unique_ptr<Enumerator> Object::enumerate() { return nullptr; }

void* Object::face(const void*) noexcept { return nullptr; }

bool sameName(std::string_view a, std::string_view b) noexcept {
    if (a.size() != b.size()) return false;
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
    for (std::size_t i = 0; i < a.size(); ++i)
        if (lower(a[i]) != lower(b[i])) return false;
    return true;
}

}  // namespace canvas
