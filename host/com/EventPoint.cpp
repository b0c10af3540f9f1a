#include "host/com/EventPoint.h"

#include "host/com/Enumerator.h"
#include "host/com/Guard.h"
#include "host/com/References.h"

namespace host::com {

template <typename Body, typename... Result>
HRESULT EventPoint::Member(Body&& body, Result*... results) noexcept {
    (Clear(results), ...);
    return Guarded([&] {
        membership_.RequireHomeThread();
        const ScopedReference held(static_cast<IConnectionPoint&>(*this));
        return body();
    });
}

HRESULT EventPoint::GetConnectionInterface(IID* iid) {
    return Member(
        [&] {
            RequirePointer(iid);
            *iid = DIID___clsQmxBackProcess;
            return S_OK;
        },
        iid);
}

HRESULT EventPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    return Member(
        [&] {
            RequirePointer(container);
            container_.AddRef();
            *container = &container_;
            return S_OK;
        },
        container);
}

HRESULT EventPoint::Advise(IUnknown* sink, DWORD* cookie) {
    return Member(
        [&] {
            RequirePointer(cookie);
            RequirePointer(sink);
            *cookie = sinks_.Connect(sink);
            return S_OK;
        },
        cookie);
}

HRESULT EventPoint::Unadvise(DWORD cookie) {
    return Member([&] {
        sinks_.Disconnect(cookie);
        return S_OK;
    });
}

HRESULT EventPoint::EnumConnections(IEnumConnections** connections) {
    return Member(
        [&] {
            RequirePointer(connections);
            *connections = EnumerateConnections(sinks_.Connections()).Detach();
            return S_OK;
        },
        connections);
}

HRESULT EventPoint::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == IID_IConnectionPoint ? S_OK : S_FALSE;
}

}  // namespace host::com
