#pragma once
// The error handler behind all error branches: the port that decides how a procedure goes on after a failure.

#include <memory>
#include <string>
#include <string_view>

#include "host/errors.h"

namespace canvas::tracing {

/// What a handler answers. The numbers are those that dialogs and dumps show.
enum class Answer : int {
    handOn = 0,   ///< nobody can be asked: the error goes to the caller
    abort = 3,    ///< ends the process
    retry = 4,    ///< repeats the failing statement
    ignore = 5,   ///< goes on with the next statement
    leave = 6,    ///< ends the procedure with its result as it stands
    leaveToo = 7, ///< the same
    report = 8,   ///< writes the variable report, then asks again with the number -1
};

struct Failure {
    int number = 0;
    std::string description;
    std::string_view project = "Classes";
    std::string_view module;
    std::string_view procedure;
    int line = 0;  ///< no line numbers are kept
    bool reported = false;  ///< asked again: the variable report of this failure has just been written
};

class ErrorHandler {
public:
    virtual ~ErrorHandler() = default;
    virtual Answer ask(const Failure& failure) = 0;
};

/// The handler in force on this thread. The process's own asks nobody: every error is handed on.
ErrorHandler& errorHandler();

/// Puts a handler in force on this thread until the end of a scope.
class WithErrorHandler {
public:
    explicit WithErrorHandler(ErrorHandler& handler) noexcept;
    ~WithErrorHandler();
    WithErrorHandler(const WithErrorHandler&) = delete;
    WithErrorHandler& operator=(const WithErrorHandler&) = delete;

private:
    ErrorHandler* m_before;
};

}  // namespace canvas::tracing
