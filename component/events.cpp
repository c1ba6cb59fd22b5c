#include "component/events.h"

#include <algorithm>

#include "component/dispatch.h"
#include "component/failure.h"
#include "component/identifiers.h"
#include "component/snapshot.h"
#include "component/variant.h"
#include "component/wrappers.h"
#include "document/canvas.h"

namespace canvas::component {
namespace {

/// The events' member numbers.
enum : DISPID { preAddtoUndo = 1, postAddtoUndo, preUndo, postUndo, preRedo, postRedo };

/// A host's sink. What fails inside it stays there: an event has no one to answer to.
class Sink final : public CanvasEvents {
public:
    explicit Sink(Com<IDispatch> sink) noexcept : m_sink(std::move(sink)) {}

    void PreAddtoUndo(bool& Cancel) override { ask(preAddtoUndo, Cancel); }
    void PostAddtoUndo(const Ref<Object>& UndoableObject) override {
        OwnedVariant record;
        give(Value(UndoableObject), record);
        raiseEvent(postAddtoUndo, &record, 1);
    }
    void PreUndo(bool& Cancel) override { ask(preUndo, Cancel); }
    void PostUndo() override { raiseEvent(postUndo, nullptr, 0); }
    void PreRedo(bool& Cancel) override { ask(preRedo, Cancel); }
    void PostRedo() override { raiseEvent(postRedo, nullptr, 0); }

private:
    void ask(DISPID number, bool& Cancel) {
        VARIANT_BOOL cancel = Cancel ? VARIANT_TRUE : VARIANT_FALSE;
        VARIANT reference{};
        reference.vt = VT_BYREF | VT_BOOL;
        reference.pboolVal = &cancel;
        raiseEvent(number, &reference, 1);
        Cancel = cancel != VARIANT_FALSE;
    }
    void raiseEvent(DISPID number, VARIANT* arguments, UINT count) {
        DISPPARAMS parameters{arguments, nullptr, count, 0};
        OwnedVariant answer;
        EXCEPINFO exception{};
        const Com<IDispatch> alive = m_sink;
        const HRESULT result = outside([&] {
            return alive->Invoke(number, IID_NULL, 0, DISPATCH_METHOD, &parameters, &answer, &exception, nullptr);
        });
        if (FAILED(result)) errorOf(result, exception);  // frees its texts
    }

    Com<IDispatch> m_sink;
};

using PointEnumerator = Snapshot<IEnumConnectionPoints, Com<IConnectionPoint>, IConnectionPoint*, IID_IEnumConnectionPoints>;
using ConnectionEnumerator = Snapshot<IEnumConnections, std::pair<Com<IDispatch>, DWORD>, CONNECTDATA, IID_IEnumConnections>;

}  // namespace

HRESULT EventPoint::QueryInterface(REFIID riid, void** answer) {
    if (!answer) return E_POINTER;
    const bool known = riid == IID_IUnknown || riid == IID_IConnectionPoint;
    *answer = known ? this : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG EventPoint::AddRef() { return m_source.AddRef(); }
ULONG EventPoint::Release() { return m_source.Release(); }

HRESULT EventPoint::GetConnectionInterface(IID* iid) {
    if (!iid) return E_POINTER;
    *iid = DIID_CanvasEvents;
    return S_OK;
}

HRESULT EventPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container) return E_POINTER;
    m_source.AddRef();
    *container = &m_source;
    return S_OK;
}

HRESULT EventPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (!sink || !cookie) return E_POINTER;
    *cookie = 0;
    return guarded([&] {
        auto dispatch = component::ask<IDispatch>(sink, DIID_CanvasEvents);
        if (!dispatch) dispatch = component::ask<IDispatch>(sink, IID_IDispatch);
        if (!dispatch) return CONNECT_E_CANNOTCONNECT;
        const auto given = static_cast<DWORD>(m_canvas.advise(std::make_shared<Sink>(dispatch)));
        m_connections.push_back({given, std::move(dispatch)});
        *cookie = given;
        return S_OK;
    });
}

HRESULT EventPoint::Unadvise(DWORD cookie) {
    return guarded([&] {
        const auto found = std::find_if(m_connections.begin(), m_connections.end(),
                                        [&](const Connection& c) { return c.cookie == cookie; });
        if (found == m_connections.end()) return CONNECT_E_NOCONNECTION;
        const Connection ended = std::move(*found);  // let go last: it may come back here
        m_connections.erase(found);
        m_canvas.unadvise(static_cast<std::int32_t>(cookie));
        return S_OK;
    });
}

HRESULT EventPoint::EnumConnections(IEnumConnections** answer) {
    if (!answer) return E_POINTER;
    *answer = nullptr;
    return guarded([&] {
        std::vector<std::pair<Com<IDispatch>, DWORD>> items;
        for (const Connection& c : m_connections) items.emplace_back(c.sink, c.cookie);
        *answer = new ConnectionEnumerator(std::move(items), [](const auto& item) {
            return CONNECTDATA{Com<IDispatch>(item.first).detach(), item.second};
        });
        return S_OK;
    });
}

HRESULT EventSource::QueryInterface(REFIID riid, void** answer) { return m_owner.QueryInterface(riid, answer); }
ULONG EventSource::AddRef() { return m_owner.AddRef(); }
ULONG EventSource::Release() { return m_owner.Release(); }

HRESULT EventSource::EnumConnectionPoints(IEnumConnectionPoints** answer) {
    if (!answer) return E_POINTER;
    *answer = nullptr;
    return guarded([&] {
        std::vector<Com<IConnectionPoint>> items;
        items.emplace_back(&m_point);
        *answer = new PointEnumerator(std::move(items),
                                      [](const auto& item) { return Com<IConnectionPoint>(item).detach(); });
        return S_OK;
    });
}

HRESULT EventSource::FindConnectionPoint(REFIID riid, IConnectionPoint** answer) {
    if (!answer) return E_POINTER;
    *answer = nullptr;
    if (!(riid == DIID_CanvasEvents)) return CONNECT_E_NOCONNECTION;
    AddRef();
    *answer = &m_point;
    return S_OK;
}

}  // namespace canvas::component
