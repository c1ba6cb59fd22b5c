#pragma once
// The table of block identifiers in use.

#include <bitset>
#include <cstdint>

#include "host/errors.h"

namespace canvas {

/// Identifiers 1 to 1023; any other index is error 9.
class Identifiers {
public:
    static constexpr std::int16_t highest = 1023;

    bool used(std::int16_t id) const { return m_used[place(id)]; }
    void take(std::int16_t id) { m_used[place(id)] = true; }
    void give(std::int16_t id) { m_used[place(id)] = false; }
    void clear() noexcept { m_used.reset(); }

    /// Takes the lowest free one up to `most`: -1 when all are used, 0 when `most` is below 1.
    std::int16_t takeLowest(std::int16_t most) {
        if (most < 1) return 0;
        for (std::int16_t id = 1;; ++id) {
            if (!used(id)) {
                take(id);
                return id;
            }
            if (id == most) return -1;
        }
    }

private:
    static std::size_t place(std::int16_t id) {
        if (id < 1 || id > highest) raise(Error::subscript);
        return static_cast<std::size_t>(id);
    }
    std::bitset<highest + 1> m_used;
};

}  // namespace canvas
