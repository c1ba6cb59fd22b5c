#pragma once
// The canvas's events as a connection point.

#include <memory>
#include <vector>

#include "component/com.h"

namespace canvas {
class clsBVTCanvas;
}

namespace canvas::component {

class Dispatch;
class EventSource;

/// The one connection point of a canvas. Lives as long as its container's interface.
class EventPoint final : public IConnectionPoint {
public:
    EventPoint(EventSource& source, clsBVTCanvas& canvas) noexcept : m_source(source), m_canvas(canvas) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** answer) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** answer) override;

private:
    struct Connection {
        DWORD cookie;
        Com<IDispatch> sink;
    };
    EventSource& m_source;
    clsBVTCanvas& m_canvas;
    std::vector<Connection> m_connections;
};

/// Part of its owner: references and interfaces are the owner's.
class EventSource final : public IConnectionPointContainer {
public:
    EventSource(Dispatch& owner, clsBVTCanvas& canvas) noexcept : m_owner(owner), m_point(*this, canvas) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** answer) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** answer) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID riid, IConnectionPoint** answer) override;

private:
    Dispatch& m_owner;
    EventPoint m_point;
};

}  // namespace canvas::component
