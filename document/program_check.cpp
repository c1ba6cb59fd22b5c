#include "document/program_check.h"

#include <utility>

#include "document/check_failure.h"
#include "document/check_header.h"
#include "document/check_line.h"
#include "document/check_values.h"
#include "document/check_wiring.h"
#include "document/tokens.h"
#include "host/encoding.h"
#include "host/numbers.h"
#include "host/ports.h"
#include "tracing/faults.h"
#include "tracing/handler.h"

namespace canvas {
namespace {

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

/// Hears the reader, and looks at each line before and after it became a block. It walks the text beside the reader, so
/// that it knows the line still when the reader has failed, and can let it go on behind that line.
class Check final : public ReadSink {
public:
    Check(clsBVTCanvas& document, Boxes& boxes, std::string_view text)
        : m_document(document), m_boxes(boxes), m_text(text), m_lines(text) {}

    void run();
    bool readable() const noexcept { return m_failures == 0; }
    std::vector<Finding> take() { return m_findings.take(); }
    ProgramLinks takeLinks() { return std::move(m_links); }

    void line(int number, std::string_view text) override;
    void block(int number, const clsBVTBlock& block, std::string_view declared, int values) override;
    void failed(FilePlace place, const RuntimeError& error) override;

private:
    enum class Next { nothing, sameLine, nextLine };

    bool read(std::string text);
    bool findRest();
    std::string header() const;
    void blockLine();
    void blockFailed(FilePlace place, const RuntimeError& error);
    void settleLine();
    void finish();

    clsBVTCanvas& m_document;
    Boxes& m_boxes;
    std::string_view m_text;
    Lines m_lines;
    const std::string m_currentVersion = environment().utility->FileFormatVersion();
    Findings m_findings;
    ProgramLinks m_links;
    ValueShapes m_shapes;
    BlockPlaces m_places;

    int m_number = 0;  ///< of the present line
    std::string_view m_present;
    std::string_view m_header[headerLines];
    BlockLine m_line;
    LineVerdict m_verdict;
    bool m_boxExpected = false;     ///< a finding tells already what a box would say
    std::int32_t m_firstPlace = 1;  ///< what the line's first token is taken for
    std::int32_t m_firstPlaceNext = 1;

    bool m_again = false;  ///< reads on behind a failure, under a header that was put before the rest
    int m_failures = 0;
    Next m_next = Next::nothing;
    std::string_view m_rest;
    std::size_t m_reread = 0;

    std::int32_t m_blockLines = 0;
    bool m_counted = false;  ///< the present line among them
    int m_firstDropped = 0;  ///< line of the first block beyond the most
    std::int32_t m_dropped = 0;
};

/// A reader gives up at the first failure. Here the failing line alone is left out, so that one run names all faults;
/// lines that fail over and over in a large file end that.
void Check::run() {
    constexpr std::size_t mostReread = 256U << 20U;
    if (read(std::string(m_text))) return finish();
    while (findRest()) {
        m_reread += m_rest.size();
        if (m_reread > mostReread) {
            m_findings.add(m_number + 1, 0, Rule::unreadable,
                           "too much of the file is unreadable; the rest is not looked at");
            return;
        }
        m_again = true;
        m_lines = Lines(m_rest);
        if (read(header() + std::string(m_rest))) return finish();
    }
    if (m_number > headerLines) finish();
}

/// False when the reader failed at the text; other failures are not the file's.
bool Check::read(std::string text) {
    m_next = Next::nothing;
    const int before = m_failures;
    try {
        readProgramText(m_document, std::move(text), *this);
        return true;
    } catch (...) {
        if (m_failures == before) throw;
        return false;
    }
}

/// What is left to be read behind a failure; false when there is nothing.
bool Check::findRest() {
    if (m_next == Next::nothing) return false;
    const auto begin = static_cast<std::size_t>(m_present.data() - m_text.data());
    if (m_next == Next::sameLine) {
        --m_number;
        if (m_counted) --m_blockLines;
        m_rest = m_text.substr(begin);
        return true;
    }
    const std::size_t end = m_text.find('\n', begin + m_present.size());
    m_rest = end == std::string_view::npos ? std::string_view() : m_text.substr(end + 1);
    return !m_rest.empty();
}

std::string Check::header() const {
    const std::string_view version = versionIn(m_header[0]);
    return "VERSION_NUMBER " + (isVersion(version) ? std::string(version) : m_currentVersion) +
           "\nNUM_BLOCKS\nWINDOW_PARAMS_DEFINE\n";
}

void Check::line(int number, std::string_view) {
    if (m_again && number <= headerLines) return;
    if (m_again && number == headerLines + 1) m_boxes.take();  // of that header
    settleLine();
    m_lines.next(m_present);
    if (++m_number > headerLines || m_again) return blockLine();
    m_header[m_number - 1] = m_present;
    checkHeaderLine(m_number, m_present, m_currentVersion, m_findings);
    m_boxExpected = true;
}

void Check::blockLine() {
    m_verdict = {};
    m_firstPlace = std::exchange(m_firstPlaceNext, 1);
    m_line.take(m_present);
    m_counted = m_line.countWritten() >= place::blockId;
    if (m_counted) ++m_blockLines;
    if (m_present.empty()) return;
    if (m_firstPlace != 1) return;  // what a line means that is read askew, nobody can say
    m_verdict = checkLine(m_line, m_number, m_shapes, m_findings);
    m_boxExpected = !m_verdict.knownType;
    if (wholeNumber(m_line[place::blockId]) == 0) m_firstPlaceNext = place::blockType;
}

void Check::block(int, const clsBVTBlock& block, std::string_view, int) {
    const std::int16_t id = block.intBlockID;
    if (id == 0 || m_verdict.id == 0) return;
    if (m_document.BlockCollection->Count() >= m_document.intMaxNumberOfBlock) {
        m_boxExpected = true;
        if (m_dropped++ == 0) m_firstDropped = m_number;
        return;
    }
    const auto [known, isNew] = m_places.try_emplace(id, BlockPlace{m_number, m_verdict.linked, m_verdict.inPlace});
    if (!isNew) {
        m_boxExpected = true;
        m_findings.add(m_number, id, Rule::duplicateId,
                       "block " + decimal(id) + " stands in line " + decimal(known->second.line) +
                           " already; this line is dropped");
    }
    checkPortFlags(block, m_number, m_findings);
    if (m_verdict.inPlace) {
        checkValues(block, m_number, m_findings);
        m_links.take(m_number, block, m_line);
    }
}

void Check::settleLine() {
    std::string box = m_boxes.take();
    if (!box.empty() && !m_boxExpected) m_findings.add(m_number, m_verdict.id, Rule::message, std::move(box));
    m_boxExpected = false;
}

void Check::failed(FilePlace place, const RuntimeError& error) {
    if (error.number == static_cast<int>(Error::automation)) return;  // a fault of this program, not of the file
    ++m_failures;
    m_boxExpected = true;
    if (m_again || place.line > headerLines) return blockFailed(place, error);
    const bool missing = place.line != m_number;
    m_findings.add(place.line, 0, Rule::unreadable,
                   whyHeaderFailed(place, missing ? std::string_view() : m_present, error));
    if (missing || place.line != headerLines) return;  // no program file
    const bool isBlock = m_present.starts_with("BLOCK_DEFINE ") || m_present.starts_with("TEXT_DEFINE ");
    m_next = isBlock ? Next::sameLine : Next::nextLine;
}

void Check::blockFailed(FilePlace place, const RuntimeError& error) {
    if (place.line <= headerLines)  // memory ran out before the first line of the rest
        return m_findings.add(m_number + 1, 0, Rule::unreadable, tooLong(error));
    const bool behindLast = place.token == m_line.count();
    if (!m_again && behindLast && !isVersion(m_document.strVersionNumber)) {
        m_findings.add(1, 0, Rule::unreadable,
                       "the version " + quoted(m_document.strVersionNumber) +
                           " is no number, so no block can be read (" + error.description + ")");
        m_next = Next::sameLine;
        return;
    }
    const auto type = wholeNumber(m_line[place::blockType]);
    const ValueShape* shape = type ? m_shapes.of(*type) : nullptr;
    m_findings.add(m_number, m_verdict.id, Rule::unreadable,
                   whyBlockFailed(place, m_line, m_firstPlace, shape ? shape->table : nullptr, error));
    if (m_verdict.id != 0) m_places.try_emplace(m_verdict.id, BlockPlace{m_number, false, false});
    m_next = m_firstPlace == 1 ? Next::nextLine : Next::sameLine;
    settleLine();
}

void Check::finish() {
    settleLine();
    checkBlockCount(m_header[1], m_blockLines, m_findings);
    if (m_dropped > 0)
        m_findings.add(m_firstDropped, 0, Rule::tooManyBlocks,
                       "the document is full with " + decimal(m_document.intMaxNumberOfBlock) +
                           " blocks; this line and " + decimal(m_dropped - 1) + " behind it are dropped");
    checkWiring(*m_document.BlockCollection, m_places, m_findings);
}

}  // namespace

CheckedProgram checkProgram(std::string bytes) {
    CheckedProgram checked{.document = make<clsBVTCanvas>(), .readable = true, .findings = {}, .links = {}};
    const auto boxes = std::make_shared<Boxes>();
    Environment quiet = environment();
    quiet.interaction = boxes;
    const WithEnvironment inForce(std::move(quiet));
    HandsOn handsOn;
    const tracing::WithErrorHandler asksNobody(handsOn);
    const tracing::InLibrary inside;
    const std::string text = encoding::decode(std::move(bytes));
    Check check(*checked.document, *boxes, text);
    check.run();
    checked.readable = check.readable();
    checked.findings = check.take();
    checked.links = check.takeLinks();
    checked.links.takeBlocks(*checked.document->BlockCollection);
    return checked;
}

CheckedProgram checkProgramFile(const std::string& path) {
    std::string bytes;
    try {
        bytes = environment().files->read(path, largestProgram);
    } catch (const RuntimeError& error) {
        return {.document = make<clsBVTCanvas>(),
                .readable = false,
                .findings = {{.line = 0, .block = 0, .rule = Rule::unreadable, .reason = whyNotOpened(error)}},
                .links = {}};
    }
    return checkProgram(std::move(bytes));
}

}  // namespace canvas
