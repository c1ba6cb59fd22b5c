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
#include "editors/attribute_form.h"
#include "editors/data_list.h"
#include "editors/expression_builder.h"
#include "editors/small_forms.h"
#include "hardware/modules.h"

namespace canvas::component {

using namespace editors;

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
#define HANDED_OUT(type) {type::name, nullptr, members<type>}

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
    CLASS(clsBVTExpressionBuilder),
    CLASS(clsBVTDataList),
    CLASS(clsBVTEditNodeName),
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
    HANDED_OUT(TextControl),
    HANDED_OUT(Label),
    HANDED_OUT(Button),
    HANDED_OUT(Toggle),
    HANDED_OUT(Choice),
    HANDED_OUT(Tabs),
    HANDED_OUT(Tree),
    HANDED_OUT(Grid),
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

const MemberList& membersOf(const Form& form) {
    static std::unordered_map<std::string_view, MemberList> known;  // by name: many forms share a class
    const auto found = known.find(form.className());
    if (found != known.end()) return found->second;
    std::vector<Member> table;
    const auto add = [&](std::span<const Member> members) { table.insert(table.end(), members.begin(), members.end()); };
    add(Form::commonMembers());
    add(form.ownMembers());
    if (const auto* attributeForm = dynamic_cast<const AttributeForm*>(&form)) add(attributeForm->sharedMembers());
    std::vector<std::string> controls;
    for (const Ref<Control>& control : form.controls()) controls.push_back(control->Name());
    return known.try_emplace(form.className(), std::move(table), controls).first->second;
}

const MemberList& membersOf(const Object& object) {
    static const MemberList open;
    static std::unordered_map<std::type_index, const MemberList*> known;
    const MemberList*& members = known[typeid(object)];
    if (!members) {
        if (const auto* form = dynamic_cast<const Form*>(&object)) return membersOf(*form);
        const Class* row = classNamed(object.className());
        members = row ? &row->members() : &open;
    }
    return *members;
}

}  // namespace canvas::component
