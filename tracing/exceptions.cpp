#include "tracing/exceptions.h"

#include <algorithm>
#include <csignal>
#include <iterator>

namespace canvas::tracing {
namespace {

struct Text {
    Exception code;
    std::string_view text;
};

constexpr Text texts[] = {
    {Exception::accessViolation, "Exception: Access Violation"},
    {Exception::datatypeMisalignment, "Exception: Datatype Misalignment"},
    {Exception::breakpoint, "Exception: Breakpoint"},
    {Exception::singleStep, "Exception: Single Step"},
    {Exception::arrayBoundsExceeded, "Exception: Array Bounds Exceeded"},
    {Exception::floatDenormalOperand, "Exception: Float Denormal Operand"},
    {Exception::floatDivideByZero, "Exception: Float Divide By Zero"},
    {Exception::floatInexactResult, "Exception: Float Inexact Result"},
    {Exception::floatInvalidOperation, "Exception: Float Invalid Operation"},
    {Exception::floatOverflow, "Exception: Float Overflow"},
    {Exception::floatStackCheck, "Exception: Float Stack Check"},
    {Exception::floatUnderflow, "Exception: Float Underflow"},
    {Exception::integerDivideByZero, "Exception: Integer Divide By Zero"},
    {Exception::integerOverflow, "Exception: Integer Overflow"},
    {Exception::privilegedInstruction, "Exception: Priv Instruction"},
    {Exception::inPageError, "Exception: In Page Error"},
    {Exception::illegalInstruction, "Exception: Illegal Instruction"},
    {Exception::nonContinuable, "Exception: Non Continuable Exception"},
    {Exception::stackOverflow, "Exception: Stack Overflow"},
    {Exception::invalidDisposition, "Exception: Invalid Disposition"},
    {Exception::guardPage, "Exception: Guard Page"},
    {Exception::invalidHandle, "Exception: Invalid Handle"},
    {Exception::controlCExit, "Exception: Control C Exit"},
};

/// One row for each code that tells more than its signal; the last row of a signal serves all its other codes.
struct Cause {
    int signal;
    int code;
    Exception exception;
};

constexpr int anyCode = -1;

constexpr Cause causes[] = {
#ifdef SEGV_BNDERR
    {SIGSEGV, SEGV_BNDERR, Exception::arrayBoundsExceeded},
#endif
    {SIGSEGV, anyCode, Exception::accessViolation},
    {SIGBUS, BUS_ADRALN, Exception::datatypeMisalignment},
    {SIGBUS, BUS_ADRERR, Exception::inPageError},
    {SIGBUS, BUS_OBJERR, Exception::inPageError},
#ifdef BUS_MCEERR_AR
    {SIGBUS, BUS_MCEERR_AR, Exception::inPageError},
#endif
    {SIGBUS, anyCode, Exception::accessViolation},
    {SIGFPE, FPE_INTDIV, Exception::integerDivideByZero},
    {SIGFPE, FPE_INTOVF, Exception::integerOverflow},
    {SIGFPE, FPE_FLTDIV, Exception::floatDivideByZero},
    {SIGFPE, FPE_FLTOVF, Exception::floatOverflow},
    {SIGFPE, FPE_FLTUND, Exception::floatUnderflow},
    {SIGFPE, FPE_FLTRES, Exception::floatInexactResult},
    {SIGFPE, FPE_FLTINV, Exception::floatInvalidOperation},
    {SIGFPE, FPE_FLTSUB, Exception::arrayBoundsExceeded},
    {SIGFPE, anyCode, Exception::unknown},
    {SIGILL, ILL_PRVOPC, Exception::privilegedInstruction},
    {SIGILL, ILL_PRVREG, Exception::privilegedInstruction},
    {SIGILL, anyCode, Exception::illegalInstruction},
    {SIGTRAP, TRAP_TRACE, Exception::singleStep},
    {SIGTRAP, anyCode, Exception::breakpoint},
};

}  // namespace

std::string_view textOf(Exception code) noexcept {
    const auto* row = std::find_if(std::begin(texts), std::end(texts), [&](const Text& t) { return t.code == code; });
    return row == std::end(texts) ? "Unknown Exception" : row->text;
}

Exception exceptionOf(int signal, int code) noexcept {
    const auto* row = std::find_if(std::begin(causes), std::end(causes), [&](const Cause& cause) {
        return cause.signal == signal && (cause.code == code || cause.code == anyCode);
    });
    return row == std::end(causes) ? Exception::unknown : row->exception;
}

}  // namespace canvas::tracing
