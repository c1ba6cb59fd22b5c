#include "hardware/memory_map.h"

#include <algorithm>
#include <charconv>

#include "host/numbers.h"

namespace canvas {
namespace {

constexpr std::int32_t lastAddress = 9999;
constexpr std::size_t addressLength = 6;

std::string addressText(std::int16_t kind, const std::string& letter, std::int32_t first) {
    const std::string digits = numbers::textOf(first);
    return (kind == 0 ? "I" : "O") + letter + std::string(4 - digits.size(), '0') + digits;
}

}  // namespace

bool readAddress(std::string_view text, Address& address) noexcept {
    // An unknown network gives no letter: the digits then follow the kind.
    if (text.size() < addressLength - 1 || text.size() > addressLength) return false;
    if (text.front() != 'I' && text.front() != 'O') return false;
    const std::string_view digits = text.substr(text.size() - 4);
    if (!std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; })) return false;
    address.kind = text.front();
    std::from_chars(digits.data(), digits.data() + digits.size(), address.first);
    return true;
}

std::span<const Member> MemoryMap::table() noexcept {
    static constexpr Member members[] = {
        method<&MemoryMap::GetAddresses>("GetAddresses"),
        method<&MemoryMap::AllocateAddresses>("AllocateAddresses"),
        method<&MemoryMap::FreeAddresses>("FreeAddresses"),
        method<&MemoryMap::EmptyMap>("EmptyMap"),
    };
    return members;
}

MemoryMap::MemoryMap(WordArea area) : m_area(area) {
    if (area.first < 0 || area.words < 0 || area.last() > lastAddress) raise(Error::invalidCall);
    m_holders.resize(static_cast<std::size_t>(area.words));
}

template <class Change>
void MemoryMap::forEachWord(std::int32_t first, std::int32_t words, Change change) {
    const std::int64_t begin = std::max<std::int64_t>(std::int64_t{first} - m_area.first, 0);
    const std::int64_t end = std::min<std::int64_t>(std::int64_t{first} - m_area.first + words, m_area.words);
    for (std::int64_t at = begin; at < end; ++at) change(m_holders[static_cast<std::size_t>(at)]);
}

std::string MemoryMap::GetAddresses(std::string& sAddress, std::int32_t lngWords, std::int16_t iKind) {
    if (lngWords < 1 || iKind < 0 || iKind > 1) raise(Error::invalidCall);
    const auto block = std::search_n(m_holders.begin(), m_holders.end(), lngWords, 0U);
    if (block == m_holders.end())
        raise(Error::invalidCall, std::string(iKind == 0 ? "The input" : "The output") + " area (" +
                                      numbers::textOf(m_area.first) + " to " + numbers::textOf(m_area.last()) +
                                      ") has no room for " + numbers::textOf(lngWords) +
                                      (lngWords == 1 ? " more word" : " more words in a row"));
    std::for_each(block, block + lngWords, [](std::uint32_t& holders) { ++holders; });
    return addressText(iKind, sAddress, m_area.first + static_cast<std::int32_t>(block - m_holders.begin()));
}

void MemoryMap::AllocateAddresses(const std::string& strAddress, const std::string&, std::int32_t lngWords) {
    Address address;
    if (!readAddress(strAddress, address)) raise(Error::typeMismatch, "'" + strAddress + "' is no address");
    forEachWord(address.first, lngWords, [](std::uint32_t& holders) { ++holders; });
}

void MemoryMap::FreeAddresses(const std::string& strAddress, std::int32_t lngWords) {
    Address address;
    if (!readAddress(strAddress, address)) return;
    forEachWord(address.first, lngWords, [](std::uint32_t& holders) { holders -= holders > 0 ? 1 : 0; });
}

void MemoryMap::EmptyMap() noexcept { std::fill(m_holders.begin(), m_holders.end(), 0U); }

}  // namespace canvas
