#include "editors/controls.h"

#include "editors/form.h"
#include "host/text.h"

namespace canvas::editors {
namespace {

template <class List>
auto& element(List& list, std::int32_t index) {
    if (index < 0 || index >= static_cast<std::int32_t>(list.size())) raise(Error::subscript);
    return list[static_cast<std::size_t>(index)];
}

}  // namespace

std::span<const Member> Label::table() noexcept {
    static constexpr auto members =
        joined(commonMembers<Label>(), std::array{byDefault(property<&Label::Caption, nullptr>("Caption"))});
    return members;
}

void Label::setCaption(std::string_view caption) {
    if (m_caption == caption) return;
    m_caption = caption;
    touched();
}

std::span<const Member> Button::table() noexcept {
    static constexpr auto members =
        joined(commonMembers<Button>(), std::array{property<&Button::Caption, nullptr>("Caption"),
                                                   method<&Button::Click>("Click")});
    return members;
}

void Button::Click() {
    const Ref<Form> keep(form());
    if (!keep || !canTakeFocus()) return;
    if (!keep->focus(this) && row().role != Role::cancel) return;
    raise(Event::click);
}

std::span<const Member> Toggle::table() noexcept {
    static constexpr auto members =
        joined(commonMembers<Toggle>(), std::array{property<&Toggle::Caption, nullptr>("Caption"),
                                                   byDefault(property<&Toggle::value, &Toggle::click>("Value"))});
    return members;
}

void Toggle::click(bool value) {
    const Ref<Form> keep(form());
    if (!keep || !canTakeFocus() || (!value && row().kind == ControlKind::option)) return;
    if (keep->focus(this)) setValue(value);
}

void Toggle::setValue(bool value) {
    if (m_value == value) return;
    m_value = value;
    touched();
    if (value && row().kind == ControlKind::option && form()) {
        for (const Ref<Control>& other : form()->controls()) {
            auto* option = other->row().kind == ControlKind::option ? static_cast<Toggle*>(other.get()) : nullptr;
            if (option && option != this && option->row().in == row().in) option->setValue(false);
        }
    }
    // an option that goes out has no event of its own
    if (value || row().kind == ControlKind::check) raise(Event::click);
}

std::span<const Member> Choice::table() noexcept {
    using C = Choice;
    static constexpr auto members =
        joined(commonMembers<C>(), std::array{property<&C::ListCount, nullptr>("ListCount"),
                                              property<&C::List, nullptr>("List"),
                                              property<&C::ListIndex, &C::setListIndex>("ListIndex"),
                                              byDefault(property<&C::Text, &C::setText>("Text")),
                                              method<&C::DblClick>("DblClick"), method<&C::AddItem>("AddItem"),
                                              method<&C::Clear>("Clear")});
    return members;
}

std::string Choice::List(std::int32_t index) const { return element(m_items, index); }

void Choice::setListIndex(std::int32_t index) {
    if (index != -1) element(m_items, index);
    if (m_index == index) return;
    m_index = index;
    touched();
    raise(Event::click);
}

std::string Choice::Text() const { return m_index < 0 ? std::string() : m_items[static_cast<std::size_t>(m_index)]; }

void Choice::setText(std::string_view text) {
    const auto found = std::find(m_items.begin(), m_items.end(), text);
    setListIndex(found == m_items.end() ? -1 : static_cast<std::int32_t>(found - m_items.begin()));
}

void Choice::DblClick() {
    const Ref<Form> keep(form());
    if (keep && row().kind == ControlKind::list && canTakeFocus() && keep->focus(this)) raise(Event::doubleClick);
}

void Choice::AddItem(std::string_view item) {
    m_items.emplace_back(item);
    ++m_revision;
    touched();
}

void Choice::AddItems(std::vector<std::string> items) {
    if (m_items.empty()) m_items = std::move(items);
    else m_items.insert(m_items.end(), std::move_iterator(items.begin()), std::move_iterator(items.end()));
    ++m_revision;
    touched();
}

void Choice::Clear() {
    m_items.clear();
    m_index = -1;
    ++m_revision;
    touched();
}

std::span<const Member> Tabs::table() noexcept {
    using C = Tabs;
    static constexpr auto members =
        joined(commonMembers<C>(), std::array{property<&C::TabCount, nullptr>("TabCount"),
                                              property<&C::TabCaption, nullptr>("TabCaption"),
                                              property<&C::TabEnabled, nullptr>("TabEnabled"),
                                              byDefault(property<&C::Tab, &C::setTab>("Tab"))});
    return members;
}

Tabs::Tabs(Form& form, const ControlRow& row) : Tabled(form, row) {
    for (const std::string_view caption : text::split(row.caption, "|")) m_tabs.push_back({std::string(caption), true});
}

const Tabs::One& Tabs::at(std::int32_t index) const { return element(m_tabs, index); }

void Tabs::setTabEnabled(std::int32_t index, bool enabled) {
    element(m_tabs, index).enabled = enabled;
    touched();
}

void Tabs::setTab(std::int32_t index) {
    if (!at(index).enabled || m_tab == index) return;
    m_tab = index;
    touched();
    raise(Event::click);
}

std::span<const Member> Tree::table() noexcept {
    using C = Tree;
    static constexpr auto members =
        joined(commonMembers<C>(), std::array{property<&C::NodeCount, nullptr>("NodeCount"),
                                              property<&C::NodeKey, nullptr>("NodeKey"),
                                              property<&C::NodeText, nullptr>("NodeText"),
                                              property<&C::NodeParent, nullptr>("NodeParent"),
                                              property<&C::NodeExpanded, nullptr>("NodeExpanded"),
                                              method<&C::NodeClick>("NodeClick")});
    return members;
}

const Tree::Node& Tree::node(std::int32_t index) const { return element(m_nodes, index); }

void Tree::add(Node node) {
    m_nodes.push_back(std::move(node));
    ++m_revision;
    touched();
}

void Tree::clear() {
    m_nodes.clear();
    m_selected.clear();
    ++m_revision;
    touched();
}

void Tree::NodeClick(std::string_view key) {
    const auto found = std::find_if(m_nodes.begin(), m_nodes.end(), [&](const Node& node) { return node.key == key; });
    if (found == m_nodes.end()) canvas::raise(Error::invalidCall);
    const Ref<Form> keep(form());
    if (!keep || !canTakeFocus() || !keep->focus(this)) return;
    m_selected = found->key;
    touched();
    raise(Event::nodeClick);
}

}  // namespace canvas::editors
