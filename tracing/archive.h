#pragma once
// Zip archives of a report: written whole in memory, read with a limit.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace canvas::tracing {

struct ArchiveFile {
    std::string name;
    std::string bytes;
};

/// The bytes of a .zip with the files in their order. Error 57 when it cannot be made.
std::string zipped(const std::vector<ArchiveFile>& files);

/// The files of an archive. Error 321 for bytes that are no zip archive or are damaged; error 7 when the files together
/// are larger than `limit` bytes.
std::vector<ArchiveFile> unzipped(std::string_view archive, std::uint64_t limit);

}  // namespace canvas::tracing
