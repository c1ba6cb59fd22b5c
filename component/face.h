#pragma once
// IBlockAttribute of an attribute object: the same object under the interface's plain names.

#include "component/dispatch.h"

namespace canvas::component {

/// Part of its owner: references and interfaces are the owner's.
class Face final : public IDispatch {
public:
    explicit Face(Dispatch& owner);
    ~Face();
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** answer) override {
        return m_owner.QueryInterface(riid, answer);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return m_owner.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return m_owner.Release(); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return m_owner.GetTypeInfoCount(count); }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID language, ITypeInfo** info) override {
        return m_owner.GetTypeInfo(index, language, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID, DISPID* numbers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID riid, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

private:
    Dispatch& m_owner;
};

}  // namespace canvas::component
