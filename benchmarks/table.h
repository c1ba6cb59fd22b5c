#pragma once
// The table at the end of a run: each case beside its peer and its aim.

#include <benchmark/benchmark.h>

#include <array>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "benchmarks/samples.h"

namespace canvas::bench {

struct Case {
    const char* name;
    void (*run)(benchmark::State&);
    std::string_view peer{};  ///< name of the case that it is compared with
    double aim = 0;           ///< highest good cost in units of the peer's, at 1000 blocks
};

/// Costs are those of the fastest repetition, in nanoseconds of processor time: what else runs on the machine can only
/// add to them.
class Table final : public benchmark::BenchmarkReporter {
public:
    explicit Table(std::span<const Case> cases) : m_cases(cases) {}

    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    struct Row {
        std::array<double, std::size(sizes)> cost{};  ///< a block, by size; 0 where it was not run
        int largest = 0;                              ///< index of the largest size that was run
        double allocations = 0;                       ///< a block, at that size
    };

    void print(const Case& c) const;

    std::span<const Case> m_cases;
    std::map<std::string, Row, std::less<>> m_rows;
};

/// "4 x Some Processor, Linux 6.1, g++ 12.2": what the figures belong to.
std::string machine();

}  // namespace canvas::bench
