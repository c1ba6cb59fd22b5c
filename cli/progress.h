#pragma once
// A line on standard error that tells how far a long run is; only where a terminal shows it.

#include <chrono>
#include <cstddef>

namespace canvas::cli {

class ProgressLine {
public:
    /// Shown from the first quarter of a second on.
    ProgressLine(std::size_t all, bool wanted);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void show(std::size_t done);

private:
    using Time = std::chrono::steady_clock;
    std::size_t m_all;
    bool m_wanted;
    bool m_shown = false;
    Time::time_point m_next;
};

}  // namespace canvas::cli
