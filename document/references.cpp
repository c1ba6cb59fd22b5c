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

void untickAbsentTask(const clsBVTBlock& block, const Array& status, std::int16_t task) {
    if (status.at(task).toBoolean()) return;
    Object& attribute = required(block.vntAttribute);
    const auto fromOne = static_cast<std::int16_t>(task + 1);
    invoke(attribute, "SetArChkTask", fromOne, false);
    invoke(attribute, "SetArBlockNumber", fromOne, std::int16_t{1});
}

bool replaceSubroutine(const clsBVTBlock& block, std::string_view oldName, std::string_view newName) {
    UtilityLibrary& utility = *environment().utility;
    Object& attribute = required(block.vntAttribute);
    if (text::upper(utility.FileTitleOf(oldName)) != text::upper(attribute.get("title").toText())) return false;
    attribute.put("Name", Value(newName));
    attribute.put("title", Value(utility.FileTitleOf(newName)));
    return true;
}

}  // namespace canvas
