#include "component/class_list.h"

#include <typeindex>
#include <unordered_map>

#include "attributes/axis_motion.h"
#include "attributes/cam.h"
#include "attributes/flow.h"
#include "attributes/gearing.h"
#include "attributes/latch.h"
#include "attributes/lists.h"
#include "attributes/plain.h"
#include "attributes/program_control.h"
#include "attributes/validation.h"
#include "component/library.h"
#include "document/canvas.h"
#include "document/catalogue.h"
#include "hardware/modules.h"

namespace canvas::component {
namespace {

template <class T>
const MemberList& members() {
    static const MemberList list = [] {
        if constexpr (std::is_base_of_v<AttributeObject, T>) return MemberList(T::table);
        else return MemberList(T::table());
    }();
    return list;
}

template <class T>
Ref<Object> create() {
    return make<T>();
}

/// Its look into other programs comes from the catalogue.
Ref<Object> createLaunch() { return newAttribute(RESTARTPROGRAM); }

#define CLASS(type) {#type, create<type>, members<type>}
#define CLASS_BY(type, creator) {#type, creator, members<type>}
#define HANDED_OUT(type) {#type, nullptr, members<type>}

constexpr Class list[] = {
    CLASS(clsBVTCanvas),
    CLASS(clsBVTBlock),
    CLASS(clsBVTBlockCol),
    CLASS(clsBVTInPort),
    CLASS(clsBVTEdge),
    CLASS(clsBVTEdgeCol),
    CLASS(clsBVTNodePosition),
    CLASS(clsBVTUndoBuffer),
    CLASS(clsBVTGetBlockObject),
    CLASS(IBlockAttribute),
    CLASS(clsBVTDataValidation),
    CLASS(clsBVTAbortMotion),
    CLASS(clsBVTChangeDynamics),
    CLASS(clsBVTMoveAxis),
    CLASS(clsBVTJogAxis),
    CLASS(clsBVTHomeAxis),
    CLASS(clsBVTIncrementPosition),
    CLASS(clsBVTDefinePosition),
    CLASS(clsBVTTorque),
    CLASS(clsBVTGearRatio),
    CLASS(clsBVTGearingOnOff),
    CLASS(clsBVTAdvancedGearing),
    CLASS(clsBVTCAMOnOff),
    CLASS(clsBVTScaleCAM),
    CLASS(clsBVTCAMShift),
    CLASS(clsBVTAdvancedCAM),
    CLASS(clsBVTLatchOnOff),
    CLASS(clsBVTLatchTarget),
    CLASS(clsBVTIfEvent),
    CLASS(clsBVTOnTime),
    CLASS(clsBVTInput),
    CLASS(clsBVTServoOnOff),
    CLASS_BY(clsBVTRestartProgram, createLaunch),
    CLASS(clsBVTSuspendProgram),
    CLASS(clsBVTSuperBlock),
    CLASS(clsBVTSetVariable),
    CLASS(clsBVTProgrammableLimitSwitch),
    CLASS(clsBVTStart),
    CLASS(clsBVTEnd),
    CLASS(clsBVTIfFault),
    CLASS(clsBVTResetFault),
    CLASS(clsBVTMessageIn),
    CLASS(clsBVTMessageOut),
    CLASS(clsBVTNodeText),
    CLASS(clsBVTKX410),
    CLASS(clsBVTCOM1),
    CLASS(clsBVTCOM2),
    CLASS(clsBVTNetwork),
    CLASS(clsBVTRemoteIO),
    CLASS(clsBVTRVQD),
    CLASS(clsBVTExternalEncoder),
    CLASS(clsBVTMasterEncoder),
    CLASS(clsBVTDX260),
    CLASS(clsBVTOperatorInterface),
    CLASS(clsBVTPC),
    CLASS(clsBVTAxioLane),
    CLASS_BY(Library, theLibrary),
    HANDED_OUT(Collection),
};

#undef CLASS
#undef CLASS_BY
#undef HANDED_OUT

}  // namespace

std::span<const Class> classes() noexcept { return list; }

const Class* classNamed(std::string_view name) noexcept {
    for (const Class& row : list)
        if (row.name == name) return &row;
    return nullptr;
}

const MemberList& membersOf(const Object& object) {
    static const MemberList open;
    static std::unordered_map<std::type_index, const MemberList*> known;
    const MemberList*& members = known[typeid(object)];
    if (!members) {
        const Class* row = classNamed(object.className());
        members = row ? &row->members() : &open;
    }
    return *members;
}

}  // namespace canvas::component
