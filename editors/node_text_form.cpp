// The dialog of a note's text.

#include "editors/small_forms.h"
#include "host/ports.h"
#include "host/text.h"
#include "tracing/branch.h"

namespace canvas::editors {
namespace {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

constexpr std::string_view pilcrow = "¶";
constexpr std::string_view field = "txbNodeText", undoButton = "cmdUndo";

constexpr ControlRow nodeText[] = {
    text(field, {}, 0, 0).onDoubleClick(DoubleClick::nothing).refuses(Keys::noQuote).withLines().named("Text"),
    okButton("cmdOK"),
    cancelButton("cmdCancel"),
    button(undoButton, "&Undo", 2),
    helpButton("cmdHelp", 3),
};
constexpr AttributeForm::Spec frmNodeText{.design = {"frmNodeText", "Text", nodeText},
                                          .type = NodeText,
                                          .filled = Filled::byCaller,
                                          .checks = false,
                                          .data = 0,
                                          .builder = false,
                                          .ok = false};

/// A note keeps a pilcrow behind each of its lines; the field shows line breaks, and none behind the last line.
std::string shownText(std::string_view note) {
    while (note.ends_with(pilcrow)) note.remove_suffix(pilcrow.size());
    return text::replaced(note, pilcrow, "\r\n");
}

std::string keptText(std::string_view shown) {
    std::string note = environment().utility->ConvertLabel(shown, true, true);
    while (note.ends_with(pilcrow)) note.resize(note.size() - pilcrow.size());
    return note += pilcrow;
}

class NodeTextForm final : public AttributeForm {
public:
    NodeTextForm() : AttributeForm(frmNodeText) {}
    std::span<const Member> ownMembers() const override {
        static constexpr Member members[] = {property<&NodeTextForm::strNodeName>("NodeName")};
        return members;
    }

    /// The note's text becomes the one that the form opens with.
    void setBVTAttribute(Ref<Object> attribute) override {
        AttributeForm::setBVTAttribute(std::move(attribute));
        if (clsAttribute) strNodeName = shownText(clsAttribute->get("NodeText").toText());
    }

    std::string strNodeName;

protected:
    void loaded() override { the<TextControl>(field).setText(strNodeName); }

    void on(Event event, Control& control) override {
        if (event == Event::click && control.row().name == undoButton) the<TextControl>(field).setText(strNodeName);
        else AttributeForm::on(event, control);
    }

    void ok() override {
        const std::string typed = the<TextControl>(field).Text();
        Procedure run(className(), "cmdOK_Click", this, [](Locals&) {});
        const bool changed = clsAttribute && typed != strNodeName;
        if (changed && run([&] { return keep(run, keptText(typed)); }) == Flow::leave) return;
        strNodeName = typed;
        Hide();
    }

    void ownVariables(VariableSink& sink) const override {
        sink.variable("strNodeName", Value(strNodeName));
        sink.variable("strUserUnit", Value(strUserUnit));
        sink.variable("clsAttribute", Value(clsAttribute));
    }

private:
    /// Writes the note with its counts.
    template <class Run>
    Flow keep(Run& run, const std::string& note) {
        std::int32_t lines = 0;
        std::size_t longest = 0;
        for (std::string_view rest = note; !rest.empty(); ++lines) {
            const std::string_view line = rest.substr(0, rest.find(pilcrow));
            rest.remove_prefix(line.size() + pilcrow.size());
            longest = std::max(longest, text::length(line));
        }
        const auto count = [](std::size_t units) { return Value(static_cast<std::int32_t>(units)); };
        return run([&] { clsAttribute->put("LineCount", Value(lines)); },
                   [&] { clsAttribute->put("MaxCharPerLine", count(longest)); },
                   [&] { clsAttribute->put("NodeText", Value(note)); },
                   [&] { clsAttribute->put("CharCount", count(text::length(note))); });
    }
};

}  // namespace

Ref<Form> makeNodeText() { return Ref<Form>(new NodeTextForm); }

}  // namespace canvas::editors
