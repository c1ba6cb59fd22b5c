#pragma once
// Files: numbered ones for line-wise work, whole ones for documents, all behind a port that tests replace.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace canvas {

/// A file that is being replaced: its content appears under the name at `commit`, whole, or not at all.
/// Destroyed without a commit, it leaves the file that was there as it was, and no trace of itself.
class Replacement {
public:
    virtual ~Replacement() = default;
    /// Writes all bytes, syncs, renames over the target and syncs the folder; once. Raises the run-time error of the
    /// step that failed (61 disk full, 70 permission denied, 75, 57 ...); the old file is then as it was, except
    /// when only the last sync failed: the new content stands, but may not outlive a loss of power.
    virtual void commit(std::string_view bytes) = 0;
};

enum class OpenMode { input, output, append };

/// The disk. File names are UTF-8; where the platform has no backslashes, they are taken as separators when a file
/// is opened. All failures are run-time errors: 52 a name that cannot be one, or a number that is not open or open
/// for the other direction; 53, 76 the file or a folder of it is missing; 55, 57, 58, 61, 62; 70 the file or its
/// folder is read-only or refused; 75 the path cannot be walked or leads to something that is no file.
class Files {
public:
    virtual ~Files() = default;

    /// All bytes of a regular file; one larger than `limit` is error 7.
    virtual std::string read(const std::string& path, std::uint64_t limit) = 0;
    /// Creates the temporary file beside the target at once, so that a folder that is missing or read-only is
    /// told before any content is made.
    virtual std::unique_ptr<Replacement> replace(const std::string& path) = 0;

    /// Numbered files: the lowest free number from 1. Lines end in CR LF or LF; writing ends them in CR LF.
    /// A file is open to any number of readers or to one writer, else error 55.
    virtual int open(const std::string& path, OpenMode mode) = 0;
    virtual void close(int number) = 0;
    virtual std::string readLine(int number) = 0;
    virtual bool atEnd(int number) = 0;
    virtual void writeLine(int number, std::string_view line) = 0;

    /// A file or folder that can be seen under the name; never an error.
    virtual bool exists(const std::string& path) = 0;
    virtual bool isFolder(const std::string& path) = 0;
    virtual void remove(const std::string& path) = 0;
    /// Error 58 when `to` is there.
    virtual void rename(const std::string& from, const std::string& to) = 0;
    virtual void makeFolder(const std::string& path) = 0;
    virtual std::string currentFolder() = 0;
};

/// The machine's own disk.
std::unique_ptr<Files> makeDisk();

/// Closes a numbered file at the end of a scope, without telling a failure.
class FileGuard {
public:
    FileGuard(Files& files, int number) noexcept : m_files(files), m_number(number) {}
    ~FileGuard();
    FileGuard(const FileGuard&) = delete;
    FileGuard& operator=(const FileGuard&) = delete;

    /// Closes now and tells a failure.
    void close();

private:
    Files& m_files;
    int m_number;
};

}  // namespace canvas
