#pragma once
// A dialog as an object, without a toolkit: its controls by name, its rules, its modal showing.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editors/controls.h"
#include "editors/grid.h"
#include "host/collection.h"

namespace canvas::editors {

/// Follows a form on the screen. Called after each change; must not throw.
class FormWatcher {
public:
    virtual ~FormWatcher() = default;
    virtual void controlChanged(Control& control) = 0;
    virtual void focusMoved(Control* to) = 0;
    /// Visible or Caption changed.
    virtual void formChanged() = 0;
};

class Form : public Object {
public:
    struct Design {
        std::string_view name;
        std::string_view caption;
        std::span<const ControlRow> controls;
        bool closeBox = true;
        bool topmost = false;
    };

    /// The design, and the rows it names, outlive the form.
    explicit Form(const Design& design);
    ~Form() override;

    const Design& design() const noexcept { return m_design; }
    std::string_view className() const noexcept override { return m_design.name; }

    // Members that every form offers by name
    std::string Name() const { return std::string(m_design.name); }
    const std::string& Caption() const noexcept { return m_caption; }
    bool Visible() const noexcept { return m_visible; }
    /// The close box: counts as Cancel unless the form says otherwise. Nothing while the form is not shown.
    void Close();
    /// Error 5 for a name that the form has not.
    Ref<Control> ControlNamed(std::string_view name);
    Array ControlNames() const;
    /// All of them, as objects, in their order.
    Ref<Collection> Controls() const;
    /// Once; before the first showing or by whoever needs the controls filled.
    void Load();
    /// Modal: returns when the form is hidden or unloaded. Asks the environment's Interaction first, then the library's
    /// own view; error 445 when neither can show it, error 5 when it is being shown already.
    void Show();
    void Hide();
    void Unload();

    Value get(std::string_view member, Args args = {}) override;
    void put(std::string_view member, const Value& value, Args args = {}) override;
    void reportVariables(VariableSink& sink) const override;
    /// Members that every form offers, and those of this one. A control answers under its own name too.
    static std::span<const Member> commonMembers() noexcept;
    virtual std::span<const Member> ownMembers() const { return {}; }

    // For handlers, scripts in C++ and the view
    const std::vector<Ref<Control>>& controls() const noexcept { return m_controls; }
    /// The control of that name and kind; a programmer's mistake when there is none.
    template <class C>
    C& the(std::string_view name) const {
        Control* found = find(name);
        C* control = found ? dynamic_cast<C*>(found) : nullptr;
        if (!control) throw ContractViolation(std::string(m_design.name) + " has no such control: " + std::string(name));
        return *control;
    }
    Control* find(std::string_view name) const noexcept;
    void setCaption(std::string_view caption);
    Control* focused() const noexcept { return m_focused; }
    /// False when the control in focus cannot be left, or a handler moved the focus elsewhere.
    bool focus(Control* control);
    void focusNext(bool backwards = false);
    void setWatcher(FormWatcher* watcher) noexcept { m_watcher = watcher; }
    FormWatcher* watcher() const noexcept { return m_watcher; }
    /// A key before any control sees it; 13 is Enter, 27 Escape. True when it goes no further.
    bool keyPressed(char32_t key);

    // Entries for controls: handlers run under the error branch of the procedure "<control>_<Event>".
    void happened(Event event, Control& control);
    bool happened(GridEvent event, Grid& grid, std::int32_t row, std::int32_t col);
    void changed(Control& control);

protected:
    // Hooks: what a form does its own way.

    virtual void loaded() {}
    /// Each time the form comes to the front to be shown.
    virtual void activated() {}
    virtual void terminated() {}
    virtual void on(Event, Control&) {}
    virtual bool onGrid(GridEvent, Grid&, std::int32_t, std::int32_t) { return true; }
    /// True when the key goes no further. The common way: Enter clicks the OK button, Escape the Cancel button.
    virtual bool onKey(char32_t key);
    /// The close box was used; the common way hides the form.
    virtual void closing() { Hide(); }
    /// The form's variables in their order.
    virtual void ownVariables(VariableSink&) const {}

private:
    void setVisible(bool visible);
    void showModally();
    /// Not on a tab behind another one.
    bool inFront(const Control& control) const;

    const Design& m_design;
    std::string m_caption;
    std::vector<Ref<Control>> m_controls;
    Control* m_focused = nullptr;
    FormWatcher* m_watcher = nullptr;
    bool m_loaded = false;
    bool m_visible = false;
};

}  // namespace canvas::editors
