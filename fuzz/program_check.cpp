// The check of a program of any bytes ends with findings and nothing else, and agrees with the reader on whether the file
// can be read, and on what it holds. The check of its folder ends as well.

#include "document/program_check.h"

#include <algorithm>

#include "document/canvas.h"
#include "document/check_header.h"
#include "document/program_reader.h"
#include "document/project_check.h"
#include "document/tokens.h"
#include "fuzz/fuzzing.h"
#include "host/encoding.h"
#include "host/numbers.h"

namespace canvas::fuzz {
namespace {

int linesOf(const std::string& bytes) {
    const std::string text = encoding::decode(bytes);
    Lines lines(text);
    std::string_view line;
    int count = 0;
    while (lines.next(line)) ++count;
    return count;
}

/// Null when the reading failed.
Ref<clsBVTCanvas> documentOf(const std::string& bytes) {
    auto document = make<clsBVTCanvas>();
    ReadSink sink;
    try {
        readProgramText(*document, bytes, sink);
    } catch (const RuntimeError&) {
        return nullptr;
    }
    return document;
}

/// The writer asks a main form for what a cam says, and here is none: labels, wiring and values of each block instead.
std::string textOf(const clsBVTCanvas& document) {
    std::string text;
    const clsBVTBlockCol& blocks = *document.BlockCollection;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const clsBVTBlock& block = blocks[i];
        text += block.strBlockLabel + '\n' + block.strBlockUserName + '\n';
        for (const std::int32_t number : {std::int32_t{block.intBlockID}, std::int32_t{block.intToFirstBlockID},
                                          std::int32_t{block.intToSecondBlockID}, block.lngBlockUserID})
            text += numbers::textOf(number) + ' ';
        block.appendTo(text, text.size());
    }
    return text;
}

void checkFindings(const std::vector<Finding>& findings, int lines) {
    int line = 0;
    for (const Finding& finding : findings) {
        require(finding.line >= line, "findings stand by line");
        line = finding.line;
        require(!finding.reason.empty(), "a finding has a reason");
    }
    require(line <= std::max(lines, headerLines) + 1, "no finding lies behind the file");
}

void check(const std::string& bytes) {
    CheckedProgram checked = checkProgram(bytes);
    checkFindings(checked.findings, linesOf(bytes));
    const bool unreadable = std::any_of(checked.findings.begin(), checked.findings.end(),
                                        [](const Finding& finding) { return finding.rule == Rule::unreadable; });
    require(checked.readable != unreadable, "an unreadable file is a finding");
    const Ref<clsBVTCanvas> read = documentOf(bytes);
    require(checked.readable == (read != nullptr), "the check and the reader agree on what can be read");
    if (read) require(textOf(*read) == textOf(*checked.document), "the check has read what the reader reads");

    TaskFiles tasks{.files = {}, .findings = &checked.findings};
    for (std::size_t i = 0; i < tasks.files.size() && i < checked.links.calls.size(); ++i)
        tasks.files[i] = checked.links.calls[i].name;
    const ProjectProgram program{"a.bpa", &checked.links, &checked.findings};
    checkProject({&program, 1}, tasks, [](const std::string& name) {
        require(whyOutside(name).empty(), "only names that stay in the folder are looked for");
        return false;
    });
}

}  // namespace
}  // namespace canvas::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > canvas::fuzz::longestInput) return 0;
    canvas::fuzz::interaction();
    canvas::fuzz::check(std::string(canvas::fuzz::textOf(data, size)));
    return 0;
}
