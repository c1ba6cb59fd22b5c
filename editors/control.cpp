#include "editors/control.h"

#include "editors/form.h"

namespace canvas::editors {

std::string Control::KindName() const {
    static constexpr std::string_view names[] = {"label", "label", "text", "button", "check", "option",
                                                 "combo", "list",  "tabs", "tree",   "grid"};
    return std::string(names[static_cast<std::size_t>(m_row.kind)]);
}

void Control::setVisible(bool visible) {
    if (m_visible == visible) return;
    m_visible = visible;
    touched();
}

void Control::setEnabled(bool enabled) {
    if (m_enabled == enabled) return;
    m_enabled = enabled;
    touched();
}

bool Control::HasFocus() const noexcept { return m_form && m_form->focused() == this; }

void Control::SetFocus() {
    if (m_form && canTakeFocus()) m_form->focus(this);
}

void Control::setBackColor(std::int32_t color) {
    if (m_backColor == color) return;
    m_backColor = color;
    touched();
}

bool Control::canTakeFocus() const noexcept {
    return m_visible && m_enabled && m_row.kind != ControlKind::label && m_row.kind != ControlKind::frame;
}

void Control::reportVariables(VariableSink& sink) const {
    sink.variable("Name", Value(m_row.name));
    sink.variable("Value", reportedValue());
}

Value Control::reportedValue() const { return Value("{No Value Property}"); }

void Control::touched() {
    if (m_form) m_form->changed(*this);
}

void Control::raise(Event event) {
    if (m_form) m_form->happened(event, *this);
}

}  // namespace canvas::editors
