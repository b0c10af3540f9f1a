#include "host/com/EventPoint.h"

#include "host/com/Enumerator.h"
#include "host/com/Guard.h"
#include "host/com/References.h"

namespace host::com {

HRESULT EventPoint::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IConnectionPoint) return E_NOINTERFACE;
    *object = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
}

HRESULT EventPoint::GetConnectionInterface(IID* iid) {
    if (iid == nullptr) return E_POINTER;
    *iid = DIID___clsQmxBackProcess;
    return S_OK;
}

HRESULT EventPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (container == nullptr) return E_POINTER;
    container_.AddRef();
    *container = &container_;
    return S_OK;
}

HRESULT EventPoint::Advise(IUnknown* sink, DWORD* cookie) {
    return Guarded([&] {
        const Keep keep(*this);
        RequirePointer(cookie);
        *cookie = 0;
        RequirePointer(sink);
        *cookie = sinks_.Connect(sink);
        return S_OK;
    });
}

HRESULT EventPoint::Unadvise(DWORD cookie) {
    return Guarded([&] {
        const Keep keep(*this);
        sinks_.Disconnect(cookie);
        return S_OK;
    });
}

HRESULT EventPoint::EnumConnections(IEnumConnections** connections) {
    return Guarded([&] {
        RequirePointer(connections);
        *connections = nullptr;
        *connections = EnumerateConnections(sinks_.Connections()).Detach();
        return S_OK;
    });
}

}  // namespace host::com
