#include "cli/inputs.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "cli/pattern.h"
#include "document/program_writer.h"

namespace canvas::cli {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view extensionShown = ".bpg", extensionOnDisk = ".bpa";

/// Adds the programs of a folder and of those below it.
void addFolder(const fs::path& folder, std::vector<std::string>& files) {
    std::error_code refused;
    fs::directory_iterator entries(folder, refused);
    for (; !refused && entries != fs::directory_iterator(); entries.increment(refused)) {
        std::error_code unknown;
        const fs::path path = entries->path();
        if (!entries->is_directory(unknown)) {
            if (path.string().ends_with(extensionOnDisk)) files.push_back(path.string());
        } else if (!entries->is_symlink(unknown)) {
            addFolder(path, files);
        }
    }
    if (refused) files.push_back(folder.string());
}

void addPath(const std::string& path, std::vector<std::string>& files) {
    std::error_code unknown;
    if (fs::is_directory(path, unknown)) addFolder(path, files);
    else files.push_back(path);
}

void addPattern(const std::string& pattern, std::vector<std::string>& files) {
    for (const std::string& path : expand(pattern)) addPath(path, files);
}

}  // namespace

std::string fileOf(const std::string& name) {
    std::string path = name;
    std::replace(path.begin(), path.end(), '\\', '/');  // programs name each other with backslashes
    return path.ends_with(extensionShown) ? nameOnDisk(path) : path;
}

Inputs findInputs(const std::vector<std::string>& paths) {
    Inputs inputs;
    for (const std::string& name : paths) {
        const std::string path = fileOf(name);
        const std::size_t before = inputs.files.size();
        std::error_code unknown;
        if (isPattern(path) && !fs::exists(fs::symlink_status(path, unknown))) addPattern(path, inputs.files);
        else addPath(path, inputs.files);
        if (inputs.files.size() == before) inputs.unmatched.push_back(name);
    }
    for (std::string& file : inputs.files)
        if (file.find("..") ==
            std::string::npos)  // behind a linked folder ".." is not the folder that was named before it
            file = fs::path(file).lexically_normal().string();
    std::sort(inputs.files.begin(), inputs.files.end());
    inputs.files.erase(std::unique(inputs.files.begin(), inputs.files.end()), inputs.files.end());
    return inputs;
}

}  // namespace canvas::cli
