// A program file of any bytes is read or refused with a run-time error, never anything else. What was read can be
// written, read again without a failure or a box, and is then written as the same bytes.

#include "document/program_reader.h"

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

/// A name without a title is lost when it is read, and any other place than the current folder when it is written.
bool isPlainCall(const std::string& name, const std::string& title) {
    if (name.empty()) return true;
    const std::string inFolder = environment().files->currentFolder() + '\\' + environment().utility->FileTitleOf(name);
    return !title.empty() && name == inFolder;
}

/// Whether a block is no more than its line says. A cam is brought up to date by a host's main form when it is written; a
/// note whose line ended before the label has no text of its own until it is written.
bool isPlain(const clsBVTBlock& block) {
    const auto text = [&](const char* property) { return block.vntAttribute->get(property).toText(); };
    switch (block.intBlockType) {
        case CAMONOFF: return false;
        case SUPERBLOCK: return isPlainCall(text("Name"), text("title"));
        case NodeText: return text("NodeText").ends_with("\xC2\xB6");
        default: return true;
    }
}

bool isPlain(const clsBVTCanvas& document) {
    const clsBVTBlockCol& blocks = *document.BlockCollection;
    for (std::size_t i = 0; i < blocks.size(); ++i)
        if (!isPlain(blocks[i])) return false;
    return true;
}

std::string bytesOf(clsBVTCanvas& document) { return encoding::encode(programText(document)); }

void check(const std::string& bytes) {
    const Ref<clsBVTCanvas> first = documentOf(bytes);
    if (!first) return;
    std::string findings;
    first->CheckConnection(findings);
    if (!isPlain(*first)) return;
    const std::string written = bytesOf(*first);
    if (!canBeWritten(bytes)) return;
    const int boxes = interaction().boxes;
    const Ref<clsBVTCanvas> second = documentOf(written);
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
