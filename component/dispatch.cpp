#include "component/dispatch.h"

#include "attributes/attribute.h"
#include "component/asking.h"
#include "component/class_list.h"
#include "component/enumerators.h"
#include "component/events.h"
#include "component/face.h"
#include "component/failure.h"
#include "component/identifiers.h"
#include "component/invoke.h"
#include "component/text.h"
#include "component/wrappers.h"
#include "document/canvas.h"

namespace canvas::component {
namespace {

HRESULT numbers(const MemberList& members, REFIID riid, LPOLESTR* names, UINT count, DISPID* answer) {
    if (!(riid == IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    return guarded([&] { return numbersOf(members, names, count, answer); });
}

/// The wrapper stays while the call runs, whatever the host lets go meanwhile.
HRESULT call(Dispatch& self, const MemberList& members, REFIID riid, const Call& call) {
    if (!(riid == IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    const Com<Dispatch> alive(&self);
    return guarded([&] {
        const Asking asking;
        return invoke(self.object(), members, call);
    }, call.exception);
}

}  // namespace

Dispatch::Dispatch(Ref<Object> object) : m_object(std::move(object)), m_members(membersOf(*m_object)) {
    Wrappers::addInterface(this, m_object.get());
    Wrappers::add(m_object.get(), this);
}

Dispatch::~Dispatch() {
    Wrappers::remove(m_object.get());
    Wrappers::removeInterface(this);
}

ULONG Dispatch::Release() {
    const ULONG left = --m_references;
    if (left == 0) guarded([&] { return delete this, S_OK; });
    return left;
}

bool Dispatch::isDefaultInterface(REFIID riid) const noexcept {
    const ClassIdentifiers* row = identifiersOf(m_object->className());
    return row && row->iid == riid;
}

IUnknown* Dispatch::interfaceFor(REFIID riid) {
    if (riid == IID_IUnknown || riid == IID_IDispatch || riid == IID_IDispatchEx || isDefaultInterface(riid))
        return static_cast<IDispatchEx*>(this);
    if (riid == IID_IConnectionPointContainer) {
        auto* canvas = faceOf<clsBVTCanvas>(*m_object);
        if (canvas && !m_events) m_events = std::make_unique<EventSource>(*this, *canvas);
        return m_events.get();
    }
    if (riid == IID_IBlockAttribute) {
        auto* attribute = faceOf<AttributeObject>(*m_object);
        const bool offers = attribute ? attribute->attributeClass().offersInterface
                                      : faceOf<IBlockAttribute>(*m_object) != nullptr;
        if (offers && !m_face) m_face = std::make_unique<Face>(*this);
        return m_face.get();
    }
    return nullptr;
}

HRESULT Dispatch::QueryInterface(REFIID riid, void** answer) {
    if (!answer) return E_POINTER;
    *answer = nullptr;
    return guarded([&] {
        // What NewEnum gives is for walking: a walk of its own for each who asks.
        if (riid == IID_IEnumVARIANT) *answer = enumeratorFor(*m_object).detach();
        if (*answer) return S_OK;
        IUnknown* found = interfaceFor(riid);
        if (!found) return E_NOINTERFACE;
        AddRef();
        *answer = found;
        return S_OK;
    });
}

HRESULT Dispatch::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT Dispatch::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    return E_NOTIMPL;
}

HRESULT Dispatch::GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID, DISPID* answer) {
    return numbers(m_members, riid, names, count, answer);
}

HRESULT Dispatch::Invoke(DISPID number, REFIID riid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                         EXCEPINFO* exception, UINT* argument) {
    return call(*this, m_members, riid, {number, flags, parameters, result, exception, argument});
}

HRESULT Dispatch::GetDispID(BSTR name, DWORD, DISPID* number) {
    if (!name || !number) return E_POINTER;
    *number = DISPID_UNKNOWN;
    return guarded([&] {
        *number = m_members.numberOf(utf8Of(name));
        return *number == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    });
}

HRESULT Dispatch::InvokeEx(DISPID number, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, IServiceProvider*) {
    return call(*this, m_members, IID_NULL, {number, flags, parameters, result, exception, nullptr});
}

HRESULT Dispatch::GetMemberProperties(DISPID number, DWORD asked, DWORD* properties) {
    if (!properties) return E_POINTER;
    *properties = 0;
    if (number < 1 || number > m_members.count()) return DISP_E_MEMBERNOTFOUND;
    const NumberedMember& row = m_members[number];
    DWORD known = fdexPropCanCall | fdexPropCannotGet | fdexPropCannotPut | fdexPropCannotPutRef;
    if (row.isProperty()) {
        known = fdexPropCannotCall;
        known |= row.isReadable() ? fdexPropCanGet : fdexPropCannotGet;
        known |= row.isWritable() ? fdexPropCanPut | fdexPropCanPutRef : fdexPropCannotPut | fdexPropCannotPutRef;
    }
    *properties = known & asked;
    return S_OK;
}

HRESULT Dispatch::GetMemberName(DISPID number, BSTR* name) {
    if (!name) return E_POINTER;
    *name = nullptr;
    if (number < 1 || number > m_members.count()) return DISP_E_MEMBERNOTFOUND;
    return guarded([&] {
        *name = bstrOf(m_members[number].name);
        return S_OK;
    });
}

HRESULT Dispatch::GetNextDispID(DWORD, DISPID number, DISPID* next) {
    if (!next) return E_POINTER;
    *next = DISPID_UNKNOWN;
    const DISPID following = number == DISPID_STARTENUM ? 1 : number + 1;
    if (number < DISPID_STARTENUM || following > m_members.count()) return S_FALSE;
    *next = following;
    return S_OK;
}

HRESULT Dispatch::GetNameSpaceParent(IUnknown** parent) {
    if (!parent) return E_POINTER;
    *parent = nullptr;
    return E_NOTIMPL;
}

Face::Face(Dispatch& owner) : m_owner(owner) { Wrappers::addInterface(this, &owner.object()); }

Face::~Face() { Wrappers::removeInterface(this); }

HRESULT Face::GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID, DISPID* answer) {
    return numbers(classNamed(IBlockAttribute::name)->members(), riid, names, count, answer);
}

HRESULT Face::Invoke(DISPID number, REFIID riid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                     EXCEPINFO* exception, UINT* argument) {
    return call(m_owner, classNamed(IBlockAttribute::name)->members(), riid,
                {number, flags, parameters, result, exception, argument});
}

}  // namespace canvas::component
