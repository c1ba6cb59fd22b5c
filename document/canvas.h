#pragma once
// clsBVTCanvas: the document, one for each open program.
//
//     auto document = make<clsBVTCanvas>();
//     document->Readfile("homing.bpg");          // reads homing.bpa
//     std::string findings;
//     document->CheckConnection(findings);       // "Error,5@Error,9"
//     document->WriteFile("homing.bpg");

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "document/block_col.h"
#include "document/edge.h"
#include "document/history.h"
#include "document/identifiers.h"
#include "document/undo_buffer.h"

namespace canvas {

enum enuSpacingMode : std::int16_t { SpacingEvenHorizontal = 0 };
enum enuAlignMode : std::int16_t { AlignBottom = 0, AlignMiddle = 1, AlignTop = 2, AlignLeft = 3, AlignCenter = 4, AlignRight = 5 };
/// The `Mode` of SelectPort.
enum enuDeviceMode : std::int16_t { TopTobottom = 0, BottomToTop = 1 };

/// A host's view of the undo steps. `Cancel` comes in as the sink before left it; once true it stays true.
class CanvasEvents {
public:
    virtual ~CanvasEvents() = default;
    virtual void PreAddtoUndo(bool& /*Cancel*/) {}
    virtual void PostAddtoUndo(const Ref<Object>& /*UndoableObject*/) {}
    virtual void PreUndo(bool& /*Cancel*/) {}
    virtual void PostUndo() {}
    virtual void PreRedo(bool& /*Cancel*/) {}
    virtual void PostRedo() {}
};

class clsBVTCanvas final : public Tabled<clsBVTCanvas> {
public:
    static constexpr std::string_view name = "clsBVTCanvas";
    static std::span<const Member> table() noexcept;
    void reportVariables(VariableSink& sink) const override;

    Ref<Object> frmParentForm;  ///< the host's main window object; without one there is no active form
    std::int16_t intMaxNumberOfBlock = 1023;  ///< 250 after Clear
    Identifiers blnArBlockIDHashTable;
    Ref<clsBVTBlockCol> BlockCollection = make<clsBVTBlockCol>();
    bool blnBottomPortSelected = false;
    bool blnCanvasDeleteEdge = false;
    bool blnCanvasDeleteEntity = false;  ///< kept for the host
    bool blnChanged = false;
    std::string strName;
    History history;
    bool blnLabel = true;  ///< kept for the host
    std::string strVersionNumber;  ///< of the last file read
    std::int32_t lngLeft = 0, lngTop = 0, lngHeight = 0, lngWidth = 0;
    double dblZoom = 0;  ///< a factor: 1 is 100 %
    std::int32_t lngXPos = 0, lngYPos = 0;
    std::int32_t lngWindowState = 0;
    std::int32_t lngPreviousHeight = 0, lngPreviousWidth = 0;  ///< saved while the window is not in its normal state

    // Block identifiers
    /// Marks the lowest free identifier and gives it; -1 when all are used.
    std::int16_t GetAvailableBlockID();
    void MakeAvailableBlockID(std::int16_t Index);
    bool DoesBlockIDExist(std::int16_t iBlockID) const;

    // Blocks
    /// Stores a copy of the block. False, with a box, when the document is full.
    bool AddBlock(clsBVTBlock& Block);
    /// AddBlock for a block that nobody else holds: it is stored itself.
    bool adoptBlock(Ref<clsBVTBlock> block);
    /// Detaches the block from its neighbours and removes it. An ID at the maximum cannot be removed.
    bool RemoveBlock(std::int16_t intBlockID);
    std::int16_t GetBlockCount() const;
    /// Place from 1, 0 when absent.
    std::int16_t GetBlockPosition(std::int16_t intBlockID) const;
    Ref<clsBVTBlockCol> BlockList() const noexcept { return BlockCollection; }
    /// The identifiers in use stay as they are.
    void setBlockList(Ref<clsBVTBlockCol> blocks) { BlockCollection = Ref<clsBVTBlockCol>(&required(blocks)); }

    // Connections
    /// Joins two blocks by the rules of their ports. A refusal raises CanvasDeleteEdge; the host then takes its drawn
    /// edge away with RemoveEdge, which lowers the flag and changes nothing else.
    bool AddEdge(clsBVTEdge& Edge);
    void RemoveEdge(clsBVTEdge& Edge);
    void SelectPort(std::int16_t NodeMidPoint, std::int16_t MouseClickedY, std::int16_t Mode);
    void Clear();

    // Block names
    std::string BlockName(std::int16_t BlockType) const;
    std::int16_t GetBlockTypeID(std::string_view strBlockName) const;

    // Files
    /// Writes the program under the name with ".bpa". The status array is kept for the host's sake and not used.
    void WriteFile(std::string_view strFilename, const Value& blnArTaskStatus = {});
    /// Reads the program whose name is given without its last four characters, plus ".bpa". False after a failure,
    /// which is told in a box, and for a file without block lines.
    bool Readfile(std::string_view strFilename);
    /// Whether the text holds an odd number of double quotes.
    bool OpenQuote(std::string_view strString) const noexcept;
    bool WriteModelFile(const Value& tsEditor, std::string_view strFilename);
    std::string GetVersionNumber() const { return strVersionNumber; }

    // Undo and redo
    void AddActionToUndoList(std::int16_t ActionMode, Ref<Object> Actionobject);
    /// The record that goes over to the redo stack, for the host to apply; Nothing when a sink cancelled the step.
    Ref<Object> UndoPerformed();
    Ref<Object> RedoPerformed();
    bool CanUndo() const noexcept { return !history.undo.empty(); }
    bool CanRedo() const noexcept { return !history.redo.empty(); }
    /// Whether there is a block; it says nothing of any clipboard.
    bool CanPaste() const noexcept { return BlockCollection->size() > 0; }
    std::int16_t GetUndoActionCode() const noexcept { return History::topMode(history.undo); }
    std::int16_t GetRedoActionCode() const noexcept { return History::topMode(history.redo); }

    /// Sinks are called in the order of their advising; the cookie takes one away again, also during a call.
    std::int32_t advise(std::shared_ptr<CanvasEvents> sink);
    void unadvise(std::int32_t cookie);

    // Checks
    /// Appends a record "Error,ID" for each wrongly connected block, joined by "@". True when there is none.
    bool CheckConnection(std::string& strMessage);
    /// Whether the program calls itself as a subroutine.
    bool Recursive();

    // References to other programs
    bool HasRestartProgram() const noexcept;
    bool HasSuperBlock() const noexcept;
    /// Unticks tasks that are gone, by an array of eight flags from 0. Always False; `Changed` stays as it is.
    bool UpdateRestartProgram(const Value& blnArTaskStatus);
    /// True when at least one block called the subroutine; `Changed` stays as it is, the caller has to save.
    bool ReplaceThisSuperBlock(std::string_view strOldName, std::string_view strNewName);
    /// Does nothing, and says so with False.
    bool UpdateSuperBlock() { return false; }

    // Dialogs
    /// Opens the block's dialog, modal, with what the host's main window object offers. True when the attribute was
    /// changed; `Changed` and the undo lists are the host's to keep. A type without a dialog gives False at once. A
    /// failure, as when a host's member is missing, is told in a box.
    bool ShowAttributeFormAndChanged(std::int16_t BlockID, Ref<Object>& fForm);

private:
    struct Advised {
        std::int32_t cookie;
        std::shared_ptr<CanvasEvents> sink;
    };

    /// Detaches a block from its neighbours.
    void UpdateBlock(std::int16_t BlockID);
    template <class Call>
    void eachSink(Call&& call);
    bool vetoed(void (CanvasEvents::*event)(bool&));

    std::vector<Advised> m_sinks;
    std::int32_t m_lastCookie = 0;
};

}  // namespace canvas
