#pragma once
// A block line of a program file as it is written: its tokens, and what stands where.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "attributes/field.h"

namespace canvas {

/// Places of a block line's tokens, from 1. Behind the number of incoming connections, n, stand n IDs of source blocks,
/// the number of values, and the values.
namespace place {
enum Place : std::int32_t {
    keyword = 1,
    blockId,
    blockType,
    label,
    toFirst,
    toSecond,
    userId,
    userName,
    dual,
    noIn,
    noOut,
    inPorts
};
}

class BlockLine {
public:
    /// More tokens are only counted: the longest line that makes sense has a source for each block.
    static constexpr std::size_t mostTokens = 2048;

    /// Takes a line apart. The tokens are views into `text`.
    void take(std::string_view text);

    std::int32_t count() const noexcept { return m_count; }
    /// The same without the empty token behind a blank at the line's end.
    std::int32_t countWritten() const noexcept { return m_count - (m_blankAtEnd ? 1 : 0); }
    /// Empty for a place that the line does not reach.
    std::string_view operator[](std::int32_t place) const noexcept;
    /// Whether every double quote has its other one.
    bool balanced() const noexcept { return m_quotes % 2 == 0; }
    std::size_t quotes() const noexcept { return m_quotes; }

    /// The place of the number of values, by the line's own number of incoming connections; 0 when that is no number.
    std::int32_t declaredPlace() const;

private:
    std::vector<std::string_view> m_tokens;
    std::int32_t m_count = 0;
    bool m_blankAtEnd = false;
    std::size_t m_quotes = 0;
};

/// The whole number that a reader makes of a token, or nothing.
std::optional<std::int32_t> wholeNumber(std::string_view token);

/// A name for the token at a place ("top target", "incoming connection 2", "Acceleration"), when the line announces
/// `sources` incoming connections. `values` names the values and may be null.
std::string placeName(std::int32_t place, std::int32_t sources, const AttributeClass* values);

}  // namespace canvas
