#include "document/tokens.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "document/canvas.h"

namespace canvas {
namespace {

std::vector<std::string> tokensOf(std::string_view line) {
    std::vector<std::string> all;
    Tokens tokens(line);
    for (std::string_view token; tokens.next(token);) all.emplace_back(token);
    return all;
}

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> all;
    Lines lines(text);
    for (std::string_view line; lines.next(line);) all.emplace_back(line);
    return all;
}

TEST(Tokens, AreSeparatedByOneBlankOutsideQuotes) {
    const std::pair<std::string_view, std::vector<std::string>> cases[] = {
        {"a b c", {"a", "b", "c"}},
        {"a", {"a"}},
        {"", {""}},
        {" ", {"", ""}},
        {"a  b", {"a", "", "b"}},
        {" a", {"", "a"}},
        {"a ", {"a", ""}},
        {"a\tb", {"a\tb"}},
        {"\"a b\" c", {"\"a b\"", "c"}},
        {"\"\" \"\"", {"\"\"", "\"\""}},
        {"\" \" c", {"\" \"", "c"}},
        {"x\"a b\"y c", {"x\"a b\"y", "c"}},
        {"\"a b\"\"c d\" e", {"\"a b\"\"c d\"", "e"}},
        {"\"a b\" ", {"\"a b\"", ""}},
    };
    for (const auto& [line, expected] : cases) EXPECT_EQ(tokensOf(line), expected) << '<' << line << '>';
}

TEST(Tokens, AnOpenQuoteSwallowsTheRestOfTheLine) {
    EXPECT_EQ(tokensOf("a \"b c d"), (std::vector<std::string>{"a", "\"b c d"}));
    EXPECT_EQ(tokensOf("a \"b\"\" c d"), (std::vector<std::string>{"a", "\"b\"\" c d"}));
    EXPECT_EQ(tokensOf("\""), (std::vector<std::string>{"\""}));
}

TEST(Tokens, AStrayQuoteRunsToTheNextOne) {
    EXPECT_EQ(tokensOf("\"12\"\" 4 \"\" 5"), (std::vector<std::string>{"\"12\"\" 4 \"\" 5"}));
    EXPECT_EQ(tokensOf("\"12\"\" 4 \"x y\" 5"), (std::vector<std::string>{"\"12\"\" 4 \"x", "y\" 5"}));
}

TEST(Lines, EndInCrLfOrLf) {
    EXPECT_EQ(linesOf("a\r\nb\nc"), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(linesOf("a\r\n"), std::vector<std::string>{"a"}) << "no empty line behind the last end";
    EXPECT_EQ(linesOf(""), std::vector<std::string>{});
    EXPECT_EQ(linesOf("\n\r\n"), (std::vector<std::string>{"", ""}));
    EXPECT_EQ(linesOf("a\rb\r\n"), std::vector<std::string>{"a\rb"}) << "a lone CR is text";
}

TEST(OpenQuote, IsAnOddNumberOfDoubleQuotes) {
    const auto document = make<clsBVTCanvas>();
    const std::pair<std::string_view, bool> cases[] = {
        {"", false}, {"a b", false}, {"\"", true}, {"\"\"", false}, {"a\"b\"c\"", true}, {"'", false},
    };
    for (const auto& [text, open] : cases) EXPECT_EQ(document->OpenQuote(text), open) << text;
}

}  // namespace
}  // namespace canvas
