#include "cli/check_run.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <thread>

#include "cli/console.h"
#include "document/program_check.h"

namespace canvas::cli {
namespace {

class Checker {
public:
    Checker(const std::vector<std::string>& files, const Progress& progress)
        : m_files(files), m_reports(files.size()), m_progress(progress) {
        for (std::size_t i = 0; i < files.size(); ++i) m_reports[i].file = files[i];
    }

    std::vector<FileReport> run(unsigned jobs) {
        {
            std::vector<std::jthread> others;
            for (unsigned i = 1; i < std::min<std::size_t>(jobs, m_files.size()); ++i) {
                try {
                    others.emplace_back([this] { work(); });
                } catch (const std::system_error&) {
                    break;  // no memory for another stack: those that run do the work
                }
            }
            work();
        }
        return std::move(m_reports);
    }

private:
    void work() {
        for (std::size_t i = m_next++; i < m_files.size(); i = m_next++) {
            checkOne(m_reports[i]);
            const std::lock_guard alone(m_telling);
            m_progress(++m_done);
        }
    }

    void checkOne(FileReport& report) {
        // several large files at a time could be more than memory holds
        constexpr std::uintmax_t large = 8U << 20U;
        std::unique_lock<std::mutex> alone(m_large, std::defer_lock);
        std::error_code unknown;
        const std::uintmax_t size = std::filesystem::file_size(report.file, unknown);
        if (!unknown && size > large) alone.lock();
        try {
            CheckedProgram checked = checkProgramFile(report.file);
            report.readable = checked.readable;
            report.findings = std::move(checked.findings);
            report.links = std::move(checked.links);
        } catch (const std::exception& error) {
            report.internalError = error.what();
        } catch (...) {
            report.internalError = "an exception of no known kind";
        }
    }

    const std::vector<std::string>& m_files;
    std::vector<FileReport> m_reports;
    const Progress& m_progress;
    std::atomic<std::size_t> m_next = 0;
    std::mutex m_large;
    std::mutex m_telling;
    std::size_t m_done = 0;
};

int exitCodeOf(const FileReport& report) noexcept {
    if (!report.internalError.empty()) return internalError;
    if (!report.readable) return unreadableInput;
    return report.findings.empty() ? good : findings;
}

}  // namespace

std::vector<FileReport> checkFiles(const std::vector<std::string>& files, unsigned jobs, const Progress& progress) {
    return Checker(files, progress).run(jobs);
}

int exitCodeOf(const std::vector<FileReport>& reports) noexcept {
    int code = good;
    for (const FileReport& report : reports) code = std::max(code, exitCodeOf(report));
    return code;
}

}  // namespace canvas::cli
