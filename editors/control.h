#pragma once
// What all controls of a form have in common. What a script does to a control runs the same code as a user's hand.

#include <cstdint>
#include <string>
#include <string_view>

#include "editors/control_row.h"
#include "host/members.h"

namespace canvas::editors {

class Form;

/// What a form's handlers are told of. Grids have events of their own.
enum class Event : std::uint8_t { click, change, doubleClick, gotFocus, lostFocus, nodeClick };

class Control : public Object {
public:
    /// The form outlives none of its controls by force: `detach` cuts the tie when it ends first.
    Control(Form& form, const ControlRow& row) : m_form(&form), m_row(row), m_visible(row.visible), m_enabled(row.enabled) {}

    const ControlRow& row() const noexcept { return m_row; }
    /// Null once the form is gone.
    Form* form() const noexcept { return m_form; }
    void detach() noexcept { m_form = nullptr; }

    std::string Name() const { return std::string(m_row.name); }
    /// "text", "label", "button", "check", "option", "combo", "list", "tabs", "tree", "grid"
    std::string KindName() const;
    bool Visible() const noexcept { return m_visible; }
    void setVisible(bool visible);
    bool Enabled() const noexcept { return m_enabled; }
    void setEnabled(bool enabled);
    bool HasFocus() const noexcept;
    /// Nothing happens while the control is hidden or disabled, or when the control in focus cannot be left.
    void SetFocus();
    /// Red-green-blue integer, -1 for the toolkit's own.
    std::int32_t BackColor() const noexcept { return m_backColor; }
    void setBackColor(std::int32_t color);

    bool canTakeFocus() const noexcept;
    /// Asked before the focus goes elsewhere; a grid holds it while a cell is bad.
    virtual bool canLeave() { return true; }

    void reportVariables(VariableSink& sink) const override;

protected:
    /// What a variable report shows as the value. Labels, buttons, tabs, trees and grids are known by name alone.
    virtual Value reportedValue() const;
    /// Tells the view that something of the control has changed.
    void touched();
    /// Tells the form's handlers.
    void raise(Event event);

private:
    Form* m_form;
    const ControlRow& m_row;
    bool m_visible;
    bool m_enabled;
    std::int32_t m_backColor = -1;
};

/// Rows that every control's member table begins with.
template <class T>
constexpr std::array<Member, 7> commonMembers() {
    return {property<&T::Name, nullptr>("Name"),
            property<&T::KindName, nullptr>("Kind"),
            property<&T::Visible, nullptr>("Visible"),
            property<&T::Enabled, nullptr>("Enabled"),
            property<&T::HasFocus, nullptr>("HasFocus"),
            method<&T::SetFocus>("SetFocus"),
            property<&T::BackColor, nullptr>("BackColor")};
}

template <std::size_t N, std::size_t M>
constexpr std::array<Member, N + M> joined(const std::array<Member, N>& first, const std::array<Member, M>& rest) {
    std::array<Member, N + M> all{};
    std::copy(first.begin(), first.end(), all.begin());
    std::copy(rest.begin(), rest.end(), all.begin() + N);
    return all;
}

}  // namespace canvas::editors
