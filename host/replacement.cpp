#include "host/replacement.h"

#include <atomic>
#include <filesystem>
#include <optional>

#include <sys/stat.h>
#include <unistd.h>

#include "host/posix.h"

namespace canvas {
namespace {

using posix::Descriptor;
using posix::fail;

constexpr mode_t permissions = 0777;

/// The name that opening `path` for output would reach, dangling links included.
std::string behindLinks(std::string path) {
    constexpr int mostLinks = 40;  // as the kernel does
    for (int links = 0; links < mostLinks; ++links) {
        std::error_code noLink;
        const std::filesystem::path target = std::filesystem::read_symlink(path, noLink);
        if (noLink) return path;
        path = (std::filesystem::path(path).parent_path() / target).string();
    }
    fail(ELOOP, path);
}

/// The file at `path`, if there is one. What could not be opened for output is refused as opening would.
std::optional<struct stat> writableFile(const std::string& path) {
    struct stat file {};
    if (::stat(path.c_str(), &file) == -1) {
        if (errno == ENOENT) return std::nullopt;
        fail(errno, path);
    }
    if (!S_ISREG(file.st_mode)) raise(Error::pathFileAccess);
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == -1) fail(errno, path);
    return file;
}

/// A folder that may be written but not listed cannot be opened for reading; it then goes without its sync.
Descriptor openFolder(const std::string& path) {
    const std::string folder = posix::folderOf(path);
    Descriptor opened = posix::openAt(AT_FDCWD, folder, O_RDONLY | O_DIRECTORY);
    if (!opened && errno == EACCES) opened = posix::openAt(AT_FDCWD, folder, O_PATH | O_DIRECTORY);
    if (!opened) fail(errno, path, Error::pathNotFound);
    return opened;
}

std::string temporaryName() {
    static std::atomic<unsigned long> count{0};
    return ".canvas-" + std::to_string(::getpid()) + "-" + std::to_string(++count) + ".tmp";
}

class DiskReplacement final : public Replacement {
public:
    explicit DiskReplacement(const std::string& path) : m_path(behindLinks(path)), m_entry(posix::entryOf(m_path)) {
        const auto before = writableFile(m_path);
        m_folder = openFolder(m_path);
        createTemporary(before ? 0600 : 0666);
        if (before) takeOver(*before);
    }

    ~DiskReplacement() override { abandon(); }

    void commit(std::string_view bytes) override {
        if (!m_file) throw ContractViolation("a replacement is committed once");
        writeOut(bytes);
        if (::renameat(m_folder.get(), m_temporary.c_str(), m_folder.get(), m_entry.c_str()) == -1) stop(errno);
        m_temporary.clear();
        syncFolder();
    }

private:
    void createTemporary(unsigned mode) {
        do {  // a name that is taken is one that a killed process of the same number left
            m_temporary = temporaryName();
            m_file = posix::openAt(m_folder.get(), m_temporary, O_WRONLY | O_CREAT | O_EXCL, mode);
        } while (!m_file && errno == EEXIST);
        if (m_file) return;
        m_temporary.clear();
        fail(errno, m_path, Error::pathNotFound);
    }

    /// Owner, group and mode, as far as this process may give them and the file system knows them: the content is
    /// worth saving without them.
    void takeOver(const struct stat& before) noexcept {
        constexpr uid_t sameOwner = static_cast<uid_t>(-1);
        [[maybe_unused]] const bool given = ::fchown(m_file.get(), before.st_uid, before.st_gid) == 0 ||
                                            ::fchown(m_file.get(), sameOwner, before.st_gid) == 0;
        ::fchmod(m_file.get(), before.st_mode & permissions);
    }

    void writeOut(std::string_view bytes) {
        if (const int code = posix::writeAll(m_file.get(), bytes)) stop(code);
        if (posix::uninterrupted([&] { return ::fsync(m_file.get()); }) == -1) stop(errno);
        if (const int code = m_file.close()) stop(code);
    }

    /// Some file systems have no sync for folders (EINVAL), and a folder opened without reading has none (EBADF).
    void syncFolder() {
        const bool failed = posix::uninterrupted([&] { return ::fsync(m_folder.get()); }) == -1;
        if (failed && errno != EINVAL && errno != EBADF) fail(errno, m_path);
    }

    [[noreturn]] void stop(int code) {
        abandon();
        fail(code, m_path, Error::pathNotFound);
    }

    void abandon() noexcept {
        m_file.close();
        if (!m_temporary.empty()) ::unlinkat(m_folder.get(), m_temporary.c_str(), 0);
        m_temporary.clear();
    }

    std::string m_path;   ///< the target, for its errors
    std::string m_entry;  ///< the target's name in its folder
    std::string m_temporary;
    Descriptor m_folder;  ///< held, so that a change of the current folder in between does no harm
    Descriptor m_file;
};

}  // namespace

std::unique_ptr<Replacement> replaceOnDisk(const std::string& path) { return std::make_unique<DiskReplacement>(path); }

}  // namespace canvas
