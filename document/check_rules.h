#pragma once
// The rules of the program check. Their names serve the command line, hosts and documents alike.

#include <cstdint>
#include <span>
#include <string_view>

namespace canvas {

enum class Rule : std::uint8_t {
    unreadable,
    newerVersion,
    blockCount,
    window,
    keyword,
    idZero,
    unknownType,
    duplicateId,
    tooManyBlocks,
    portFlags,
    inPortCount,
    valueCount,
    valueRange,
    valueList,
    label,
    danglingTarget,
    sameTarget,
    missingPort,
    inPort,
    connection,
    noStart,
    noEnd,
    noSubroutine,
    outsideFolder,
    missingSubroutine,
    recursiveSubroutine,
    title,
    missingTask,
    launchBlock,
    message,
};

struct RuleRow {
    Rule rule;
    std::string_view name;
    std::string_view meaning;  ///< one line
};

/// All rules, in the order of their enumeration. Each is a finding: there are no warnings.
std::span<const RuleRow> rules() noexcept;
std::string_view nameOf(Rule rule) noexcept;

}  // namespace canvas
