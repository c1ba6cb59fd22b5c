#include "host/members.h"

namespace canvas {
namespace {

bool fits(const Member& member, std::size_t arguments) {
    const auto most = static_cast<std::size_t>(member.arguments);
    return arguments <= most && arguments + static_cast<std::size_t>(member.optional) >= most;
}

const Member& found(std::span<const Member> members, std::string_view name, std::size_t arguments) {
    const Member* member = findMember(members, name, arguments);
    if (!member) raise(Error::noSuchMember);
    return *member;
}

}  // namespace

const Member* findMember(std::span<const Member> members, std::string_view name, std::size_t arguments) {
    const Member* first = nullptr;
    for (const Member& member : members) {
        if (name.empty() ? !member.isDefault : !sameName(member.name, name)) continue;
        if (fits(member, arguments)) return &member;
        if (!first) first = &member;
    }
    return first;
}

Value readMember(std::span<const Member> members, Object& self, std::string_view name, Args args) {
    const Member& member = found(members, name, args.size());
    if (!member.read) raise(Error::noSuchMember);
    if (!fits(member, args.size())) raise(Error::argumentCount);
    const Ref<Object> alive(&self);  // the callee may drop the last other reference
    try {
        return member.read(self, args);
    } catch (const ArgumentError& error) {
        throw RuntimeError(error);
    }
}

void writeMember(std::span<const Member> members, Object& self, std::string_view name, const Value& value, Args args) {
    const Member& member = found(members, name, args.size());
    if (!member.write) raise(Error::noSuchMember);
    if (!fits(member, args.size())) raise(Error::argumentCount);
    const Ref<Object> alive(&self);
    try {
        member.write(self, args, value);
    } catch (const ArgumentError& error) {
        throw RuntimeError(error);
    }
}

}  // namespace canvas
