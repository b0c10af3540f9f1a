// Stores the event sinks of one instance, in the order of their connection. While a sink is called or released, the
// sink may connect, disconnect, raise the event again or release the instance. Therefore each function completes its
// change of the list before it releases a sink. The code that raises the event uses a copy of the list. Use the class
// only on the home thread.
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
    /// Connects a sink. Returns the cookie, which is never 0. Every connection of the instance has a different cookie.
    /// Throws CONNECT_E_CANNOTCONNECT if the object has neither the event interface nor IDispatch. Throws the same
    /// error after Close.
    DWORD Connect(IUnknown* sink);
    /// Removes the connection with this cookie. Throws CONNECT_E_NOCONNECTION for an unknown cookie.
    void Disconnect(DWORD cookie);
    /// Removes the connection with this cookie. Does nothing for an unknown cookie.
    void Drop(DWORD cookie) noexcept;
    /// Removes all connections. Connect then fails.
    void Close();

    bool IsConnected(DWORD cookie) const;
    /// Returns a copy of the list. The copy holds a reference to each sink.
    std::vector<Connection> Connections() const { return connections_; }

 private:
    void RequireOpen() const;
    DWORD NextCookie();

    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
    bool isClosed_ = false;
};

}  // namespace host::com
