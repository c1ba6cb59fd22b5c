// A program file of any bytes is read or refused with a run-time error, never anything else. What was read can be
// written, read again without a failure or a box, and is then written as the same bytes.

#include "document/program_reader.h"

#include <optional>

#include "document/canvas.h"
#include "document/catalogue.h"
#include "document/program_writer.h"
#include "document/tokens.h"
#include "fuzz/fuzzing.h"
#include "host/encoding.h"

namespace canvas::fuzz {
namespace {

/// Null when the reading failed.
Ref<clsBVTCanvas> documentOf(const std::string& bytes) {
    auto document = make<clsBVTCanvas>();
    ReadSink sink;
    try {
        readProgramText(*document, bytes, sink);
    } catch (const RuntimeError&) {
        return nullptr;
    }
    return document;
}

/// Whether the file has a form for every text of it: there is none for a double quote inside a text, nor for a carriage
/// return that ends no line.
bool canBeWritten(const std::string& bytes) {
    const std::string text = encoding::decode(bytes);
    Lines lines(text);
    std::string_view line, token;
    while (lines.next(line)) {
        if (line.find('\r') != std::string_view::npos) return false;
        Tokens tokens(line);
        while (tokens.next(token))
            if (stripQuotes(token).find('"') != std::string_view::npos) return false;
    }
    return true;
}

/// Nothing when the document holds a cam block, which is brought up to date by a host's main form.
std::optional<std::string> bytesOf(clsBVTCanvas& document) {
    const clsBVTBlockCol& blocks = *document.BlockCollection;
    for (std::size_t i = 0; i < blocks.size(); ++i)
        if (blocks[i].intBlockType == CAMONOFF) return {};
    return encoding::encode(programText(document));
}

void check(const std::string& bytes) {
    const Ref<clsBVTCanvas> first = documentOf(bytes);
    if (!first) return;
    std::string findings;
    first->CheckConnection(findings);
    const std::optional<std::string> written = bytesOf(*first);
    if (!written || !canBeWritten(bytes)) return;
    const int boxes = interaction().boxes;
    const Ref<clsBVTCanvas> second = documentOf(*written);
    require(second != nullptr, "a program that was written can be read");
    require(interaction().boxes == boxes, "a program that was written is read without a box");
    require(bytesOf(*second) == written, "a program that was written and read is written as it was");
}

}  // namespace
}  // namespace canvas::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > canvas::fuzz::longestInput) return 0;
    canvas::fuzz::interaction();
    canvas::fuzz::check(std::string(canvas::fuzz::textOf(data, size)));
    return 0;
}
