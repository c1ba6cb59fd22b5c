#include "document/undo_buffer.h"

#include "tracing/branch.h"

namespace canvas {

using tracing::Locals;
using tracing::Procedure;

namespace {

/// Makes `last` the last place, growing or cutting. A place before the first is error 9.
void resize(std::vector<Ref<Object>>& objects, std::int32_t last) {
    if (last < 0) raise(Error::subscript);
    const auto size = static_cast<std::size_t>(last) + 1;
    std::vector<Ref<Object>> cut;  // the end of what is cut off may be a host's, and come back here
    while (objects.size() > size) {
        cut.push_back(std::move(objects.back()));
        objects.pop_back();
    }
    objects.resize(size);
}

template <class Objects>
auto& entry(Objects& objects, std::int16_t i) {
    if (i < 0 || static_cast<std::size_t>(i) >= objects.size()) raise(Error::subscript);
    return objects[static_cast<std::size_t>(i)];
}

}  // namespace

void clsBVTUndoBuffer::Add(std::int16_t ActionMode, Ref<Object> Actionobject) {
    Procedure run(name, "Add", this, [&](Locals& l) {
        l("ActionMode", ActionMode);
        l("Actionobject", Actionobject);
    });
    run(
        [&] {
            intUndoActionMode = ActionMode;
            resize(objArUndoableObjects, intCount);
            objArUndoableObjects.back() = Actionobject;
        },
        [&] { intCount = Value(intCount + 1).toInteger(); });
}

void clsBVTUndoBuffer::AddAttribute(Ref<Object> ActionAttribute) {
    Procedure run(name, "AddAttribute", this, [&](Locals& l) { l("ActionAttribute", ActionAttribute); });
    run([&] {
        resize(objArObjectAttributes, intCount - 1);
        objArObjectAttributes.back() = ActionAttribute;
    });
}

void clsBVTUndoBuffer::SetUndoObjectAt(std::int16_t i, Ref<Object> Actionobject) {
    Procedure run(name, "SetUndoObjectAt", this, [&](Locals& l) {
        l("i", i);
        l("Actionobject", Actionobject);
    });
    run([&] { entry(objArUndoableObjects, i) = Actionobject; });
}

void clsBVTUndoBuffer::SetUndoAttributeAt(std::int16_t i, Ref<Object> Actionobject) {
    Procedure run(name, "SetUndoAttributeAt", this, [&](Locals& l) {
        l("i", i);
        l("Actionobject", Actionobject);
    });
    run([&] {
        resize(objArObjectAttributes, i);
        objArObjectAttributes.back() = Actionobject;
    });
}

Ref<Object> clsBVTUndoBuffer::UndoableObjectAt(std::int16_t i) const {
    Ref<Object> result;
    Procedure run(name, "UndoableObjectAt", this, [&](Locals& l) { l("i", i); });
    run([&] { result = entry(objArUndoableObjects, i); });
    return result;
}

Ref<Object> clsBVTUndoBuffer::UndoableAttributeAt(std::int16_t i) const {
    Ref<Object> result;
    Procedure run(name, "UndoableAttributeAt", this, [&](Locals& l) { l("i", i); });
    run([&] { result = entry(objArObjectAttributes, i); });
    return result;
}

void clsBVTUndoBuffer::reportVariables(VariableSink& sink) const {
    const auto array = [](const std::vector<Ref<Object>>& objects) {
        return Value(objects.empty() ? Array::undimensioned("Object") : arrayOf("Object", objects));
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
