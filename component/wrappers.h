#pragma once
// Identity across the boundary: one interface for each object of the library while a host holds it, one adapter for
// each object of a host while the library holds it, and each unwrapped on its way back.

#include "component/com.h"
#include "host/object.h"

namespace canvas::component {

/// The interface of an object with a reference for the caller; Nothing gives null. A host's object gives its own.
Com<IDispatch> dispatchOf(const Ref<Object>& object);

/// The object behind an interface; null gives Nothing.
Ref<Object> objectBehind(IDispatch* dispatch);

class Dispatch;
class HostObject;

/// Who is wrapped. Entries are made and taken away by the wrappers themselves.
class Wrappers {
public:
    static void add(Object* object, Dispatch* wrapper);
    static void remove(Object* object) noexcept;
    /// An interface of ours that stands for an object; compared by address alone, so that nothing a stranger answers
    /// can be taken for one of ours.
    static void addInterface(IDispatch* dispatch, Object* object);
    static void removeInterface(IDispatch* dispatch) noexcept;
    static void add(IDispatch* dispatch, HostObject* adapter);
    static void remove(IDispatch* dispatch) noexcept;
};

}  // namespace canvas::component
