#pragma once
// UTF-8 sequences one by one, for the units of this folder that work on characters.

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace canvas::utf8 {

struct Decoded {
    char32_t character = 0;
    /// Bytes of the sequence; 0 when no valid one (RFC 3629) stands at the start.
    std::size_t size = 0;
};

inline Decoded first(std::string_view bytes) noexcept {
    if (bytes.empty()) return {};
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = byte(0);
    if (lead < 0x80) return {lead, 1};
    const std::size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < size) return {};
    char32_t character = lead & (0x7Fu >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return {};
        character = character << 6 | (byte(i) & 0x3Fu);
    }
    constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < least[size] || character > 0x10FFFF || surrogate) return {};
    return {character, size};
}

inline void append(std::string& text, char32_t c) {
    const auto trail = [&](unsigned shift) { text += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0 | c >> 6);
        trail(0);
    } else if (c < 0x10000) {
        text += static_cast<char>(0xE0 | c >> 12);
        trail(6), trail(0);
    } else {
        text += static_cast<char>(0xF0 | c >> 18);
        trail(12), trail(6), trail(0);
    }
}

/// How many bytes at the start are ASCII.
inline std::size_t asciiPrefix(std::string_view bytes) noexcept {
    std::size_t i = 0;
    for (std::uint64_t block; i + sizeof block <= bytes.size(); i += sizeof block) {
        std::memcpy(&block, bytes.data() + i, sizeof block);
        if (block & 0x8080808080808080u) break;
    }
    while (i < bytes.size() && static_cast<unsigned char>(bytes[i]) < 0x80) ++i;
    return i;
}

inline bool isAscii(std::string_view bytes) noexcept { return asciiPrefix(bytes) == bytes.size(); }

}  // namespace canvas::utf8
