#include "benchmarks/cases.h"
#include "benchmarks/samples.h"
#include "document/canvas.h"
#include "document/program_reader.h"
#include "document/program_writer.h"

namespace canvas::bench {
namespace {

Ref<clsBVTCanvas> documentFor(const benchmark::State& state) {
    auto document = make<clsBVTCanvas>();
    ReadSink sink;
    readProgramText(*document, sample(static_cast<int>(state.range(0))).file, sink);
    return document;
}

}  // namespace

void writeDocument(benchmark::State& state) {
    const auto document = documentFor(state);
    measure(state, [&] { benchmark::DoNotOptimize(programText(*document)); });
}

void writePlain(benchmark::State& state) {
    const PlainProgram& program = sample(static_cast<int>(state.range(0))).program;
    measure(state, [&] { benchmark::DoNotOptimize(appendProgram(program)); });
}

void checkConnections(benchmark::State& state) {
    const auto document = documentFor(state);
    std::string findings;
    measure(state, [&] { benchmark::DoNotOptimize(document->CheckConnection(findings)); });
}

}  // namespace canvas::bench
