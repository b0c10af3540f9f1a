#include "host/com/Sinks.h"

#include <algorithm>

#include "host/com/Guard.h"

namespace host::com {

DWORD Sinks::Connect(IUnknown* sink) {
    if (isClosed_) throw ComError(CONNECT_E_CANNOTCONNECT);
    ComPtr<IDispatch> listener = Query<IDispatch>(sink, DIID___clsQmxBackProcess);
    // Scripting clients answer for plain late binding only.
    if (!listener) listener = Query<IDispatch>(sink, IID_IDispatch);
    if (!listener) throw ComError(CONNECT_E_CANNOTCONNECT);
    // Asking the sink may have ended the instance.
    if (isClosed_) throw ComError(CONNECT_E_CANNOTCONNECT);
    const DWORD cookie = NextCookie();
    connections_.push_back({cookie, std::move(listener)});
    return cookie;
}

void Sinks::Disconnect(DWORD cookie) {
    const auto found = std::ranges::find(connections_, cookie, &Connection::cookie);
    if (found == connections_.end()) throw ComError(CONNECT_E_NOCONNECTION);
    const Connection leaving = std::move(*found);
    connections_.erase(found);
}

void Sinks::Close() {
    isClosed_ = true;
    const std::vector<Connection> leaving = std::exchange(connections_, {});
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
