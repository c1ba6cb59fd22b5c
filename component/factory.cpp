#include "component/factory.h"

#include "component/failure.h"
#include "component/wrappers.h"

namespace canvas::component {

HRESULT Factory::CreateInstance(IUnknown* outer, REFIID riid, void** answer) {
    if (!answer) return E_POINTER;
    *answer = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return guarded([&] { return dispatchOf(m_class.create())->QueryInterface(riid, answer); });
}

HRESULT Factory::LockServer(BOOL lock) {
    if (!lock && m_locks == 0) return E_UNEXPECTED;
    m_locks += lock ? 1 : -1;
    Held::others += lock ? 1 : -1;
    return S_OK;
}

}  // namespace canvas::component
