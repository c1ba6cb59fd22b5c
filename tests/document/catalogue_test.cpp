#include "document/catalogue.h"

#include "tests/document/fixture.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using namespace fixture;

/// Every number from 0 to 32; a row without a member is not assigned.
const struct Row {
    std::int16_t number;
    std::string_view member, displayName;
    Ports ports;
    std::string_view attributeClass;
} rows[] = {
    {0, "CHANGEDYNAMICS", "Change Dynamics", Ports::single, "clsBVTChangeDynamics"},
    {1, "HOMEAXIS", "Home Axis", Ports::dual, "clsBVTHomeAxis"},
    {2, "MOVEAXIS", "Move Axis", Ports::single, "clsBVTMoveAxis"},
    {3, "GEARRATIO", "Gear Ratio", Ports::single, "clsBVTGearRatio"},
    {4, "JOGAXIS", "Jog Axis", Ports::single, "clsBVTJogAxis"},
    {5, "SCALECAM", "Scale Cam", Ports::single, "clsBVTScaleCAM"},
    {6, "CAMONOFF", "Cam", Ports::single, "clsBVTCAMOnOff"},
    {7, "SERVOONOFF", "Servo", Ports::single, "clsBVTServoOnOff"},
    {8, "ABORTMOTION", "Stop Motion", Ports::single, "clsBVTAbortMotion"},
    {9, "GEARINGONOFF", "Gear", Ports::single, "clsBVTGearingOnOff"},
    {10, "RESETFAULT", "Reset Fault", Ports::single, "clsBVTResetFault"},
    {11, "DEFINEPOSITION", "Define Position", Ports::single, "clsBVTDefinePosition"},
    {12, "INCREMENTPOSITION", "Slave Offset", Ports::single, "clsBVTIncrementPosition"},
    {13, "LATCHONOFF", "Latch", Ports::single, "clsBVTLatchOnOff"},
    {14, "IFEVENT", "If Event", Ports::dual, "clsBVTIfEvent"},
    {15, "ONTIME", "Timer", Ports::dual, "clsBVTOnTime"},
    {16, "RESTARTPROGRAM", "Launch Program", Ports::single, "clsBVTRestartProgram"},
    {17, "PROGRAMSTART", "Start", Ports::noIn, "clsBVTStart"},
    {18, "IFFAULT", "If Fault", Ports::dual, "clsBVTIfFault"},
    {19, "SUSPENDPROGRAM", "Suspend Program", Ports::single, "clsBVTSuspendProgram"},
    {20, "PROGRAMEND", "End", Ports::noOut, "clsBVTEnd"},
    {21, "MESSAGEOUT", "Message Out", Ports::single, "clsBVTMessageOut"},
    {22, "MESSAGEIN", "Message In", Ports::dual, "clsBVTMessageIn"},
    {23, "SETVARIABLE", "Set Variable", Ports::single, "clsBVTSetVariable"},
    {24, "PROGRAMMABLELIMITSWITCH", "Programmable Limit Switch", Ports::single, "clsBVTProgrammableLimitSwitch"},
    {25, "SUPERBLOCK", "Call Subroutine", Ports::single, "clsBVTSuperBlock"},
    {26, "LATCHTARGET", "Latch Target", Ports::single, "clsBVTLatchTarget"},
    {27, "NodeText", "Node Text", Ports::none, "clsBVTNodeText"},
    {28, {}, "", Ports::single, {}},
    {29, {}, "", Ports::single, {}},
    {30, "CAMSHIFT", "CAM Shift", Ports::single, "clsBVTCAMShift"},
    {31, "InputBlock", "Input", Ports::single, "clsBVTInput"},
    {32, "Torque", "Torque", Ports::single, "clsBVTTorque"},
};

std::string boxOf(int number, std::string_view description) {
    return "clsBVTGetBlockObject.GetObject: [" + std::to_string(number) + "] " + std::string(description);
}

struct Catalogue : Drawing {};

TEST_F(Catalogue, HasThirtyOneTypesByRisingNumber) {
    std::vector<const Row*> assigned;
    for (const Row& row : rows)
        if (!row.member.empty()) assigned.push_back(&row);
    const auto types = catalogue();
    ASSERT_EQ(types.size(), 31U);
    ASSERT_EQ(assigned.size(), 31U);
    for (std::size_t i = 0; i < types.size(); ++i) {
        EXPECT_EQ(types[i].type, assigned[i]->number);
        EXPECT_EQ(types[i].member, assigned[i]->member);
        EXPECT_EQ(types[i].displayName, assigned[i]->displayName);
        EXPECT_EQ(types[i].ports, assigned[i]->ports) << assigned[i]->member;
    }
}

TEST_F(Catalogue, ANumberFindsItsType) {
    for (const Row& row : rows) {
        const BlockClass* found = blockClass(row.number);
        ASSERT_EQ(found != nullptr, !row.member.empty()) << row.number;
        if (found) {
            EXPECT_EQ(found->member, row.member);
        }
    }
    EXPECT_EQ(blockClass(-1), nullptr);
    EXPECT_EQ(blockClass(33), nullptr);
}

TEST_F(Catalogue, TheEnumerationHasTheNumbers) {
    const std::int16_t numbers[]{
        CHANGEDYNAMICS, HOMEAXIS,       MOVEAXIS,          GEARRATIO,   JOGAXIS,
        SCALECAM,       CAMONOFF,       SERVOONOFF,        ABORTMOTION, GEARINGONOFF,
        RESETFAULT,     DEFINEPOSITION, INCREMENTPOSITION, LATCHONOFF,  IFEVENT,
        ONTIME,         RESTARTPROGRAM, PROGRAMSTART,      IFFAULT,     SUSPENDPROGRAM,
        PROGRAMEND,     MESSAGEOUT,     MESSAGEIN,         SETVARIABLE, PROGRAMMABLELIMITSWITCH,
        SUPERBLOCK,     LATCHTARGET,    NodeText,          CAMSHIFT,    InputBlock,
        Torque};
    std::int16_t expected = 0;
    for (const std::int16_t number : numbers) {
        EXPECT_EQ(number, expected);
        expected = static_cast<std::int16_t>(expected == 27 ? 30 : expected + 1);
    }
    EXPECT_EQ(blockOK, 0);
    EXPECT_EQ(blockWarning, 1);
    EXPECT_EQ(blockError, 2);
}

TEST_F(Catalogue, TheCanvasGivesTheDisplayNames) {
    for (const Row& row : rows) {
        EXPECT_EQ(document->BlockName(row.number), row.displayName);
        Value number = row.number;
        EXPECT_EQ(document->get("getBlockName", Args(&number, 1)), Value(row.displayName));
    }
    for (const std::int16_t outside : Ids{-1, 33, 32767})
        EXPECT_EQ(raisedBy([&] { document->BlockName(outside); }), 9) << outside;
}

TEST_F(Catalogue, ADisplayNameGivesItsNumber) {
    for (const Row& row : rows)
        if (!row.member.empty()) {
            EXPECT_EQ(document->GetBlockTypeID(row.displayName), row.number);
        }
    EXPECT_EQ(document->GetBlockTypeID("End"), 20);
}

TEST_F(Catalogue, AnUnknownDisplayNameGivesTheFirstType) {
    for (const std::string_view name : {"end", "Endd", "End ", "PROGRAMEND", "x"})
        EXPECT_EQ(document->GetBlockTypeID(name), 0) << name;
}

TEST_F(Catalogue, TheEmptyNameGivesTheFirstUnassignedNumber) { EXPECT_EQ(document->GetBlockTypeID(""), 28); }

TEST_F(Catalogue, ANewBlockHasThePortsAndTheAttributeOfItsType) {
    for (const Row& row : rows) {
        if (row.member.empty()) continue;
        const auto block = newBlock(5, row.number);
        EXPECT_EQ(block->blnHasDualOutPort, row.ports == Ports::dual) << row.member;
        EXPECT_EQ(block->blnNoInPort, row.ports == Ports::noIn || row.ports == Ports::none) << row.member;
        EXPECT_EQ(block->blnNoOutPort, row.ports == Ports::noOut || row.ports == Ports::none) << row.member;
        EXPECT_EQ(block->BVTAttribute()->className(), row.attributeClass);
    }
    EXPECT_EQ(told(), Texts{});
}

TEST_F(Catalogue, TheFactoryGivesANewObjectAtEachCall) {
    const auto factory = make<clsBVTGetBlockObject>();
    for (const Row& row : rows) {
        if (row.member.empty()) continue;
        const Ref<Object> first = factory->GetObject(row.number), second = factory->GetObject(row.number);
        ASSERT_NE(first, nullptr) << row.member;
        EXPECT_EQ(first->className(), row.attributeClass);
        EXPECT_FALSE(first == second) << row.member;
    }
    EXPECT_FALSE(newBlock(1, MOVEAXIS)->BVTAttribute() == newBlock(2, MOVEAXIS)->BVTAttribute());
}

TEST_F(Catalogue, ANumberWithoutClassIsToldAndGivesNothing) {
    const auto factory = make<clsBVTGetBlockObject>();
    for (const std::int16_t number : Ids{28, 29, -1, 33, 32767}) {
        EXPECT_EQ(factory->GetObject(number), nullptr);
        EXPECT_EQ(told(), Texts{boxOf(91, "Object variable not set")}) << number;
    }
}

TEST_F(Catalogue, ABlockOfAnUnknownTypeHasNoAttribute) {
    const auto block = newBlock(5, 28);
    EXPECT_EQ(told(), Texts{boxOf(91, "Object variable not set")});
    EXPECT_EQ(block->BlockType(), 28);
    EXPECT_EQ(block->vntAttribute, nullptr);
    EXPECT_EQ(wiring(*block), "to -1,-1 used 0,0 from");
}

TEST_F(Catalogue, AFaultBlockWritesNothingOfItsType) {
    for (const std::int16_t type : Ids{IFFAULT, RESETFAULT}) {
        const auto block = newBlock(5, type);
        block->BVTAttribute()->put("TypeK", "5");
        EXPECT_EQ(block->OutputToFile(""), "0 ");
    }
}

}  // namespace
}  // namespace canvas
