#include "document/canvas.h"

#include "document/catalogue.h"
#include "document/connection_check.h"
#include "document/form_dispatch.h"
#include "document/program_reader.h"
#include "document/program_writer.h"
#include "document/references.h"
#include "host/convert.h"
#include "host/numbers.h"
#include "host/ports.h"
#include "tracing/branch.h"

namespace canvas {

using tracing::Flow;
using tracing::Locals;
using tracing::onFailure;
using tracing::Procedure;

namespace {

/// Inside a step of `run`: each block in collection order, a statement of its own. The walk holds the blocks, whatever
/// a host does to the document meanwhile.
template <class Run, class Use>
Flow eachBlock(Run& run, const Ref<clsBVTBlockCol>& blocks, Use&& use) {
    const Ref<clsBVTBlockCol> walked = blocks;
    for (std::size_t i = 0; i < walked->size(); ++i) {
        const Ref<clsBVTBlock> block(&(*walked)[i]);
        if (run([&] { return use(*block); }) == Flow::leave) return Flow::leave;
    }
    return Flow::next;
}

}  // namespace

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
            // the maximum itself is out of reach on purpose
            if (intBlockID >= intMaxNumberOfBlock || intBlockID < 0) return;
            UpdateBlock(intBlockID);
            BlockCollection->Delete(Value(numbers::textOf(std::int32_t{intBlockID})));
            blnArBlockIDHashTable.give(intBlockID);
            result = true;
        },
        [](const RuntimeError& error) { tell("clsBVTCanvas.RemoveBlock: " + bracketed(error)); });
    return result;
}

void clsBVTCanvas::UpdateBlock(std::int16_t BlockID) {
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
    Ref<clsBVTBlock> Block;
    Ref<clsBVTBlock> Block2;
    Procedure run(name, "AddEdge", this, [&](Locals& l) {
        l("Edge", Ref<Object>(&Edge));
        l("Block", Block);
        l("Block2", Block2);
    });
    const auto refuse = [&] {
        result = false;
        blnCanvasDeleteEdge = true;
    };
    run([&] { Block = Ref<clsBVTBlock>(&BlockCollection->byKey(Edge.intFromBlockID)); },
        [&] { Block2 = Ref<clsBVTBlock>(&BlockCollection->byKey(Edge.intToBlockID)); },
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
    Ref<clsBVTBlock> Block;
    Procedure run(name, "RemoveEdge", this, [&](Locals& l) {
        l("Edge", Ref<Object>(&Edge));
        l("Block", Block);
    });
    run(
        [&] {
            if (!blnCanvasDeleteEdge) Block = Ref<clsBVTBlock>(&BlockCollection->byKey(Edge.intFromBlockID));
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
    intMaxNumberOfBlock = 250;  // less than the 1023 of a new canvas, on purpose
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

// Checks

bool clsBVTCanvas::CheckConnection(std::string& strMessage) {
    bool result = false;
    Procedure run(name, "CheckConnection", this, [&](Locals& l) { l("strMessage", strMessage); });
    run([&] {
        result = true;
        return eachBlock(run, BlockCollection, [&](const clsBVTBlock& block) {
            if (!wellConnected(block)) result = TagErrorAndWarning(strMessage, "Error", block.intBlockID);
            return Flow::next;
        });
    });
    return result;
}

bool clsBVTCanvas::Recursive() {
    bool result = false;
    Procedure run(name, "Recursive", this, [](Locals&) {});
    run([&] {
        return eachBlock(run, BlockCollection, [&](const clsBVTBlock& block) {
            result = calls(block, strName);
            return result ? Flow::leave : Flow::next;
        });
    });
    return result;
}

// References to other programs

bool clsBVTCanvas::HasRestartProgram() const noexcept { return hasBlockOfType(*BlockCollection, RESTARTPROGRAM); }

bool clsBVTCanvas::HasSuperBlock() const noexcept { return hasBlockOfType(*BlockCollection, SUPERBLOCK); }

bool clsBVTCanvas::UpdateRestartProgram(const Value& blnArTaskStatus) {
    std::int16_t j = 0;
    Procedure run(name, "UpdateRestartProgram", this, [&](Locals& l) {
        l("blnArTaskStatus", blnArTaskStatus);
        l("j", j);
    });
    run([&] {
        return eachBlock(run, BlockCollection, [&](const clsBVTBlock& block) {
            if (block.intBlockType != RESTARTPROGRAM) return Flow::next;
            for (j = 0; j < taskCount; ++j) {
                const auto untick = [&] { untickAbsentTask(block, blnArTaskStatus.toArray(), j); };
                if (run(untick) == Flow::leave) return Flow::leave;
            }
            return Flow::next;
        });
    });
    return false;
}

bool clsBVTCanvas::ReplaceThisSuperBlock(std::string_view strOldName, std::string_view strNewName) {
    bool result = false;
    Procedure run(name, "ReplaceThisSuperBlock", this, [&](Locals& l) {
        l("strOldName", strOldName);
        l("strNewName", strNewName);
    });
    run([&] {
        return eachBlock(run, BlockCollection, [&](const clsBVTBlock& block) {
            if (block.intBlockType == SUPERBLOCK && replaceSubroutine(block, strOldName, strNewName)) result = true;
            return Flow::next;
        });
    });
    return result;
}

// Dialogs

bool clsBVTCanvas::ShowAttributeFormAndChanged(std::int16_t BlockID, Ref<Object>& fForm) {
    bool result = false;
    onFailure([&] { result = showAttributeForm(*this, BlockID, fForm); },
              [](const RuntimeError& error) { tell("Canvas::ShowAttributeFormChanged " + error.description); });
    return result;
}

}  // namespace canvas
