#include "component/wrappers.h"

#include <unordered_map>

#include "component/dispatch.h"
#include "component/host_object.h"

namespace canvas::component {
namespace {

struct Known {
    std::unordered_map<Object*, Dispatch*> dispatches;
    std::unordered_map<IDispatch*, Object*> ours;
    std::unordered_map<IDispatch*, HostObject*> adapters;
};

/// Stays at the process's end while something is held: its holder may let it go later than that.
Known& known() {
    struct Owner {
        Known* tables = new Known;
        ~Owner() {
            if (tables->ours.empty() && tables->adapters.empty()) delete tables;
        }
    };
    static const Owner owner;
    return *owner.tables;
}

}  // namespace

void Wrappers::add(Object* object, Dispatch* wrapper) { known().dispatches[object] = wrapper; }
void Wrappers::remove(Object* object) noexcept { known().dispatches.erase(object); }
void Wrappers::addInterface(IDispatch* dispatch, Object* object) { known().ours[dispatch] = object; }
void Wrappers::removeInterface(IDispatch* dispatch) noexcept { known().ours.erase(dispatch); }
void Wrappers::add(IDispatch* dispatch, HostObject* adapter) { known().adapters[dispatch] = adapter; }
void Wrappers::remove(IDispatch* dispatch) noexcept { known().adapters.erase(dispatch); }

Com<IDispatch> dispatchOf(const Ref<Object>& object) {
    if (!object) return {};
    if (auto* host = faceOf<HostObject>(*object)) return Com<IDispatch>(host->dispatch());
    const auto& dispatches = known().dispatches;
    const auto wrapper = dispatches.find(object.get());
    if (wrapper != dispatches.end()) return Com<IDispatch>(wrapper->second);
    Com<IDispatch> made;
    *made.out() = new Dispatch(object);  // begins with the reference that is handed over here
    return made;
}

Ref<Object> objectBehind(IDispatch* dispatch) {
    if (!dispatch) return nullptr;
    const auto& [dispatches, ours, adapters] = known();
    if (const auto own = ours.find(dispatch); own != ours.end()) return Ref<Object>(own->second);
    if (const auto adapter = adapters.find(dispatch); adapter != adapters.end()) return Ref<Object>(adapter->second);
    return Ref<Object>(new HostObject(dispatch));
}

}  // namespace canvas::component
