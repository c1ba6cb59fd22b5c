#pragma once
// A disk that knows which files there are and which folder is current, and opens none.

#include <memory>
#include <set>
#include <string>
#include <utility>

#include "host/errors.h"
#include "host/ports.h"

namespace canvas::testing {

class KnownFiles final : public Files {
public:
    std::set<std::string> names;
    std::string folder = "C:\\Project";

    bool exists(const std::string& path) override { return names.contains(path); }
    std::string currentFolder() override { return folder; }
    bool isFolder(const std::string&) override { return false; }
    std::string read(const std::string&, std::uint64_t) override { raise(Error::deviceIO); }
    std::unique_ptr<Replacement> replace(const std::string&) override { raise(Error::deviceIO); }
    int open(const std::string&, OpenMode) override { raise(Error::deviceIO); }
    void close(int) override { raise(Error::badFileNumber); }
    std::string readLine(int) override { raise(Error::badFileNumber); }
    bool atEnd(int) override { raise(Error::badFileNumber); }
    void writeLine(int, std::string_view) override { raise(Error::badFileNumber); }
    void remove(const std::string&) override { raise(Error::deviceIO); }
    void rename(const std::string&, const std::string&) override { raise(Error::deviceIO); }
    void makeFolder(const std::string&) override { raise(Error::deviceIO); }
};

inline Environment withFiles(std::shared_ptr<Files> files) {
    Environment surroundings;
    surroundings.files = std::move(files);
    return surroundings;
}

}  // namespace canvas::testing
