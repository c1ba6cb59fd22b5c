#pragma once
// Runs the program `canvas` as its users do, and keeps what it said.

#include <cerrno>
#include <cstdint>
#include <string>
#include <vector>

#include <fcntl.h>
#include <grp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/host/scratch.h"

namespace canvas::program {

struct Said {
    int code = -1;  ///< -1 when a signal ended it
    std::string out, err;
};

struct Setting {
    std::string folder = {};      ///< the current one of the program
    std::uint64_t memory = 0;     ///< bytes of address space; 0: no limit
    std::string output = {};      ///< a file or device in place of what is kept
    bool outputIsClosed = false;  ///< a pipe that nobody reads
    bool asNobody = false;        ///< without the rights of root, which no file refuses
};

namespace detail {

inline void direct(int to, const std::string& path) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (file < 0 || ::dup2(file, to) < 0) ::_exit(126);
}

inline void closePipe() {
    int ends[2];
    if (::pipe(ends) != 0 || ::dup2(ends[1], STDOUT_FILENO) < 0) ::_exit(126);
    ::close(ends[0]);
    ::close(ends[1]);
}

inline void dropRights() {
    constexpr unsigned nobody = 65534;
    if (::geteuid() != 0) return;
    if (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0) ::_exit(126);
}

}  // namespace detail

inline Said run(const std::vector<std::string>& words, const Setting& setting = {}) {
    const scratch::Folder kept;
    const std::string out = setting.output.empty() ? kept / "out" : setting.output;
    const std::string err = kept / "err";
    const pid_t child = ::fork();
    if (child == 0) {
        if (!setting.folder.empty() && ::chdir(setting.folder.c_str()) != 0) ::_exit(126);
        if (setting.outputIsClosed) detail::closePipe();
        else detail::direct(STDOUT_FILENO, out);
        detail::direct(STDERR_FILENO, err);
        const rlimit limit{setting.memory, setting.memory};
        if (setting.memory > 0) ::setrlimit(RLIMIT_AS, &limit);
        if (setting.asNobody) detail::dropRights();
        std::vector<char*> arguments{const_cast<char*>("canvas")};
        for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        ::execv(CANVAS_CLI, arguments.data());
        ::_exit(127);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) == -1 && errno == EINTR) {
    }
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, setting.output.empty() ? scratch::bytesOf(out) : "",
            scratch::bytesOf(err)};
}

}  // namespace canvas::program
