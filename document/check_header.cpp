#include "document/check_header.h"

#include <cmath>
#include <vector>

#include "document/block_line.h"
#include "document/check_failure.h"
#include "host/numbers.h"
#include "host/text.h"

namespace canvas {
namespace {

constexpr std::string_view keywords[headerLines]{"VERSION_NUMBER", "NUM_BLOCKS", "WINDOW_PARAMS_DEFINE"};

/// Values of the window line, in its order.
constexpr std::string_view windowValues[]{
    "left", "top", "height", "width", "zoom", "horizontal scroll position", "vertical scroll position", "window state"};

std::string decimal(std::int32_t number) { return numbers::textOf(number); }

std::string_view firstWord(std::string_view text) { return text.substr(0, text.find(' ')); }

std::string_view secondWord(std::string_view text) {
    const std::size_t blank = text.find(' ');
    return blank == std::string_view::npos ? std::string_view() : firstWord(text.substr(blank + 1));
}

/// Missing values are filled in by the reader, with other sizes than the window had.
void checkWindow(std::string_view text, Findings& findings) {
    if (firstWord(text) != keywords[2]) return;
    std::string_view rest = text.substr(keywords[2].size());
    std::string missing;
    for (const std::string_view name : windowValues) {
        if (!rest.empty()) rest.remove_prefix(1);
        const std::string_view value = firstWord(rest);
        if (value.empty()) missing += (missing.empty() ? "" : ", ") + std::string(name);
        rest.remove_prefix(value.size());
    }
    if (!missing.empty()) findings.add(3, 0, Rule::window, "values of the window are missing: " + missing);
    else if (rest.size() > 1)
        findings.add(3, 0, Rule::window, "behind the eight values of the window stands " + quoted(rest.substr(1)));
}

}  // namespace

void checkHeaderLine(int number, std::string_view text, std::string_view currentVersion, Findings& findings) {
    if (number == headerLines) return checkWindow(text, findings);
    const std::string_view expected = keywords[number - 1];
    const bool failing = number == 1 && text.find(' ') == std::string_view::npos;
    if (firstWord(text) != expected && !failing)
        findings.add(number, 0, Rule::keyword,
                     "the line begins with " + quoted(firstWord(text)) + " in place of " + std::string(expected));
    if (number == 1 && currentVersion < versionIn(text))
        findings.add(number, 0, Rule::newerVersion,
                     "the version " + quoted(versionIn(text)) + " is newer than " + std::string(currentVersion) +
                         ", the current one");
}

void checkBlockCount(std::string_view countLine, std::int32_t blockLines, Findings& findings) {
    if (firstWord(countLine) != keywords[1] || wholeNumber(secondWord(countLine)) == blockLines) return;
    findings.add(2, 0, Rule::blockCount,
                 "NUM_BLOCKS says " + quoted(secondWord(countLine)) + ", and the file has " + decimal(blockLines) +
                     (blockLines == 1 ? " block line" : " block lines"));
}

bool isVersion(std::string_view version) {
    const auto number = numbers::parse(version);
    return number && std::isfinite(*number);
}

std::string_view versionIn(std::string_view line) { return secondWord(line); }

std::string whyHeaderFailed(FilePlace place, std::string_view text, const RuntimeError& error) {
    if (isOutOfMemory(error)) return tooLong(error);
    if (error.number == static_cast<int>(Error::inputPastEnd)) {
        if (place.line == 1) return "the file is empty";
        return "the file ends before line " + decimal(place.line) + ", which begins with " +
               std::string(keywords[place.line - 1]);
    }
    if (place.line == 1) return "the line is " + quoted(text) + ", and not VERSION_NUMBER with a number";
    if (firstWord(text) != keywords[2])
        return "the line begins with " + quoted(firstWord(text)) + " in place of " + std::string(keywords[2]);
    const auto words = text::split(text, " ");
    const auto i = static_cast<std::size_t>(place.token - 1);
    return "the " + std::string(windowValues[i - 1]) + " (token " + decimal(place.token) + ") is " +
           quoted(i < words.size() ? words[i] : std::string_view()) + ", which " + numberFault(error);
}

}  // namespace canvas
