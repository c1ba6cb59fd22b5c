#pragma once
// One numbered file of the disk, line by line.

#include <string>
#include <string_view>

#include <sys/stat.h>

#include "host/files.h"
#include "host/posix.h"

namespace canvas {

class NumberedFile {
public:
    /// `path` is a native name. Only regular files open; output creates or empties later, in `begin`.
    NumberedFile(const std::string& path, OpenMode mode);

    /// Whether both are the same file of the disk, under whatever names.
    bool isSameFileAs(const NumberedFile& other) const noexcept;
    OpenMode mode() const noexcept { return m_mode; }
    /// Empties a file opened for output. Apart from opening, so that a file refused as already open keeps its content.
    void begin();

    /// Error 52 in another mode than input; 62 at the end.
    std::string readLine();
    /// True for a file that is not open for input.
    bool atEnd();
    /// Error 52 for a file open for input.
    void writeLine(std::string_view line);
    void close();

private:
    bool fill();

    std::string m_path;
    OpenMode m_mode;
    posix::Descriptor m_file;
    struct stat m_identity {};
    std::string m_buffer;  ///< read from the file; [m_at, end) is not handed out yet
    std::size_t m_at = 0;
};

}  // namespace canvas
