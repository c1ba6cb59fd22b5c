#pragma once
// clsBVTUndoBuffer: one edit record, filled by the host and given back to it for undo and redo.

#include "document/object_list.h"
#include "host/members.h"

namespace canvas {

enum enuActionMode : std::int16_t {
    ActionRelationAdd = 0,
    ActionRelationDelete = 1,
    ActionEntityAdd = 2,
    ActionEntityDelete = 3,
    ActionEntityMove = 4,
    ActionEntityCut = 5,
    ActionEntityPaste = 6,
    ActionBlockEdit = 7,
    ActionLabelEdit = 8,
};

/// Objects of an action, and beside each a companion such as an attribute copy. Places count from 0; one outside is
/// error 9.
class clsBVTUndoBuffer final : public Tabled<clsBVTUndoBuffer> {
public:
    static constexpr std::string_view name = "clsBVTUndoBuffer";
    static std::span<const Member> table() noexcept;
    void reportVariables(VariableSink& sink) const override;

    ObjectList objArUndoableObjects;
    ObjectList objArObjectAttributes;
    std::int16_t intUndoActionMode = 0;
    std::int16_t intCount = 0;

    void Add(std::int16_t ActionMode, Ref<Object> Actionobject);
    /// Pairs with the object added last.
    void AddAttribute(Ref<Object> ActionAttribute);
    /// Overwrites an entry that is there.
    void SetUndoObjectAt(std::int16_t i, Ref<Object> Actionobject);
    /// Makes `i` the last entry, growing or cutting the array, and stores there: unlike SetUndoObjectAt, and hosts
    /// rely on both.
    void SetUndoAttributeAt(std::int16_t i, Ref<Object> Actionobject);
    Ref<Object> UndoableObjectAt(std::int16_t i) const;
    Ref<Object> UndoableAttributeAt(std::int16_t i) const;
};

}  // namespace canvas
