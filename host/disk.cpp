#include <cstdio>
#include <filesystem>
#include <mutex>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

#include "host/files.h"
#include "host/numbered_file.h"
#include "host/posix.h"
#include "host/replacement.h"

namespace canvas {
namespace {

using posix::fail;
using posix::nativeName;

bool isThere(const std::string& native) {
    struct stat entry {};
    return ::lstat(native.c_str(), &entry) == 0;
}

/// Appends what a read of the rest of the file gives; at most `limit` bytes in all, else error 7.
void readToEnd(int descriptor, const std::string& path, std::size_t expected, std::uint64_t limit, std::string& bytes) {
    std::size_t length = 0;
    for (bytes.resize(expected + 1);; bytes.resize(bytes.size() * 2)) {  // one more, to meet the end without growing
        while (length < bytes.size()) {
            const ssize_t got =
                posix::uninterrupted([&] { return ::read(descriptor, bytes.data() + length, bytes.size() - length); });
            if (got == -1) fail(errno, path);
            if (got == 0) return bytes.resize(length);
            length += static_cast<std::size_t>(got);
            if (length > limit) raise(Error::outOfMemory);
        }
    }
}

/// The machine's own disk. Threads may share it; a numbered file is for the thread that opened it.
class Disk final : public Files {
public:
    std::string read(const std::string& path, std::uint64_t limit) override {
        const std::string native = nativeName(path);
        const posix::Descriptor file = posix::openAt(AT_FDCWD, native, O_RDONLY);
        struct stat status {};
        if (!file || ::fstat(file.get(), &status) == -1) fail(errno, native);
        if (!S_ISREG(status.st_mode)) raise(Error::pathFileAccess);
        const auto size = static_cast<std::uint64_t>(status.st_size);
        if (size > limit) raise(Error::outOfMemory);
        std::string bytes;
        readToEnd(file.get(), native, static_cast<std::size_t>(size), limit, bytes);
        return bytes;
    }

    std::unique_ptr<Replacement> replace(const std::string& path) override { return replaceOnDisk(nativeName(path)); }

    int open(const std::string& path, OpenMode mode) override {
        auto file = std::make_unique<NumberedFile>(nativeName(path), mode);
        const std::lock_guard lock(m_guard);
        refuseIfOpen(*file);
        file->begin();
        std::size_t free = 0;
        while (free < m_numbered.size() && m_numbered[free]) ++free;
        if (free == m_numbered.size()) m_numbered.emplace_back();
        m_numbered[free] = std::move(file);
        return static_cast<int>(free) + 1;
    }

    void close(int number) override {
        numbered(number);
        std::unique_ptr<NumberedFile> file;
        {
            const std::lock_guard lock(m_guard);
            file = std::move(m_numbered[static_cast<std::size_t>(number) - 1]);
        }
        file->close();
    }

    std::string readLine(int number) override { return numbered(number).readLine(); }
    bool atEnd(int number) override { return numbered(number).atEnd(); }
    void writeLine(int number, std::string_view line) override { numbered(number).writeLine(line); }

    bool exists(const std::string& path) override {
        std::error_code ignored;
        return isName(path) && std::filesystem::exists(nativeName(path), ignored);
    }

    bool isFolder(const std::string& path) override {
        std::error_code ignored;
        return isName(path) && std::filesystem::is_directory(nativeName(path), ignored);
    }

    void remove(const std::string& path) override {
        const std::string native = nativeName(path);
        if (::unlink(native.c_str()) == -1) fail(errno, native);
    }

    void rename(const std::string& from, const std::string& to) override {
        const std::string source = nativeName(from), target = nativeName(to);
        if (::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) return;
        int code = errno;
        if (code == EINVAL || code == ENOSYS) {  // a file system without that option
            if (isThere(target)) raise(Error::fileExists);
            if (::rename(source.c_str(), target.c_str()) == 0) return;
            code = errno;
        }
        fail(code, target, isThere(source) ? Error::pathNotFound : Error::fileNotFound);
    }

    void makeFolder(const std::string& path) override {
        const std::string native = nativeName(path);
        if (::mkdir(native.c_str(), 0777) == -1) fail(errno, native, Error::pathNotFound);
    }

    std::string currentFolder() override {
        std::error_code gone;
        const std::filesystem::path folder = std::filesystem::current_path(gone);
        if (gone) raise(Error::pathNotFound);
        return folder.string();
    }

private:
    static bool isName(std::string_view path) { return !path.empty() && path.find('\0') == std::string_view::npos; }

    NumberedFile& numbered(int number) {
        const std::lock_guard lock(m_guard);
        const bool known = number >= 1 && static_cast<std::size_t>(number) <= m_numbered.size();
        const auto place = known ? static_cast<std::size_t>(number) - 1 : 0;
        if (!known || !m_numbered[place]) raise(Error::badFileNumber);
        return *m_numbered[place];
    }

    /// Any number of readers, or one writer.
    void refuseIfOpen(const NumberedFile& asked) const {
        for (const auto& file : m_numbered) {
            const bool readers = file && file->mode() == OpenMode::input && asked.mode() == OpenMode::input;
            if (file && !readers && file->isSameFileAs(asked)) raise(Error::fileAlreadyOpen);
        }
    }

    std::mutex m_guard;                                     ///< of the vector, not of the files
    std::vector<std::unique_ptr<NumberedFile>> m_numbered;  ///< number - 1
};

}  // namespace

std::unique_ptr<Files> makeDisk() { return std::make_unique<Disk>(); }

FileGuard::~FileGuard() {
    if (m_number == 0) return;
    try {
        m_files.close(m_number);
    } catch (const RuntimeError&) {  // whoever wants to know closes before the scope ends
    }
}

void FileGuard::close() { m_files.close(std::exchange(m_number, 0)); }

}  // namespace canvas
