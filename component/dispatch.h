#pragma once
// An object of the library as a host sees it.

#include <memory>

#include "component/com.h"
#include "component/member_list.h"

namespace canvas::component {

class EventSource;
class Face;

/// Lives while a host holds it, and holds its object. Answers IDispatch and IDispatchEx; the canvas also
/// IConnectionPointContainer, block attributes also IBlockAttribute.
class Dispatch final : public IDispatchEx {
public:
    /// Begins with the one reference of its maker.
    explicit Dispatch(Ref<Object> object);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** answer) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID, DISPID* numbers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID riid, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

    HRESULT STDMETHODCALLTYPE GetDispID(BSTR name, DWORD, DISPID* number) override;
    HRESULT STDMETHODCALLTYPE InvokeEx(DISPID number, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                       EXCEPINFO* exception, IServiceProvider*) override;
    HRESULT STDMETHODCALLTYPE DeleteMemberByName(BSTR, DWORD) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE DeleteMemberByDispID(DISPID) override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE GetMemberProperties(DISPID number, DWORD asked, DWORD* properties) override;
    HRESULT STDMETHODCALLTYPE GetMemberName(DISPID number, BSTR* name) override;
    HRESULT STDMETHODCALLTYPE GetNextDispID(DWORD, DISPID number, DISPID* next) override;
    HRESULT STDMETHODCALLTYPE GetNameSpaceParent(IUnknown** parent) override;

    Object& object() const noexcept { return *m_object; }

private:
    ~Dispatch();
    IUnknown* interfaceFor(REFIID riid);
    bool isDefaultInterface(REFIID riid) const noexcept;

    ULONG m_references = 1;
    Counting<&Held::objects> m_counting;
    Ref<Object> m_object;
    const MemberList& m_members;
    std::unique_ptr<EventSource> m_events;  ///< once asked for
    std::unique_ptr<Face> m_face;           ///< once asked for
};

}  // namespace canvas::component
