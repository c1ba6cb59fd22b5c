#pragma once
// The programs that are read and written: realistic lines of a transfer line.

#include <benchmark/benchmark.h>

#include <string>

#include "benchmarks/allocations.h"
#include "benchmarks/plain.h"

namespace canvas::bench {

struct Sample {
    PlainProgram program;
    std::string file;  ///< bytes as on disk
    std::string json;
};

/// Counts of blocks that every benchmark runs with: 1000 is examples/line_of_1000.bpa, less is cut out of it.
inline constexpr int sizes[]{10, 100, 1000};

/// One of `sizes`. Throws when the library finds fault with it or writes other bytes than it read.
const Sample& sample(int blocks);

/// Runs `body` for the state's iterations and counts its allocations a block.
template <class Body>
void measure(benchmark::State& state, Body&& body) {
    const std::uint64_t before = allocations();
    for (auto _ : state) body();
    const double blocks = static_cast<double>(state.iterations()) * static_cast<double>(state.range(0));
    state.counters["allocations"] = static_cast<double>(allocations() - before) / blocks;
}

}  // namespace canvas::bench
