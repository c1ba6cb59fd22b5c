// The reader of modules' files: it ends, meets nothing twice, and gives back what was written.

#include <vector>

#include "fuzz/fuzzing.h"
#include "hardware/csv.h"

namespace canvas::fuzz {
namespace {

std::vector<Value> fieldsOf(std::string_view text) {
    CsvReader reader{std::string(text)};
    std::vector<Value> fields;
    int line = 1;
    while (!reader.atEnd()) {
        try {
            fields.push_back(reader.next());
        } catch (const RuntimeError& error) {
            require(error.number == static_cast<int>(Error::inputPastEnd), "the only failure is the end");
            require(reader.atEnd(), "there is nothing behind the end");
            break;
        }
        require(reader.line() >= line, "lines are met in order");
        line = reader.line();
        require(fields.size() <= text.size(), "a field takes a byte at least");
    }
    return fields;
}

void check(std::string_view text) {
    const std::vector<Value> fields = fieldsOf(text);
    constexpr std::size_t width = 4;
    CsvWriter writer;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        writer.field(fields[i]);
        if ((i + 1) % width == 0 || i + 1 == fields.size()) writer.endLine();
    }
    require(fieldsOf(writer.text()) == fields, "what was written is read again as it was");
}

}  // namespace
}  // namespace canvas::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size <= canvas::fuzz::longestInput) canvas::fuzz::check(canvas::fuzz::textOf(data, size));
    return 0;
}
