// The canvas as hosts see it by name: members in slot order, and its variables for the report.

#include "document/canvas.h"
#include "document/catalogue.h"
#include "tracing/branch.h"

namespace canvas {

std::span<const Member> clsBVTCanvas::table() noexcept {
    using C = clsBVTCanvas;
    static constexpr Member members[] = {
        property<&C::frmParentForm>("frmParentForm"),
        property<&C::intMaxNumberOfBlock>("MaxNumberOfBlock"),
        property<&C::BlockList, &C::setBlockList>("BlockList"),
        property<&C::blnBottomPortSelected, nullptr>("BottomPortSelected"),
        property<&C::blnCanvasDeleteEdge>("CanvasDeleteEdge"),
        property<&C::blnCanvasDeleteEntity>("CanvasDeleteEntity"),
        property<&C::blnChanged>("Changed"),
        property<&C::strName>("Name"),
        property<&C::blnLabel>("Label"),
        property<&C::lngLeft>("FormLeft"),
        property<&C::lngTop>("FormTop"),
        property<&C::lngHeight>("FormHeight"),
        property<&C::lngWidth>("FormWidth"),
        property<&C::dblZoom>("FormZoom"),
        property<&C::lngXPos>("FormXPos"),
        property<&C::lngYPos>("FormYPos"),
        property<&C::lngWindowState>("FormWindowState"),
        property<nullptr, &C::lngPreviousHeight>("FormPreviousHeight"),
        property<nullptr, &C::lngPreviousWidth>("FormPreviousWidth"),
        method<&C::GetAvailableBlockID>("GetAvailableBlockID"),
        method<&C::MakeAvailableBlockID>("MakeAvailableBlockID"),
        method<&C::DoesBlockIDExist>("DoesBlockIDExist"),
        method<&C::AddBlock>("AddBlock"),
        method<&C::RemoveBlock>("RemoveBlock"),
        method<&C::GetBlockCount>("GetBlockCount"),
        method<&C::GetBlockPosition>("GetBlockPosition"),
        method<&C::AddEdge>("AddEdge"),
        method<&C::RemoveEdge>("RemoveEdge"),
        method<&C::SelectPort>("SelectPort"),
        method<&C::Clear>("Clear"),
        method<&C::GetVersionNumber>("GetVersionNumber"),
        method<&C::BlockName>("BlockName"),
        property<&C::BlockName, nullptr>("getBlockName"),
        method<&C::GetBlockTypeID>("GetBlockTypeID"),
        method<&C::WriteFile>("WriteFile", 1),
        method<&C::Readfile>("Readfile"),
        method<&C::OpenQuote>("OpenQuote"),
        method<&C::WriteModelFile>("WriteModelFile"),
        method<&C::AddActionToUndoList>("AddActionToUndoList"),
        method<&C::UndoPerformed>("UndoPerformed"),
        method<&C::RedoPerformed>("RedoPerformed"),
        method<&C::CanUndo>("CanUndo"),
        method<&C::CanRedo>("CanRedo"),
        method<&C::CanPaste>("CanPaste"),
        method<&C::GetUndoActionCode>("GetUndoActionCode"),
        method<&C::GetRedoActionCode>("GetRedoActionCode"),
        method<&C::CheckConnection>("CheckConnection"),
        method<&C::Recursive>("Recursive"),
        method<&C::ShowAttributeFormAndChanged>("ShowAttributeFormAndChanged"),
        method<&C::HasRestartProgram>("HasRestartProgram"),
        method<&C::HasSuperBlock>("HasSuperBlock"),
        method<&C::UpdateRestartProgram>("UpdateRestartProgram"),
        method<&C::ReplaceThisSuperBlock>("ReplaceThisSuperBlock"),
        method<&C::UpdateSuperBlock>("UpdateSuperBlock"),
    };
    return members;
}

namespace {

Value modesOf(const History::Stack& stack) {
    auto modes = make<Collection>();
    for (const History::Step& step : stack) modes->Add(Value(step.mode));
    return modes;
}

Value recordsOf(const History::Stack& stack) {
    auto records = make<Collection>();
    for (const History::Step& step : stack) records->Add(Value(step.record));
    return records;
}

}  // namespace

void clsBVTCanvas::reportVariables(VariableSink& sink) const {
    tracing::Locals l(sink);
    Array used = Array::of("Boolean", {{1, Identifiers::highest}});
    for (std::int16_t id = 1; id <= Identifiers::highest; ++id) used.at(id) = blnArBlockIDHashTable.used(id);
    Array names = Array::of("String", {{0, highestBlockType}});
    for (std::int16_t type = 0; type <= highestBlockType; ++type) names.at(type) = Value(blockName(type));

    l("frmParentForm", frmParentForm);
    l("intMaxNumberOfBlock", intMaxNumberOfBlock);
    l("blnArBlockIDHashTable", used);
    l("BlockCollection", BlockCollection);
    l("blnBottomPortSelected", blnBottomPortSelected);
    l("blnCanvasDeleteEdge", blnCanvasDeleteEdge);
    l("blnCanvasDeleteEntity", blnCanvasDeleteEntity);
    l("blnChanged", blnChanged);
    l("strName", strName);
    l("strArBlockName", names);
    l("UndoListCol", modesOf(history.undo));
    l("RedoListCol", modesOf(history.redo));
    l("UndoListObjectsCol", recordsOf(history.undo));
    l("RedoListObjectsCol", recordsOf(history.redo));
    l("blnLabel", blnLabel);
    l("strVersionNumber", strVersionNumber);
    l("lngLeft", lngLeft);
    l("lngTop", lngTop);
    l("lngHeight", lngHeight);
    l("lngWidth", lngWidth);
    l("dblZoom", dblZoom);
    l("lngXPos", lngXPos);
    l("lngYPos", lngYPos);
    l("lngWindowState", lngWindowState);
    l("lngPreviousHeight", lngPreviousHeight);
    l("lngPreviousWidth", lngPreviousWidth);
}

}  // namespace canvas
