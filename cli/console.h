#pragma once
// Where commands print.

#include <string>
#include <string_view>

namespace canvas::cli {

/// Exit codes of the program.
enum ExitCode : int { good = 0, findings = 1, wrongUsage = 2, unreadableInput = 3, refused = 4, internalError = 5 };

/// Standard output and error, as UTF-8 bytes. Output is gathered and written in large pieces; a reader that has gone
/// away (`canvas check . | head`) ends it quietly.
class Console {
public:
    Console() = default;
    ~Console() { flush(); }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    void print(std::string_view text);
    /// Writes what was gathered. False when it could not be written, for another reason than a closed pipe.
    bool flush() noexcept;
    /// Writes to standard error.
    void tell(std::string_view text);
    /// A line on standard error, headed by the program's name.
    void complain(std::string_view text) { tell("canvas: " + std::string(text) + '\n'); }

private:
    std::string m_gathered;
    bool m_gone = false;
    bool m_failed = false;
};

/// Text from a file as a terminal may show it: control characters other than line feed as "\x1B" or "\u0085". Bytes
/// that are no UTF-8, which only file names hold, stand as they are.
std::string printable(std::string_view text);

}  // namespace canvas::cli
