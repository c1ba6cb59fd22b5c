#include "cli/store_report.h"

#include <algorithm>

#include <nlohmann/json.hpp>

#include "cli/console.h"
#include "cli/version.h"
#include "host/numbers.h"
#include "host/text.h"

namespace canvas::cli {
namespace {

using Json = nlohmann::ordered_json;
using Table = std::vector<std::vector<std::string>>;

/// Columns two blanks apart; control characters cannot break a line.
std::string tableText(const Table& table) {
    std::vector<std::size_t> widths;
    Table shown = table;
    for (auto& row : shown) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            row[i] = printable(text::replaced(row[i], "\n", "\\x0A"));
            widths[i] = std::max(widths[i], text::length(row[i]));
        }
    }
    std::string page;
    for (const auto& row : shown) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i];
            if (i + 1 < row.size()) line += std::string(widths[i] - text::length(row[i]) + 2, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        page += line + '\n';
    }
    return page;
}

/// What may stand in the property.
std::string allowed(const StoredProperty& property) {
    const auto bound = [&](const std::optional<double>& number) {
        return number ? shownText(property, numbers::textOf(*number)) : std::string();
    };
    std::string words;
    if (!property.choices.empty()) {
        for (const std::string& choice : property.choices) words += (words.empty() ? "" : "|") + choice;
    } else if (property.least || property.most) {
        words = bound(property.least) + " to " + bound(property.most);
    } else if (property.type == brxBool) {
        words = "True|False";
    }
    if (property.readOnly) words += words.empty() ? "read-only" : ", read-only";
    return words;
}

std::string presetText(const StoredProperty& property) { return shownText(property, property.preset.value_or("")); }

std::string pageOf(const ModulePage& module) {
    Table table{{"No", "Property", "Value", "Default", "Allowed"}};
    for (const StoredProperty& p : module.properties)
        table.push_back({(p.number < 10 ? " " : "") + numbers::textOf(std::int32_t{p.number}), p.name,
                         p.value.value_or(""), presetText(p), allowed(p)});
    return std::string(moduleName(module.module)) + '\n' + tableText(table);
}

std::string pageOf(const std::vector<RemoteNode>& nodes) {
    if (nodes.empty()) return "no nodes\n";
    Table table{{"Node", "Name", "Type", "Inputs", "Address", "Outputs", "Address", "Code", "Message"}};
    for (const RemoteNode& n : nodes)
        table.push_back({n.node, n.name, n.type, n.inputWords, n.inputAddress.value_or(""), n.outputWords,
                         n.outputAddress.value_or(""), n.typeCode, n.message});
    return tableText(table);
}

std::string valueText(const std::optional<std::string>& value) { return value ? *value : "(nothing)"; }

std::string placeText(mtModuleType module, std::int16_t number, const std::string& name) {
    if (module == mtNone) return {};
    std::string place{moduleName(module)};
    if (number > 0) place += ' ' + numbers::textOf(std::int32_t{number});
    if (!name.empty()) place += ' ' + name;
    return place;
}

std::string lineOf(const StoreReport& report, const PropertyChange& change) {
    const std::string head = change.line > 0 ? report.file + ':' + std::to_string(change.line) + ": " : "";
    return head + placeText(change.module, change.number, change.name) + ": " + valueText(change.before) + " -> " +
           valueText(change.after);
}

std::string lineOf(const StoreReport& report, const StoreFinding& finding) {
    std::string line = finding.line > 0 ? report.file + ':' + std::to_string(finding.line) : report.store;
    if (finding.node) line += ": node " + *finding.node;
    else if (finding.module != mtNone) line += ": " + placeText(finding.module, finding.number, finding.name);
    return line + ": " + std::string(finding.rule) + ": " + finding.reason;
}

template <class Entries>
std::string linesOf(const StoreReport& report, const Entries& entries) {
    std::string text;
    for (const auto& entry : entries) text += printable(text::replaced(lineOf(report, entry), "\n", "\\x0A")) + '\n';
    return text;
}

Json orNull(const std::optional<std::string>& text) { return text ? Json(*text) : Json(); }
Json orNull(const std::optional<double>& number) { return number ? Json(*number) : Json(); }
Json moduleOrNull(mtModuleType module) { return module == mtNone ? Json() : Json(moduleName(module)); }
Json lineOrNull(int line) { return line > 0 ? Json(line) : Json(); }
Json numberOrNull(std::int16_t number) { return number > 0 ? Json(number) : Json(); }

Json jsonOf(const StoredProperty& p) {
    return {{"number", p.number},
            {"name", p.name},
            {"value", orNull(p.value)},
            {"default", p.preset ? Json(presetText(p)) : Json()},
            {"type", nameOf(p.type)},
            {"hexadecimal", p.hexadecimal},
            {"readOnly", p.readOnly},
            {"minimum", orNull(p.least)},
            {"maximum", orNull(p.most)},
            {"choices", p.choices},
            {"tip", p.tip}};
}

Json jsonOf(const ModulePage& page) {
    Json properties = Json::array();
    for (const StoredProperty& property : page.properties) properties.push_back(jsonOf(property));
    return {{"module", moduleName(page.module)}, {"group", page.module}, {"properties", std::move(properties)}};
}

Json jsonOf(const PropertyChange& c) {
    return {{"line", lineOrNull(c.line)}, {"module", moduleName(c.module)}, {"number", c.number}, {"name", c.name},
            {"before", orNull(c.before)}, {"after", orNull(c.after)}};
}

Json jsonOf(const RemoteNode& n) {
    return {{"node", n.node},
            {"name", n.name},
            {"type", n.type},
            {"inputWords", n.inputWords},
            {"inputAddress", orNull(n.inputAddress)},
            {"outputWords", n.outputWords},
            {"outputAddress", orNull(n.outputAddress)},
            {"typeCode", n.typeCode},
            {"message", n.message},
            {"dirty", n.dirty}};
}

Json jsonOf(const StoreFinding& f) {
    return {{"line", lineOrNull(f.line)},
            {"module", moduleOrNull(f.module)},
            {"number", numberOrNull(f.number)},
            {"name", f.name.empty() ? Json() : Json(f.name)},
            {"node", orNull(f.node)},
            {"rule", f.rule},
            {"reason", f.reason}};
}

template <class Entries>
void addList(Json& json, const char* name, const std::optional<Entries>& entries) {
    if (!entries) return;
    Json list = Json::array();
    for (const auto& entry : *entries) list.push_back(jsonOf(entry));
    json[name] = std::move(list);
}

}  // namespace

std::string textOf(const StoreReport& report) {
    std::string text;
    if (report.modules)
        for (const ModulePage& page : *report.modules) text += (text.empty() ? "" : "\n") + pageOf(page);
    if (report.nodes) text += pageOf(*report.nodes);
    if (report.changes) text += linesOf(report, *report.changes);
    if (report.findings) text += linesOf(report, *report.findings);
    if (!report.note.empty()) text += printable(report.note) + '\n';
    return text;
}

std::string jsonOf(const StoreReport& report) {
    Json json{{"version", version()}, {"store", report.store}, {"dryRun", report.dryRun}};
    if (!report.file.empty()) json["file"] = report.file;
    addList(json, "modules", report.modules);
    addList(json, "nodes", report.nodes);
    addList(json, "changes", report.changes);
    addList(json, "findings", report.findings);
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace canvas::cli
