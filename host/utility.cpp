#include "host/utility.h"

namespace canvas {
namespace {

constexpr std::string_view pilcrow = "\xC2\xB6";  // U+00B6: a line end inside a label of the program file

std::string onOneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (pair) ++i;
        if (text[i] == '\r' || text[i] == '\n') line += pilcrow;
        else line += text[i];
    }
    return line;
}

class DefaultLibrary final : public UtilityLibrary {
public:
    std::string FileTitleOf(std::string_view path) override {
        return std::string(path.substr(path.find_last_of("/\\") + 1));  // npos + 1 is the whole path
    }

    std::string HexText(std::string_view digits) override {
        constexpr std::size_t places = 4;
        std::string text(digits.size() < places ? places - digits.size() : 0, '0');
        for (const char c : digits) text += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        return text;
    }

    std::array<std::string, 9> SplitLine(std::string_view line) override {
        std::array<std::string, 9> words;
        for (std::string& word : words) {
            const auto blank = line.find(' ');
            word = line.substr(0, blank);
            line = blank == std::string_view::npos ? std::string_view() : line.substr(blank + 1);
        }
        return words;
    }

    std::string StripQuotes(std::string_view token) override { return std::string(stripQuotes(token)); }

    std::string ConvertLabel(std::string_view text, bool flag1, bool flag2) override {
        if (flag1) return onOneLine(text);
        return std::string(flag2 && text.starts_with(pilcrow) ? text.substr(pilcrow.size()) : text);
    }

    std::string FileFormatVersion() override { return "200"; }

    bool plain() const noexcept override { return true; }
};

}  // namespace

std::shared_ptr<UtilityLibrary> makeUtilityLibrary() { return std::make_shared<DefaultLibrary>(); }

}  // namespace canvas
