#include "document/canvas.h"

#include "document/catalogue.h"
#include "document/connection_check.h"
#include "document/program_reader.h"
#include "document/program_writer.h"
#include "document/references.h"
#include "host/convert.h"
#include "host/numbers.h"
#include "host/ports.h"
#include "tracing/branch.h"

namespace canvas {

using tracing::Locals;
using tracing::onFailure;
using tracing::Procedure;

// Block identifiers

std::int16_t clsBVTCanvas::GetAvailableBlockID() {
    std::int16_t result = 0;
    Procedure run(name, "GetAvailableBlockID", this, [](Locals&) {});
    run([&] { result = blnArBlockIDHashTable.takeLowest(intMaxNumberOfBlock); });
    return result;
}

void clsBVTCanvas::MakeAvailableBlockID(std::int16_t Index) {
    Procedure run(name, "MakeAvailableBlockID", this, [&](Locals& l) { l("Index", Index); });
    run([&] { blnArBlockIDHashTable.give(Index); });
}

bool clsBVTCanvas::DoesBlockIDExist(std::int16_t iBlockID) const {
    return static_cast<bool>(BlockCollection->GetBlockByBlockID(iBlockID));
}

// Blocks

bool clsBVTCanvas::AddBlock(clsBVTBlock& Block) {
    bool result = false;
    onFailure(
        [&] {
            if (BlockCollection->Count() >= intMaxNumberOfBlock) {
                tell("Exceeded Maximum Number of Blocks (" + numbers::textOf(std::int32_t{intMaxNumberOfBlock}) +
                         ") Allowed! ",
                     Icon::critical);
                return;
            }
            BlockCollection->Add(Block);
            blnArBlockIDHashTable.take(Block.intBlockID);
            result = true;
        },
        [](const RuntimeError& error) { tell("clsBVTCanvas.AddBlock: " + bracketed(error)); });
    return result;
}

bool clsBVTCanvas::adoptBlock(Ref<clsBVTBlock> block) {
    const bool takes = block->vntAttribute && BlockCollection->Count() < intMaxNumberOfBlock;
    if (!takes) return AddBlock(*block);
    blnArBlockIDHashTable.take(block->intBlockID);
    BlockCollection->adopt(std::move(block));
    return true;
}

bool clsBVTCanvas::RemoveBlock(std::int16_t intBlockID) {
    bool result = false;
    onFailure(
        [&] {
            // the maximum itself is out of reach, and stays so: hosts number their last block below it
            if (intBlockID >= intMaxNumberOfBlock || intBlockID < 0) return;
            detachBlock(intBlockID);
            BlockCollection->Delete(Value(numbers::textOf(std::int32_t{intBlockID})));
            blnArBlockIDHashTable.give(intBlockID);
            result = true;
        },
        [](const RuntimeError& error) { tell("clsBVTCanvas.RemoveBlock: " + bracketed(error)); });
    return result;
}

void clsBVTCanvas::detachBlock(std::int16_t BlockID) {
    onFailure(
        [&] {
            clsBVTBlock& block = BlockCollection->byKey(BlockID);
            if (block.blnTopPortUsed && block.intToFirstBlockID != unconnected)
                BlockCollection->byKey(block.intToFirstBlockID).RemoveFromBlockID(BlockID);
            if (block.blnBottomPortUsed && block.intToSecondBlockID != unconnected)
                BlockCollection->byKey(block.intToSecondBlockID).RemoveFromBlockID(BlockID);
            for (std::size_t i = 0; i < block.inPortCount(); ++i) {
                clsBVTBlock& source = BlockCollection->byKey(Value(block.inPort(i).sngBlockID).toInteger());
                if (source.blnHasDualOutPort && source.intToFirstBlockID != BlockID) {
                    source.intToSecondBlockID = unconnected;
                    source.blnBottomPortUsed = false;
                } else {
                    source.intToFirstBlockID = unconnected;
                    source.blnTopPortUsed = false;
                }
            }
        },
        [](const RuntimeError& error) { tell("Cavans.UpateBlock(): " + bracketed(error)); });
}

std::int16_t clsBVTCanvas::GetBlockCount() const {
    std::int16_t result = 0;
    Procedure run(name, "GetBlockCount", this, [](Locals&) {});
    run([&] { result = Value(BlockCollection->Count()).toInteger(); });
    return result;
}

std::int16_t clsBVTCanvas::GetBlockPosition(std::int16_t intBlockID) const {
    for (std::size_t i = 0; i < BlockCollection->size(); ++i)
        if ((*BlockCollection)[i].intBlockID == intBlockID) return static_cast<std::int16_t>(i + 1);
    return 0;
}

// Connections

namespace {

/// One of a block's two output ports.
struct OutPort {
    bool& used;
    std::int16_t& to;

    void connect(std::int16_t target) {
        used = true;
        to = target;
    }
    void clear() {
        used = false;
        to = unconnected;
    }
};

OutPort port(clsBVTBlock& block, bool top) {
    if (top) return {block.blnTopPortUsed, block.intToFirstBlockID};
    return {block.blnBottomPortUsed, block.intToSecondBlockID};
}

/// Takes the edge's port of the source when that is free; the two ports of a block cannot lead to one target.
bool takePort(clsBVTBlock& source, const clsBVTEdge& edge) {
    if (source.AllOutPortTaken()) return false;
    if (!source.blnHasDualOutPort) {
        port(source, true).connect(edge.intToBlockID);
        return true;
    }
    OutPort asked = port(source, edge.blnTopEdge);
    if (asked.used || edge.intToBlockID == port(source, !edge.blnTopEdge).to) return false;
    asked.connect(edge.intToBlockID);
    return true;
}

}  // namespace

bool clsBVTCanvas::AddEdge(clsBVTEdge& Edge) {
    bool result = false;
    clsBVTBlock* Block = nullptr;
    clsBVTBlock* Block2 = nullptr;
    Procedure run(name, "AddEdge", this, [&](Locals& l) {
        l("Edge", Ref<Object>(&Edge));
        l("Block", Ref<Object>(Block));
        l("Block2", Ref<Object>(Block2));
    });
    const auto refuse = [&] {
        result = false;
        blnCanvasDeleteEdge = true;
    };
    run([&] { Block = &BlockCollection->byKey(Edge.intFromBlockID); },
        [&] { Block2 = &BlockCollection->byKey(Edge.intToBlockID); },
        [&] {
            result = takePort(required(Block), Edge);
            if (!result) refuse();
        },
        [&] {
            // runs after a refusal too: a link that was there before is then cleared, and hosts redraw by it
            if (required(Block2).blnNoInPort) {
                port(required(Block), Edge.blnTopEdge).clear();
                refuse();
            } else if (result) {
                Block2->AddFromBlockID(Edge.intFromBlockID, Edge.blnTopEdge);
            }
        });
    return result;
}

void clsBVTCanvas::RemoveEdge(clsBVTEdge& Edge) {
    clsBVTBlock* Block = nullptr;
    Procedure run(name, "RemoveEdge", this, [&](Locals& l) {
        l("Edge", Ref<Object>(&Edge));
        l("Block", Ref<Object>(Block));
    });
    run(
        [&] {
            if (!blnCanvasDeleteEdge) Block = &BlockCollection->byKey(Edge.intFromBlockID);
        },
        [&] {
            if (blnCanvasDeleteEdge) return;
            if (!required(Block).blnHasDualOutPort) Edge.blnTopEdge = true;
            port(*Block, Edge.blnTopEdge).clear();
        },
        [&] {
            if (!blnCanvasDeleteEdge) BlockCollection->byKey(Edge.intToBlockID).RemoveFromBlockID(Edge.intFromBlockID);
            blnCanvasDeleteEdge = false;
        });
}

void clsBVTCanvas::SelectPort(std::int16_t NodeMidPoint, std::int16_t MouseClickedY, std::int16_t Mode) {
    blnBottomPortSelected = (MouseClickedY <= NodeMidPoint) != (Mode == TopTobottom);
}

void clsBVTCanvas::Clear() {
    BlockCollection = make<clsBVTBlockCol>();
    blnArBlockIDHashTable.clear();
    intMaxNumberOfBlock = 250;  // a cleared document is meant for one screen, a new one takes all identifiers
    blnBottomPortSelected = false;
    blnCanvasDeleteEdge = false;
    blnChanged = false;
}

// Block names

std::string clsBVTCanvas::BlockName(std::int16_t BlockType) const {
    std::string result;
    Procedure run(name, "BlockName", this, [&](Locals& l) { l("BlockType", BlockType); });
    run([&] { result = blockName(BlockType); });
    return result;
}

std::int16_t clsBVTCanvas::GetBlockTypeID(std::string_view strBlockName) const { return blockTypeOf(strBlockName); }

// Files

void clsBVTCanvas::WriteFile(std::string_view strFilename, const Value&) { writeProgram(*this, strFilename); }

bool clsBVTCanvas::Readfile(std::string_view strFilename) { return readProgram(*this, strFilename); }

bool clsBVTCanvas::OpenQuote(std::string_view strString) const noexcept {
    bool open = false;
    for (const char c : strString) open ^= c == '"';
    return open;
}

bool clsBVTCanvas::WriteModelFile(const Value& tsEditor, std::string_view strFilename) {
    Procedure run(name, "WriteModelFile", this, [&](Locals& l) {
        l("tsEditor", tsEditor);
        l("strFilename", strFilename);
    });
    run([&] { invoke(required(tsEditor.toObject()), "WriteModelFile", strFilename); });
    return false;
}

void clsBVTCanvas::UpdateFromBlockInfo() {
    const auto leavesBy = [&](const clsBVTBlock& source, std::int16_t target, bool top) {
        clsBVTBlock* block = target == unconnected ? nullptr : BlockCollection->find(target);
        if (block) block->intColFromBlockID.setFromTopPort(source.intBlockID, top);
    };
    for (std::size_t i = 0; i < BlockCollection->size(); ++i) {
        const clsBVTBlock& block = (*BlockCollection)[i];
        if (!block.blnHasDualOutPort) continue;
        leavesBy(block, block.intToFirstBlockID, true);
        leavesBy(block, block.intToSecondBlockID, false);
    }
}

// Checks

bool clsBVTCanvas::CheckConnection(std::string& strMessage) {
    bool result = false;
    Procedure run(name, "CheckConnection", this, [&](Locals& l) { l("strMessage", strMessage); });
    run([&] { result = checkConnection(*BlockCollection, strMessage); });
    return result;
}

bool clsBVTCanvas::Recursive() {
    bool result = false;
    Procedure run(name, "Recursive", this, [](Locals&) {});
    run([&] { result = callsItself(*BlockCollection, strName); });
    return result;
}

// References to other programs

bool clsBVTCanvas::HasRestartProgram() const noexcept { return hasBlockOfType(*BlockCollection, RESTARTPROGRAM); }

bool clsBVTCanvas::HasSuperBlock() const noexcept { return hasBlockOfType(*BlockCollection, SUPERBLOCK); }

bool clsBVTCanvas::UpdateRestartProgram(const Value& blnArTaskStatus) {
    Procedure run(name, "UpdateRestartProgram", this, [&](Locals& l) { l("blnArTaskStatus", blnArTaskStatus); });
    run([&] { untickAbsentTasks(*BlockCollection, blnArTaskStatus.toArray()); });
    return false;
}

bool clsBVTCanvas::ReplaceThisSuperBlock(std::string_view strOldName, std::string_view strNewName) {
    bool result = false;
    Procedure run(name, "ReplaceThisSuperBlock", this, [&](Locals& l) {
        l("strOldName", strOldName);
        l("strNewName", strNewName);
    });
    run([&] { result = replaceSubroutine(*BlockCollection, strOldName, strNewName); });
    return result;
}

// Still to be built

bool clsBVTCanvas::ShowAttributeFormAndChanged(std::int16_t, Ref<Object>&) { raise(Error::actionNotSupported); }

}  // namespace canvas
