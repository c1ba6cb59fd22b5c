// canvas_bench: costs of reading, writing, checking and undo, beside what others take for the same work.
// Arguments are those of Google Benchmark, as --benchmark_filter=read or --benchmark_repetitions=3.

#include <fmt/format.h>

#include <vector>

#include "benchmarks/cases.h"
#include "benchmarks/table.h"

namespace {

using namespace canvas::bench;

constexpr Case cases[] = {
    {.name = "read", .run = readDocument, .peer = "read_json", .aim = 1.0},
    {.name = "read_tokens", .run = readTokens},
    {.name = "read_plain", .run = readPlain},
    {.name = "read_json", .run = readJson},
    {.name = "write", .run = writeDocument, .peer = "write_plain", .aim = 1.0},
    {.name = "write_plain", .run = writePlain},
    {.name = "check", .run = checkConnections},
#ifdef CANVAS_BENCH_QT
    {.name = "push", .run = pushRecords, .peer = "push_qt", .aim = 0.5},
    {.name = "push_ready", .run = pushReadyRecords},
    {.name = "push_qt", .run = pushCommands},
    {.name = "push_qt_commands", .run = makeCommands},
    {.name = "undo_redo", .run = undoAndRedo, .peer = "undo_redo_qt"},
    {.name = "undo_redo_qt", .run = undoAndRedoCommands},
#else
    {.name = "push", .run = pushRecords},
    {.name = "push_ready", .run = pushReadyRecords},
    {.name = "undo_redo", .run = undoAndRedo},
#endif
};

/// Repetitions of all cases in turn, so that a slow moment of the machine falls on all of them; what the user asks for
/// stands behind and prevails.
std::vector<char*> arguments(int count, char** given) {
    static char repetitions[] = "--benchmark_repetitions=9";
    static char interleaved[] = "--benchmark_enable_random_interleaving=true";
    static char shortest[] = "--benchmark_min_time=0.05";
    std::vector<char*> all{given[0], repetitions, interleaved, shortest};
    all.insert(all.end(), given + 1, given + count);
    return all;
}

void printBytes() {
    constexpr int blocks = 1000;
    constexpr double limit = 900, aim = 600;
    const double kept = bytesOfDocument(blocks) / blocks;
    fmt::print("bytes a block of {}: document {:.0f} (limit {:.0f}, aim {:.0f}), plain structs {:.0f}\n", blocks, kept,
               limit, aim, bytesOfPlainProgram(blocks) / blocks);
    for (const int size : sizes)
        fmt::print("{} bytes a block in a file of {}\n", sample(size).file.size() / static_cast<std::size_t>(size), size);
}

}  // namespace

int main(int count, char** given) {
    std::vector<char*> all = arguments(count, given);
    auto allCount = static_cast<int>(all.size());
    benchmark::Initialize(&allCount, all.data());
    if (benchmark::ReportUnrecognizedArguments(allCount, all.data())) return 2;
    for (const Case& c : cases) {
        auto* registered = benchmark::RegisterBenchmark(c.name, c.run);
        for (const int size : sizes) registered->Arg(size);
    }
    Table table(cases);
    benchmark::RunSpecifiedBenchmarks(&table);
    printBytes();
    printHardware();
    return 0;
}
