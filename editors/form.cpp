#include "editors/form.h"

#include "editors/own_view.h"
#include "host/array.h"
#include "host/collection.h"
#include "host/ports.h"

namespace canvas::editors {
namespace {

Ref<Control> makeControl(Form& form, const ControlRow& row) {
    switch (row.kind) {
        case ControlKind::label:
        case ControlKind::frame: return Ref<Label>(new Label(form, row));
        case ControlKind::text: return Ref<TextControl>(new TextControl(form, row));
        case ControlKind::button: return Ref<Button>(new Button(form, row));
        case ControlKind::check:
        case ControlKind::option: return Ref<Toggle>(new Toggle(form, row));
        case ControlKind::combo:
        case ControlKind::list: return Ref<Choice>(new Choice(form, row));
        case ControlKind::tabs: return Ref<Tabs>(new Tabs(form, row));
        case ControlKind::tree: return Ref<Tree>(new Tree(form, row));
        case ControlKind::grid: return Ref<Grid>(new Grid(form, row));
    }
    throw ContractViolation("a control of no kind");
}

}  // namespace

Form::Form(const Design& design) : m_design(design), m_caption(design.caption) {
    m_controls.reserve(design.controls.size());
    for (const ControlRow& row : design.controls) m_controls.push_back(makeControl(*this, row));
}

Form::~Form() {
    for (const Ref<Control>& control : m_controls) control->detach();
}

Control* Form::find(std::string_view name) const noexcept {
    for (const Ref<Control>& control : m_controls)
        if (sameName(control->row().name, name)) return control.get();
    return nullptr;
}

Ref<Control> Form::ControlNamed(std::string_view name) {
    Control* found = find(name);
    if (!found) raise(Error::invalidCall);
    return Ref<Control>(found);
}

Array Form::ControlNames() const {
    std::vector<std::string> names;
    for (const Ref<Control>& control : m_controls) names.push_back(control->Name());
    return arrayOf("String", names);
}

void Form::Load() {
    if (m_loaded) return;
    m_loaded = true;
    loaded();
}

void Form::setVisible(bool visible) {
    if (m_visible == visible) return;
    m_visible = visible;
    if (m_watcher) m_watcher->formChanged();
}

void Form::setCaption(std::string_view caption) {
    m_caption = caption;
    if (m_watcher) m_watcher->formChanged();
}

void Form::Hide() { setVisible(false); }

void Form::Unload() {
    setVisible(false);
    if (!m_loaded) return;
    m_loaded = false;
    m_focused = nullptr;
    terminated();
}

void Form::Close() {
    if (m_visible) closing();
}

void Form::showModally() {
    activated();
    if (!m_visible) return;
    if (!m_focused) focusNext();
    if (!environment().interaction->showForm(*this)) {
        Interaction* view = ownView();
        if (!view)
            raise(Error::actionNotSupported,
                  "Nobody can show " + Name() + ": the host's Interaction does not take forms, and the library's own view fails (" +
                      ownViewTrouble() + ").");
        view->showForm(*this);
    }
    Close();
}

void Form::Show() {
    if (m_visible) raise(Error::invalidCall);
    const Ref<Form> keep(this);
    Load();
    setVisible(true);
    try {
        showModally();
    } catch (...) {
        setVisible(false);
        throw;
    }
}

bool Form::focus(Control* control) {
    if (m_focused == control) return true;
    const Ref<Form> keep(this);
    if (Control* left = m_focused) {
        const Ref<Control> keepLeft(left);
        if (!left->canLeave()) return false;
        m_focused = control;
        happened(Event::lostFocus, *left);
    } else {
        m_focused = control;
    }
    if (m_focused != control) return false;  // a handler took the focus back
    if (m_watcher) m_watcher->focusMoved(control);
    if (control) happened(Event::gotFocus, *control);
    return m_focused == control;
}

bool Form::inFront(const Control& control) const {
    const std::string_view in = control.row().in;
    const std::size_t bracket = in.find('(');
    const Control* container = find(in.substr(0, bracket));
    if (!container) return true;
    if (const auto* tabs = dynamic_cast<const Tabs*>(container);
        tabs && !in.ends_with("(" + std::to_string(tabs->Tab()) + ")"))
        return false;
    return inFront(*container);
}

void Form::focusNext(bool backwards) {
    const std::size_t count = m_controls.size();
    std::size_t at = backwards ? 0 : count - 1;
    for (std::size_t i = 0; i < count; ++i)
        if (m_controls[i].get() == m_focused) at = i;
    for (std::size_t step = 0; step < count; ++step) {
        at = (at + (backwards ? count - 1 : 1)) % count;
        if (m_controls[at]->canTakeFocus() && inFront(*m_controls[at])) return void(focus(m_controls[at].get()));
    }
}

bool Form::keyPressed(char32_t key) {
    const Ref<Form> keep(this);
    return onKey(key);
}

bool Form::onKey(char32_t key) {
    const Role role = key == U'\r' ? Role::ok : key == U'\x1B' ? Role::cancel : Role::none;
    if (role == Role::none) return false;
    for (const Ref<Control>& control : m_controls) {
        if (control->row().role != role) continue;
        Control* const before = m_focused;
        static_cast<Button&>(*control).Click();
        if (m_visible && before && m_focused == control.get()) before->SetFocus();  // a key press does not move there
        return true;
    }
    return false;
}

void Form::happened(Event event, Control& control) {
    const Ref<Form> keep(this);
    const Ref<Control> keepControl(&control);
    on(event, control);
}

bool Form::happened(GridEvent event, Grid& grid, std::int32_t row, std::int32_t col) {
    const Ref<Form> keep(this);
    const Ref<Control> keepControl(&grid);
    return onGrid(event, grid, row, col);
}

std::span<const Member> Form::commonMembers() noexcept {
    static constexpr Member members[] = {
        property<&Form::Name, nullptr>("Name"),
        property<&Form::Caption, nullptr>("Caption"),
        property<&Form::Visible, nullptr>("Visible"),
        method<&Form::Close>("Close"),
        method<&Form::ControlNamed>("Control"),
        property<&Form::ControlNames, nullptr>("ControlNames"),
        method<&Form::Load>("Load"),
        method<&Form::Show>("Show"),
        method<&Form::Hide>("Hide"),
        method<&Form::Unload>("Unload"),
        property<&Form::Controls, nullptr>("Controls"),
    };
    return members;
}

void Form::changed(Control& control) {
    if (m_watcher) m_watcher->controlChanged(control);
}

Value Form::get(std::string_view member, Args args) {
    if (findMember(ownMembers(), member, args.size())) return readMember(ownMembers(), *this, member, args);
    if (Control* control = args.empty() ? find(member) : nullptr) return Value(Ref<Object>(control));
    return readMember(commonMembers(), *this, member, args);
}

void Form::put(std::string_view member, const Value& value, Args args) {
    if (findMember(ownMembers(), member, args.size())) return writeMember(ownMembers(), *this, member, value, args);
    writeMember(commonMembers(), *this, member, value, args);
}

void Form::reportVariables(VariableSink& sink) const {
    ownVariables(sink);  // the report asks for Controls itself
}

Ref<Collection> Form::Controls() const {
    auto controls = make<Collection>();
    for (const Ref<Control>& control : m_controls) controls->Add(Value(Ref<Object>(control)));
    return controls;
}

}  // namespace canvas::editors
