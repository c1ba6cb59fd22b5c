#pragma once
// The class factory.

#include "component/class_list.h"
#include "component/com.h"

namespace canvas::component {

class Factory final : public Standalone<Factory, IClassFactory, IID_IClassFactory> {
public:
    explicit Factory(const Class& made) noexcept : m_class(made) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** answer) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    const Class& m_class;
    inline static LONG m_locks = 0;  ///< of all factories: a lock outlives the one it was taken on
};

}  // namespace canvas::component
