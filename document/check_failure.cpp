#include "document/check_failure.h"

#include "document/findings.h"
#include "host/numbers.h"
#include "host/text.h"

namespace canvas {
namespace {

std::string decimal(std::int32_t number) { return numbers::textOf(number); }

bool is(const RuntimeError& error, Error number) { return error.number == static_cast<int>(number); }

std::string fault(const RuntimeError& error) {
    if (is(error, Error::typeMismatch)) return "is no number";
    if (is(error, Error::overflow)) return "does not fit its range";
    return "is refused";
}

/// What a token of a block line must be, where its range is narrower than its numbers.
std::string blockFault(std::int32_t place, const RuntimeError& error) {
    if (place == place::blockId && is(error, Error::subscript)) return "is not from 1 to 1023";
    if (is(error, Error::subscript)) return "is not a place in its list";
    if (is(error, Error::objectNotSet)) return "has no block class to go to";
    if (place >= place::dual && place <= place::noOut && is(error, Error::typeMismatch)) return "is neither 0 nor 1";
    return fault(error);
}

std::string described(const RuntimeError& error) { return " (" + error.description + ")"; }

}  // namespace

std::string whyNotOpened(const RuntimeError& error) {
    if (is(error, Error::outOfMemory))
        return "the file is larger than " + decimal(static_cast<std::int32_t>(largestProgram >> 20U)) + " MB";
    if (is(error, Error::pathFileAccess)) return "there is a folder or something else that is no file" + described(error);
    return "the file cannot be opened" + described(error);
}

std::string whyHeaderFailed(FilePlace place, std::string_view text, const RuntimeError& error) {
    static constexpr std::string_view lines[] = {"VERSION_NUMBER", "NUM_BLOCKS", "WINDOW_PARAMS_DEFINE"};
    static constexpr std::string_view values[] = {"left", "top", "height", "width", "zoom", "horizontal scroll position",
                                                  "vertical scroll position", "window state"};
    if (is(error, Error::outOfMemory)) return "the line is too long to be read" + described(error);
    const std::string_view keyword = lines[place.line - 1];
    if (is(error, Error::inputPastEnd)) {
        if (place.line == 1) return "the file is empty";
        return "the file ends before line " + decimal(place.line) + ", which begins with " + std::string(keyword);
    }
    if (place.line == 1) return "the line is " + quoted(text) + ", and not VERSION_NUMBER with a number";
    const auto words = text::split(text, " ");
    if (words.empty() || words[0] != keyword)
        return "the line begins with " + quoted(words.empty() ? text : words[0]) + " in place of WINDOW_PARAMS_DEFINE";
    const auto i = static_cast<std::size_t>(place.token - 1);
    return "the " + std::string(values[place.token - 2]) + " (token " + decimal(place.token) + ") is " +
           quoted(i < words.size() ? words[i] : std::string_view()) + ", which " + fault(error) + described(error);
}

std::string whyBlockFailed(FilePlace place, const BlockLine& line, std::int32_t firstPlace, const AttributeClass* values,
                           const RuntimeError& error) {
    if (is(error, Error::outOfMemory)) return "the line is too long to be read" + described(error);
    const std::int32_t meant = place.token + firstPlace - 1;
    const auto sources = wholeNumber(line[place::inPorts - firstPlace + 1]);
    std::string reason = "the " + placeName(meant, sources.value_or(0), values) + " (token " + decimal(place.token) +
                         ") is " + quoted(line[place.token]) + ", which " + blockFault(meant, error) + described(error);
    if (firstPlace != 1) reason += "; the line is read askew, since the one before it has ID 0";
    return reason;
}

}  // namespace canvas
