#include "benchmarks/samples.h"

#include <map>
#include <stdexcept>

#include "benchmarks/json.h"
#include "document/canvas.h"
#include "document/program_reader.h"
#include "document/program_writer.h"
#include "host/encoding.h"
#include "host/ports.h"

namespace canvas::bench {
namespace {

void requireThat(bool condition, const char* otherwise) {
    if (!condition) throw std::runtime_error(otherwise);
}

PlainProgram lineOf1000() {
    const std::string path = CANVAS_SOURCE_DIR "/examples/line_of_1000.bpa";
    return splitProgram(encoding::decode(environment().files->read(path, largestProgram)));
}

void requireGood(const std::string& text) {
    auto document = make<clsBVTCanvas>();
    ReadSink sink;
    std::string findings;
    requireThat(readProgramText(*document, text, sink), "a sample has no blocks");
    requireThat(document->CheckConnection(findings), "a sample is not well connected");
    requireThat(programText(*document) == text, "a sample is not written as it was read");
}

Sample makeSample(int blocks) {
    static const PlainProgram whole = lineOf1000();
    const auto count = static_cast<std::size_t>(blocks);
    Sample sample{.program = count < whole.blocks.size() ? cutProgram(whole, count) : whole, .file = {}, .json = {}};
    const std::string text = appendProgram(sample.program);
    requireGood(text);
    sample.file = encoding::encode(text);
    sample.json = jsonOf(sample.program);
    requireThat(appendProgram(JsonReader(sample.json).read()) == text, "the JSON of a sample does not give its text");
    return sample;
}

}  // namespace

const Sample& sample(int blocks) {
    static std::map<int, Sample> samples;
    auto found = samples.find(blocks);
    if (found == samples.end()) found = samples.emplace(blocks, makeSample(blocks)).first;
    return found->second;
}

}  // namespace canvas::bench
