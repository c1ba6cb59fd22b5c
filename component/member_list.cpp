#include "component/member_list.h"

#include "attributes/attribute.h"

namespace canvas::component {
namespace {

constexpr std::string_view interfacePrefix = "IBlockAttribute_";
/// An object without a table is asked for names by strangers: what they can make us remember has a limit.
constexpr std::size_t mostNames = 4096, longestName = 255;

bool fits(const NumberedMember& row, std::size_t arguments) noexcept {
    if (!row.member) return arguments == 0;
    const auto most = static_cast<std::size_t>(row.member->arguments);
    return arguments <= most && arguments + static_cast<std::size_t>(row.member->optional) >= most;
}

}  // namespace

MemberList::MemberList(std::span<const Member> table) { add(table); }

MemberList::MemberList(const AttributeClass& attribute) {
    for (const Field& field : attribute.fields)
        if (!field.property.empty()) m_members.push_back({std::string(field.property), nullptr, &field});
    add(attribute.operations);
    add(AttributeObject::commonMembers(attribute.offersInterface));
    if (!attribute.offersInterface) return;
    add(IBlockAttribute::table());
    add(IBlockAttribute::table(), interfacePrefix);
}

MemberList::MemberList(std::vector<Member> table, const std::vector<std::string>& parts) : m_table(std::move(table)) {
    add(m_table);
    for (const std::string& part : parts) m_members.push_back({.name = part, .isPart = true});
}

void MemberList::add(std::span<const Member> table, std::string_view prefix) {
    for (const Member& member : table) {
        std::string name = std::string(prefix) + std::string(member.name);
        m_twice = m_twice || numberOf(name) != DISPID_UNKNOWN;
        m_members.push_back({std::move(name), &member, nullptr});
        if (member.isDefault) m_default = count();
    }
}

DISPID MemberList::numberOf(std::string_view name) const {
    for (std::size_t i = 0; i < m_members.size(); ++i)
        if (sameName(m_members[i].name, name)) return static_cast<DISPID>(i + 1);
    if (sameName(name, "_NewEnum")) return DISPID_NEWENUM;
    if (!m_open || name.empty() || name.size() > longestName || m_members.size() >= mostNames) return DISPID_UNKNOWN;
    m_members.push_back({.name = std::string(name)});
    return count();
}

const NumberedMember* MemberList::find(DISPID number, std::size_t arguments) const noexcept {
    if (number == DISPID_VALUE) number = m_default;
    if (number < 1 || number > count()) return nullptr;
    const NumberedMember& first = (*this)[number];
    return m_twice && !fits(first, arguments) ? sameNamed(first, arguments) : &first;
}

const NumberedMember* MemberList::sameNamed(const NumberedMember& first, std::size_t arguments) const noexcept {
    for (const NumberedMember& row : m_members)
        if (&row != &first && fits(row, arguments) && sameName(row.name, first.name)) return &row;
    return &first;
}

}  // namespace canvas::component
