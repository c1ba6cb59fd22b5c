#include "document/program_check.h"

#include <cmath>
#include <optional>
#include <utility>

#include "document/check_failure.h"
#include "document/check_line.h"
#include "document/check_values.h"
#include "document/check_wiring.h"
#include "host/numbers.h"
#include "host/ports.h"
#include "host/text.h"
#include "tracing/faults.h"
#include "tracing/handler.h"

namespace canvas {
namespace {

constexpr int headerLines = 3;

/// Keeps the first box of a line.
class Boxes final : public Interaction {
public:
    Reply messageBox(const MessageBox& box) override {
        if (m_first.empty()) m_first = box.text;
        return box.buttons == Buttons::ok ? Reply::ok : Reply::cancel;
    }
    std::string inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
    void beep() override {}
    std::int32_t openAddress(std::string_view) override { return 0; }
    void setClipboard(std::string_view) override {}
    bool showForm(Object&) override { return false; }

    std::string take() { return std::exchange(m_first, {}); }

private:
    std::string m_first;
};

class HandsOn final : public tracing::ErrorHandler {
public:
    tracing::Answer ask(const tracing::Failure&) override { return tracing::Answer::handOn; }
};

std::string decimal(std::int32_t number) { return numbers::textOf(number); }

/// Hears the reader and looks at each line before and after it became a block.
class Check final : public ReadSink {
public:
    Check(const clsBVTCanvas& document, Boxes& boxes, std::string currentVersion)
        : m_document(document), m_boxes(boxes), m_currentVersion(std::move(currentVersion)) {}

    void line(int number, std::string_view text) override;
    void block(int number, const clsBVTBlock& block, std::string_view declared, int values) override;
    void failed(FilePlace place, const RuntimeError& error) override;
    /// After the last line of a file that was read to its end.
    void finish();
    /// Whether the file is at fault that it was not.
    bool fileFailed() const noexcept { return m_fileFailed; }
    std::vector<Finding> take() { return m_findings.take(); }

private:
    void headerLine(int number, std::string_view text);
    void settleLine();
    bool versionIsNumber() const;

    const clsBVTCanvas& m_document;
    Boxes& m_boxes;
    std::string m_currentVersion;
    Findings m_findings;
    AttributeClasses m_classes;
    BlockPlaces m_places{};

    int m_number = 0;
    std::string_view m_text;  ///< of the present line
    BlockLine m_line;
    LineVerdict m_verdict;
    bool m_boxExpected = false;  ///< a finding tells already what a box would say
    std::int32_t m_firstPlace = 1;
    std::int32_t m_firstPlaceNext = 1;

    bool m_fileFailed = false;

    std::optional<std::string> m_announced;  ///< the number of blocks; nothing where another word stands for NUM_BLOCKS
    std::int32_t m_blockLines = 0;
    int m_firstDropped = 0;  ///< line of the first block beyond the most
    std::int32_t m_dropped = 0;
};

void Check::line(int number, std::string_view text) {
    settleLine();
    m_number = number;
    m_text = text;
    if (number <= headerLines) return headerLine(number, text);
    m_verdict = {};
    m_firstPlace = std::exchange(m_firstPlaceNext, 1);
    m_line.take(text);
    if (text.empty()) return;
    ++m_blockLines;
    if (m_firstPlace != 1) return;  // what a line means that is read askew, nobody can say
    m_verdict = checkLine(m_line, number, m_classes, m_findings);
    m_boxExpected = !m_verdict.knownType;
    const auto id = wholeNumber(m_line[place::blockId]);
    if (id == 0) m_firstPlaceNext = place::blockType;
}

void Check::headerLine(int number, std::string_view text) {
    static constexpr std::string_view keywords[headerLines - 1] = {"VERSION_NUMBER", "NUM_BLOCKS"};
    if (number == headerLines) return;  // the reader fails without its keyword
    const std::string_view keyword = text.substr(0, text.find(' '));
    const std::string_view rest = keyword.size() < text.size() ? text.substr(keyword.size() + 1) : std::string_view();
    const std::string_view word = rest.substr(0, rest.find(' '));
    const std::string_view expected = keywords[number - 1];
    const bool failing = number == 1 && rest.empty();  // then the reader tells
    if (keyword != expected && !failing)
        m_findings.add(number, 0, Rule::keyword,
                       "the line begins with " + quoted(keyword) + " in place of " + std::string(expected));
    if (number == 2) {
        if (keyword == expected) m_announced = word;
    } else if (m_currentVersion < word) {
        m_boxExpected = true;
        m_findings.add(number, 0, Rule::newerVersion,
                       "the version " + quoted(word) + " is newer than " + m_currentVersion + ", the current one");
    }
}

void Check::block(int number, const clsBVTBlock& block, std::string_view, int) {
    const std::int16_t id = block.intBlockID;
    if (id == 0 || m_verdict.id == 0) return;
    if (m_document.BlockCollection->Count() >= m_document.intMaxNumberOfBlock) {
        m_boxExpected = true;
        if (m_dropped++ == 0) m_firstDropped = number;
        return;
    }
    BlockPlace& known = m_places[static_cast<std::size_t>(id)];
    if (known.line != 0) {
        m_boxExpected = true;
        m_findings.add(number, id, Rule::duplicateId,
                       "block " + decimal(id) + " stands in line " + decimal(known.line) + " already; this line is dropped");
    } else {
        known = {number, m_verdict.linked, m_verdict.inPlace};
    }
    checkPortFlags(block, number, m_findings);
    if (m_verdict.inPlace) checkValues(block, number, m_findings);
}

void Check::settleLine() {
    std::string box = m_boxes.take();
    if (!box.empty() && !m_boxExpected) m_findings.add(m_number, m_verdict.id, Rule::message, std::move(box));
    m_boxExpected = false;
}

/// A version that is none is met by the first block, behind its last token.
bool Check::versionIsNumber() const {
    const auto version = numbers::parse(m_document.strVersionNumber);
    return version && std::isfinite(*version);
}

void Check::failed(FilePlace place, const RuntimeError& error) {
    if (error.number == static_cast<int>(Error::automation)) return;  // a fault of this program, not of the file
    m_boxExpected = true;
    m_fileFailed = true;
    if (place.line <= headerLines) {
        const bool missing = place.line != m_number;
        m_findings.add(place.line, 0, Rule::unreadable,
                       whyHeaderFailed(place, missing ? std::string_view() : m_text, error));
    } else if (m_blockLines == 1 && place.token == m_line.count() && !versionIsNumber()) {
        m_findings.add(1, 0, Rule::unreadable, "the version " + quoted(m_document.strVersionNumber) +
                                                   " is no number, so no block can be read" + " (" + error.description + ")");
    } else {
        const auto type = wholeNumber(m_line[place::blockType]);
        m_findings.add(place.line, m_verdict.id, Rule::unreadable,
                       whyBlockFailed(place, m_line, m_firstPlace, type ? m_classes.of(*type) : nullptr, error));
    }
    settleLine();
}

void Check::finish() {
    settleLine();
    if (m_announced && wholeNumber(*m_announced) != m_blockLines)
        m_findings.add(2, 0, Rule::blockCount,
                       "NUM_BLOCKS says " + quoted(*m_announced) + ", and the file has " + decimal(m_blockLines) +
                           (m_blockLines == 1 ? " block line" : " block lines"));
    if (m_dropped > 0)
        m_findings.add(m_firstDropped, 0, Rule::tooManyBlocks,
                       "the document is full with " + decimal(m_document.intMaxNumberOfBlock) + " blocks; this line and " +
                           decimal(m_dropped - 1) + " behind it are dropped");
    checkWiring(*m_document.BlockCollection, m_places, m_findings);
}

}  // namespace

CheckedProgram checkProgram(std::string bytes) {
    CheckedProgram checked{.document = make<clsBVTCanvas>(), .readable = true, .findings = {}};
    const auto boxes = std::make_shared<Boxes>();
    Environment quiet = environment();
    quiet.interaction = boxes;
    const WithEnvironment inForce(std::move(quiet));
    HandsOn handsOn;
    const tracing::InLibrary inside;
    const tracing::WithErrorHandler asksNobody(handsOn);
    Check check(*checked.document, *boxes, environment().utility->FileFormatVersion());
    try {
        readProgramText(*checked.document, std::move(bytes), check);
        check.finish();
    } catch (...) {
        if (!check.fileFailed()) throw;
        checked.readable = false;
    }
    checked.findings = check.take();
    return checked;
}

CheckedProgram checkProgramFile(const std::string& path) {
    std::string bytes;
    try {
        bytes = environment().files->read(path, largestProgram);
    } catch (const RuntimeError& error) {
        return {.document = make<clsBVTCanvas>(),
                .readable = false,
                .findings = {{.line = 0, .block = 0, .rule = Rule::unreadable, .reason = whyNotOpened(error)}}};
    }
    return checkProgram(std::move(bytes));
}

}  // namespace canvas
