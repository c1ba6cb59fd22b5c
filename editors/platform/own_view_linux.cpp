#include "editors/own_view.h"

#include <dlfcn.h>
#include <link.h>

#include <filesystem>
#include <string>

#include "editors/view_contract.h"

namespace canvas::editors {
namespace {

namespace fs = std::filesystem;

constexpr const char* fileName = "libCanvasView.so";

/// The library or program that holds this code. A program's own name is not known to the loader.
fs::path ownFile() {
    Dl_info info{};
    link_map* map = nullptr;
    std::error_code failed;
    if (dladdr1(fileName, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP) && map && map->l_name[0])
        return fs::canonical(map->l_name, failed);
    return fs::canonical("/proc/self/exe", failed);
}

struct Loaded {
    CanvasView view = nullptr;
    std::string trouble;
};

/// Stays loaded to the end: toolkits do not survive being unloaded.
Loaded load() {
    const fs::path folder = ownFile().parent_path();
    fs::path file = folder / fileName;
    std::error_code failed;
    if (!fs::exists(file, failed)) file = folder.parent_path() / "lib" / fileName;
    void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void* symbol = library ? dlsym(library, canvasViewSymbol) : nullptr;
    if (symbol) return {reinterpret_cast<CanvasView>(symbol), {}};
    const char* said = dlerror();
    return {nullptr, said ? said : std::string(fileName) + " is none"};
}

const Loaded& loaded() {
    static const Loaded once = load();
    return once;
}

}  // namespace

Interaction* ownView() { return loaded().view ? loaded().view(viewContract()) : nullptr; }

std::string_view ownViewFile() noexcept { return fileName; }

std::string ownViewTrouble() {
    if (!loaded().view) return loaded().trouble;
    return ownView() ? std::string() : std::string(fileName) + " reaches no screen, or is of another build";
}

}  // namespace canvas::editors
