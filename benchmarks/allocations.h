#pragma once
// What the program takes from the heap: this folder replaces operator new.

#include <cstdint>

namespace canvas::bench {

/// Calls of operator new since the program began. What a library takes from malloc itself is not counted.
std::uint64_t allocations() noexcept;

/// Bytes still held out of what was allocated while it lives, each piece as large as malloc made it
/// (malloc_usable_size). One at a time.
class KeptBytes {
public:
    KeptBytes() noexcept;
    ~KeptBytes();
    KeptBytes(const KeptBytes&) = delete;
    KeptBytes& operator=(const KeptBytes&) = delete;

    std::int64_t count() const noexcept;
};

}  // namespace canvas::bench
