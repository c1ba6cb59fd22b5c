#pragma once
// What the fuzz targets share. Each is a function over bytes that must hold what its file says for every input; a
// condition that does not hold ends the process, which the fuzzer takes for a crash and keeps the input.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "host/ports.h"

namespace canvas::fuzz {

/// Longer inputs are passed over: they only take time that shorter ones use better.
inline constexpr std::size_t longestInput = 16384;

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

inline void require(bool condition, const char* otherwise) {
    if (condition) return;
    std::fprintf(stderr, "does not hold: %s\n", otherwise);
    std::abort();
}

/// Counts boxes instead of showing them.
class CountingInteraction final : public Interaction {
public:
    int boxes = 0;

    Reply messageBox(const MessageBox&) override {
        ++boxes;
        return Reply::cancel;
    }
    std::string inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
    void beep() override {}
    std::int32_t openAddress(std::string_view) override { return 0; }
    void setClipboard(std::string_view) override {}
    bool showForm(Object&) override { return false; }
};

/// In force on this thread from the first call on.
inline CountingInteraction& interaction() {
    static const auto counting = std::make_shared<CountingInteraction>();
    static const WithEnvironment quiet({.interaction = counting});
    return *counting;
}

}  // namespace canvas::fuzz
