#pragma once
// What the tests of the disk share: a folder of their own, plain file access, and children with fewer rights.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include "raised.h"

namespace canvas::scratch {

/// A new folder that anyone may write to, removed with all it holds.
class Folder {
public:
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "canvas-test-XXXXXX").string();
        m_path = ::mkdtemp(name.data());
        std::filesystem::permissions(m_path, std::filesystem::perms::all);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::string& path() const { return m_path; }
    std::string operator/(const std::string& name) const { return m_path + "/" + name; }
    std::vector<std::string> entries() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::string m_path;
};

inline void put(const std::string& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

inline std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What `act` gives (0 to 255) in a child process, so that its limits and rights end with it. -1 when it died.
template <class Act>
int inChild(Act act) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(act());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// The error that `act` raises in a child process without the rights of root, which no file refuses.
template <class Act>
int errorWithoutRights(Act act) {
    return inChild([&] {
        constexpr unsigned nobody = 65534;
        if (::geteuid() == 0 && (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0))
            return 255;
        return raisedBy(act);
    });
}

}  // namespace canvas::scratch
