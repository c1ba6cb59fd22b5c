#include "benchmarks/table.h"

#include <fmt/format.h>
#include <sys/utsname.h>

#include <charconv>
#include <fstream>
#include <thread>

namespace canvas::bench {
namespace {

/// The highest good cost a block at 1000 blocks in units of that at 10.
constexpr double growthAim = 1.5;

std::string processor() {
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("model name")) return line.substr(line.find(": ") + 2);
    return "unknown processor";
}

std::string ratio(double value, double aim) {
    if (value == 0) return {};
    return fmt::format("{:.2f}{}", value, aim > 0 && value > aim ? " !" : "");
}

int sizeIndex(std::string_view argument) {
    int size = 0;
    std::from_chars(argument.data(), argument.data() + argument.size(), size);
    const auto* found = std::find(std::begin(sizes), std::end(sizes), size);
    return found == std::end(sizes) ? -1 : static_cast<int>(found - std::begin(sizes));
}

}  // namespace

std::string machine() {
    utsname name{};
    uname(&name);
    return fmt::format("{} x {}, {} {}, g++ {}", std::thread::hardware_concurrency(), processor(), name.sysname,
                       name.release, __VERSION__);
}

bool Table::ReportContext(const Context&) {
    fmt::print("{}\n", machine());
    return true;
}

void Table::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        const int index = sizeIndex(run.run_name.args);
        if (run.run_type != Run::RT_Iteration || index < 0) continue;
        Row& row = m_rows[run.run_name.function_name];
        const auto at = static_cast<std::size_t>(index);
        const double cost = run.GetAdjustedCPUTime() / sizes[at];
        if (row.cost[at] == 0 || cost < row.cost[at]) row.cost[at] = cost;
        if (index >= row.largest) {
            row.largest = index;
            row.allocations = run.counters.at("allocations");
        }
    }
}

void Table::print(const Case& c) const {
    const auto row = m_rows.find(c.name);
    if (row == m_rows.end()) return;
    const auto& cost = row->second.cost;
    const auto peer = m_rows.find(c.peer);
    const double times = peer == m_rows.end() || peer->second.cost.back() == 0 ? 0 : cost.back() / peer->second.cost.back();
    const double growth = cost.front() == 0 ? 0 : cost.back() / cost.front();
    fmt::print("{:<24}{:>8.1f}{:>8.1f}{:>8.1f}  {:<9}{:<9}{:<6}{:<22}{:>6.2f}\n", c.name, cost[0], cost[1], cost[2],
               ratio(growth, growthAim), ratio(times, c.aim), c.aim > 0 ? fmt::format("{:.1f}", c.aim) : "", c.peer,
               row->second.allocations);
}

void Table::Finalize() {
    fmt::print("\n{:<24}{:>8}{:>8}{:>8}  {:<9}{:<9}{:<6}{:<22}{:>6}\n", "ns a block", sizes[0], sizes[1], sizes[2],
               "1000/10", "to peer", "aim", "peer", "allocs");
    for (const Case& c : m_cases) print(c);
    fmt::print("\"!\": more than the aim. 1000/10: the cost a block at 1000 blocks in units of that at 10, aim {}.\n",
               growthAim);
}

}  // namespace canvas::bench
