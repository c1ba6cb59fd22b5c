// What members give to a host: the kind of each result, and the arguments that are written back.

#include <map>

#include <gtest/gtest.h>

#include "component/class_list.h"
#include "tests/component/fake_host.h"

namespace canvas::component::testing {
namespace {

struct Result {
    const char* type;
    const char* member;
    int kind;
    std::vector<Value> arguments{};
};

const std::vector<Result> results = {
    {"clsBVTCanvas", "frmParentForm", VT_DISPATCH},
    {"clsBVTCanvas", "MaxNumberOfBlock", VT_I2},
    {"clsBVTCanvas", "BlockList", VT_DISPATCH},
    {"clsBVTCanvas", "BottomPortSelected", VT_BOOL},
    {"clsBVTCanvas", "Name", VT_BSTR},
    {"clsBVTCanvas", "FormLeft", VT_I4},
    {"clsBVTCanvas", "FormZoom", VT_R8},
    {"clsBVTCanvas", "FormWindowState", VT_I4},
    {"clsBVTCanvas", "GetAvailableBlockID", VT_I2},
    {"clsBVTCanvas", "DoesBlockIDExist", VT_BOOL, {1}},
    {"clsBVTCanvas", "GetBlockCount", VT_I2},
    {"clsBVTCanvas", "SelectPort", VT_EMPTY, {1, 2, 0}},
    {"clsBVTCanvas", "getBlockName", VT_BSTR, {2}},
    {"clsBVTCanvas", "GetBlockTypeID", VT_I2, {"End"}},
    {"clsBVTCanvas", "GetUndoActionCode", VT_I2},
    {"clsBVTCanvas", "CheckConnection", VT_BOOL, {""}},
    {"clsBVTBlock", "UserName", VT_BSTR},
    {"clsBVTBlock", "UserID", VT_I4},
    {"clsBVTBlock", "ColFromBlockID", VT_DISPATCH},
    {"clsBVTBlock", "ToFirstBlockID", VT_I2},
    {"clsBVTBlock", "HasDualOutPort", VT_BOOL},
    {"clsBVTBlock", "GetFromBlockCount", VT_I2},
    {"clsBVTInPort", "BlockID", VT_R4},
    {"clsBVTInPort", "FromTopPort", VT_BOOL},
    {"clsBVTBlockCol", "Count", VT_I4},
    {"clsBVTBlockCol", "NewEnum", VT_DISPATCH},
    {"clsBVTBlockCol", "GetBlockByBlockID", VT_DISPATCH, {1}},
    {"clsBVTBlockCol", "GetHighestBlockID", VT_I4},
    {"clsBVTEdge", "fromX", VT_I4},
    {"clsBVTEdge", "FromBlockID", VT_I2},
    {"clsBVTEdge", "UserID", VT_I2},
    {"clsBVTEdge", "SourceNode", VT_DISPATCH},
    {"clsBVTEdgeCol", "Count", VT_I4},
    {"clsBVTNodePosition", "NodeID", VT_I2},
    {"clsBVTNodePosition", "Top", VT_I4},
    {"clsBVTNodePosition", "UserID", VT_I2},
    {"clsBVTUndoBuffer", "UndoActionMode", VT_I2},
    {"clsBVTUndoBuffer", "ElementCount", VT_I2},
    {"clsBVTGetBlockObject", "GetObject", VT_DISPATCH, {17}},
    {"clsBVTDataValidation", "IsInteger", VT_BOOL, {"1"}},
    {"clsBVTMoveAxis", "Velocity", VT_BSTR},
    {"clsBVTMoveAxis", "WaitForCompletion", VT_BOOL},
    {"clsBVTMoveAxis", "IsTheSame", VT_DISPATCH},
    {"clsBVTMoveAxis", "OutputToFile", VT_BSTR, {""}},
    {"clsBVTMoveAxis", "AssignFromFile", VT_EMPTY, {1, "a"}},
    {"clsBVTMoveAxis", "IBlockAttribute_AdvancedMatrixRow", VT_I2},
    {"clsBVTMoveAxis", "IBlockAttribute_GetElementFromAdvancedMatrix", VT_BSTR, {0, 0}},
    {"clsBVTMoveAxis", "IBlockAttribute_IsAdvancedOn", VT_BOOL},
    {"clsBVTMoveAxis", "FillMatrix", VT_BOOL},
    {"clsBVTMoveAxis", "MatrixRow", VT_I2},
    {"clsBVTMoveAxis", "IBlockAttribute_GetNumOfProperties", VT_I2},
    {"clsBVTMoveAxis", "GetPropertyAt", VT_BSTR, {1}},
    {"clsBVTIncrementPosition", "UpdateTimeValue", VT_BOOL},
    {"clsBVTCAMOnOff", "LastCAM_X", VT_I4},
    {"clsBVTInput", "InputType", VT_I2},
    {"clsBVTRestartProgram", "TaskCount", VT_I2},
    {"clsBVTRestartProgram", "ArTask", VT_BSTR, {1}},
    {"clsBVTRestartProgram", "ArBlockNumber", VT_I2, {1}},
    {"clsBVTSetVariable", "Variables", VT_ARRAY | VT_BSTR},
    {"clsBVTSetVariable", "ParseList", VT_ARRAY | VT_BSTR, {"a;b"}},
    {"clsBVTStart", "Name", VT_BSTR},
    {"clsBVTNodeText", "LineCount", VT_I2},
    {"clsBVTExpressionBuilder", "Expression", VT_BSTR},
    {"clsBVTEditNodeName", "OriginalName", VT_BSTR},
    {"clsBVTEditNodeName", "Unload_Form", VT_EMPTY},
    {"Library", "Interaction", VT_DISPATCH},
    {"Library", "LiveObjects", VT_I4},
    {"Library", "FileFormatVersion", VT_BSTR},
};

TEST(Results, ComeInTheKindOfTheirDeclaration) {
    for (const Result& row : results) {
        SCOPED_TRACE(std::string(row.type) + "." + row.member);
        const auto object = dispatchOf(classNamed(row.type)->create());
        if (std::string_view(row.type) == "clsBVTSetVariable") call(object.get(), "FillMatrix");
        EXPECT_EQ(kindOf(object.get(), row.member, row.arguments), row.kind);
    }
}

using Places = std::vector<int>;

/// Of the members that write any argument, from 1; with its class where two differ.
const std::map<std::string, Places> written = {
    {"UpdateMatrix", {3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}},
    {"UpdateElementInMatrix", {4, 5, 6, 7, 8, 9, 10, 11}},
    {"GetComboItem", {1, 2}},
    {"PropertiesSyntaxCheck", {3}},
    {"GetAdvancedComboItem", {1, 2}},
    {"IsInteger", {2}},
    {"IsFloat", {2}},
    {"IsLong", {2}},
    {"IsPositiveInteger", {2}},
    {"IsPositiveFloat", {2}},
    {"IsPositiveLong", {2}},
    {"IsScaledInteger", {2}},
    {"IsScaledLong", {2}},
    {"Validate", {3, 4}},
    {"IsTableName", {1, 3}},
    {"ComputeCAMData", {1, 2}},
    {"CheckConnection", {1}},
    {"ShowAttributeFormAndChanged", {2}},
    {"Show_ExpressionBuilder", {1, 2, 3}},
    {"Show_Output", {3}},
    {"Show_LSMV", {3}},
    {"Show_Data", {3}},
    {"Show_Scope", {3, 4}},
    {"GetBlockMatrix", {1}},
    {"ExportToCSV", {1}},
    {"ImportFromCSV", {1}},
    {"clsBVTKX410.ReadFromDB", {1, 2, 3, 4, 5, 6, 7, 8}},
    {"clsBVTExternalEncoder.ReadFromDB", {1, 2, 3, 4, 5, 6, 7}},
    {"GetAxiolaneNodes", {1}},
    {"GetMessageType", {3}},
    {"GetData", {2, 3, 4, 5, 6}},
    {"GetRemoteIOList", {2, 3}},
};

TEST(Results, ArgumentsByReferenceAreThoseThatAreWritten) {
    const std::string prefix = "IBlockAttribute_";
    for (const Class& row : classes()) {
        const MemberList& members = row.members();
        for (DISPID number = 1; number <= members.count(); ++number) {
            const NumberedMember& member = members[number];
            SCOPED_TRACE(std::string(row.name) + "." + member.name);
            const std::string plain = member.name.starts_with(prefix) ? member.name.substr(prefix.size()) : member.name;
            Places places;
            for (int i = 0; member.member && i < member.arguments(); ++i)
                if (member.member->byReference >> i & 1U) places.push_back(i + 1);
            const bool ownUpdate = plain == "UpdateMatrix" && member.arguments() == 1;
            const auto ofClass = written.find(std::string(row.name) + "." + plain);
            const auto found = ofClass != written.end() ? ofClass : written.find(plain);
            EXPECT_EQ(places, found == written.end() || ownUpdate ? Places() : found->second);
        }
    }
}

}  // namespace
}  // namespace canvas::component::testing
