#pragma once
// A program as plain structs: what the library's document is compared with. Nothing is checked and nothing converted
// beyond numbers.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace canvas::bench {

/// Text stands between double quotes in the file, a number without.
using PlainValue = std::variant<std::string, std::int32_t>;

struct PlainBlock {
    std::int32_t id = 0;
    std::int32_t type = 0;
    std::string label;  ///< of a note as it lies in the file, with its pilcrows
    std::int32_t first = -1;
    std::int32_t second = -1;
    std::int32_t userId = 0;
    std::string userName;
    bool dual = false;
    bool noIn = false;
    bool noOut = false;
    std::vector<std::int32_t> sources;
    std::vector<PlainValue> values;
};

struct PlainProgram {
    std::int32_t version = 0;
    std::array<std::int32_t, 8> window{};  ///< the zoom in percent
    std::vector<PlainBlock> blocks;
};

/// Reads the text of a good program file.
PlainProgram splitProgram(std::string_view text);

/// Writes the text that `splitProgram` reads, byte for byte.
std::string appendProgram(const PlainProgram& program);

/// The first `count` blocks of a program that is as long, whole again: Start, End and neighbours out of the middle,
/// numbered anew; a link that leads out of them leads to the End. The neighbours are chosen so that their lines are on
/// average as long as those of examples/line_of_1000.bpa.
PlainProgram cutProgram(const PlainProgram& whole, std::size_t count);

}  // namespace canvas::bench
