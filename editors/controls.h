#pragma once
// The controls but the grid: text field, label, button, check box and option, combo and list box, tabs, tree.

#include <vector>

#include "editors/control.h"

namespace canvas::editors {

class TextControl final : public Tabled<TextControl, Control> {
public:
    using Tabled::Tabled;
    static constexpr std::string_view name = "TextBox";
    static std::span<const Member> table() noexcept;

    const std::string& Text() const noexcept { return m_text; }
    /// As a program does it: no key filter, the change event, the insertion point at the start.
    void setText(std::string_view text);
    /// In UTF-16 units from 0. What lies beyond the text is cut; a negative number is error 5.
    std::int32_t SelStart() const noexcept { return m_start; }
    void setSelStart(std::int32_t start);
    std::int32_t SelLength() const noexcept { return m_length; }
    void setSelLength(std::int32_t length);
    /// Types key by key, each through the form's key handling and the field's filter, the first one over the selection.
    /// "\r" is the Enter key, "\b" deletes backwards, "\t" moves the focus and ends the typing here.
    void Type(std::string_view keys);
    void DblClick();
    /// The focus goes to the next control.
    void Leave();

    void selectAll();
    /// The insertion point ends behind the text.
    void replaceSelection(std::string_view text);
    /// What a view's own editor came to: text and selection in one step, with one change event when the text differs.
    void take(std::string_view text, std::int32_t start, std::int32_t length);
    /// Whether the field takes the character.
    bool accepts(char32_t key) const noexcept;

protected:
    Value reportedValue() const override { return Value(m_text); }

private:
    void typeKey(std::string_view key);
    void eraseBackwards();

    std::string m_text;
    std::int32_t m_start = 0;
    std::int32_t m_length = 0;
};

class Label final : public Tabled<Label, Control> {
public:
    Label(Form& form, const ControlRow& row) : Tabled(form, row), m_caption(row.caption) {}
    static constexpr std::string_view name = "Label";
    static std::span<const Member> table() noexcept;

    const std::string& Caption() const noexcept { return m_caption; }
    void setCaption(std::string_view caption);

private:
    std::string m_caption;
};

class Button final : public Tabled<Button, Control> {
public:
    using Tabled::Tabled;
    static constexpr std::string_view name = "CommandButton";
    static std::span<const Member> table() noexcept;

    std::string Caption() const { return std::string(row().caption); }
    /// Nothing while disabled or hidden, or while the control in focus cannot be left (Cancel always acts).
    void Click();
};

/// Check box or option button. An option that is set clears the others of its frame.
class Toggle final : public Tabled<Toggle, Control> {
public:
    using Tabled::Tabled;
    static constexpr std::string_view name = "CheckBox";
    static std::span<const Member> table() noexcept;

    std::string Caption() const { return std::string(row().caption); }
    bool value() const noexcept { return m_value; }
    /// As the user's click: nothing while disabled, and False to an option does nothing.
    void click(bool value);
    /// As a program does it, with the click event when the value changes.
    void setValue(bool value);

protected:
    Value reportedValue() const override { return Value(m_value); }

private:
    bool m_value = false;
};

/// Combo box (a list to choose from) or list box.
class Choice final : public Tabled<Choice, Control> {
public:
    using Tabled::Tabled;
    static constexpr std::string_view name = "ListBox";
    static std::span<const Member> table() noexcept;

    std::int32_t ListCount() const noexcept { return static_cast<std::int32_t>(m_items.size()); }
    /// From 0; error 9 outside.
    std::string List(std::int32_t index) const;
    std::int32_t ListIndex() const noexcept { return m_index; }
    /// -1 selects nothing; error 9 outside.
    void setListIndex(std::int32_t index);
    /// The selected entry, else empty.
    std::string Text() const;
    /// Selects the first entry that equals the text; nothing is selected when there is none.
    void setText(std::string_view text);
    void DblClick();
    void AddItem(std::string_view item);
    /// In one change for those who watch.
    void AddItems(std::vector<std::string> items);
    void Clear();

    const std::vector<std::string>& items() const noexcept { return m_items; }
    /// Grows with every change of the entries themselves.
    std::uint32_t revision() const noexcept { return m_revision; }

protected:
    Value reportedValue() const override { return Value(Text()); }

private:
    std::vector<std::string> m_items;
    std::int32_t m_index = -1;
    std::uint32_t m_revision = 0;
};

class Tabs final : public Tabled<Tabs, Control> {
public:
    Tabs(Form& form, const ControlRow& row);
    static constexpr std::string_view name = "Tabs";
    static std::span<const Member> table() noexcept;

    std::int32_t TabCount() const noexcept { return static_cast<std::int32_t>(m_tabs.size()); }
    std::string TabCaption(std::int32_t index) const { return at(index).caption; }
    bool TabEnabled(std::int32_t index) const { return at(index).enabled; }
    void setTabEnabled(std::int32_t index, bool enabled);
    std::int32_t Tab() const noexcept { return m_tab; }
    /// A disabled tab is not taken to the front; error 9 outside.
    void setTab(std::int32_t index);

private:
    struct One {
        std::string caption;
        bool enabled = true;
    };
    const One& at(std::int32_t index) const;
    std::vector<One> m_tabs;
    std::int32_t m_tab = 0;
};

/// Nodes stand in the order of their insertion.
class Tree final : public Tabled<Tree, Control> {
public:
    struct Node {
        std::string key;
        std::string text;
        std::string parent;  ///< key, empty at the root
        bool expanded = false;
    };

    using Tabled::Tabled;
    static constexpr std::string_view name = "TreeView";
    static std::span<const Member> table() noexcept;

    std::int32_t NodeCount() const noexcept { return static_cast<std::int32_t>(m_nodes.size()); }
    std::string NodeKey(std::int32_t index) const { return node(index).key; }
    std::string NodeText(std::int32_t index) const { return node(index).text; }
    std::string NodeParent(std::int32_t index) const { return node(index).parent; }
    bool NodeExpanded(std::int32_t index) const { return node(index).expanded; }
    /// Error 5 for a key that is not there.
    void NodeClick(std::string_view key);

    void add(Node node);
    void clear();
    const std::vector<Node>& nodes() const noexcept { return m_nodes; }
    /// Grows with every change of the nodes themselves.
    std::uint32_t revision() const noexcept { return m_revision; }
    /// Key of the node clicked last.
    const std::string& selected() const noexcept { return m_selected; }

private:
    const Node& node(std::int32_t index) const;
    std::vector<Node> m_nodes;
    std::uint32_t m_revision = 0;
    std::string m_selected;
};

}  // namespace canvas::editors
