// Registration where the platform has no registry: a file in the user's data folder (XDG Base Directory).

#include "component/platform/registration.h"

#include <cstdlib>
#include <vector>

#include <dlfcn.h>
#include <unistd.h>

#include "component/class_list.h"
#include "component/identifiers.h"
#include "component/library.h"
#include "host/errors.h"
#include "host/ports.h"

namespace canvas::component {
namespace {

/// Variables that hold no absolute path count as not set, as the standard wants it. Error 76 without any.
std::string dataFolder() {
    const auto absolute = [](const char* variable) {
        const char* value = std::getenv(variable);
        return std::string(value && value[0] == '/' ? value : "");
    };
    if (std::string folder = absolute("XDG_DATA_HOME"); !folder.empty()) return folder;
    const std::string home = absolute("HOME");
    if (home.empty()) raise(Error::pathNotFound);
    return home + "/.local/share";
}

std::string registrationFolder() { return dataFolder() + "/brevant/components"; }
std::string registrationFile() { return registrationFolder() + "/Canvas.json"; }

std::string pathOfLibrary() {
    Dl_info info{};
    if (!dladdr(reinterpret_cast<const void*>(&pathOfLibrary), &info) || !info.dli_fname) raise(Error::pathNotFound);
    char* const real = realpath(info.dli_fname, nullptr);
    if (!real) raise(Error::fileNotFound);
    std::string path = real;
    std::free(real);
    return path;
}

/// A JSON string (RFC 8259).
std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') result += '\\';
        if (byte >= 0x20) result += c;
        else result += std::string("\\u00") + "0123456789abcdef"[byte >> 4] + "0123456789abcdef"[byte & 0xF];
    }
    return result + '"';
}

std::string registration() {
    std::string json = "{\n  \"path\": " + quoted(pathOfLibrary()) + ",\n  \"version\": " + quoted(libraryVersion) +
                       ",\n  \"classes\": [";
    bool first = true;
    for (const ClassIdentifiers& row : classIdentifiers) {
        json += first ? "\n" : ",\n";
        first = false;
        json += "    {\"progId\": " + quoted("Canvas." + std::string(row.name)) + ", \"clsid\": " + quoted(textOf(row.clsid)) + "}";
    }
    return json + "\n  ]\n}\n";
}

/// Makes a folder and those above it; takes the ones it made away again unless `keep` is called.
class Folders {
public:
    Folders() = default;
    void make(const std::string& path) {
        Files& files = *environment().files;
        for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
            const std::string part = path.substr(0, end);
            if (!files.isFolder(part)) {
                files.makeFolder(part);
                m_made.push_back(part);
            }
            if (end == std::string::npos) return;
        }
    }
    ~Folders() {
        for (auto folder = m_made.rbegin(); folder != m_made.rend(); ++folder) ::rmdir(folder->c_str());
    }
    Folders(const Folders&) = delete;
    Folders& operator=(const Folders&) = delete;
    void keep() noexcept { m_made.clear(); }

private:
    std::vector<std::string> m_made;
};

}  // namespace

HRESULT registerClasses() {
    try {
        const std::string content = registration();
        Folders folders;
        folders.make(registrationFolder());
        environment().files->replace(registrationFile())->commit(content);
        folders.keep();
        return S_OK;
    } catch (const RuntimeError&) {
        return SELFREG_E_CLASS;
    }
}

HRESULT unregisterClasses() {
    try {
        Files& files = *environment().files;
        if (files.exists(registrationFile())) files.remove(registrationFile());
        return S_OK;
    } catch (const RuntimeError&) {
        return SELFREG_E_CLASS;
    }
}

}  // namespace canvas::component
