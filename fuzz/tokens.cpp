// Lines and tokens of any text are those of the rule taken letter by letter, and lose no byte of it.

#include "document/tokens.h"

#include <vector>

#include "fuzz/fuzzing.h"

namespace canvas::fuzz {
namespace {

/// A blank ends a token where the quotes before it are even; the last token is what is left.
std::vector<std::string> tokensByLetter(std::string_view line) {
    std::vector<std::string> tokens(1);
    bool open = false;
    for (const char c : line) {
        if (c == '"') open = !open;
        if (c == ' ' && !open) tokens.emplace_back();
        else tokens.back() += c;
    }
    return tokens;
}

void checkTokens(std::string_view line) {
    const std::vector<std::string> expected = tokensByLetter(line);
    Tokens tokens(line);
    std::string_view token;
    std::string all;
    std::size_t count = 0;
    while (tokens.next(token)) {
        require(count < expected.size() && token == expected[count], "tokens are those of the rule");
        if (count++ > 0) all += ' ';
        all += token;
    }
    require(count == expected.size(), "there are as many tokens as by the rule");
    require(all == line, "the tokens make up the line");
}

/// A line's end as it stands in the text: "\r\n", "\n", or nothing behind the last line.
std::string_view endBehind(std::string_view text, std::size_t place) {
    const std::string_view rest = text.substr(place);
    if (rest.starts_with("\r\n")) return rest.substr(0, 2);
    return rest.substr(0, 1);
}

void checkLines(std::string_view text) {
    Lines lines(text);
    std::string_view line;
    std::size_t place = 0;
    while (lines.next(line)) {
        require(line.data() == text.data() + place, "a line begins where the one before ended");
        require(line.find('\n') == std::string_view::npos, "a line holds no line end");
        place += line.size();
        const std::string_view end = endBehind(text, place);
        require(end.empty() || end.ends_with('\n'), "a line goes as far as its end");
        place += end.size();
        checkTokens(line);
    }
    require(place == text.size(), "the lines make up the text");
}

}  // namespace
}  // namespace canvas::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > canvas::fuzz::longestInput) return 0;
    canvas::fuzz::checkLines(canvas::fuzz::textOf(data, size));
    return 0;
}
