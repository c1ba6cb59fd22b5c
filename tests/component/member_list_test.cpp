// Every class's numbered members stand in a listing of their own, so that a change of what hosts rely on is seen.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include <gtest/gtest.h>

#include "attributes/program_control.h"
#include "component/class_list.h"

namespace canvas::component {
namespace {

const std::filesystem::path folder = std::filesystem::path(CANVAS_SOURCE_DIR) / "tests/component/members";

std::string kindOf(const NumberedMember& row) {
    if (!row.isProperty()) return "method";
    if (!row.isWritable()) return "get";
    return row.isReadable() ? "get/put" : "put";
}

/// "number name kind arguments", the last as "least-most" where some may be left out.
std::string listing(const MemberList& members) {
    std::string text;
    for (DISPID number = 1; number <= members.count(); ++number) {
        const NumberedMember& row = members[number];
        const int optional = row.member ? row.member->optional : 0;
        text += std::to_string(number) + ' ' + row.name + ' ' + kindOf(row) + ' ';
        if (optional) text += std::to_string(row.arguments() - optional) + '-';
        text += std::to_string(row.arguments());
        if (members.find(DISPID_VALUE, 0) == &row) text += " default";
        text += '\n';
    }
    return text;
}

std::string content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(MemberList, EveryClassHasTheMembersOfItsListing) {
    std::set<std::string> listed;
    for (const Class& row : classes()) {
        SCOPED_TRACE(row.name);
        const std::string file = std::string(row.name) + ".txt";
        EXPECT_EQ(listing(row.members()), content(folder / file));
        listed.insert(file);
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        EXPECT_TRUE(listed.count(entry.path().filename().string())) << entry.path() << " belongs to no class";
}

TEST(MemberList, TheCountOfArgumentsPicksBetweenTwoOfOneName) {
    const MemberList members(clsBVTRestartProgram::table);
    const DISPID number = members.numberOf("UpdateMatrix");
    EXPECT_EQ(members.find(number, 1)->arguments(), 1);
    EXPECT_EQ(members.find(number, 13)->arguments(), 13);
    EXPECT_EQ(members.find(number, 5)->arguments(), 1) << "the first row serves a count that fits neither";
    EXPECT_EQ(members.find(members.numberOf("IBlockAttribute_UpdateMatrix"), 13)->arguments(), 13);
}

TEST(MemberList, NamesIgnoreCase) {
    const MemberList members(clsBVTRestartProgram::table);
    EXPECT_EQ(members.numberOf("issame"), DISPID_UNKNOWN);
    EXPECT_EQ(members.numberOf("ISTHESAME"), members.numberOf("IsTheSame"));
    EXPECT_EQ(members.numberOf("_NEWENUM"), DISPID_NEWENUM);
}

}  // namespace
}  // namespace canvas::component
