#include "editors/forms.h"

#include "editors/motion_forms.h"
#include "editors/program_forms.h"

namespace canvas::editors {
namespace {

/// A form that is its table alone.
template <const AttributeForm::Spec& spec>
Ref<Form> plain() {
    return Ref<Form>(new AttributeForm(spec));
}

constexpr FormEntry list[] = {
    {"frmListSubroutine", makeListSubroutine},
    {"frmRestartProgram", makeRestartProgram},
    {"frmSuperBlock", makeSuperBlock},
    {"frmSuspendProgram", makeSuspendProgram},
    {"frmMoveAxis", plain<frmMoveAxis>},
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
