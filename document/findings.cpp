#include "document/findings.h"

#include <algorithm>
#include <utility>

#include "host/numbers.h"
#include "host/text.h"

namespace canvas {

void Findings::add(int line, std::int16_t block, Rule rule, std::string reason) {
    Count& count = m_counts[static_cast<std::size_t>(rule)];
    if (++count.all <= mostOfOneRule) m_findings.push_back({line, block, rule, std::move(reason)});
    else if (count.firstLeftOut == 0) count.firstLeftOut = line;
}

std::vector<Finding> Findings::take() {
    for (const RuleRow& row : rules()) {
        const Count& count = m_counts[static_cast<std::size_t>(row.rule)];
        if (count.all <= mostOfOneRule) continue;
        m_findings.push_back({count.firstLeftOut, 0, row.rule,
                              "there are " + numbers::textOf(std::int32_t{count.all - mostOfOneRule}) +
                                  " more findings of this rule, which are not listed"});
    }
    std::stable_sort(m_findings.begin(), m_findings.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
    m_counts = {};
    return std::exchange(m_findings, {});
}

std::string quoted(std::string_view text) {
    constexpr std::size_t most = 60;  // UTF-16 units
    const std::string_view shown = text::left(text, most);
    return '"' + std::string(shown) + (shown.size() < text.size() ? "...\"" : "\"");
}

}  // namespace canvas
