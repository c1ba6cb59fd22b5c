#include "host/numbered_file.h"

#include <unistd.h>

namespace canvas {
namespace {

int flagsOf(OpenMode mode) {
    switch (mode) {
        case OpenMode::input: return O_RDONLY;
        case OpenMode::output: return O_WRONLY | O_CREAT;
        case OpenMode::append: return O_WRONLY | O_CREAT | O_APPEND;
    }
    return O_RDONLY;
}

constexpr std::size_t blockSize = 1 << 14;

}  // namespace

NumberedFile::NumberedFile(const std::string& path, OpenMode mode)
    : m_path(path), m_mode(mode), m_file(posix::openAt(AT_FDCWD, path, flagsOf(mode), 0666)) {
    const bool reading = mode == OpenMode::input;
    if (!m_file || ::fstat(m_file.get(), &m_identity) == -1)
        posix::fail(errno, path, reading ? Error::fileNotFound : Error::pathNotFound);
    if (!S_ISREG(m_identity.st_mode)) raise(Error::pathFileAccess);
}

bool NumberedFile::isSameFileAs(const NumberedFile& other) const noexcept {
    return m_identity.st_dev == other.m_identity.st_dev && m_identity.st_ino == other.m_identity.st_ino;
}

void NumberedFile::begin() {
    if (m_mode != OpenMode::output) return;
    if (posix::uninterrupted([&] { return ::ftruncate(m_file.get(), 0); }) == -1) posix::fail(errno, m_path);
}

std::string NumberedFile::readLine() {
    if (m_mode != OpenMode::input) raise(Error::badFileNumber);
    if (atEnd()) raise(Error::inputPastEnd);
    std::string line;
    do {
        const std::string_view rest = std::string_view(m_buffer).substr(m_at);
        const auto end = rest.find('\n');
        line.append(rest.substr(0, end));
        if (end != std::string_view::npos) {
            m_at += end + 1;
            if (line.ends_with('\r')) line.pop_back();
            break;
        }
        m_at = m_buffer.size();
    } while (fill());
    return line;
}

bool NumberedFile::atEnd() { return m_mode != OpenMode::input || (m_at == m_buffer.size() && !fill()); }

/// Reads the next block over the one before, which is used up. False at the end of the file.
bool NumberedFile::fill() {
    m_at = 0;
    m_buffer.resize(blockSize);
    const ssize_t got = posix::uninterrupted([&] { return ::read(m_file.get(), m_buffer.data(), m_buffer.size()); });
    const int code = errno;
    m_buffer.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    if (got == -1) posix::fail(code, m_path);
    return got > 0;
}

void NumberedFile::writeLine(std::string_view line) {
    if (m_mode == OpenMode::input) raise(Error::badFileNumber);
    // One write for the whole line, and at once: a report is of use also when the process ends before closing it.
    std::string bytes(line);
    bytes += "\r\n";
    if (const int code = posix::writeAll(m_file.get(), bytes)) posix::fail(code, m_path);
}

void NumberedFile::close() {
    if (const int code = m_file.close()) posix::fail(code, m_path);
}

}  // namespace canvas
