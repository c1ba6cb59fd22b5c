#include "host/posix.h"

#include <algorithm>
#include <iterator>

#include <sys/stat.h>
#include <unistd.h>

namespace canvas::posix {
namespace {

struct Row {
    int code;
    Error error;
};

// EACCES and ENOENT are not here: what they mean hangs on the path and on the caller.
constexpr Row table[] = {
    {ENOTDIR, Error::pathNotFound},     {EPERM, Error::permissionDenied},
    {EROFS, Error::permissionDenied},   {EBUSY, Error::permissionDenied},
    {ETXTBSY, Error::permissionDenied}, {EISDIR, Error::pathFileAccess},
    {ELOOP, Error::pathFileAccess},     {ENXIO, Error::pathFileAccess},  // a socket, or a pipe that nobody reads
    {ENODEV, Error::pathFileAccess},    {EXDEV, Error::pathFileAccess},
    {ENOTEMPTY, Error::pathFileAccess}, {EEXIST, Error::fileExists},
    {ENOSPC, Error::diskFull},          {EDQUOT, Error::diskFull},
    {EFBIG, Error::diskFull},           {EIO, Error::deviceIO},
    {EMFILE, Error::outOfMemory},       {ENFILE, Error::outOfMemory},
    {ENOMEM, Error::outOfMemory},       {ENAMETOOLONG, Error::badFileNumber},
    {EINVAL, Error::badFileNumber},  // characters that the file system does not take
    {EILSEQ, Error::badFileNumber},
};

bool isFolder(const std::string& path) {
    struct stat entry {};
    return ::stat(path.c_str(), &entry) == 0 && S_ISDIR(entry.st_mode);
}

bool canBeWalked(const std::string& folder) { return ::faccessat(AT_FDCWD, folder.c_str(), X_OK, AT_EACCESS) == 0; }

}  // namespace

void fail(int code, const std::string& path, Error missing) {
    if (code == ENOENT) raise(isFolder(folderOf(path)) ? missing : Error::pathNotFound);
    if (code == EACCES) raise(canBeWalked(folderOf(path)) ? Error::permissionDenied : Error::pathFileAccess);
    const auto* row = std::find_if(std::begin(table), std::end(table), [&](const Row& r) { return r.code == code; });
    raise(row == std::end(table) ? Error::deviceIO : row->error);
}

std::string nativeName(std::string_view name) {
    if (name.empty() || name.find('\0') != std::string_view::npos) raise(Error::badFileNumber);
    std::string native(name);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string entryOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

int Descriptor::close() noexcept {
    if (m_number < 0) return 0;
    // Linux has let go of the descriptor even when the call was interrupted: a second try could hit another file.
    const bool failed = ::close(std::exchange(m_number, -1)) == -1 && errno != EINTR;
    return failed ? errno : 0;
}

Descriptor openAt(int folder, const std::string& name, int flags, unsigned mode) noexcept {
    const int careful = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    return Descriptor(uninterrupted([&] { return ::openat(folder, name.c_str(), flags | careful, mode); }));
}

int writeAll(int descriptor, std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const ssize_t written = uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
        if (written <= 0) return written == 0 ? EIO : errno;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

}  // namespace canvas::posix
