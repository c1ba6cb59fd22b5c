#pragma once
// Lines and tokens of program files, as views.

#include <cstring>
#include <string_view>

namespace canvas {

/// Lines end in CR LF or LF. A text that ends in a line end has no empty line behind it.
class Lines {
public:
    explicit Lines(std::string_view text) noexcept : m_rest(text) {}

    bool next(std::string_view& line) noexcept {
        if (m_rest.empty()) return false;
        const std::size_t end = m_rest.find('\n');
        line = m_rest.substr(0, end);
        m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
        if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
        return true;
    }

private:
    std::string_view m_rest;
};

/// Tokens are separated by one blank; a blank between double quotes belongs to its token. A line that ends in a blank
/// has one last empty token, and an empty line has one empty token.
class Tokens {
public:
    explicit Tokens(std::string_view line) noexcept : m_at(line.data()), m_end(line.data() + line.size()) {}

    bool next(std::string_view& token) noexcept {
        if (m_done) return false;
        const char* begin = m_at;
        const char* p = begin;
        while (p != m_end && *p != ' ') {
            if (*p++ != '"') continue;
            // up to the closing quote; an open one swallows the rest of the line
            const void* closing = p == m_end ? nullptr : std::memchr(p, '"', static_cast<std::size_t>(m_end - p));
            p = closing ? static_cast<const char*>(closing) + 1 : m_end;
        }
        token = {begin, static_cast<std::size_t>(p - begin)};
        m_done = p == m_end;
        m_at = m_done ? p : p + 1;
        return true;
    }

private:
    const char* m_at;
    const char* m_end;
    bool m_done = false;
};

}  // namespace canvas
