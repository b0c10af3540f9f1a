// The clients that listen to one instance, in the order in which they connected. A sink may do anything while it is
// called or released: connect, disconnect, raise the event again, release the instance. So every change of the list
// is complete before a sink's reference is given up, and the event walks on a copy.
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
    /// Answers the cookie, unique for the instance and never 0. Throws CONNECT_E_CANNOTCONNECT for an object without
    /// the event interface, and when closed.
    DWORD Connect(IUnknown* sink);
    /// Throws CONNECT_E_NOCONNECTION for an unknown cookie.
    void Disconnect(DWORD cookie);
    /// Disconnects the sink whose peer is gone; nothing for an unknown cookie.
    void Drop(DWORD cookie) noexcept;
    /// Disconnects all, for good.
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
