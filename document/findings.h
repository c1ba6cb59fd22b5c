#pragma once
// What a check found.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "document/check_rules.h"

namespace canvas {

struct Finding {
    int line = 0;            ///< from 1; 0: the file as a whole
    std::int16_t block = 0;  ///< ID; 0: no block
    Rule rule = Rule::unreadable;
    std::string reason;  ///< a sentence in UTF-8; parts of the file stand in it as they are, control characters too
};

/// Gathers findings. A file made of faults must not fill the memory: of one rule only the first ones are kept, and
/// one more finding then says how many were not.
class Findings {
public:
    static constexpr int mostOfOneRule = 10000;

    void add(int line, std::int16_t block, Rule rule, std::string reason);
    /// By line, within one in the order of their coming. The object is empty afterwards.
    std::vector<Finding> take();

private:
    struct Count {
        int all = 0;
        int firstLeftOut = 0;  ///< its line
    };
    std::array<Count, static_cast<std::size_t>(Rule::message) + 1> m_counts{};
    std::vector<Finding> m_findings;
};

/// A part of a file in double quotes, cut short when it is long.
std::string quoted(std::string_view text);

}  // namespace canvas
