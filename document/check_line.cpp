#include "document/check_line.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "host/numbers.h"
#include "host/utility.h"

namespace canvas {
namespace {

std::string decimal(std::int32_t number) { return numbers::textOf(number); }

std::string counted(std::int32_t number, std::string_view noun) {
    return decimal(number) + ' ' + std::string(noun) + (number == 1 ? "" : "s");
}

/// One line under all checks.
class LineCheck {
public:
    LineCheck(const BlockLine& line, int number, ValueShapes& shapes, Findings& findings)
        : m_line(line), m_number(number), m_shapes(shapes), m_findings(findings) {}

    LineVerdict run() {
        findId();
        if (m_verdict.id == 0) return m_verdict;
        m_verdict.linked = m_line.countWritten() >= place::inPorts;
        if (!m_line.balanced()) {
            findType();
            const std::int32_t last = m_line.count();  // the open quote has swallowed the rest of the line
            tell(Rule::label, "the " + nameOf(last) + " (token " + decimal(last) + ") has a double quote without its " +
                                  "other one: the rest of the line is taken into it");
            return m_verdict;
        }
        findType();
        checkTexts();
        if (m_verdict.knownType) checkCounts();
        if (m_verdict.inPlace) checkSources();
        return m_verdict;
    }

private:
    void tell(Rule rule, std::string reason) { m_findings.add(m_number, m_verdict.id, rule, std::move(reason)); }

    std::string nameOf(std::int32_t place) const {
        const std::int32_t declared = m_line.declaredPlace();
        return placeName(place, declared == 0 ? 0 : declared - place::inPorts - 1, m_class ? m_class->table : nullptr);
    }

    void findId();
    void findType();
    void checkKeyword();
    void checkTexts();
    void checkText(std::int32_t place);
    void checkCounts();
    void checkSources();
    bool isLaidOutFrom(std::int32_t declaredPlace) const;
    std::int32_t valuesFrom(std::int32_t declaredPlace) const;
    void tellValues(std::int32_t declaredPlace);

    const BlockLine& m_line;
    int m_number;
    ValueShapes& m_shapes;
    Findings& m_findings;
    LineVerdict m_verdict;
    const BlockClass* m_type = nullptr;
    const ValueShape* m_class = nullptr;
};

void LineCheck::findId() {
    if (m_line.countWritten() < place::blockId)
        return tell(Rule::idZero, "the line ends before the block's ID, so no block comes of it");
    const auto id = wholeNumber(m_line[place::blockId]);
    if (!id || *id < std::numeric_limits<std::int16_t>::min() || *id > std::numeric_limits<std::int16_t>::max()) return;
    m_verdict.id = static_cast<std::int16_t>(*id);
    if (m_verdict.id == 0)
        tell(Rule::idZero,
             "the block has ID 0: its line is given up, and the next one is read from its third token on");
}

void LineCheck::findType() {
    const std::string_view token = m_line[place::blockType];
    if (m_line.countWritten() < place::blockType)
        return tell(Rule::unknownType, "the line ends before the block's type, so no block comes of it");
    const auto type = wholeNumber(token);
    if (!type) return;
    m_class = m_shapes.of(*type);
    m_type = *type >= 0 && *type <= highestBlockType ? blockClass(static_cast<std::int16_t>(*type)) : nullptr;
    m_verdict.knownType = m_class != nullptr;
    if (!m_type) tell(Rule::unknownType, "no block has the type " + decimal(*type));
    else if (!m_class)
        tell(Rule::unknownType,
             "the type " + decimal(*type) + " (" + std::string(m_type->displayName) + ") has no block class here");
    checkKeyword();
}

void LineCheck::checkKeyword() {
    constexpr std::string_view block = "BLOCK_DEFINE", text = "TEXT_DEFINE";
    const std::string_view keyword = m_line[place::keyword];
    if (!m_type) {
        if (keyword != block && keyword != text)
            tell(Rule::keyword, "the line begins with " + quoted(keyword) + " in place of BLOCK_DEFINE or TEXT_DEFINE");
        return;
    }
    const std::string_view asked = m_type->type == NodeText ? text : block;
    if (keyword == asked) return;
    tell(Rule::keyword, "the line begins with " + quoted(keyword) + "; a block of type " + decimal(m_type->type) +
                            " (" + std::string(m_type->displayName) + ") begins with " + std::string(asked));
}

void LineCheck::checkText(std::int32_t place) {
    const std::string_view text = stripQuotes(m_line[place]);
    const auto tellIf = [&](char c, std::string_view what) {
        if (text.find(c) == std::string_view::npos) return;
        tell(Rule::label, "the " + nameOf(place) + " (token " + decimal(place) + ") contains " + std::string(what) +
                              ", which does not survive saving: " + quoted(text));
    };
    tellIf('"', "a double quote");
    tellIf('\r', "a line end");
    tellIf('\0', "a NUL character");
}

void LineCheck::checkTexts() {
    checkText(place::label);
    checkText(place::userName);
    const auto last = std::min<std::int32_t>(m_line.count(), BlockLine::mostTokens);
    for (std::int32_t i = place::inPorts + 1; i <= last; ++i) checkText(i);
}

std::int32_t LineCheck::valuesFrom(std::int32_t declaredPlace) const {
    const std::int32_t values = m_line.count() - declaredPlace;
    return values == m_class->values + 1 && m_line.countWritten() < m_line.count() ? values - 1 : values;
}

/// Whether the number of values could stand at that place: it is the class's, as many values follow, and what stands
/// before it back to the number of incoming connections are IDs.
bool LineCheck::isLaidOutFrom(std::int32_t declaredPlace) const {
    if (declaredPlace <= place::inPorts || declaredPlace > static_cast<std::int32_t>(BlockLine::mostTokens))
        return false;
    if (wholeNumber(m_line[declaredPlace]) != m_class->values || valuesFrom(declaredPlace) != m_class->values)
        return false;
    for (std::int32_t i = place::inPorts + 1; i < declaredPlace; ++i)
        if (!wholeNumber(m_line[i])) return false;
    return !m_class->firstQuoted || m_line[declaredPlace + 1].starts_with('"');
}

void LineCheck::checkCounts() {
    const std::int32_t said = m_line.declaredPlace();
    if (!m_verdict.linked) return tellValues(said);
    if (said == 0) return;  // the reader will stop there
    const std::int32_t announced = *wholeNumber(m_line[place::inPorts]);
    m_verdict.inPlace = announced >= 0;
    const bool declared = wholeNumber(m_line[said]) == m_class->values;
    if (m_verdict.inPlace && declared && valuesFrom(said) == m_class->values) return;
    const std::int32_t fitting = m_line.countWritten() - m_class->values;
    // values that are bare numbers cannot be told from sources: then the line's own number of sources is believed
    const bool bare = m_class->values > 0 && !m_class->firstQuoted;
    if ((bare && declared) || !isLaidOutFrom(fitting)) return tellValues(said);
    m_verdict.inPlace = false;
    tell(Rule::inPortCount, "token 12 announces " + counted(announced, "incoming connection") + ", and " +
                                decimal(fitting - place::inPorts - 1) + " are listed");
}

void LineCheck::checkSources() {
    std::vector<std::int32_t> sources;
    const auto end = std::min<std::int32_t>(m_line.declaredPlace(), BlockLine::mostTokens);
    for (std::int32_t i = place::inPorts + 1; i < end; ++i)
        if (const auto source = wholeNumber(m_line[i])) sources.push_back(*source);
    std::sort(sources.begin(), sources.end());
    for (std::size_t i = 1; i < sources.size(); ++i) {
        const bool first = i == 1 || sources[i - 2] != sources[i];
        if (sources[i - 1] == sources[i] && first)
            tell(Rule::inPort,
                 "the list of incoming connections names block " + decimal(sources[i]) + " more than once");
    }
}

void LineCheck::tellValues(std::int32_t declaredPlace) {
    const std::string expected = std::string(m_type->displayName) + " has " + counted(m_class->values, "value");
    if (declaredPlace == 0 || m_line.countWritten() < declaredPlace)
        return tell(Rule::valueCount, "the line ends after " + counted(m_line.countWritten(), "token") +
                                          ", before the number of values; " + expected);
    tell(Rule::valueCount, expected + "; the line declares " + quoted(m_line[declaredPlace]) + " and holds " +
                               decimal(valuesFrom(declaredPlace)));
}

}  // namespace

const ValueShape* ValueShapes::of(std::int32_t type) {
    if (type < 0 || type > highestBlockType) return nullptr;
    Known& known = m_known[static_cast<std::size_t>(type)];
    const BlockClass* found = blockClass(static_cast<std::int16_t>(type));
    if (!known.asked && found && found->make) {
        const Ref<AttributeObject> fresh = found->make();
        std::string written;
        fresh->appendTo(written);
        const std::string_view count = std::string_view(written).substr(0, written.find(' '));
        known.shape = {.table = &fresh->attributeClass(),
                       .values = wholeNumber(count).value_or(0),
                       .firstQuoted = std::string_view(written).substr(count.size()).starts_with(" \"")};
    }
    known.asked = true;
    return known.shape.table ? &known.shape : nullptr;
}

LineVerdict checkLine(const BlockLine& line, int number, ValueShapes& shapes, Findings& findings) {
    return LineCheck(line, number, shapes, findings).run();
}

}  // namespace canvas
