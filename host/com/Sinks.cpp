#include "host/com/Sinks.h"

#include <algorithm>
#include <string>

#include "host/ServiceObject.h"
#include "host/com/Guard.h"

namespace host::com {

DWORD Sinks::Connect(IUnknown* sink) {
    RequireOpen();
    ComPtr<IDispatch> listener = Query<IDispatch>(sink, DIID___clsQmxBackProcess);
    // The sinks of scripting clients offer only IDispatch.
    if (!listener) listener = Query<IDispatch>(sink, IID_IDispatch);
    if (!listener) {
        throw ComError(CONNECT_E_CANNOTCONNECT, u"the event sink implements neither __clsQmxBackProcess nor IDispatch");
    }
    // The sink's QueryInterface may have ended the instance.
    RequireOpen();
    const DWORD cookie = NextCookie();
    connections_.push_back({cookie, std::move(listener)});
    return cookie;
}

void Sinks::Disconnect(DWORD cookie) {
    if (!IsConnected(cookie)) {
        throw ComError(CONNECT_E_NOCONNECTION, u"unknown connection " + runtime::FromAscii(std::to_string(cookie)));
    }
    Drop(cookie);
}

void Sinks::Drop(DWORD cookie) noexcept {
    const auto found = std::ranges::find(connections_, cookie, &Connection::cookie);
    if (found == connections_.end()) return;
    const Connection leaving = std::move(*found);
    connections_.erase(found);
}

void Sinks::Close() {
    isClosed_ = true;
    const std::vector<Connection> leaving = std::exchange(connections_, {});
}

void Sinks::RequireOpen() const {
    if (isClosed_) throw ComError(CONNECT_E_CANNOTCONNECT, runtime::String(kInstanceHasEnded));
}

bool Sinks::IsConnected(DWORD cookie) const {
    return std::ranges::find(connections_, cookie, &Connection::cookie) != connections_.end();
}

DWORD Sinks::NextCookie() {
    do {
        ++lastCookie_;
    } while (lastCookie_ == 0 || IsConnected(lastCookie_));
    return lastCookie_;
}

}  // namespace host::com
