#include "host/private_folder.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <memory>

#include "host/posix.h"

namespace canvas {
namespace {

constexpr mode_t onlyOwner = S_IRWXU;
constexpr int asFolder = O_RDONLY | O_DIRECTORY | O_NOFOLLOW;

void makeWithParents(const std::string& path) {
    for (std::size_t end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1))
        ::mkdir(path.substr(0, end).c_str(), onlyOwner);  // one that cannot be made fails where it is opened
}

std::string withoutSeparators(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

/// Opens the folder itself: a link in its place is refused, and so is one that others can look into.
posix::Descriptor openOwn(const std::string& path) {
    if (::mkdir(path.c_str(), onlyOwner) != 0 && errno != EEXIST) posix::fail(errno, path, Error::pathNotFound);
    posix::Descriptor folder = posix::openAt(AT_FDCWD, path, asFolder);
    if (!folder) {
        if (errno == ELOOP || errno == ENOTDIR) raise(Error::permissionDenied, path + " is not a folder of its own.");
        posix::fail(errno, path, Error::pathNotFound);
    }
    struct stat status {};
    if (::fstat(folder.get(), &status) != 0) posix::fail(errno, path);
    if (status.st_uid != ::geteuid()) raise(Error::permissionDenied, path + " belongs to somebody else.");
    if ((status.st_mode & 0777) != onlyOwner && ::fchmod(folder.get(), onlyOwner) != 0) posix::fail(errno, path);
    return folder;
}

}  // namespace

PrivateFolder::PrivateFolder(std::string_view path, bool parents) {
    const std::string native = withoutSeparators(posix::nativeName(path));
    if (parents) makeWithParents(native + "/");
    m_folder = ::fcntl(openOwn(native).get(), F_DUPFD_CLOEXEC, 0);
    if (m_folder < 0) posix::fail(errno, native);
    m_path = native + "/";
    empty();
}

PrivateFolder::~PrivateFolder() {
    if (m_folder >= 0) ::close(m_folder);
}

void PrivateFolder::empty() {
    const int listed = ::openat(m_folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (listed < 0) posix::fail(errno, m_path);
    const std::unique_ptr<DIR, int (*)(DIR*)> walk(::fdopendir(listed), ::closedir);
    if (!walk) {
        ::close(listed);
        posix::fail(errno, m_path);
    }
    while (const dirent* entry = ::readdir(walk.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") ::unlinkat(m_folder, entry->d_name, 0);  // a folder stays where it is
    }
}

void PrivateFolder::write(const std::string& name, std::string_view bytes) {
    // A new file each time: whoever planted a link or holds the old one open keeps it to himself.
    ::unlinkat(m_folder, name.c_str(), 0);
    posix::Descriptor file = posix::openAt(m_folder, name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (!file) posix::fail(errno, m_path + name);
    int failure = posix::writeAll(file.get(), bytes);
    if (const int closing = file.close(); failure == 0) failure = closing;
    if (failure == 0) return;
    ::unlinkat(m_folder, name.c_str(), 0);
    posix::fail(failure, m_path + name);
}

std::optional<std::string> PrivateFolder::read(const std::string& name) const {
    const posix::Descriptor file = posix::openAt(m_folder, name, O_RDONLY | O_NOFOLLOW);
    if (!file) return {};
    std::string bytes;
    char piece[65536];
    for (;;) {
        const auto got = posix::uninterrupted([&] { return ::read(file.get(), piece, sizeof piece); });
        if (got < 0) return {};
        if (got == 0) return bytes;
        bytes.append(piece, static_cast<std::size_t>(got));
    }
}

void PrivateFolder::rename(const std::string& from, const std::string& to) {
    if (::renameat(m_folder, from.c_str(), m_folder, to.c_str()) != 0) posix::fail(errno, m_path + from);
}

}  // namespace canvas
