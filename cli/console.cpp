#include "cli/console.h"

#include <algorithm>
#include <cerrno>

#include <unistd.h>

#include "host/posix.h"
#include "host/utf8.h"

namespace canvas::cli {

void Console::print(std::string_view text) {
    constexpr std::size_t piece = 1U << 16U;
    m_gathered += text;
    if (m_gathered.size() >= piece) flush();
}

bool Console::flush() noexcept {
    if (m_gathered.empty()) return !m_failed;
    const int fault = m_gone || m_failed ? 0 : posix::writeAll(STDOUT_FILENO, m_gathered);
    m_gathered.clear();
    if (fault == EPIPE) m_gone = true;
    else if (fault != 0) m_failed = true;
    return !m_failed;
}

void Console::tell(std::string_view text) {
    flush();  // in the order of its coming, where both go to one place
    posix::writeAll(STDERR_FILENO, text);
}

std::string printable(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string shown;
    while (!text.empty()) {
        const utf8::Decoded decoded = utf8::first(text);
        const std::string_view bytes = text.substr(0, std::max<std::size_t>(decoded.size, 1));
        const char32_t c = decoded.character;
        const bool control = decoded.size != 0 && c != U'\n' && (c < 0x20 || (c >= 0x7F && c < 0xA0));
        if (control) shown += decoded.size == 1 ? "\\x" : "\\u00";
        if (control) shown += {digits[c >> 4U], digits[c & 0xFU]};
        else shown += bytes;
        text.remove_prefix(bytes.size());
    }
    return shown;
}

}  // namespace canvas::cli
