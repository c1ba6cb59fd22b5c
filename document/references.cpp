#include "document/references.h"

#include "document/canvas.h"
#include "document/catalogue.h"
#include "host/convert.h"
#include "host/ports.h"
#include "host/text.h"

namespace canvas {
namespace {

class OnDisk final : public ProgramLookup {
public:
    bool hasBlock(const std::string& fileName, std::int16_t blockId) const override {
        const auto scratch = make<clsBVTCanvas>();
        scratch->Readfile(fileName);
        return scratch->DoesBlockIDExist(blockId);
    }
};

template <class Visit>
void eachOfType(const clsBVTBlockCol& blocks, std::int16_t type, Visit&& visit) {
    for (std::size_t i = 0; i < blocks.size(); ++i)
        if (blocks[i].intBlockType == type) visit(required(blocks[i].vntAttribute));
}

}  // namespace

const ProgramLookup& programsOnDisk() noexcept {
    static const OnDisk lookup;
    return lookup;
}

bool hasBlockOfType(const clsBVTBlockCol& blocks, std::int16_t type) noexcept {
    for (std::size_t i = 0; i < blocks.size(); ++i)
        if (blocks[i].intBlockType == type) return true;
    return false;
}

void untickAbsentTasks(const clsBVTBlockCol& blocks, const Array& status) {
    eachOfType(blocks, RESTARTPROGRAM, [&](Object& attribute) {
        for (std::int16_t j = 0; j < taskCount; ++j) {
            if (status.at(j).toBoolean()) continue;
            const auto task = static_cast<std::int16_t>(j + 1);
            invoke(attribute, "SetArChkTask", task, false);
            invoke(attribute, "SetArBlockNumber", task, std::int16_t{1});
        }
    });
}

bool replaceSubroutine(const clsBVTBlockCol& blocks, std::string_view oldName, std::string_view newName) {
    bool replaced = false;
    UtilityLibrary& utility = *environment().utility;
    eachOfType(blocks, SUPERBLOCK, [&](Object& attribute) {
        if (text::upper(utility.FileTitleOf(oldName)) != text::upper(attribute.get("title").toText())) return;
        attribute.put("Name", Value(newName));
        attribute.put("title", Value(utility.FileTitleOf(newName)));
        replaced = true;
    });
    return replaced;
}

}  // namespace canvas
