#pragma once
// A note's text, a block's name, the compile mode.

#include "editors/attribute_form.h"

namespace canvas::editors {

Ref<Form> makeCompileOptions();
Ref<Form> makeEditNodeName();
Ref<Form> makeNodeText();

/// Lets the user rename a block, as hosts call it.
class clsBVTEditNodeName final : public Tabled<clsBVTEditNodeName> {
public:
    static constexpr std::string_view name = "clsBVTEditNodeName";
    static std::span<const Member> table() noexcept;

    /// The name before `Show`, and the new one after it; as it was when the user cancelled.
    Value OriginalName() const { return strNodeLabel; }
    void setOriginalName(Value label) { strNodeLabel = std::move(label); }
    /// Modal.
    void Show();
    void Unload_Form();

    Value strNodeLabel{""};
    Ref<Form> frmEditNodeName;

    void reportVariables(VariableSink& sink) const override;

private:
    Form& form();
};

}  // namespace canvas::editors
