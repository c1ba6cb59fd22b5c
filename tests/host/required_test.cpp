#include "host/required.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

using namespace canvas;

namespace {

struct Named {
    std::string member;
    int arguments = 0;
};

const std::vector<std::pair<std::string, std::vector<Named>>> expected{
    {"Main form",
     {{"currentproject"},
      {"MPController"},
      {"ActiveForm"},
      {"formCmbZoom"},
      {"fileopen", 3},
      {"mnuProjectAddSubroutineNew_Click"},
      {"SaveAs", 1}}},
    {"Active form",
     {{"Canvas"},
      {"WindowState"},
      {"Left"},
      {"Top"},
      {"Height"},
      {"Width"},
      {"editor"},
      {"formCmbZoom"}}},
    {"Zoom form", {{"cmbZoom"}}},
    {"Zoom", {{"Text"}}},
    {"Editor", {{"xScrollPos"}, {"yScrollPos"}}},
    {"Project",
     {{"Data"},
      {"syntaxChecking"},
      {"MachineUnits"},
      {"FileTitle"},
      {"WorkingDirectory"},
      {"GetTaskNameList"},
      {"TaskList"},
      {"SubroutineList"},
      {"IsASubroutine", 1},
      {"IsWithinSubroutineList", 1},
      {"NeedsSaving"}}},
    {"Machine units", {{"UserUnit"}}},
    {"Task list", {{"GetTaskAt", 1}}},
    {"Task", {{"IsTaskDefined"}, {"TaskName"}, {"TaskTitle"}}},
    {"Data",
     {{"getuserdefinedvariablecol"},
      {"getuserdefinedbitvariablecol"},
      {"GetUserDefinedNotBitVariableCol"},
      {"GetUserDefinedConstantCol"},
      {"GetUserDefinedNetworkCol"},
      {"GetUserDefinedBitNetworkCol"},
      {"GetUserDefinedNotBitNetworkCol"},
      {"GetUserDefinedTableCol"},
      {"GetUserDefinedTableNonConCol"},
      {"GetSystemIOCol"},
      {"GetBitSystemIOCol"},
      {"GetNotBitSystemIOCol"},
      {"GetSystemIOAddressCol"},
      {"GetUserDefinedVariableAddress", 1},
      {"GetTableElementAddress", 2},
      {"GetTableRange", 2},
      {"GetCAMTableNames"},
      {"UserTable"}}},
    {"User tables", {{"TableList"}}},
    {"Cam table", {{"TableName"}, {"tablebaseaddress"}, {"TableIncludeFilename"}}},
    {"Controller",
     {{"GetReadableSystemVariablecol"},
      {"GetReadableSystemBitVariablecol"},
      {"GetReadableSystemParameterCol"},
      {"GetWritableSystemVariableCol"},
      {"getallsystembitvariablecol"},
      {"GetRWSystemVariableCol"},
      {"GetRWSystemBitVariableCol"},
      {"GetRWSystemNotBitVariableCol"},
      {"GetAllSystemVariableAddressCol"},
      {"getCAMdata", 6}}},
    {"Syntax checker",
     {{"checkexpression", 3}, {"GetResult", 4}, {"GetErrorInfo", 3}, {"ValidateUserInput", 6}, {"Validate", 3}}},
    {"Memory map", {{"GetAddresses", 3}, {"AllocateAddresses", 3}, {"FreeAddresses", 2}, {"EmptyMap"}}},
    {"Collection", {{"Item", 1}}},
};

std::string writtenArguments(const char* object, const char* member) {
    const RequiredMember* row = requiredMember(object, member);
    std::string places;
    for (int i = 0; row && i < row->arguments; ++i)
        if (row->writes(i)) places += std::to_string(i + 1);
    return places;
}

}  // namespace

TEST(RequiredMembers, AreTheseAndNoOthers) {
    using Listed = std::vector<std::pair<std::string, int>>;
    Listed wanted, found;
    for (const auto& [object, members] : expected)
        for (const auto& named : members) wanted.emplace_back(object + "." + named.member, named.arguments);
    for (const RequiredMember& row : requiredMembers())
        found.emplace_back(std::string(row.object) + "." + std::string(row.member), row.arguments);
    EXPECT_EQ(found, wanted);
}

TEST(RequiredMembers, ArgumentsThatComeBackAreThese) {
    const struct {
        const char *object, *member, *places;
    } cases[] = {
        {"Data", "GetUserDefinedVariableAddress", "1"},
        {"Data", "GetTableElementAddress", "12"},
        {"Data", "GetTableRange", "2"},
        {"Controller", "getCAMdata", "13456"},
        {"Syntax checker", "checkexpression", "23"},
        {"Syntax checker", "GetResult", "1234"},
        {"Syntax checker", "GetErrorInfo", "123"},
        {"Syntax checker", "ValidateUserInput", "56"},
        {"Syntax checker", "Validate", "3"},
        {"Memory map", "GetAddresses", "1"},
    };
    std::set<std::string> listed;
    for (const auto& c : cases) {
        EXPECT_EQ(writtenArguments(c.object, c.member), c.places) << c.member;
        listed.insert(c.member);
    }
    for (const RequiredMember& row : requiredMembers())
        EXPECT_EQ(row.byReference != 0, listed.contains(std::string(row.member))) << row.member;
}

TEST(RequiredMembers, OnlyTheMarkOfTheProjectIsWritten) {
    for (const RequiredMember& row : requiredMembers())
        EXPECT_EQ(row.use == Use::write, row.member == "NeedsSaving") << row.member;
}

TEST(RequiredMembers, OnlyTheSixthArgumentOfTheUserInputMayBeMissing) {
    for (const RequiredMember& row : requiredMembers())
        EXPECT_EQ(row.optional, row.member == "ValidateUserInput" ? 1 : 0) << row.member;
}

TEST(RequiredMembers, EachIsListedOnceAndToldWhatItGives) {
    for (const RequiredMember& row : requiredMembers()) {
        EXPECT_EQ(requiredMember(row.object, row.member), &row) << row.member;
        EXPECT_FALSE(row.gives.empty()) << row.member;
    }
}

TEST(RequiredMembers, AreFoundWithoutRegardToCase) {
    const RequiredMember* row = requiredMember("data", "GETUSERDEFINEDVARIABLECOL");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->member, "getuserdefinedvariablecol");
    EXPECT_EQ(requiredMember("Data", "NoSuchMember"), nullptr);
    EXPECT_EQ(requiredMember("Project", "GetCAMTableNames"), nullptr);
}
