// The members of every class in slot order.

#include "fixture.h"

namespace canvas {
namespace {

using namespace fixture;

/// "name(arguments)", with "&" for each one that is handed back and "?" for each that may be left out; "-name" can be
/// written only, "=name" read and written.
std::string slot(const Member& member) {
    const std::string name(member.name);
    if (member.isProperty) return (member.read ? "=" : "-") + name;
    std::string arguments;
    for (int i = 0; i < member.arguments; ++i) {
        if (i >= member.arguments - member.optional) arguments += "?";
        arguments += (member.byReference >> i & 1) ? "&" : "v";
    }
    return name + "(" + arguments + ")";
}

template <class T>
Texts slots() {
    Texts all;
    for (const Member& member : T::table()) all.push_back(slot(member));
    return all;
}

TEST(Slots, OfTheServoAmplifier) {
    EXPECT_EQ(slots<clsBVTRVQD>(), (Texts{"ImportFromCSV(&)", "ExportToCSV(&)", "GetNumberOfElements()",
                                          "SetBlockMatrix(vvv)", "GetBlockMatrix(&)", "SetDBPath(v)", "ReadFromDB()",
                                          "RestoreDefault()", "SaveToDB()", "ResetDirtyBits()"}));
}

TEST(Slots, OfTheController) {
    EXPECT_EQ(slots<clsBVTKX410>(),
              (Texts{"GetNumberOfElements()", "SetBlockMatrix(vvv)", "GetBlockMatrix(&)", "SetDBPath(v)",
                     "ReadFromDB(?&?&?&?&?&?&?&?&)", "ExportToCSV(&)", "RestoreDefault()", "SaveToDB()",
                     "ImportFromCSV(&)", "ResetDirtyBits()"}));
}

TEST(Slots, OfTheFirstSerialPort) {
    EXPECT_EQ(slots<clsBVTCOM1>(), (Texts{"ExportToCSV(&)", "ImportFromCSV(&)", "ReadFromDB()", "SetDBPath(v)",
                                          "GetNumberOfElements()", "SetBlockMatrix(vvv)", "GetBlockMatrix(&)",
                                          "RestoreDefault()", "SaveToDB()", "ResetDirtyBits()"}));
}

TEST(Slots, OfTheSecondSerialPort) {
    EXPECT_EQ(slots<clsBVTCOM2>(), (Texts{"ImportFromCSV(&)", "ExportToCSV(&)", "GetNumberOfElements()",
                                          "SetBlockMatrix(vvv)", "GetBlockMatrix(&)", "SetDBPath(v)", "ReadFromDB()",
                                          "RestoreDefault()", "SaveToDB()", "ResetDirtyBits()"}));
}

TEST(Slots, OfTheNetwork) {
    EXPECT_EQ(slots<clsBVTNetwork>(),
              (Texts{"-OutputMap", "-InputMap", "ImportFromCSV(&)", "ExportToCSV(&)", "GetNumberOfElements()",
                     "SetBlockMatrix(vvv)", "GetBlockMatrix(&)", "SetDBPath(v)", "ReadFromDB()", "RestoreDefault()",
                     "SaveToDB()", "ResetDirtyBits()", "NetworkType()", "NetworkFunction()", "NetworkSlaveNode()",
                     "NetworkNode()", "NetworkName()", "GetAxiolaneNodes(&)"}));
}

TEST(Slots, OfTheExternalEncoder) {
    EXPECT_EQ(slots<clsBVTExternalEncoder>(),
              (Texts{"ImportFromCSV(&)", "ExportToCSV(&)", "GetNumberOfElements()", "SetBlockMatrix(vvv)",
                     "GetBlockMatrix(&)", "SetDBPath(v)", "ReadFromDB(?&?&?&?&?&?&?&)", "RestoreDefault()", "SaveToDB()",
                     "ResetDirtyBits()"}));
}

TEST(Slots, OfTheRemoteIO) {
    EXPECT_EQ(slots<clsBVTRemoteIO>(),
              (Texts{"ImportFromCSV(&v)", "ExportToCSV(&)", "GetNumberOfElements()", "SetBlockMatrix(vvv)",
                     "GetBlockMatrix(&)", "ReadFromDB()", "SetDBPath(v)", "RestoreDefault()", "SaveToDB()",
                     "RemoveFromList(vv)", "GetMessageType(vv&)", "GetData(v&&&&&)", "GetRemoteIOList(v&&)",
                     "IsInList(v)", "IsNameInList(v)", "SaveData(vvvvvvvv)", "ResetDirtyBits()",
                     "AllocationMemoryMaps(v)", "-InputMap", "-OutputMap", "SetKX410Slave(vvvvv)",
                     "RemoveAllRemoteIONodes()", "SetKX410Master(v)", "GetNumberOfNodes()", "UpdateNodeNumber(vv)",
                     "UpdateNodeName(vv)"}));
}

TEST(Slots, OfTheMasterEncoder) {
    EXPECT_EQ(slots<clsBVTMasterEncoder>(),
              (Texts{"=Enabled", "=FeedConstant", "=GearBoxInput", "=GearBoxOutput", "=MovementType", "=PulseType",
                     "=Resolution", "=UserUnit", "IsTheSame()", "SameAs(v)"}));
}

TEST(Slots, OfTheSmallDevices) {
    EXPECT_EQ(slots<clsBVTDX260>(), (Texts{"=NodeNumber", "IsTheSame()", "SameAs(v)", "OutputToFile(v)"}));
    const Texts plain{"IsTheSame()", "SameAs(v)", "OutputToFile(v)", "AssignFromFile(vv)"};
    EXPECT_EQ(slots<clsBVTOperatorInterface>(), plain);
    EXPECT_EQ(slots<clsBVTPC>(), plain);
    EXPECT_EQ(slots<clsBVTAxioLane>(), Texts{});
}

TEST(Enumerations, HaveTheirNumbers) {
    EXPECT_EQ((std::vector<int>{mtNone, mtRVQD, mtKX410, mtCOM1, mtCOM2, mtNetwork, mtExternalEncoder, mtRemoteIO}),
              (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ((std::vector<int>{PropertyName, PropertyValue, PropertyDisplayID, PropertyDataType, PropertyToolTipText,
                                PropertyExpressionBuilder, PropertyAccessibility, PropertyComboLookupID,
                                PropertyListItem, PropertyValidation, PropertyMinimumValue, PropertyMaximumValue,
                                PropertyDefaultValue, PropertyDisplayFormat, PropertyValidateType}),
              (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}));
    EXPECT_EQ((std::vector<int>{brxEditBox, brxEditButton, brxCheckBox, brxComboBox, brxButton}),
              (std::vector<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ((std::vector<int>{brxReadOnly, brxReadAndWrite, brxDisableBuilder, brxEnableBuilder}),
              (std::vector<int>{0, 1, 0, 1}));
}

}  // namespace
}  // namespace canvas
