// Version and window line: the input's first line stands behind "VERSION_NUMBER ", its second is the window line. The
// window of what was read is written and read again as it was.

#include "document/canvas.h"
#include "document/program_reader.h"
#include "document/program_writer.h"
#include "document/tokens.h"
#include "fuzz/fuzzing.h"

namespace canvas::fuzz {
namespace {

std::string fileWith(std::string_view input) {
    Lines lines(input);
    std::string_view version, window;
    lines.next(version);
    lines.next(window);
    std::string file("VERSION_NUMBER ");
    file.append(version).append("\nNUM_BLOCKS 1\n").append(window);
    return file + "\nBLOCK_DEFINE 1 17 \"Start\" -1 -1 0 \"\" 0 1 0 0 1 \"\"\n";
}

bool read(clsBVTCanvas& document, const std::string& file) {
    ReadSink sink;
    try {
        return readProgramText(document, file, sink);
    } catch (const RuntimeError&) {
        return false;
    }
}

void check(std::string_view input) {
    const auto first = make<clsBVTCanvas>();
    if (!read(*first, fileWith(input))) return;
    const auto second = make<clsBVTCanvas>();
    const std::string written = programText(*first);
    require(read(*second, written), "a program that was written can be read");
    require(programText(*second) == written, "the window is written as it was");
    require(first->lngLeft == second->lngLeft && first->lngTop == second->lngTop &&
                first->lngHeight == second->lngHeight && first->lngWidth == second->lngWidth &&
                first->lngXPos == second->lngXPos && first->lngYPos == second->lngYPos &&
                first->lngWindowState == second->lngWindowState,
            "the window's numbers come back");
}

}  // namespace
}  // namespace canvas::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > canvas::fuzz::longestInput) return 0;
    canvas::fuzz::interaction();
    canvas::fuzz::check(canvas::fuzz::textOf(data, size));
    return 0;
}
