#pragma once
// The machine's exceptions under the codes and names of the Windows platform, with their texts.

#include <cstdint>
#include <string_view>

namespace canvas::tracing {

/// Codes of the Windows API's EXCEPTION_... and STATUS_... constants.
enum class Exception : std::uint32_t {
    guardPage = 0x80000001,
    datatypeMisalignment = 0x80000002,
    breakpoint = 0x80000003,
    singleStep = 0x80000004,
    accessViolation = 0xC0000005,
    inPageError = 0xC0000006,
    invalidHandle = 0xC0000008,
    illegalInstruction = 0xC000001D,
    nonContinuable = 0xC0000025,
    invalidDisposition = 0xC0000026,
    arrayBoundsExceeded = 0xC000008C,
    floatDenormalOperand = 0xC000008D,
    floatDivideByZero = 0xC000008E,
    floatInexactResult = 0xC000008F,
    floatInvalidOperation = 0xC0000090,
    floatOverflow = 0xC0000091,
    floatStackCheck = 0xC0000092,
    floatUnderflow = 0xC0000093,
    integerDivideByZero = 0xC0000094,
    integerOverflow = 0xC0000095,
    privilegedInstruction = 0xC0000096,
    stackOverflow = 0xC00000FD,
    controlCExit = 0xC000013A,
    unknown = 0,
};

/// "Exception: Access Violation" and the like; "Unknown Exception" for any other code.
std::string_view textOf(Exception code) noexcept;

/// The exception behind a signal that the machine raised, by the `si_code` of POSIX and Linux. The kinds that no
/// signal tells apart (a stack overflow, a float denormal operand, ...) never come from here.
Exception exceptionOf(int signal, int code) noexcept;

}  // namespace canvas::tracing
