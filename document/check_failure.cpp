#include "document/check_failure.h"

#include "document/findings.h"
#include "host/numbers.h"
#include "host/utility.h"

namespace canvas {
namespace {

std::string decimal(std::int32_t number) { return numbers::textOf(number); }

bool is(const RuntimeError& error, Error number) { return error.number == static_cast<int>(number); }

std::string described(const RuntimeError& error) { return " (" + error.description + ")"; }

/// What a token of a block line must be, where its range is narrower than its numbers.
std::string blockFault(std::int32_t place, const RuntimeError& error) {
    if (place == place::blockId && is(error, Error::subscript)) return "is not from 1 to 1023" + described(error);
    if (is(error, Error::subscript)) return "is not a place in its list" + described(error);
    if (is(error, Error::objectNotSet)) return "has no block class to go to" + described(error);
    const bool flag = place >= place::dual && place <= place::noOut;
    if (flag && is(error, Error::typeMismatch)) return "is neither 0 nor 1" + described(error);
    return numberFault(error);
}

}  // namespace

std::string whyNotOpened(const RuntimeError& error) {
    if (isOutOfMemory(error))
        return "the file is larger than " + decimal(static_cast<std::int32_t>(largestProgram >> 20U)) + " MB";
    if (is(error, Error::pathFileAccess)) return "it is a folder, or something else that is no file" + described(error);
    return "the file cannot be opened" + described(error);
}

std::string whyBlockFailed(FilePlace place, const BlockLine& line, std::int32_t firstPlace,
                           const AttributeClass* values, const RuntimeError& error) {
    if (isOutOfMemory(error)) return tooLong(error);
    const std::int32_t meant = place.token + firstPlace - 1;
    const auto sources = wholeNumber(line[place::inPorts - firstPlace + 1]);
    std::string reason = "the " + placeName(meant, sources.value_or(0), values) + " (token " + decimal(place.token) +
                         ") is " + quoted(stripQuotes(line[place.token])) + ", which " + blockFault(meant, error);
    if (firstPlace != 1) reason += "; the line is read askew, since the one before it has ID 0";
    return reason;
}

std::string numberFault(const RuntimeError& error) {
    if (is(error, Error::typeMismatch)) return "is no number" + described(error);
    if (is(error, Error::overflow)) return "does not fit its range" + described(error);
    return "is refused" + described(error);
}

bool isOutOfMemory(const RuntimeError& error) noexcept { return is(error, Error::outOfMemory); }

std::string tooLong(const RuntimeError& error) { return "the line is too long to be read" + described(error); }

}  // namespace canvas
