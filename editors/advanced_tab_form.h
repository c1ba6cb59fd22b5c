#pragma once
// A form whose check box "Advanced" opens the second of its tabs.

#include "editors/attribute_form.h"

namespace canvas::editors {

class AdvancedTabForm : public AttributeForm {
public:
    AdvancedTabForm(const Spec& spec, std::string_view tabs) : AttributeForm(spec), m_tabs(tabs) {}

protected:
    void loaded() override;
    void on(Event event, Control& control) override;

private:
    void showAdvanced(bool shown);
    std::string_view m_tabs;
};

}  // namespace canvas::editors
