#include "document/program_writer.h"

#include <charconv>
#include <cmath>
#include <initializer_list>

#include "document/canvas.h"
#include "document/catalogue.h"
#include "host/encoding.h"
#include "host/numbers.h"
#include "host/ports.h"
#include "tracing/branch.h"

namespace canvas {
namespace {

constexpr std::string_view extensionShown = ".bpg";
constexpr std::string_view extensionOnDisk = ".bpa";
constexpr std::string_view lineEnd = "\r\n";

/// Each with a blank behind it, in one piece: this is where most of a line's tokens come from.
void appendNumbers(std::string& line, std::initializer_list<std::int32_t> numbers) {
    constexpr std::size_t most = 4, longest = 12;
    char words[most * longest];
    char* end = words;
    for (const std::int32_t number : numbers) {
        end = std::to_chars(end, end + longest, number).ptr;
        *end++ = ' ';
    }
    line.append(words, static_cast<std::size_t>(end - words));
}

/// An ID is held in a single; a host may have put any number there.
void appendSingle(std::string& line, float number) {
    const auto whole = std::fabs(number) < 1e6F ? static_cast<std::int32_t>(number) : 0;
    if (static_cast<float>(whole) == number) return appendNumbers(line, {whole});
    line += numbers::textOf(number);
    line += ' ';
}

void appendQuoted(std::string& line, std::string_view text) {
    line += '"';
    line += text;
    line += "\" ";
}

Ref<Object> activeForm(const clsBVTCanvas& document) {
    return document.frmParentForm ? document.frmParentForm->get("ActiveForm").toObject() : nullptr;
}

/// The zoom box stands on the main form, or else on the active one.
std::string zoomText(Object& mainForm, Object& form) {
    const auto zoomOn = [](Object& owner) {
        return objectAt(*objectAt(owner, "formCmbZoom"), "cmbZoom")->get("Text").toText();
    };
    try {
        return zoomOn(mainForm);
    } catch (const RuntimeError& error) {
        if (error.number != static_cast<int>(Error::noSuchMember)) throw;
        return zoomOn(form);
    }
}

/// Left, top, height, width, zoom, scroll positions and state: of the active window, or as the document holds them. A
/// window that is not in its normal state is saved with the size it had before.
std::string windowLine(const clsBVTCanvas& document) {
    std::string line = "WINDOW_PARAMS_DEFINE";
    const auto add = [&](const Value& value) {
        line += ' ';
        line += value.toText();
    };
    const Ref<Object> form = activeForm(document);
    if (!form) {
        for (const std::int32_t value : {document.lngLeft, document.lngTop, document.lngHeight, document.lngWidth})
            add(value);
        add(numbers::textOf(document.dblZoom * 100) + "%");
        for (const std::int32_t value : {document.lngXPos, document.lngYPos, document.lngWindowState}) add(value);
        return line;
    }
    if (form->get("WindowState").toLong() == 0) {
        for (const auto* member : {"Left", "Top", "Height", "Width"}) add(form->get(member));
    } else {
        for (const std::int32_t value : {0, 0, document.lngPreviousHeight, document.lngPreviousWidth}) add(value);
    }
    add(zoomText(*document.frmParentForm, *form));
    const Ref<Object> editor = objectAt(*form, "editor");
    add(editor->get("xScrollPos"));
    add(editor->get("yScrollPos"));
    add(form->get("WindowState"));
    return line;
}

void updateCam(const clsBVTCanvas& document, const clsBVTBlock& block) {
    Object& form = required(document.frmParentForm);
    invoke(required(block.vntAttribute), "ComputeCAMData", form.get("currentproject"), form.get("MPController"));
}

void appendBlock(std::string& buffer, const clsBVTBlock& block, UtilityLibrary& utility) {
    const std::size_t lineStart = buffer.size();
    const bool note = block.intBlockType == NodeText;
    buffer += note ? "TEXT_DEFINE " : "BLOCK_DEFINE ";
    appendNumbers(buffer, {block.intBlockID, block.intBlockType});
    if (note) appendQuoted(buffer, "¶" + utility.ConvertLabel(block.strBlockLabel, true, true));
    else appendQuoted(buffer, block.strBlockLabel);
    appendNumbers(buffer, {block.intToFirstBlockID, block.intToSecondBlockID, block.lngBlockUserID});
    appendQuoted(buffer, block.strBlockUserName);
    appendNumbers(buffer, {block.blnHasDualOutPort, block.blnNoInPort, block.blnNoOutPort,
                           static_cast<std::int32_t>(block.inPortCount())});
    for (std::size_t i = 0; i < block.inPortCount(); ++i) {
        appendSingle(buffer, block.inPort(i).sngBlockID);
    }
    block.appendTo(buffer, lineStart);
    buffer += lineEnd;
}

}  // namespace

std::string nameOnDisk(std::string_view fileName) {
    std::string path(fileName);
    if (path.ends_with(extensionShown)) path.resize(path.size() - extensionShown.size());
    else if (path.ends_with(extensionOnDisk)) return path;
    path += extensionOnDisk;
    return path;
}

std::string programText(clsBVTCanvas& document) {
    const std::shared_ptr<UtilityLibrary> utility = environment().utility;
    const clsBVTBlockCol& blocks = *document.BlockCollection;
    std::string text;
    text.reserve(256 + blocks.size() * 128);
    text += "VERSION_NUMBER " + utility->FileFormatVersion();
    text += lineEnd;
    text += "NUM_BLOCKS ";
    numbers::append(text, blocks.Count());
    text += lineEnd;
    text += windowLine(document);
    text += lineEnd;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i].intBlockType == CAMONOFF) updateCam(document, blocks[i]);
        appendBlock(text, blocks[i], *utility);
    }
    return text;
}

void writeProgram(clsBVTCanvas& document, std::string_view fileName) {
    tracing::onFailure(
        [&] {
            const auto file = environment().files->replace(nameOnDisk(fileName));
            file->commit(encoding::encode(programText(document)));
            document.blnChanged = false;
        },
        [](const RuntimeError& error) { tell(error.description, Icon::information, "Canvas.WriteFile"); });
}

}  // namespace canvas
