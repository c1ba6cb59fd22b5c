#include "document/undo_buffer.h"

#include "tracing/branch.h"

namespace canvas {

using tracing::Locals;
using tracing::Procedure;

void clsBVTUndoBuffer::Add(std::int16_t ActionMode, Ref<Object> Actionobject) {
    Procedure run(name, "Add", this, [&](Locals& l) {
        l("ActionMode", ActionMode);
        l("Actionobject", Actionobject);
    });
    run(
        [&] {
            intUndoActionMode = ActionMode;
            objArUndoableObjects.endAt(intCount) = Actionobject;
        },
        [&] { intCount = Value(intCount + 1).toInteger(); });
}

void clsBVTUndoBuffer::AddAttribute(Ref<Object> ActionAttribute) {
    Procedure run(name, "AddAttribute", this, [&](Locals& l) { l("ActionAttribute", ActionAttribute); });
    run([&] { objArObjectAttributes.endAt(intCount - 1) = ActionAttribute; });
}

void clsBVTUndoBuffer::SetUndoObjectAt(std::int16_t i, Ref<Object> Actionobject) {
    Procedure run(name, "SetUndoObjectAt", this, [&](Locals& l) {
        l("i", i);
        l("Actionobject", Actionobject);
    });
    run([&] { objArUndoableObjects.at(i) = Actionobject; });
}

void clsBVTUndoBuffer::SetUndoAttributeAt(std::int16_t i, Ref<Object> Actionobject) {
    Procedure run(name, "SetUndoAttributeAt", this, [&](Locals& l) {
        l("i", i);
        l("Actionobject", Actionobject);
    });
    run([&] { objArObjectAttributes.endAt(i) = Actionobject; });
}

Ref<Object> clsBVTUndoBuffer::UndoableObjectAt(std::int16_t i) const {
    Ref<Object> result;
    Procedure run(name, "UndoableObjectAt", this, [&](Locals& l) { l("i", i); });
    run([&] { result = objArUndoableObjects.at(i); });
    return result;
}

Ref<Object> clsBVTUndoBuffer::UndoableAttributeAt(std::int16_t i) const {
    Ref<Object> result;
    Procedure run(name, "UndoableAttributeAt", this, [&](Locals& l) { l("i", i); });
    run([&] { result = objArObjectAttributes.at(i); });
    return result;
}

void clsBVTUndoBuffer::reportVariables(VariableSink& sink) const {
    const auto array = [](const ObjectList& objects) {
        if (objects.empty()) return Value(Array::undimensioned("Object"));
        std::vector<Ref<Object>> all;
        for (std::size_t i = 0; i < objects.size(); ++i) all.push_back(objects.at(static_cast<std::int32_t>(i)));
        return Value(arrayOf("Object", all));
    };
    sink.variable("objArUndoableObjects", array(objArUndoableObjects));
    sink.variable("objArObjectAttributes", array(objArObjectAttributes));
    sink.variable("intUndoActionMode", intUndoActionMode);
    sink.variable("intCount", intCount);
}

std::span<const Member> clsBVTUndoBuffer::table() noexcept {
    using C = clsBVTUndoBuffer;
    static constexpr Member members[] = {
        method<&C::Add>("Add"),
        method<&C::AddAttribute>("AddAttribute"),
        method<&C::SetUndoObjectAt>("SetUndoObjectAt"),
        method<&C::SetUndoAttributeAt>("SetUndoAttributeAt"),
        method<&C::UndoableObjectAt>("UndoableObjectAt"),
        method<&C::UndoableAttributeAt>("UndoableAttributeAt"),
        property<&C::intUndoActionMode>("UndoActionMode"),
        property<&C::intCount>("ElementCount"),
    };
    return members;
}

}  // namespace canvas
