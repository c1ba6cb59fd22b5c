#include "tracing/archive.h"

#include <zip.h>

#include <memory>

#include "host/errors.h"

namespace canvas::tracing {
namespace {

constexpr int invalidFileFormat = 321;

struct Source {
    zip_source_t* source;
    /// Keeps what was written after the archive has been closed.
    explicit Source(zip_source_t* made) : source(made) {
        if (!source) raise(Error::outOfMemory);
    }
    ~Source() { zip_source_free(source); }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
};

using Archive = std::unique_ptr<zip_t, decltype(&zip_discard)>;

Archive opened(zip_source_t* source, int flags) {
    zip_error_t error;
    zip_error_init(&error);
    zip_t* archive = zip_open_from_source(source, flags, &error);
    const std::string reason = archive ? "" : zip_error_strerror(&error);
    zip_error_fini(&error);
    if (!archive) throw RuntimeError(invalidFileFormat, "The archive cannot be read: " + reason);
    zip_source_keep(source);  // the archive frees one reference at its end
    return Archive(archive, zip_discard);
}

void add(zip_t* archive, const ArchiveFile& file) {
    zip_source_t* source = zip_source_buffer(archive, file.bytes.data(), file.bytes.size(), 0);
    if (!source) raise(Error::outOfMemory);
    if (zip_file_add(archive, file.name.c_str(), source, ZIP_FL_ENC_UTF_8) < 0) {
        zip_source_free(source);
        raise(Error::deviceIO, zip_strerror(archive));
    }
}

std::string contentOf(zip_source_t* source) {
    zip_stat_t status;
    if (zip_source_stat(source, &status) < 0 || zip_source_open(source) < 0) raise(Error::deviceIO);
    std::string bytes(static_cast<std::size_t>(status.size), '\0');
    const zip_int64_t got = zip_source_read(source, bytes.data(), bytes.size());
    zip_source_close(source);
    if (got != static_cast<zip_int64_t>(bytes.size())) raise(Error::deviceIO);
    return bytes;
}

std::string contentOf(zip_t* archive, zip_uint64_t index, std::uint64_t size) {
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(zip_fopen_index(archive, index, 0), zip_fclose);
    if (!file) throw RuntimeError(invalidFileFormat, std::string("Damaged archive: ") + zip_strerror(archive));
    std::string bytes(static_cast<std::size_t>(size), '\0');
    // one byte more than told: the rest of a file that lies about its size is not taken
    if (zip_fread(file.get(), bytes.data(), bytes.size()) != static_cast<zip_int64_t>(bytes.size()))
        throw RuntimeError(invalidFileFormat, "Damaged archive: a file is shorter than it says, or its sum is wrong.");
    char more = 0;
    if (zip_fread(file.get(), &more, 1) != 0)
        throw RuntimeError(invalidFileFormat, "Damaged archive: a file is longer than it says, or its sum is wrong.");
    return bytes;
}

}  // namespace

std::string zipped(const std::vector<ArchiveFile>& files) {
    const Source source(zip_source_buffer_create(nullptr, 0, 0, nullptr));
    Archive archive = opened(source.source, ZIP_TRUNCATE);
    for (const ArchiveFile& file : files) add(archive.get(), file);
    if (zip_close(archive.get()) < 0) raise(Error::deviceIO, zip_strerror(archive.get()));
    archive.release();
    return contentOf(source.source);
}

std::vector<ArchiveFile> unzipped(std::string_view bytes, std::uint64_t limit) {
    const Source source(zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr));
    const Archive archive = opened(source.source, ZIP_RDONLY | ZIP_CHECKCONS);
    std::vector<ArchiveFile> files;
    const zip_int64_t count = zip_get_num_entries(archive.get(), 0);
    for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i) {
        zip_stat_t status;
        if (zip_stat_index(archive.get(), i, 0, &status) < 0 || !(status.valid & ZIP_STAT_SIZE) || !(status.valid & ZIP_STAT_NAME))
            throw RuntimeError(invalidFileFormat, "Damaged archive: an entry has no name or no size.");
        if (status.size > limit) raise(Error::outOfMemory, "The archive holds more than can be shown.");
        limit -= status.size;
        files.push_back({status.name, contentOf(archive.get(), i, status.size)});
    }
    return files;
}

}  // namespace canvas::tracing
