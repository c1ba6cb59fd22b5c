#pragma once
// What the disk's parts share on POSIX: names, descriptors, and which run-time error a failed call is.

#include <string>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <cerrno>

#include "host/errors.h"

namespace canvas::posix {

/// Raises the run-time error of a call on `path` that failed with `code` (an errno). `missing` is what a missing
/// name means to the caller: 53 where the file itself was asked for, 76 where only a folder of it can be missing.
///
/// Refusals are of two kinds: 75 when the path cannot be walked or leads to the wrong kind of thing (a folder, a
/// pipe, a device), 70 when the thing is there and may not be written, read or made.
[[noreturn]] void fail(int code, const std::string& path, Error missing = Error::fileNotFound);

/// A name as POSIX takes it: "/" for "\". Error 52 for an empty name and for one with a NUL inside.
std::string nativeName(std::string_view name);

/// The folder part ("." for a bare name, "/" for the root's entries) and what follows the last "/".
std::string folderOf(const std::string& path);
std::string entryOf(const std::string& path);

/// Repeats a call that a signal interrupted. It returns -1 and sets errno when it fails.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

/// Owns an open file.
class Descriptor {
public:
    Descriptor() noexcept = default;
    explicit Descriptor(int number) noexcept : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor() { close(); }

    int get() const noexcept { return m_number; }
    explicit operator bool() const noexcept { return m_number >= 0; }
    /// 0, or the errno of the failure. Closed in either case; closing what is closed is no failure.
    int close() noexcept;

private:
    int m_number = -1;
};

/// openat(2), closed on exec, never waiting for a pipe's other end and never taking a terminal. Not open: see errno.
Descriptor openAt(int folder, const std::string& name, int flags, unsigned mode = 0) noexcept;

/// 0 when all bytes are written, else the errno of the failure.
int writeAll(int descriptor, std::string_view bytes) noexcept;

}  // namespace canvas::posix
