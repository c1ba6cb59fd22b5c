#include "cli/progress.h"

#include <string>

#include <unistd.h>

#include "host/posix.h"

namespace canvas::cli {
namespace {

constexpr auto pause = std::chrono::milliseconds(250);

void write(const std::string& text) { posix::writeAll(STDERR_FILENO, text); }

}  // namespace

ProgressLine::ProgressLine(std::size_t all, bool wanted)
    : m_all(all), m_wanted(wanted && ::isatty(STDERR_FILENO) == 1), m_next(Time::now() + pause) {}

ProgressLine::~ProgressLine() {
    if (m_shown) write("\r\x1B[K");
}

void ProgressLine::show(std::size_t done) {
    if (!m_wanted || Time::now() < m_next) return;
    m_shown = true;
    m_next = Time::now() + pause;
    write("\r" + std::to_string(done) + " of " + std::to_string(m_all) + " files checked");
}

}  // namespace canvas::cli
