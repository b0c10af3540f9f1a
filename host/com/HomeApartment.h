// The home apartment: the single-threaded one in which all instances of the process live, since a window is its own
// thread's alone. It is that of whoever came first. Others are handed a proxy, and COM sees to it that calls and events
// change threads. Without instances and windows there is no home, and the next client's apartment becomes it.
//
// The same place counts what lives, because "may the DLL go" and "is the home still needed" hang together. All
// functions may be called from any thread.
#pragma once

#include <utility>

#include "host/com/ComHeaders.h"

namespace host::com {

/// An instance's right to live at home, and its place in the count.
class Residence {
 public:
    /// Of the home of that generation; counted already.
    explicit Residence(unsigned generation) noexcept : generation_(generation) {}
    Residence(Residence&& other) noexcept : generation_(std::exchange(other.generation_, 0)) {}
    Residence& operator=(Residence&&) = delete;
    ~Residence();

 private:
    unsigned generation_;
};

/// A factory or an enumerator: keeps the DLL, but no home.
class ServerReference {
 public:
    ServerReference() noexcept;
    ServerReference(const ServerReference&) = delete;
    ServerReference& operator=(const ServerReference&) = delete;
    ~ServerReference();
};

/// A client's lock on the server, taken and given back as often as it likes.
void LockServer(bool lock) noexcept;
/// Whether nothing lives that needs the DLL's code.
bool CanUnload() noexcept;

/// Creates an instance in the home apartment, which the calling thread's becomes when there is none.
/// Throws RPC_E_WRONG_THREAD for a caller outside a single-threaded apartment, CO_E_NOTINITIALIZED without COM, and
/// what the creation throws.
HRESULT CreateAtHome(REFIID iid, void** object);

}  // namespace host::com
