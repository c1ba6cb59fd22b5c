#include "host/errors.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace canvas {
namespace {

struct Row {
    Error number;
    std::string_view description;
};

constexpr Row table[] = {
    {Error::invalidCall, "Invalid procedure call or argument"},
    {Error::overflow, "Overflow"},
    {Error::outOfMemory, "Out of memory"},
    {Error::subscript, "Subscript out of range"},
    {Error::divisionByZero, "Division by zero"},
    {Error::typeMismatch, "Type mismatch"},
    {Error::badFileNumber, "Bad file name or number"},
    {Error::fileNotFound, "File not found"},
    {Error::fileAlreadyOpen, "File already open"},
    {Error::deviceIO, "Device I/O error"},
    {Error::fileExists, "File already exists"},
    {Error::diskFull, "Disk full"},
    {Error::inputPastEnd, "Input past end of file"},
    {Error::permissionDenied, "Permission denied"},
    {Error::pathFileAccess, "Path/File access error"},
    {Error::pathNotFound, "Path not found"},
    {Error::objectNotSet, "Object variable not set"},
    {Error::invalidNull, "Invalid use of Null"},
    {Error::objectRequired, "Object required"},
    {Error::noSuchMember, "Object doesn't support this property or method"},
    {Error::automation, "Automation error"},
    {Error::actionNotSupported, "Object doesn't support this action"},
    {Error::argumentCount, "Wrong number of arguments"},
    {Error::notACollection, "Object not a collection"},
    {Error::keyExists, "This key is already associated with an element of this collection"},
    {Error::noCurrentRecord, "No current record"},
    {Error::duplicateRecord, "Duplicate key"},
    {Error::storeNotFound, "Could not find file"},
    {Error::noSuchTable, "No such table or query"},
    {Error::itemNotFound, "Item not found in this collection"},
    {Error::storeFormat, "Unrecognized database format"},
};

}  // namespace

std::string_view descriptionOf(int number) noexcept {
    const auto* row = std::find_if(std::begin(table), std::end(table),
                                   [&](const Row& r) { return static_cast<int>(r.number) == number; });
    return row == std::end(table) ? "Application-defined or object-defined error" : row->description;
}

RuntimeError::RuntimeError(Error n) : RuntimeError(n, std::string(descriptionOf(static_cast<int>(n)))) {}

RuntimeError::RuntimeError(Error n, std::string text) : RuntimeError(static_cast<int>(n), std::move(text)) {}

RuntimeError::RuntimeError(int n, std::string text, std::string from)
    : number(n), description(std::move(text)), source(std::move(from)) {}

void raise(Error number) { throw RuntimeError(number); }

void raise(Error number, std::string description) { throw RuntimeError(number, std::move(description)); }

std::string bracketed(const RuntimeError& error) {
    return "[" + std::to_string(error.number) + "] " + error.description;
}

}  // namespace canvas
