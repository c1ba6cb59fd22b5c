#pragma once
// A folder for files that are nobody else's business, in places where somebody else may be at work.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace canvas {

/// A folder that only this user may enter (mode 0700), held open: its files are reached through it and never through its
/// name again. Neither the folder nor a file in it is ever a symbolic link.
class PrivateFolder {
public:
    /// Makes the folder, or takes one that belongs to this user, and removes the plain files in it. `path` may end in a
    /// separator; its parent must be there, unless `parents` asks for the missing ones to be made, private too. Raises
    /// the disk's run-time errors; 70 for a folder that is a link, or belongs to somebody else.
    explicit PrivateFolder(std::string_view path, bool parents = false);
    PrivateFolder(PrivateFolder&& other) noexcept
        : m_path(std::move(other.m_path)), m_folder(std::exchange(other.m_folder, -1)) {}
    PrivateFolder& operator=(PrivateFolder other) noexcept {
        std::swap(m_path, other.m_path);
        std::swap(m_folder, other.m_folder);
        return *this;
    }
    ~PrivateFolder();

    /// Ends in "/".
    const std::string& path() const noexcept { return m_path; }
    /// Whole, over a file of that name; the disk's run-time errors.
    void write(const std::string& name, std::string_view bytes);
    /// Nothing when there is no such file.
    std::optional<std::string> read(const std::string& name) const;
    void rename(const std::string& from, const std::string& to);
    /// Removes the plain files.
    void empty();

private:
    std::string m_path;
    int m_folder = -1;
};

}  // namespace canvas
