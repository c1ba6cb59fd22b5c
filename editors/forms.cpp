#include "editors/forms.h"

#include "editors/coupling_forms.h"
#include "editors/data_list.h"
#include "editors/error_form.h"
#include "editors/expression_builder.h"
#include "editors/flow_forms.h"
#include "editors/limit_switch_form.h"
#include "editors/message_forms.h"
#include "editors/motion_forms.h"
#include "editors/program_forms.h"
#include "editors/set_variable_form.h"
#include "editors/small_forms.h"

namespace canvas::editors {
namespace {

/// A form that is its table alone.
template <const AttributeForm::Spec& spec>
Ref<Form> plain() {
    return Ref<Form>(new AttributeForm(spec));
}

/// A form with a class of its own.
template <class F>
Ref<Form> own() {
    return make<F>();
}

constexpr FormEntry list[] = {
    {"frmAbortMotion", makeAbortMotion},
    {"frmCAMOnOff", makeCAMOnOff},
    {"frmCAMShift", plain<frmCAMShift>},
    {"frmChangeDynamics", makeChangeDynamics},
    {"frmCompileOptions", makeCompileOptions},
    {"frmDataList", own<frmDataList>},
    {"frmDefinePosition", plain<frmDefinePosition>},
    {"frmEditNodeName", makeEditNodeName},
    {"frmExpressionBuilder", own<frmExpressionBuilder>},
    {"frmGearingOnOff", makeGearingOnOff},
    {"frmGearRatio", plain<frmGearRatio>},
    {"frmHomeAxis", makeHomeAxis},
    {"frmIfEvent", makeIfEvent},
    {"frmIfFault", makeIfFault},
    {"frmIncrementPosition", plain<frmIncrementPosition>},
    {"frmInput", makeInput},
    {"frmJogAxis", makeJogAxis},
    {"frmLatchOnOff", plain<frmLatchOnOff>},
    {"frmLatchTarget", plain<frmLatchTarget>},
    {"frmListSubroutine", makeListSubroutine},
    {"frmMessageIn", plain<frmMessageIn>},
    {"frmMessageOut", plain<frmMessageOut>},
    {"frmMoveAxis", plain<frmMoveAxis>},
    {"frmNodeText", makeNodeText},
    {"frmOnTime", plain<frmOnTime>},
    {"frmProgrammableLimitSwitch", makeProgrammableLimitSwitch},
    {"frmResetFault", makeResetFault},
    {"frmRestartProgram", makeRestartProgram},
    {"frmScaleCAM", plain<frmScaleCAM>},
    {"frmServoOnOff", plain<frmServoOnOff>},
    {"frmSetVariable", makeSetVariable},
    {"frmSuperBlock", makeSuperBlock},
    {"frmSuspendProgram", makeSuspendProgram},
    {"frmTorque", plain<frmTorque>},
    {"vbwFrmErrHandler", own<vbwFrmErrHandler>},
};

class Dialogs final : public Forms {
public:
    Ref<Object> make(std::string_view name) override { return makeForm(name); }
};

}  // namespace

std::span<const FormEntry> forms() noexcept { return list; }

Ref<Form> makeForm(std::string_view name) {
    for (const FormEntry& entry : list)
        if (sameName(entry.name, name)) return entry.make();
    return {};
}

std::shared_ptr<Forms> dialogs() { return std::make_shared<Dialogs>(); }

}  // namespace canvas::editors
