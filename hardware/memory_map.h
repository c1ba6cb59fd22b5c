#pragma once
// MemoryMap: the words of a fieldbus that nodes occupy, where a host has no map of its own.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/members.h"

namespace canvas {

/// An area of words at consecutive addresses. One word has one address, of four digits.
struct WordArea {
    std::int32_t first = 0;
    std::int32_t words = 0;
    constexpr std::int32_t last() const noexcept { return first + words - 1; }
};

/// Where the default maps lie. The outputs begin where a controller that is a slave on Axiolane has its own.
inline constexpr WordArea inputArea{256, 256};
inline constexpr WordArea outputArea{512, 256};

/// An address text: kind letter ("I", "O"), letter of the network ("W", "O", blank for none), four digits.
struct Address {
    char kind = 'I';
    std::int32_t first = 0;
};

/// The number in an address text, whatever its letters, so that an address outlives a change of network. False for what
/// is no address.
bool readAddress(std::string_view text, Address& address) noexcept;

/// Gives each request the first free block that is large enough. Blocks that overlap, as a stored node list may hold
/// them, count for each of their holders: a word is free when all have given it back.
class MemoryMap final : public Tabled<MemoryMap> {
public:
    static constexpr std::string_view name = "MemoryMap";
    static std::span<const Member> table() noexcept;

    /// Addresses beyond 9999 have no text: error 5.
    explicit MemoryMap(WordArea area);

    /// Takes `lngWords` words and gives the address of the first: "IW0256" for kind 0, "OW0512" for kind 1. Error 5 for
    /// less than one word, for another kind, and when no block is large enough.
    std::string GetAddresses(std::string& sAddress, std::int32_t lngWords, std::int16_t iKind);
    /// Marks a block as taken. Its words outside the area are nobody's. Error 13 for what is no address.
    void AllocateAddresses(const std::string& strAddress, const std::string& sAddress, std::int32_t lngWords);
    /// A block that is not taken, and what is no address, is free already.
    void FreeAddresses(const std::string& strAddress, std::int32_t lngWords);
    void EmptyMap() noexcept;

private:
    /// Calls `change(holders)` for each word of the block that lies in the area.
    template <class Change>
    void forEachWord(std::int32_t first, std::int32_t words, Change change);

    WordArea m_area;
    std::vector<std::uint32_t> m_holders;  ///< of each word
};

}  // namespace canvas
