// The public members of all block classes: number, name, kind, argument count. Hosts keep these numbers, so that a
// line may be added behind a class's own members, and none may change.

#include <algorithm>

#include <gtest/gtest.h>

#include "block_case.h"

namespace canvas {
namespace {

/// "number name kind arguments" on lines of their own. Properties stand in slot order, then the class's own operations.
constexpr const char* ownMembers = R"(
clsBVTAbortMotion
 1 Deceleration get+put 0
clsBVTAdvancedCAM record
 1 SpeedFeedForwardAddress get+put 0
 2 FeedForwardGain get+put 0
 3 MasterAxisMaxCycle get+put 0
 4 AngleUnit get+put 0
 5 Cyclical get+put 0
clsBVTAdvancedGearing record
 1 FeedForwardGain get+put 0
clsBVTCAMOnOff
 1 CAMProfileTable get+put 0
 2 MasterPosition get+put 0
 3 CAM get+put 0
 4 Advanced get+put 0
 5 SpeedFeedForwardAddress get+put 0
 6 FeedForwardGain get+put 0
 7 MasterAxisMaxCycle get+put 0
 8 LastCAM_X get+put 0
 9 LastCAM_Y get+put 0
 10 FirstCAM_X get+put 0
 11 FirstCAM_Y get+put 0
 12 GetCAMTableList call 1
 13 ValidateTableName call 2
 14 ComputeCAMData call 2
clsBVTCAMShift
 1 Offset get+put 0
 2 Time get+put 0
 3 WaitForCompletion get+put 0
clsBVTChangeDynamics
 1 Acceleration get+put 0
 2 Deceleration get+put 0
 3 Velocity get+put 0
 4 SCurve get+put 0
clsBVTDefinePosition
 1 Main get+put 0
 2 External get+put 0
 3 MainChanged get+put 0
 4 ExternalChanged get+put 0
clsBVTEnd
 1 Name get+put 0
 2 IsTheSameAs call 1
 3 InputFromFile call 1
clsBVTGearRatio
 1 Master get+put 0
 2 Slave get+put 0
clsBVTGearingOnOff
 1 Gearing get+put 0
 2 Advanced get+put 0
 3 FeedForwardGain get+put 0
clsBVTHomeAxis
 1 TimeOut get+put 0
 2 ApproachVelocity get+put 0
 3 Acceleration get+put 0
 4 Deceleration get+put 0
 5 CreepSpeed get+put 0
 6 HomeSwitchInput get+put 0
 7 HomingDirection get+put 0
clsBVTIfEvent
 1 EventK get+put 0
clsBVTIfFault
 1 TypeK get+put 0
clsBVTIncrementPosition
 1 Offset get+put 0
 2 Time get+put 0
 3 WaitForCompletion get+put 0
 4 UpdateTimeValue call 0
clsBVTInput
 1 InputBlock get+put 0
 2 Condition get+put 0
 3 InputType get 0
clsBVTJogAxis
 1 Acceleration get+put 0
 2 Deceleration get+put 0
 3 Velocity get+put 0
clsBVTLatchOnOff
 1 Latch get+put 0
 2 MainLatchaxis get+put 0
clsBVTLatchTarget
 1 DistanceAfterLatch get+put 0
 2 DefaultDistance get+put 0
 3 Velocity get+put 0
 4 Acceleration get+put 0
 5 Deceleration get+put 0
 6 LatchStartDistance get+put 0
 7 LatchFinishDistance get+put 0
 8 WaitForCompletion get+put 0
clsBVTMessageIn record
 1 UserVariable get+put 0
 2 TimeOut get+put 0
clsBVTMessageOut record
 1 Message get+put 0
 2 SendCR get+put 0
clsBVTMoveAxis
 1 Acceleration get+put 0
 2 Deceleration get+put 0
 3 TypeK get+put 0
 4 Position get+put 0
 5 Velocity get+put 0
 6 WaitForCompletion get+put 0
clsBVTNodeText
 1 NodeText get+put 0
 2 LineCount get+put 0
 3 MaxCharPerLine get+put 0
 4 CharCount get+put 0
clsBVTOnTime
 1 TimeOut get+put 0
clsBVTProgrammableLimitSwitch
 1 Variable get+put 0
 2 MasterVariable get+put 0
 3 Switches get 0
 4 Selected put 0
 5 GetActiveLessThanValue call 1
 6 GetActiveGreaterThanValue call 1
 7 GetActiveOutputValue call 1
 8 GetActiveState call 1
 9 UpdateMatrix call 1
 10 ParseList call 1
clsBVTResetFault
 1 TypeK get+put 0
clsBVTRestartProgram
 1 TaskName put 0
 2 TaskCount get 0
 3 ArChkTask call 1
 4 SetArChkTask call 2
 5 ArTask call 1
 6 SetArTask call 2
 7 ArBlockNumber call 1
 8 SetArBlockNumber call 2
 9 UpdateMatrix call 1
clsBVTScaleCAM
 1 ScaleFactor get+put 0
clsBVTServoOnOff
 1 Servo get+put 0
clsBVTSetVariable
 1 Variable get+put 0
 2 Variables get 0
 3 Expressions get 0
 4 Selected put 0
 5 UpdateMatrix call 1
 6 GetVariableAt call 1
 7 GetExpressionAt call 1
 8 SetActiveVariable call 1
 9 SetActiveExpression call 1
 10 ParseList call 1
clsBVTStart
 1 Name get+put 0
clsBVTSuperBlock
 1 Name get+put 0
 2 title get+put 0
 3 DocumentName put 0
 4 SubroutineFilename put 0
 5 IsRecursive call 0
clsBVTSuspendProgram
 1 TaskCount get 0
 2 TaskName put 0
 3 ArTaskExist call 1
 4 SetArTaskExist call 2
 5 ArTask call 1
 6 SetArTask call 2
 7 UpdateMatrix call 1
clsBVTTorque
 1 SpeedLimit get+put 0
 2 Torque get+put 0
)";

/// Behind the class's own; plain records have the first four alone.
constexpr const char* commonMembers = R"(
 1 IsTheSame call 0
 2 SameAs call 1
 3 OutputToFile call 1
 4 AssignFromFile call 2
 5 IBlockAttribute_AdvancedMatrixCol call 0
 6 IBlockAttribute_AdvancedMatrixRow call 0
 7 IBlockAttribute_GetElementFromAdvancedMatrix call 2
 8 IBlockAttribute_GetAdvancedComboItem call 2
 9 IBlockAttribute_IsAdvancedOn call 0
)";

/// Behind those of every class but the plain records, under these names and with "IBlockAttribute_" before them.
constexpr const char* protocolMembers = R"(
 1 FillMatrix call 0
 2 UpdateMatrix call 13
 3 UpdateElementInMatrix call 11
 4 GetElementFromMatrix call 2
 5 MatrixRow call 0
 6 MatrixCol call 0
 7 GetComboItem call 2
 8 GetNumOfProperties call 0
 9 GetPropertyAt call 1
 10 PropertiesSyntaxCheck call 3
)";

class Listing {
public:
    void add(std::string_view name, std::string_view kind, int arguments) {
        m_text += ' ' + std::to_string(++m_number) + ' ' + std::string(name) + ' ' + std::string(kind) + ' ' +
                  std::to_string(arguments) + '\n';
    }
    void add(std::span<const Member> members) {
        for (const Member& member : members) {
            const char* kind = !member.isProperty ? "call" : !member.write ? "get" : member.read ? "get+put" : "put";
            add(member.name, kind, member.arguments);
            EXPECT_EQ(member.optional, 0) << member.name;
            EXPECT_FALSE(member.isDefault) << member.name << ": a block attribute has no default member";
        }
    }
    const std::string& text() const noexcept { return m_text; }

private:
    std::string m_text;
    int m_number = 0;
};

TEST(GoldenMembers, EveryClassKeepsItsOwn) {
    std::vector<testing::BlockCase> cases = testing::allCases();
    std::sort(cases.begin(), cases.end(),
              [](const auto& a, const auto& b) { return std::string_view(a.name) < std::string_view(b.name); });
    ASSERT_EQ(cases.size(), 33u);
    std::string found = "\n";
    for (const auto& block : cases) {
        const auto& table = block.create()->attributeClass();
        Listing own;
        for (const Field& field : table.fields)
            if (!field.property.empty()) own.add(field.property, "get+put", 0);
        own.add(table.operations);
        found += std::string(table.name) + (table.offersInterface ? "\n" : " record\n") + own.text();
    }
    EXPECT_EQ(found, ownMembers);
}

TEST(GoldenMembers, AllClassesShareTheRest) {
    Listing record, panel, protocol;
    record.add(AttributeObject::commonMembers(false));
    panel.add(AttributeObject::commonMembers(true));
    protocol.add(IBlockAttribute::table());
    const std::string common = commonMembers;
    EXPECT_EQ("\n" + record.text(), common.substr(0, common.find(" 5 ")));
    EXPECT_EQ("\n" + panel.text(), common);
    EXPECT_EQ("\n" + protocol.text(), protocolMembers);
}

}  // namespace
}  // namespace canvas
