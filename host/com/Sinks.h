// The event sinks of one instance, in the order of their connection. While a sink is called or released, it may
// connect, disconnect, raise the event again or release the instance. Therefore each change of the list is complete
// before a sink is released, and the event uses a copy of the list. Home thread only.
#pragma once

#include <vector>

#include "host/com/ComPtr.h"

namespace host::com {

struct Connection {
    DWORD cookie;
    ComPtr<IDispatch> sink;
};

class Sinks {
 public:
    /// Returns the cookie, which is unique for the instance and never 0. Throws CONNECT_E_CANNOTCONNECT for an object
    /// without the event interface, and after Close.
    DWORD Connect(IUnknown* sink);
    /// Throws CONNECT_E_NOCONNECTION for an unknown cookie.
    void Disconnect(DWORD cookie);
    /// Disconnects a sink that no longer exists. Does nothing for an unknown cookie.
    void Drop(DWORD cookie) noexcept;
    /// Disconnects all sinks. Later connections are refused.
    void Close();

    bool IsConnected(DWORD cookie) const;
    /// A copy that holds references.
    std::vector<Connection> Connections() const { return connections_; }

 private:
    void RequireOpen() const;
    DWORD NextCookie();

    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
    bool isClosed_ = false;
};

}  // namespace host::com
