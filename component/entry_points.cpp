// The four entry points.

#include "component/class_list.h"
#include "component/factory.h"
#include "component/failure.h"
#include "component/identifiers.h"
#include "component/library.h"
#include "component/platform/registration.h"
#include "tracing/faults.h"

namespace canvas::component {
namespace {

/// Undoes, when the library is unloaded, what the start routine did at its first use, whichever call that was.
struct Unloading {
    ~Unloading() {
        tracing::vbwUnHandleException();
        endLibrary();
    }
};
const Unloading atUnloading;

HRESULT giveFactory(REFCLSID clsid, REFIID riid, void** answer) {
    const ClassIdentifiers* row = identifiersOf(clsid);
    const Class* known = row ? classNamed(row->name) : nullptr;
    if (!known || !known->create) return CLASS_E_CLASSNOTAVAILABLE;
    startLibrary();
    Com<Factory> factory;
    *factory.out() = new Factory(*known);
    return factory->QueryInterface(riid, answer);
}

}  // namespace
}  // namespace canvas::component

using namespace canvas::component;

CANVAS_EXPORT HRESULT STDMETHODCALLTYPE DllGetClassObject(REFCLSID rclsid, REFIID riid, void** ppv) {
    if (!ppv) return E_POINTER;
    *ppv = nullptr;
    // a reference is never null to the compiler; to a caller in another language it may be
    const auto missing = [](const GUID& id) {
        const GUID* volatile address = &id;
        return address == nullptr;
    };
    if (missing(rclsid) || missing(riid)) return E_INVALIDARG;
    return guarded([&] { return giveFactory(rclsid, riid, ppv); });
}

CANVAS_EXPORT HRESULT STDMETHODCALLTYPE DllCanUnloadNow() {
    return Held::objects == 0 && Held::others == 0 ? S_OK : S_FALSE;
}

CANVAS_EXPORT HRESULT STDMETHODCALLTYPE DllRegisterServer() {
    return guarded([] { return registerClasses(); });
}

CANVAS_EXPORT HRESULT STDMETHODCALLTYPE DllUnregisterServer() {
    return guarded([] { return unregisterClasses(); });
}
