#include "benchmarks/plain.h"

#include <algorithm>
#include <charconv>

#include "document/tokens.h"
#include "host/utility.h"

namespace canvas::bench {
namespace {

constexpr std::int32_t noteType = 27;
constexpr std::size_t zoomPlace = 4;

/// Walks the tokens of one line.
class Words {
public:
    explicit Words(std::string_view line) : m_tokens(line) { next(); }

    bool atEnd() const noexcept { return !m_there; }
    std::string_view take() {
        const std::string_view token = m_token;
        next();
        return token;
    }
    std::int32_t number() {
        const std::string_view token = take();
        std::int32_t value = 0;
        std::from_chars(token.data(), token.data() + token.size(), value);
        return value;
    }
    bool flag() { return take() == "1"; }
    std::string text() { return std::string(stripQuotes(take())); }
    PlainValue value() {
        if (m_token.starts_with('"')) return text();
        return number();
    }

private:
    void next() { m_there = m_tokens.next(m_token); }

    Tokens m_tokens;
    std::string_view m_token;
    bool m_there = false;
};

PlainBlock splitBlock(std::string_view line) {
    Words words(line);
    words.take();
    PlainBlock block;
    block.id = words.number();
    block.type = words.number();
    block.label = words.text();
    block.first = words.number();
    block.second = words.number();
    block.userId = words.number();
    block.userName = words.text();
    block.dual = words.flag();
    block.noIn = words.flag();
    block.noOut = words.flag();
    block.sources.resize(static_cast<std::size_t>(words.number()));
    for (std::int32_t& source : block.sources) source = words.number();
    const std::int32_t values = words.number();
    block.values.reserve(static_cast<std::size_t>(values));
    for (std::int32_t i = 0; i < values; ++i) block.values.push_back(words.value());
    return block;
}

void append(std::string& text, std::int32_t number) {
    char word[12];
    char* const end = std::to_chars(word, word + sizeof word - 1, number).ptr;
    *end = ' ';
    text.append(word, static_cast<std::size_t>(end + 1 - word));
}

void append(std::string& text, std::string_view quoted) {
    text += '"';
    text += quoted;
    text += "\" ";
}

void append(std::string& text, bool flag) { text += flag ? "1 " : "0 "; }

void append(std::string& text, const PlainBlock& block) {
    text += block.type == noteType ? "TEXT_DEFINE " : "BLOCK_DEFINE ";
    append(text, block.id);
    append(text, block.type);
    append(text, std::string_view(block.label));
    append(text, block.first);
    append(text, block.second);
    append(text, block.userId);
    append(text, std::string_view(block.userName));
    append(text, block.dual);
    append(text, block.noIn);
    append(text, block.noOut);
    append(text, static_cast<std::int32_t>(block.sources.size()));
    for (const std::int32_t source : block.sources) append(text, source);
    append(text, static_cast<std::int32_t>(block.values.size()));
    for (const PlainValue& value : block.values) {
        if (const auto* quoted = std::get_if<std::string>(&value)) append(text, std::string_view(*quoted));
        else append(text, std::get<std::int32_t>(value));
    }
    if (!block.values.empty()) text.pop_back();
    text += "\r\n";
}

}  // namespace

PlainProgram splitProgram(std::string_view text) {
    PlainProgram program;
    Lines lines(text);
    std::string_view line;
    lines.next(line);
    Words version(line);
    version.take();
    program.version = version.number();
    lines.next(line);
    lines.next(line);
    Words window(line);
    window.take();
    for (std::int32_t& value : program.window) value = window.number();
    while (lines.next(line)) program.blocks.push_back(splitBlock(line));
    return program;
}

std::string appendProgram(const PlainProgram& program) {
    std::string text;
    text.reserve(256 + program.blocks.size() * 128);
    text += "VERSION_NUMBER ";
    append(text, program.version);
    text.replace(text.size() - 1, 1, "\r\nNUM_BLOCKS ");
    append(text, static_cast<std::int32_t>(program.blocks.size()));
    text.replace(text.size() - 1, 1, "\r\nWINDOW_PARAMS_DEFINE ");
    for (std::size_t i = 0; i < program.window.size(); ++i) {
        append(text, program.window[i]);
        if (i == zoomPlace) text.insert(text.size() - 1, 1, '%');
    }
    text.replace(text.size() - 1, 1, "\r\n");
    for (const PlainBlock& block : program.blocks) append(text, block);
    return text;
}

PlainProgram cutProgram(const PlainProgram& whole, std::size_t count) {
    constexpr std::size_t neighbours = 133;
    constexpr std::int32_t start = 1, end = 2;
    PlainProgram cut{whole.version, whole.window, {}};
    for (std::size_t i = 0; i < count; ++i) cut.blocks.push_back(whole.blocks[i < 2 ? i : neighbours + i - 2]);
    const auto renumbered = [&, first = cut.blocks[2].id](std::int32_t id) {
        if (id == -1) return id;
        const std::int32_t place = id - first + 3;
        return place > end && place <= static_cast<std::int32_t>(count) ? place : end;
    };
    for (std::size_t i = 0; i < count; ++i) {
        PlainBlock& block = cut.blocks[i];
        block.id = static_cast<std::int32_t>(i + 1);
        block.first = block.id == start ? end + 1 : renumbered(block.first);
        block.second = renumbered(block.second);
        block.sources.clear();
    }
    for (const PlainBlock& block : cut.blocks) {
        for (const std::int32_t target : {block.first, block.second}) {
            if (target == -1) continue;
            std::vector<std::int32_t>& sources = cut.blocks[static_cast<std::size_t>(target) - 1].sources;
            if (sources.empty() || sources.back() != block.id) sources.push_back(block.id);
        }
    }
    return cut;
}

}  // namespace canvas::bench
