#include "cli/show_report.h"

#include <nlohmann/json.hpp>

#include "cli/console.h"
#include "cli/outline.h"
#include "cli/settings.h"
#include "cli/version.h"
#include "document/catalogue.h"
#include "host/numbers.h"
#include "host/text.h"

namespace canvas::cli {
namespace {

using Json = nlohmann::ordered_json;

std::string decimal(std::int32_t number) { return numbers::textOf(number); }

std::string typeName(const clsBVTBlock& block) { return std::string(blockName(block.intBlockType)); }

/// A label with its lines apart, as terminals and programs end them.
std::string lines(std::string_view label) { return text::replaced(text::replaced(label, "\r\n", "\n"), "\r", "\n"); }

std::string titleOf(const clsBVTBlock& block) {
    return decimal(block.intBlockID) + ' ' + typeName(block) + " \"" +
           text::replaced(lines(block.strBlockLabel), "\n", " ") + '"';
}

class Page {
public:
    explicit Page(const clsBVTCanvas& document) : m_document(document), m_outline(outlineOf(document)) {}

    std::string run(const std::string& file) {
        header(file);
        blocks("", m_outline.flow);
        blocks("Not reached from Start:\n", m_outline.unreached);
        notes();
        return printable(m_page);
    }

private:
    void header(const std::string& file) {
        const clsBVTCanvas& d = m_document;
        m_page += file + "\nversion " + d.strVersionNumber + ", " + decimal(d.BlockCollection->Count()) +
                  (d.BlockCollection->Count() == 1 ? " block\n" : " blocks\n");
        m_page += "window at " + decimal(d.lngLeft) + ", " + decimal(d.lngTop) + ", " + decimal(d.lngWidth) +
                  " wide, " + decimal(d.lngHeight) + " high, zoom " + numbers::textOf(d.dblZoom * 100) +
                  "%, scrolled to " + decimal(d.lngXPos) + ", " + decimal(d.lngYPos) + ", state " +
                  decimal(d.lngWindowState) + '\n';
    }

    void blocks(std::string_view heading, const std::vector<const clsBVTBlock*>& list) {
        if (list.empty()) return;
        m_page += '\n';
        m_page += heading;
        for (const clsBVTBlock* block : list) add(*block);
    }

    void add(const clsBVTBlock& block) {
        m_page += titleOf(block) + '\n';
        if (block.lngBlockUserID != 0) detail("user ID", decimal(block.lngBlockUserID));
        if (!block.strBlockUserName.empty()) detail("user name", block.strBlockUserName);
        for (const Setting& setting : settingsOf(block)) detail(setting.label, setting.value);
        const bool named = block.blnHasDualOutPort || block.intToSecondBlockID != unconnected;
        arrow(named ? "top    " : "", block.intToFirstBlockID);
        arrow(named ? "bottom " : "", block.intToSecondBlockID);
    }

    void detail(const std::string& label, const std::string& value) { m_page += "    " + label + " = " + value + '\n'; }

    void arrow(std::string_view port, std::int16_t target) {
        if (target == unconnected) return;
        const clsBVTBlock* reached = m_document.BlockCollection->find(target);
        m_page += "    " + std::string(port) + "-> " +
                  (reached ? titleOf(*reached) : decimal(target) + " (not there)") + '\n';
    }

    void notes() {
        if (m_outline.notes.empty()) return;
        m_page += "\nNotes:\n";
        for (const clsBVTBlock* note : m_outline.notes) {
            m_page += decimal(note->intBlockID) + ' ' + typeName(*note) + '\n';
            m_page += "    " + text::replaced(lines(note->strBlockLabel), "\n", "\n    ") + '\n';
        }
    }

    const clsBVTCanvas& m_document;
    Outline m_outline;
    std::string m_page;
};

Json targetOf(std::int16_t id) { return id == unconnected ? Json() : Json(id); }

Json jsonOf(const clsBVTBlock& block, bool reached) {
    Json sources = Json::array(), settings = Json::array();
    for (std::size_t i = 0; i < block.inPortCount(); ++i)
        sources.push_back({{"id", static_cast<std::int32_t>(block.inPort(i).sngBlockID)},
                           {"fromTopPort", block.inPort(i).blnFromTopPort}});
    for (const Setting& setting : settingsOf(block))
        settings.push_back({{"label", setting.label}, {"value", setting.value}});
    return {{"id", block.intBlockID},
            {"type", block.intBlockType},
            {"typeName", typeName(block)},
            {"label", lines(block.strBlockLabel)},
            {"userId", block.lngBlockUserID},
            {"userName", block.strBlockUserName},
            {"reached", reached},
            {"top", targetOf(block.intToFirstBlockID)},
            {"bottom", targetOf(block.intToSecondBlockID)},
            {"sources", std::move(sources)},
            {"settings", std::move(settings)}};
}

Json windowOf(const clsBVTCanvas& document) {
    return {{"left", document.lngLeft},    {"top", document.lngTop},          {"height", document.lngHeight},
            {"width", document.lngWidth},  {"zoom", document.dblZoom},        {"scrollX", document.lngXPos},
            {"scrollY", document.lngYPos}, {"state", document.lngWindowState}};
}

}  // namespace

std::string programPage(const clsBVTCanvas& document, const std::string& file) { return Page(document).run(file); }

std::string programJson(const clsBVTCanvas& document, const std::string& file) {
    const Outline outline = outlineOf(document);
    Json blocks = Json::array();
    for (const clsBVTBlock* block : outline.flow) blocks.push_back(jsonOf(*block, true));
    for (const auto* list : {&outline.unreached, &outline.notes})
        for (const clsBVTBlock* block : *list) blocks.push_back(jsonOf(*block, false));
    const Json json{{"version", version()},
                    {"file", file},
                    {"fileVersion", document.strVersionNumber},
                    {"window", windowOf(document)},
                    {"blocks", std::move(blocks)}};
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace canvas::cli
