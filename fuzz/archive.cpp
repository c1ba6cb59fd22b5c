// An archive of any bytes is read or refused with the errors that its reader names, and never gives more than the limit.
// What was read comes back when it is packed and read again, and so does the input itself as a file.

#include "tracing/archive.h"

#include <algorithm>

#include "fuzz/fuzzing.h"
#include "host/errors.h"

namespace canvas::fuzz {
namespace {

using tracing::ArchiveFile;

constexpr std::uint64_t limit = 1U << 20U;

bool same(const std::vector<ArchiveFile>& left, const std::vector<ArchiveFile>& right) {
    const auto equal = [](const ArchiveFile& l, const ArchiveFile& r) { return l.name == r.name && l.bytes == r.bytes; };
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), equal);
}

std::vector<ArchiveFile> filesIn(std::string_view archive) {
    constexpr int invalidFileFormat = 321;
    try {
        return tracing::unzipped(archive, limit);
    } catch (const RuntimeError& error) {
        require(error.number == invalidFileFormat || error.number == static_cast<int>(Error::outOfMemory),
                "an archive is no archive, damaged or too large");
        return {};
    }
}

/// Empty when the files make no archive, as those of one name do not.
std::string packed(const std::vector<ArchiveFile>& files) {
    try {
        return tracing::zipped(files);
    } catch (const RuntimeError& error) {
        require(error.number == static_cast<int>(Error::deviceIO), "packing fails with one error alone");
        return {};
    }
}

void check(std::string_view bytes) {
    const std::vector<ArchiveFile> files = filesIn(bytes);
    std::uint64_t size = 0;
    for (const ArchiveFile& file : files) size += file.bytes.size();
    require(size <= limit, "the limit holds");
    const std::string again = files.empty() ? std::string() : packed(files);
    require(again.empty() || same(filesIn(again), files), "what was read comes back");
    const std::vector<ArchiveFile> own{{"report.txt", std::string(bytes)}, {"empty", ""}};
    require(same(filesIn(packed(own)), own), "what was packed comes back");
}

}  // namespace
}  // namespace canvas::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size <= canvas::fuzz::longestInput) canvas::fuzz::check(canvas::fuzz::textOf(data, size));
    return 0;
}
