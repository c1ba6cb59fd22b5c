#include "document/block_line.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "document/tokens.h"
#include "host/numbers.h"

namespace canvas {

void BlockLine::take(std::string_view text) {
    m_tokens.clear();
    m_count = 0;
    m_quotes = static_cast<std::size_t>(std::count(text.begin(), text.end(), '"'));
    Tokens tokens(text);
    std::string_view token;
    while (tokens.next(token)) {
        ++m_count;
        if (m_tokens.size() < mostTokens) m_tokens.push_back(token);
    }
    m_blankAtEnd = token.empty();
}

std::string_view BlockLine::operator[](std::int32_t place) const noexcept {
    const auto i = static_cast<std::size_t>(place - 1);
    return place >= 1 && i < m_tokens.size() ? m_tokens[i] : std::string_view();
}

std::int32_t BlockLine::declaredPlace() const {
    const auto sources = wholeNumber((*this)[place::inPorts]);
    if (!sources || *sources > std::numeric_limits<std::int16_t>::max()) return 0;
    return place::inPorts + std::max(*sources, 0) + 1;
}

std::optional<std::int32_t> wholeNumber(std::string_view token) {
    std::int32_t number = 0;
    const auto [end, fault] = std::from_chars(token.data(), token.data() + token.size(), number);
    if (fault == std::errc{} && end == token.data() + token.size()) return number;
    using Limits = std::numeric_limits<std::int32_t>;
    const auto loose = numbers::parse(token);
    if (!loose || !(*loose >= Limits::min() && *loose <= Limits::max())) return {};
    return numbers::roundToLong(*loose);
}

std::string placeName(std::int32_t place, std::int32_t sources, const AttributeClass* values) {
    static constexpr std::string_view names[] = {"keyword",
                                                 "ID",
                                                 "type",
                                                 "label",
                                                 "top target",
                                                 "bottom target",
                                                 "user ID",
                                                 "user name",
                                                 "dual-port flag",
                                                 "no-in-port flag",
                                                 "no-out-port flag",
                                                 "number of incoming connections"};
    if (place < place::keyword) return "line";
    if (place <= place::inPorts) return std::string(names[place - 1]);
    const std::int32_t source = place - place::inPorts;
    if (source <= sources) return "incoming connection " + numbers::textOf(source);
    const std::int32_t value = source - std::max(sources, 0) - 1;
    if (value == 0) return "number of values";
    const Field* field =
        values && value <= values->values ? values->fileField(static_cast<std::int16_t>(value)) : nullptr;
    if (field && !field->label.empty()) return std::string(field->label);
    return "value " + numbers::textOf(value);
}

}  // namespace canvas
