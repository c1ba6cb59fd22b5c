#pragma once
// The outside Utility library: a shared object of small text operations that the host may replace.

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace canvas {

class UtilityLibrary {
public:
    virtual ~UtilityLibrary() = default;

    /// The last path component with its extension; "/" and "\" both separate.
    virtual std::string FileTitleOf(std::string_view path) = 0;
    /// Hexadecimal digits in upper case, padded with zeros to four.
    virtual std::string HexText(std::string_view digits) = 0;
    /// The first nine words of a line, split at single blanks; empty where the line is short.
    virtual std::array<std::string, 9> SplitLine(std::string_view line) = 0;
    /// Without one pair of surrounding double quotes.
    virtual std::string StripQuotes(std::string_view token) = 0;
    /// (true, true): every line end (CR LF, CR, LF) becomes the pilcrow U+00B6. (false, false): the text as it is.
    /// (false, true): without the one leading pilcrow that marks a note. (true, false): as (true, true).
    virtual std::string ConvertLabel(std::string_view text, bool flag1, bool flag2) = 0;
    /// The current version of the program file's format, a whole number as text.
    virtual std::string FileFormatVersion() = 0;
    /// True for the default library only: readers may then strip quotes in place and leave labels as they are.
    virtual bool plain() const noexcept { return false; }
};

/// What the default library's StripQuotes gives, as a view into the token.
constexpr std::string_view stripQuotes(std::string_view token) noexcept {
    if (token.size() < 2 || token.front() != '"' || token.back() != '"') return token;
    return token.substr(1, token.size() - 2);
}

/// The default library; its file format version is "200".
std::shared_ptr<UtilityLibrary> makeUtilityLibrary();

}  // namespace canvas
