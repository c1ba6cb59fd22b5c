#include "document/catalogue.h"

#include "attributes/axis_motion.h"
#include "attributes/cam.h"
#include "attributes/flow.h"
#include "attributes/gearing.h"
#include "attributes/latch.h"
#include "attributes/lists.h"
#include "attributes/plain.h"
#include "attributes/program_control.h"
#include "document/references.h"
#include "host/ports.h"
#include "tracing/branch.h"

namespace canvas {
namespace {

template <class T>
Ref<AttributeObject> create() {
    return T::create();
}

/// A launch block looks into other programs as this floor reads them.
Ref<AttributeObject> createLaunch() {
    Ref<clsBVTRestartProgram> block = clsBVTRestartProgram::create();
    block->programs = &programsOnDisk();
    return block;
}

#define TYPE(member) member, #member

constexpr BlockClass rows[] = {
    {TYPE(CHANGEDYNAMICS), "Change Dynamics", Ports::single, create<clsBVTChangeDynamics>},
    {TYPE(HOMEAXIS), "Home Axis", Ports::dual, create<clsBVTHomeAxis>},
    {TYPE(MOVEAXIS), "Move Axis", Ports::single, create<clsBVTMoveAxis>},
    {TYPE(GEARRATIO), "Gear Ratio", Ports::single, create<clsBVTGearRatio>},
    {TYPE(JOGAXIS), "Jog Axis", Ports::single, create<clsBVTJogAxis>},
    {TYPE(SCALECAM), "Scale Cam", Ports::single, create<clsBVTScaleCAM>},
    {TYPE(CAMONOFF), "Cam", Ports::single, create<clsBVTCAMOnOff>},
    {TYPE(SERVOONOFF), "Servo", Ports::single, create<clsBVTServoOnOff>},
    {TYPE(ABORTMOTION), "Stop Motion", Ports::single, create<clsBVTAbortMotion>},
    {TYPE(GEARINGONOFF), "Gear", Ports::single, create<clsBVTGearingOnOff>},
    {TYPE(RESETFAULT), "Reset Fault", Ports::single, create<clsBVTResetFault>},
    {TYPE(DEFINEPOSITION), "Define Position", Ports::single, create<clsBVTDefinePosition>},
    {TYPE(INCREMENTPOSITION), "Slave Offset", Ports::single, create<clsBVTIncrementPosition>},
    {TYPE(LATCHONOFF), "Latch", Ports::single, create<clsBVTLatchOnOff>},
    {TYPE(IFEVENT), "If Event", Ports::dual, create<clsBVTIfEvent>},
    {TYPE(ONTIME), "Timer", Ports::dual, create<clsBVTOnTime>},
    {TYPE(RESTARTPROGRAM), "Launch Program", Ports::single, createLaunch},
    {TYPE(PROGRAMSTART), "Start", Ports::noIn, create<clsBVTStart>},
    {TYPE(IFFAULT), "If Fault", Ports::dual, create<clsBVTIfFault>},
    {TYPE(SUSPENDPROGRAM), "Suspend Program", Ports::single, create<clsBVTSuspendProgram>},
    {TYPE(PROGRAMEND), "End", Ports::noOut, create<clsBVTEnd>},
    {TYPE(MESSAGEOUT), "Message Out", Ports::single, create<clsBVTMessageOut>},
    {TYPE(MESSAGEIN), "Message In", Ports::dual, create<clsBVTMessageIn>},
    {TYPE(SETVARIABLE), "Set Variable", Ports::single, create<clsBVTSetVariable>},
    {TYPE(PROGRAMMABLELIMITSWITCH), "Programmable Limit Switch", Ports::single, create<clsBVTProgrammableLimitSwitch>},
    {TYPE(SUPERBLOCK), "Call Subroutine", Ports::single, create<clsBVTSuperBlock>},
    {TYPE(LATCHTARGET), "Latch Target", Ports::single, create<clsBVTLatchTarget>},
    {TYPE(NodeText), "Node Text", Ports::none, create<clsBVTNodeText>},
    {TYPE(CAMSHIFT), "CAM Shift", Ports::single, create<clsBVTCAMShift>},
    {TYPE(InputBlock), "Input", Ports::single, create<clsBVTInput>},
    {TYPE(Torque), "Torque", Ports::single, create<clsBVTTorque>},
};

#undef TYPE

constexpr auto byNumber = [] {
    std::array<std::int8_t, highestBlockType + 1> index{};
    index.fill(-1);
    for (std::size_t i = 0; i < std::size(rows); ++i)
        index[static_cast<std::size_t>(rows[i].type)] = static_cast<std::int8_t>(i);
    return index;
}();

}  // namespace

std::span<const BlockClass> catalogue() noexcept { return rows; }

const BlockClass* blockClass(std::int16_t type) noexcept {
    if (type < 0 || type > highestBlockType) return nullptr;
    const auto place = byNumber[static_cast<std::size_t>(type)];
    return place < 0 ? nullptr : &rows[place];
}

std::string_view blockName(std::int16_t type) {
    if (type < 0 || type > highestBlockType) raise(Error::subscript);
    const BlockClass* found = blockClass(type);
    return found ? found->displayName : std::string_view();
}

std::int16_t blockTypeOf(std::string_view displayName) noexcept {
    for (std::int16_t type = 0; type <= highestBlockType; ++type) {
        const BlockClass* found = blockClass(type);
        if ((found ? found->displayName : std::string_view()) == displayName) return type;
    }
    return 0;
}

Ref<Object> newAttribute(std::int16_t type) {
    Ref<Object> result;
    tracing::onFailure(
        [&] {
            const BlockClass* found = blockClass(type);
            if (!found || !found->make) raise(Error::objectNotSet);
            result = found->make();
        },
        [](const RuntimeError& error) { tell("clsBVTGetBlockObject.GetObject: " + bracketed(error)); });
    return result;
}

std::span<const Member> clsBVTGetBlockObject::table() noexcept {
    static constexpr Member members[] = {method<&clsBVTGetBlockObject::GetObject>("GetObject")};
    return members;
}

}  // namespace canvas
