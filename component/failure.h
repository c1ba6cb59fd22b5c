#pragma once
// Failures on their way through the boundary: run-time errors on one side, result codes on the other.

#include "component/platform/automation.h"
#include "host/errors.h"
#include "tracing/faults.h"

namespace canvas::component {

/// Error numbers of the library stand in this facility.
inline constexpr std::uint32_t errorFacility = 0x800A0000;

/// DISP_E_EXCEPTION with number, source and description in `info`, which may be null.
HRESULT exceptionOf(const RuntimeError& error, EXCEPINFO* info);

/// For a call that never reached its member: the code without further information.
HRESULT refusalOf(const RuntimeError& error) noexcept;

/// The error behind a failed call of a host's object. Frees the texts in `info`.
RuntimeError errorOf(HRESULT result, EXCEPINFO& info);

/// Inside a catch block: the code for whatever came.
HRESULT resultOfCaught(EXCEPINFO* info = nullptr) noexcept;

/// Calls an interface that may be a host's: a machine fault in there is the host's own.
template <class Call>
auto outside(Call&& call) {
    const tracing::OutOfLibrary out;
    return call();
}

/// Runs the body of an interface's function: nothing thrown leaves it, and a machine fault inside is an error too, told
/// in `info` where the caller has one.
template <class Body>
HRESULT guarded(Body&& body, EXCEPINFO* info = nullptr) noexcept {
    try {
        const tracing::InLibrary inside;
        return body();
    } catch (...) {
        return resultOfCaught(info);
    }
}

}  // namespace canvas::component
