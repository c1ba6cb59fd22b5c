#include "host/composed.h"

#include <algorithm>

namespace canvas {

bool Composed::IgnoringCase::operator()(std::string_view a, std::string_view b) const noexcept {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [&](char x, char y) { return lower(x) < lower(y); });
}

Composed& Composed::method(std::string name, Operation operation) {
    m_members[std::move(name)] = {std::move(operation), {}, {}};
    return *this;
}

Composed& Composed::property(std::string name, Value value) {
    m_members[std::move(name)] = {{}, {}, std::move(value)};
    return *this;
}

Composed& Composed::property(std::string name, Operation read, std::function<void(const Value&)> write) {
    m_members[std::move(name)] = {std::move(read), std::move(write), {}};
    return *this;
}

Composed& Composed::without(std::string_view name) {
    const auto member = m_members.find(name);
    if (member != m_members.end()) m_members.erase(member);
    return *this;
}

Composed::Entry& Composed::found(std::string_view name) {
    const auto member = m_members.find(name);
    if (member == m_members.end()) raise(Error::noSuchMember);
    return member->second;
}

Value Composed::get(std::string_view name, Args args) {
    const Entry& entry = found(name);
    if (entry.stored) {
        if (!args.empty()) raise(Error::argumentCount);
        return *entry.stored;
    }
    if (!entry.read) raise(Error::noSuchMember);
    const Operation operation = entry.read;  // which may end this object, or replace itself
    return operation(args);
}

void Composed::put(std::string_view name, const Value& value, Args args) {
    Entry& entry = found(name);
    if (!entry.stored && !entry.write) raise(Error::noSuchMember);
    if (!args.empty()) raise(Error::argumentCount);
    if (entry.stored) {
        Value before = value;  // what it held ends last
        std::swap(*entry.stored, before);
        return;
    }
    const auto write = entry.write;
    write(value);
}

}  // namespace canvas
