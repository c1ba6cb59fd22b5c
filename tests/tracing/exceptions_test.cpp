#include "tracing/exceptions.h"

#include <gtest/gtest.h>

#include <csignal>

namespace canvas::tracing {
namespace {

struct Text {
    std::uint32_t code;
    const char* text;
};

// The codes are those of the Windows API.
constexpr Text texts[] = {
    {0xC0000005, "Exception: Access Violation"},
    {0x80000002, "Exception: Datatype Misalignment"},
    {0x80000003, "Exception: Breakpoint"},
    {0x80000004, "Exception: Single Step"},
    {0xC000008C, "Exception: Array Bounds Exceeded"},
    {0xC000008D, "Exception: Float Denormal Operand"},
    {0xC000008E, "Exception: Float Divide By Zero"},
    {0xC000008F, "Exception: Float Inexact Result"},
    {0xC0000090, "Exception: Float Invalid Operation"},
    {0xC0000091, "Exception: Float Overflow"},
    {0xC0000092, "Exception: Float Stack Check"},
    {0xC0000093, "Exception: Float Underflow"},
    {0xC0000094, "Exception: Integer Divide By Zero"},
    {0xC0000095, "Exception: Integer Overflow"},
    {0xC0000096, "Exception: Priv Instruction"},
    {0xC0000006, "Exception: In Page Error"},
    {0xC000001D, "Exception: Illegal Instruction"},
    {0xC0000025, "Exception: Non Continuable Exception"},
    {0xC00000FD, "Exception: Stack Overflow"},
    {0xC0000026, "Exception: Invalid Disposition"},
    {0x80000001, "Exception: Guard Page"},
    {0xC0000008, "Exception: Invalid Handle"},
    {0xC000013A, "Exception: Control C Exit"},
    {0, "Unknown Exception"},
    {0xC0000017, "Unknown Exception"},
};

TEST(Exceptions, HaveTheirTexts) {
    for (const Text& row : texts) EXPECT_EQ(textOf(Exception{row.code}), row.text);
}

struct Cause {
    int signal;
    int code;
    const char* text;
};

constexpr int fromTheKernel = 0x80;  // SI_KERNEL

constexpr Cause causes[] = {
    {SIGSEGV, SEGV_MAPERR, "Exception: Access Violation"},
    {SIGSEGV, SEGV_ACCERR, "Exception: Access Violation"},
    {SIGSEGV, SEGV_BNDERR, "Exception: Array Bounds Exceeded"},
    {SIGSEGV, fromTheKernel, "Exception: Access Violation"},
    {SIGBUS, BUS_ADRALN, "Exception: Datatype Misalignment"},
    {SIGBUS, BUS_ADRERR, "Exception: In Page Error"},
    {SIGBUS, BUS_OBJERR, "Exception: In Page Error"},
    {SIGBUS, BUS_MCEERR_AR, "Exception: In Page Error"},
    {SIGBUS, fromTheKernel, "Exception: Access Violation"},
    {SIGFPE, FPE_INTDIV, "Exception: Integer Divide By Zero"},
    {SIGFPE, FPE_INTOVF, "Exception: Integer Overflow"},
    {SIGFPE, FPE_FLTDIV, "Exception: Float Divide By Zero"},
    {SIGFPE, FPE_FLTOVF, "Exception: Float Overflow"},
    {SIGFPE, FPE_FLTUND, "Exception: Float Underflow"},
    {SIGFPE, FPE_FLTRES, "Exception: Float Inexact Result"},
    {SIGFPE, FPE_FLTINV, "Exception: Float Invalid Operation"},
    {SIGFPE, FPE_FLTSUB, "Exception: Array Bounds Exceeded"},
    {SIGFPE, fromTheKernel, "Unknown Exception"},
    {SIGILL, ILL_ILLOPC, "Exception: Illegal Instruction"},
    {SIGILL, ILL_ILLOPN, "Exception: Illegal Instruction"},
    {SIGILL, ILL_PRVOPC, "Exception: Priv Instruction"},
    {SIGILL, ILL_PRVREG, "Exception: Priv Instruction"},
    {SIGTRAP, TRAP_BRKPT, "Exception: Breakpoint"},
    {SIGTRAP, fromTheKernel, "Exception: Breakpoint"},
    {SIGTRAP, TRAP_TRACE, "Exception: Single Step"},
    {SIGUSR1, 1, "Unknown Exception"},
};

TEST(Exceptions, ComeFromSignalsByTheirCodes) {
    for (const Cause& row : causes)
        EXPECT_EQ(textOf(exceptionOf(row.signal, row.code)), row.text) << row.signal << ' ' << row.code;
}

}  // namespace
}  // namespace canvas::tracing
