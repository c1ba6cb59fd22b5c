#pragma once
// Run-time errors: the numbered failures that the library raises to its callers.

#include <cstdint>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>

namespace canvas {

/// Numbers of the run-time errors that the library itself raises. A host's object may raise any other.
enum class Error : int {
    invalidCall = 5,
    overflow = 6,
    outOfMemory = 7,
    subscript = 9,
    divisionByZero = 11,
    typeMismatch = 13,
    badFileNumber = 52,
    fileNotFound = 53,
    fileAlreadyOpen = 55,
    deviceIO = 57,
    fileExists = 58,
    diskFull = 61,
    inputPastEnd = 62,
    permissionDenied = 70,
    pathFileAccess = 75,
    pathNotFound = 76,
    objectNotSet = 91,
    invalidNull = 94,
    objectRequired = 424,
    noSuchMember = 438,
    automation = 440,
    actionNotSupported = 445,
    argumentCount = 450,
    notACollection = 451,
    keyExists = 457,
    noCurrentRecord = 3021,
    duplicateRecord = 3022,
    storeNotFound = 3024,
    noSuchTable = 3078,
    itemNotFound = 3265,
    storeFormat = 3343,
};

/// The table's text for a number ("Subscript out of range"); numbers that are not in the table give
/// "Application-defined or object-defined error".
std::string_view descriptionOf(int number) noexcept;

/// A user's or a host's failure, answered by error branches and by the boundary. `source` names who raised it
/// and may be empty.
class RuntimeError : public std::exception {
public:
    explicit RuntimeError(Error number);
    RuntimeError(Error number, std::string description);
    RuntimeError(int number, std::string description, std::string source = {});

    int number;
    std::string description;
    std::string source;
    /// The procedure that has asked about this error already and handed it on; 0 for none.
    std::uint64_t handedOnBy = 0;

    const char* what() const noexcept override { return description.c_str(); }
};

/// An argument that does not convert to what the callee declares: the call has not begun.
class ArgumentError : public RuntimeError {
public:
    ArgumentError(const RuntimeError& reason, int place) : RuntimeError(reason), argument(place) {}

    int argument;  ///< from 0; the value of a property write stands behind its indexes
};

/// A programmer's mistake in using the library (a table out of order, a null port): never shown to a user as a
/// run-time error, never answered by an error branch.
class ContractViolation : public std::logic_error {
    using std::logic_error::logic_error;
};

[[noreturn]] void raise(Error number);
[[noreturn]] void raise(Error number, std::string description);

/// "[", the number, "] " and the description, as message boxes show a caught failure.
std::string bracketed(const RuntimeError& error);

}  // namespace canvas
