#include "document/program_links.h"

#include <algorithm>

#include "attributes/program_control.h"
#include "document/catalogue.h"
#include "host/utility.h"

namespace canvas {

void ProgramLinks::take(int line, const clsBVTBlock& block, const BlockLine& text) {
    auto* attribute = block.vntAttribute ? faceOf<AttributeObject>(*block.vntAttribute) : nullptr;
    if (!attribute) return;
    const std::int16_t id = block.intBlockID;
    if (block.intBlockType == SUPERBLOCK) {
        const std::int32_t declared = text.declaredPlace();
        calls.push_back({line, id, std::string(stripQuotes(text[declared + 1])), std::string(stripQuotes(text[declared + 2]))});
    } else if (block.intBlockType == RESTARTPROGRAM) {
        const auto& launch = static_cast<const clsBVTRestartProgram&>(*attribute);
        for (std::int16_t task = 1; task <= taskCount; ++task)
            tasks.push_back({line, id, task, true, launch.blnArTask[task], launch.intArBlockNumber[task]});
    } else if (block.intBlockType == SUSPENDPROGRAM) {
        const auto& suspend = static_cast<const clsBVTSuspendProgram&>(*attribute);
        for (std::int16_t task = 1; task <= taskCount; ++task)
            tasks.push_back({line, id, task, false, suspend.blnArTask[task], 0});
    }
}

void ProgramLinks::takeBlocks(const clsBVTBlockCol& all) {
    for (std::size_t i = 0; i < all.size(); ++i) blocks.push_back(all[i].intBlockID);
    std::sort(blocks.begin(), blocks.end());
}

bool ProgramLinks::hasBlock(std::int16_t id) const noexcept {
    return std::binary_search(blocks.begin(), blocks.end(), id);
}

}  // namespace canvas
