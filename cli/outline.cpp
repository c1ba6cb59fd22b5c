#include "cli/outline.h"

#include <set>

#include "document/catalogue.h"

namespace canvas::cli {
namespace {

/// Walks from one block along the output ports; the stack is explicit, since a program may be one long chain.
void follow(const clsBVTBlockCol& blocks, const clsBVTBlock& first, std::set<const clsBVTBlock*>& seen,
            std::vector<const clsBVTBlock*>& flow) {
    std::vector<const clsBVTBlock*> waiting{&first};
    while (!waiting.empty()) {
        const clsBVTBlock* block = waiting.back();
        waiting.pop_back();
        if (!seen.insert(block).second) continue;
        flow.push_back(block);
        for (const std::int16_t id : {block->intToSecondBlockID, block->intToFirstBlockID})
            if (const clsBVTBlock* next = id == unconnected ? nullptr : blocks.find(id)) waiting.push_back(next);
    }
}

}  // namespace

Outline outlineOf(const clsBVTCanvas& document) {
    const clsBVTBlockCol& blocks = *document.BlockCollection;
    Outline outline;
    std::set<const clsBVTBlock*> seen;
    for (std::size_t i = 0; i < blocks.size(); ++i)
        if (blocks[i].intBlockType == PROGRAMSTART) follow(blocks, blocks[i], seen, outline.flow);
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (seen.contains(&blocks[i])) continue;
        (blocks[i].intBlockType == NodeText ? outline.notes : outline.unreached).push_back(&blocks[i]);
    }
    return outline;
}

}  // namespace canvas::cli
