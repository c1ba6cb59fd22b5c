#include "benchmarks/cases.h"
#include "benchmarks/json.h"
#include "benchmarks/samples.h"
#include "document/canvas.h"
#include "document/program_reader.h"
#include "document/tokens.h"

namespace canvas::bench {
namespace {

Ref<clsBVTCanvas> documentOf(const std::string& file) {
    auto document = make<clsBVTCanvas>();
    ReadSink sink;
    readProgramText(*document, file, sink);
    return document;
}

const Sample& sampleOf(const benchmark::State& state) { return sample(static_cast<int>(state.range(0))); }

}  // namespace

void readDocument(benchmark::State& state) {
    const std::string& file = sampleOf(state).file;
    measure(state, [&] { benchmark::DoNotOptimize(documentOf(file)); });
}

void readTokens(benchmark::State& state) {
    const std::string& file = sampleOf(state).file;
    measure(state, [&] {
        Lines lines(file);
        std::string_view line, token;
        while (lines.next(line)) {
            Tokens tokens(line);
            while (tokens.next(token)) benchmark::DoNotOptimize(token.data());
        }
    });
}

void readPlain(benchmark::State& state) {
    const std::string& file = sampleOf(state).file;
    measure(state, [&] { benchmark::DoNotOptimize(splitProgram(file)); });
}

void readJson(benchmark::State& state) {
    JsonReader reader(sampleOf(state).json);
    measure(state, [&] { benchmark::DoNotOptimize(reader.read()); });
}

double bytesOfDocument(int blocks) {
    const std::string& file = sample(blocks).file;
    const KeptBytes kept;
    const auto document = documentOf(file);
    return static_cast<double>(kept.count());
}

double bytesOfPlainProgram(int blocks) {
    const std::string& file = sample(blocks).file;
    const KeptBytes kept;
    const PlainProgram program = splitProgram(file);
    return static_cast<double>(kept.count());
}

}  // namespace canvas::bench
