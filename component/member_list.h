#pragma once
// Numbered members of a class, as late-bound callers address them.

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "attributes/field.h"
#include "component/platform/automation.h"
#include "host/members.h"

namespace canvas::component {

/// One numbered name. A field or a row of a member table stands behind it; neither for an object that is only known
/// by the names it answers to.
struct NumberedMember {
    std::string name;
    const Member* member = nullptr;
    const Field* field = nullptr;
    bool isPart = false;  ///< a part of the object, read by its name alone

    bool isProperty() const noexcept { return isPart || field || (member && member->isProperty); }
    bool isReadable() const noexcept { return !member || member->read; }
    bool isWritable() const noexcept { return !isPart && (!member || member->write); }
    int arguments() const noexcept { return member ? member->arguments : 0; }
};

/// Numbers count from 1 in slot order and never change. A name may stand twice: the first number is the name's, and
/// the count of arguments picks the row that serves.
class MemberList {
public:
    explicit MemberList(std::span<const Member> table);
    /// Properties, own operations, those of all attribute classes, the interface's, and these with their prefix.
    explicit MemberList(const AttributeClass& attribute);
    /// Members of an object that puts its table together itself, and behind them its parts by name.
    MemberList(std::vector<Member> table, const std::vector<std::string>& parts);
    MemberList(const MemberList&) = delete;  // rows lead into the table
    MemberList& operator=(const MemberList&) = delete;
    /// For objects without a table: every name gets a number when it is first asked for.
    MemberList() noexcept : m_open(true) {}

    /// DISPID_UNKNOWN when there is none. Case is ignored; "_NewEnum" is DISPID_NEWENUM.
    DISPID numberOf(std::string_view name) const;
    /// The row that serves a call with so many arguments; null when the number is not of this list. DISPID_VALUE is
    /// the default member.
    const NumberedMember* find(DISPID number, std::size_t arguments) const noexcept;

    DISPID count() const noexcept { return static_cast<DISPID>(m_members.size()); }
    const NumberedMember& operator[](DISPID number) const { return m_members[static_cast<std::size_t>(number - 1)]; }

private:
    void add(std::span<const Member> table, std::string_view prefix = {});
    const NumberedMember* sameNamed(const NumberedMember& first, std::size_t arguments) const noexcept;

    std::vector<Member> m_table;  ///< where no class keeps it
    mutable std::deque<NumberedMember> m_members;  // open lists grow, and rows that were handed out stay
    DISPID m_default = 0;
    bool m_twice = false;  ///< some name stands twice
    bool m_open = false;
};

}  // namespace canvas::component
