#include "document/program_reader.h"

#include <array>
#include <limits>
#include <memory>

#include "attributes/plain.h"
#include "document/attribute_calls.h"
#include "document/block_line.h"
#include "document/canvas.h"
#include "document/catalogue.h"
#include "document/tokens.h"
#include "host/encoding.h"
#include "host/numbers.h"
#include "host/ports.h"
#include "host/text.h"
#include "tracing/branch.h"

namespace canvas {
namespace {

using namespace place;

constexpr std::string_view pilcrow = "¶";
constexpr std::string_view extensionOnDisk = ".bpa";
constexpr std::size_t extensionLength = 4;
constexpr std::size_t windowValues = 8;

/// Up to four digits behind a sign, which nearly all whole numbers of a file are; anything else for `numbers` to judge.
template <class Integer>
Integer whole(std::string_view token) {
    constexpr std::size_t most = 4;
    const bool negative = token.starts_with('-');
    const std::string_view digits = token.substr(negative ? 1 : 0);
    std::int32_t value = 0;
    std::size_t i = 0;
    for (; i < digits.size() && i < most; ++i) {
        const int digit = digits[i] - '0';
        if (digit < 0 || digit > 9) break;
        value = value * 10 + digit;
    }
    if (i > 0 && i == digits.size()) return static_cast<Integer>(negative ? -value : value);
    if constexpr (sizeof(Integer) == sizeof(std::int16_t)) return numbers::toInteger(token);
    else return numbers::toLong(token);
}

bool flag(std::string_view token) {
    if (token == "0") return false;
    if (token == "1") return true;
    return numbers::toBoolean(token);
}

/// Hears nothing.
class Deaf final : public ReadSink {};

class Reader {
public:
    Reader(clsBVTCanvas& document, ReadSink& sink)
        : m_document(document), m_sink(sink), m_utility(environment().utility), m_plainUtility(m_utility->plain()) {}

    bool read(std::string_view text) {
        m_lines = Lines(text);
        readHeader();
        bool result = false;
        while (nextLine()) {
            result = true;
            readBlockLine();
        }
        return result;
    }

    FilePlace place() const noexcept { return m_place; }

private:
    bool nextLine() {
        if (!m_lines.next(m_text)) return false;
        m_place = {m_place.line + 1, 0};
        m_sink.line(m_place.line, m_text);
        return true;
    }

    void requireLine() {
        if (nextLine()) return;
        m_place = {m_place.line + 1, 0};
        raise(Error::inputPastEnd);
    }

    void readHeader();
    void readWindow();
    void readBlockLine();
    /// False when the line is to be given up.
    bool assign(std::string_view token);
    void setType(std::string_view token);
    void setLabel(std::string_view token);
    void setNote(std::string_view label);
    void addSource(std::int16_t id);
    void assignValue(std::string_view token);
    void finishBlock();
    bool fromOlderVersion();
    std::string_view stripped(std::string_view token);

    clsBVTCanvas& m_document;
    ReadSink& m_sink;
    std::shared_ptr<UtilityLibrary> m_utility;
    bool m_plainUtility;  ///< the library's own: its results are views into the line
    std::string m_stripped;

    Lines m_lines{{}};
    std::string_view m_text;
    FilePlace m_place;

    std::int32_t m_counter = 0;  ///< of tokens; goes on in the next line behind a line that was given up
    std::int16_t m_sources = 0;  ///< how many incoming connections the line announces
    std::int16_t m_value = 0;
    std::string_view m_declaredValues;
    Ref<clsBVTBlock> m_block;
    int m_older = -1;  ///< unknown until the first block
};

void Reader::readHeader() {
    requireLine();
    m_place.token = 2;
    const std::size_t first = m_text.find(' ');
    if (first == std::string_view::npos) raise(Error::subscript);
    const std::string_view behind = m_text.substr(first + 1);
    m_document.strVersionNumber = behind.substr(0, behind.find(' '));
    if (m_utility->FileFormatVersion() < m_document.strVersionNumber)
        tell("This file was created by a newer version of Brevant+.  Unexpected results may occur.\r\n"
             "Contact Orlant support to obtain a newer version of Brevant+.",
             Icon::information);
    requireLine();  // the count of blocks is for people
    requireLine();
    readWindow();
}

void Reader::readWindow() {
    using Values = std::array<std::string_view, windowValues>;
    static constexpr Values whenMissing{"0", "0", "4000", "4000", "100%", "0", "0", "0  ' normal"};
    static constexpr Values whenEmpty{"0", "0", "6000", "8000", "100%", "0", "0", "0"};
    const auto words = m_utility->SplitLine(m_text);
    const bool missing = words[0] != "WINDOW_PARAMS_DEFINE";
    const auto value = [&](std::size_t i) -> std::string {
        m_place.token = static_cast<int>(i) + 2;
        // the state of a missing line is no number: what stands in its place may be a block, and must not get lost
        if (missing) return std::string(whenMissing[i]);
        return words[i + 1].empty() ? std::string(whenEmpty[i]) : words[i + 1];
    };
    m_document.lngLeft = numbers::toLong(value(0));
    m_document.lngTop = numbers::toLong(value(1));
    m_document.lngHeight = numbers::toLong(value(2));
    m_document.lngWidth = numbers::toLong(value(3));
    m_document.dblZoom = numbers::toDouble(text::withoutLast(value(4), 1)) / 100;
    m_document.lngXPos = numbers::toLong(value(5));
    m_document.lngYPos = numbers::toLong(value(6));
    m_document.lngWindowState = numbers::toLong(value(7));
}

void Reader::readBlockLine() {
    m_block = make<clsBVTBlock>();
    m_declaredValues = {};
    Tokens tokens(m_text);
    std::string_view token;
    while (tokens.next(token)) {
        ++m_place.token;
        ++m_counter;
        if (!assign(token)) return;
    }
    finishBlock();
    m_counter = 0;
    m_sources = 0;
    m_value = 0;
}

bool Reader::assign(std::string_view token) {
    clsBVTBlock& block = *m_block;
    switch (m_counter) {
        case keyword: return true;
        case blockId:
            block.intBlockID = whole<std::int16_t>(token);
            if (block.intBlockID == 0) return false;
            m_document.blnArBlockIDHashTable.take(block.intBlockID);
            return true;
        case blockType: setType(token); return true;
        case label: setLabel(token); return true;
        case toFirst: block.intToFirstBlockID = whole<std::int16_t>(token); return true;
        case toSecond: block.intToSecondBlockID = whole<std::int16_t>(token); return true;
        case userId: block.lngBlockUserID = whole<std::int32_t>(token); return true;
        case userName: block.strBlockUserName = stripped(token); return true;
        case dual: block.blnHasDualOutPort = flag(token); return true;
        case noIn: block.blnNoInPort = flag(token); return true;
        case noOut: block.blnNoOutPort = flag(token); return true;
        case inPorts:
            m_sources = whole<std::int16_t>(token);
            block.intColFromBlockID.reserve(m_sources);
            return true;
        default: break;
    }
    const std::int32_t behind = m_counter - inPorts - m_sources;
    if (behind <= 0) addSource(whole<std::int16_t>(token));
    else if (behind == 1) m_declaredValues = token;
    else assignValue(token);
    return true;
}

void Reader::setType(std::string_view token) {
    m_block->setBlockType(whole<std::int16_t>(token));
    // the attribute is asked for once more, which an unknown type tells once more
    if (!m_block->vntAttribute) m_block->vntAttribute = newAttribute(m_block->intBlockType);
}

std::string_view Reader::stripped(std::string_view token) {
    if (!m_plainUtility) return m_stripped = m_utility->StripQuotes(token);
    return stripQuotes(token);
}

void Reader::setLabel(std::string_view token) {
    const std::string_view plain = stripped(token);
    if (m_plainUtility) m_block->strBlockLabel = plain;
    else m_block->strBlockLabel = m_utility->ConvertLabel(plain, false, false);
    if (m_block->intBlockType == NodeText) setNote(m_block->strBlockLabel);
}

/// A note lies on one line with a pilcrow for each line end; the block's label shows it with carriage returns.
void Reader::setNote(std::string_view label) {
    std::string note = m_utility->ConvertLabel(label, false, true);
    while (note.ends_with(pilcrow)) note.resize(note.size() - pilcrow.size());
    note += pilcrow;
    Object& attribute = required(m_block->vntAttribute);
    std::int32_t lines = 0;
    std::int32_t longest = attribute.get("MaxCharPerLine").toLong();
    std::string shown;
    for (std::string_view rest = note; !rest.empty(); ++lines) {
        const std::string_view part = rest.substr(0, rest.find(pilcrow));
        rest.remove_prefix(part.size() + pilcrow.size());
        const auto length = static_cast<std::int32_t>(text::length(part));
        if (length > longest) attribute.put("MaxCharPerLine", Value(longest = length));
        shown += part;
        if (!rest.empty()) shown += '\r';
    }
    attribute.put("LineCount", Value(lines));
    attribute.put("NodeText", Value(note));
    attribute.put("CharCount", Value(static_cast<std::int32_t>(text::length(note))));
    m_block->strBlockLabel = shown;
}

/// AddFromBlockID of a block whose in-ports nobody has changed: the key tells whether the source is there. All come from
/// a top port until the wiring is complete.
void Reader::addSource(std::int16_t id) {
    m_block->intColFromBlockID.addNew({static_cast<float>(id), true});
}

void Reader::assignValue(std::string_view token) {
    if (m_value == std::numeric_limits<std::int16_t>::max()) raise(Error::overflow);
    attribute_calls::assign(m_block->vntAttribute, ++m_value, stripped(token));
}

/// Files below version 200 keep the duration of a Slave Offset in seconds.
bool Reader::fromOlderVersion() {
    constexpr double firstInMilliseconds = 200;
    if (m_older < 0) m_older = numbers::toDouble(m_document.strVersionNumber) < firstInMilliseconds ? 1 : 0;
    return m_older == 1;
}

void Reader::finishBlock() {
    clsBVTBlock& block = *m_block;
    if (block.intToFirstBlockID != unconnected) block.blnTopPortUsed = true;
    if (block.intToSecondBlockID != unconnected) block.blnBottomPortUsed = true;
    if (fromOlderVersion() && block.intBlockType == INCREMENTPOSITION)
        invoke(required(block.vntAttribute), "UpdateTimeValue");
    m_sink.block(m_place.line, block, m_declaredValues, m_value);
    if (block.intBlockID != 0) m_document.adoptBlock(std::move(m_block));
}

/// Completes the in-ports: the file does not say which port a connection leaves. A target that is not there, or does not
/// list the source, is passed over.
void updateFromBlockInfo(const clsBVTBlockCol& blocks) {
    const auto leavesBy = [&](const clsBVTBlock& source, std::int16_t target, bool top) {
        clsBVTBlock* block = target == unconnected ? nullptr : blocks.find(target);
        if (block) block->intColFromBlockID.setFromTopPort(source.intBlockID, top);
    };
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const clsBVTBlock& block = blocks[i];
        if (!block.blnHasDualOutPort) continue;
        leavesBy(block, block.intToFirstBlockID, true);
        leavesBy(block, block.intToSecondBlockID, false);
    }
}

bool readText(clsBVTCanvas& document, std::string bytes, ReadSink& sink) {
    Reader reader(document, sink);
    try {
        const bool result = reader.read(encoding::decode(std::move(bytes)));
        updateFromBlockInfo(*document.BlockCollection);
        return result;
    } catch (...) {
        sink.failed(reader.place(), tracing::caught());
        throw;
    }
}

}  // namespace

bool readProgramText(clsBVTCanvas& document, std::string bytes, ReadSink& sink) {
    const tracing::InLibrary inside;
    return readText(document, std::move(bytes), sink);
}

bool readProgram(clsBVTCanvas& document, std::string_view fileName, ReadSink* sink) {
    Deaf deaf;
    bool result = false;
    tracing::onFailure(
        [&] {
            if (text::length(fileName) < extensionLength) raise(Error::invalidCall);
            const std::string path =
                std::string(text::withoutLast(fileName, extensionLength)) + std::string(extensionOnDisk);
            const bool read = readText(document, environment().files->read(path, largestProgram), sink ? *sink : deaf);
            if (document.strName.empty()) document.strName = fileName;
            result = read;
        },
        [&](const RuntimeError&) {
            tell("'" + std::string(fileName) + "' cannot be opened", Icon::critical, "File Error");
        });
    return result;
}

}  // namespace canvas
