#include "cli/check_report.h"

#include <algorithm>

#include <nlohmann/json.hpp>

#include "cli/console.h"
#include "cli/version.h"

namespace canvas::cli {
namespace {

using Json = nlohmann::ordered_json;

struct Totals {
    explicit Totals(const std::vector<FileReport>& reports) : files(reports.size()) {
        for (const FileReport& report : reports) {
            findings += report.findings.size();
            if (!report.internalError.empty()) ++failed;
            else if (!report.readable) ++unreadable;
            else if (!report.isGood()) ++faulty;
            else ++good;
        }
    }
    std::size_t files = 0, good = 0, faulty = 0, unreadable = 0, failed = 0, findings = 0;
};

std::string counted(std::size_t number, const std::string& noun) {
    return std::to_string(number) + ' ' + noun + (number == 1 ? "" : "s");
}

Json jsonOf(const Finding& finding) {
    return {
        {"line", finding.line}, {"block", finding.block}, {"rule", nameOf(finding.rule)}, {"reason", finding.reason}};
}

Json jsonOf(const FileReport& report) {
    Json findings = Json::array();
    for (const Finding& finding : report.findings) findings.push_back(jsonOf(finding));
    Json json{{"file", report.file}, {"readable", report.readable}, {"findings", std::move(findings)}};
    if (!report.internalError.empty()) json["internalError"] = report.internalError;
    return json;
}

}  // namespace

std::string textOf(const FileReport& report) {
    std::string text;
    for (const Finding& finding : report.findings) {
        text += printable(report.file);
        if (finding.line > 0) text += ':' + std::to_string(finding.line);
        if (finding.block != 0) text += ": block " + std::to_string(finding.block);
        text += ": " + std::string(nameOf(finding.rule)) + ": " + printable(finding.reason) + '\n';
    }
    return text;
}

std::string summaryOf(const std::vector<FileReport>& reports) {
    const Totals totals(reports);
    std::string text = counted(totals.files, "file") + " checked: " + std::to_string(totals.good) + " good";
    if (totals.faulty > 0) text += ", " + std::to_string(totals.faulty) + " with findings";
    if (totals.unreadable > 0) text += ", " + std::to_string(totals.unreadable) + " unreadable";
    if (totals.failed > 0) text += ", " + std::to_string(totals.failed) + " not checked";
    if (totals.findings > 0) text += "; " + counted(totals.findings, "finding");
    return text + '\n';
}

std::string jsonOf(const std::vector<FileReport>& reports) {
    const Totals totals(reports);
    Json files = Json::array();
    for (const FileReport& report : reports) files.push_back(jsonOf(report));
    const Json json{{"version", version()},
                    {"files", std::move(files)},
                    {"totals",
                     {{"files", totals.files},
                      {"good", totals.good},
                      {"withFindings", totals.faulty},
                      {"unreadable", totals.unreadable},
                      {"notChecked", totals.failed},
                      {"findings", totals.findings}}}};
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace canvas::cli
