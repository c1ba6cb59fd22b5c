#include "document/connection_check.h"

#include <algorithm>
#include <vector>

#include "document/catalogue.h"
#include "host/convert.h"
#include "host/numbers.h"
#include "host/ports.h"
#include "host/text.h"

namespace canvas {
namespace {

bool leadsToItself(const clsBVTBlock& block) {
    for (std::size_t i = 0; i < block.inPortCount(); ++i)
        if (block.inPort(i).sngBlockID == static_cast<float>(block.intBlockID)) return true;
    return false;
}

/// The name without its extension, in upper case.
std::string stem(std::string_view fileTitle) {
    constexpr std::size_t extension = 4;
    if (text::length(fileTitle) < extension) raise(Error::invalidCall);
    return text::upper(text::withoutLast(fileTitle, extension));
}

}  // namespace

bool wellConnected(const clsBVTBlock& block) {
    const bool reached = block.inPortCount() > 0;
    switch (block.intBlockType) {
        case PROGRAMEND: return reached;
        case PROGRAMSTART: return block.blnTopPortUsed;
        case NodeText: return true;
        default: break;
    }
    if (!reached || (!block.blnTopPortUsed && !block.blnBottomPortUsed)) return false;
    // the test for a block that leads to itself is for one port in use only
    if (block.blnTopPortUsed && block.blnBottomPortUsed) return true;
    return !block.blnHasDualOutPort && !leadsToItself(block);
}

bool TagErrorAndWarning(std::string& strMessage, std::string_view strType, std::int16_t BlockID) {
    if (!strMessage.empty()) strMessage += '@';
    strMessage += strType;
    strMessage += ',';
    numbers::append(strMessage, BlockID);
    return false;
}

bool calls(const clsBVTBlock& block, std::string_view documentName) {
    if (block.intBlockType != SUPERBLOCK) return false;
    const std::string title = required(block.vntAttribute).get("title").toText();
    return stem(title) == stem(environment().utility->FileTitleOf(documentName));
}

bool CheckPathConnection(const clsBVTBlockCol& blocks, std::span<const std::int16_t> BlockState) {
    constexpr std::int16_t start = 1;
    constexpr std::int16_t end = 2;
    const auto bad = [&](std::int16_t id) {
        if (id < 0 || static_cast<std::size_t>(id) >= BlockState.size()) raise(Error::subscript);
        return BlockState[static_cast<std::size_t>(id)] != blockOK;
    };
    std::vector<std::int16_t> list;
    const auto addSources = [&](const clsBVTBlock& block) {
        for (std::size_t i = 0; i < block.inPortCount(); ++i) {
            const std::int16_t id = Value(block.inPort(i).sngBlockID).toInteger();
            if (std::find(list.begin(), list.end(), id) == list.end()) list.push_back(id);
        }
    };
    if (bad(start)) return false;
    addSources(blocks.byKey(end));
    for (std::size_t next = 0;; ++next) {
        if (next >= list.size()) raise(Error::subscript);
        const std::int16_t id = list[next];
        if (bad(id)) return false;
        addSources(blocks.byKey(id));
        if (id == start) return true;
    }
}

}  // namespace canvas
