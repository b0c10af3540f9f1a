// The home apartment: the single-threaded one in which all instances of the process live, because a window belongs to
// one thread. The first client's apartment becomes it. Clients in other apartments get a proxy, and COM carries calls
// and events between the threads. Without instances and windows there is no home, and the next client's apartment
// becomes it.
//
// A home ends early when its thread ends, or leaves COM, while instances live. Its forms are given up then: the next
// home loads its own. What is left of its instances reaches no form and receives no event; it answers
// RPC_E_WRONG_THREAD until it is released.
//
// The same place counts what lives, because "may the DLL be unloaded" and "is the home still needed" depend on each
// other. All functions may be called from any thread.
#pragma once

#include <utility>

#include "host/com/ComHeaders.h"

namespace host::com {

class BackProcessObject;

/// An instance's right to live at home, and its place in the count.
class HomeMembership {
 public:
    /// Of the home of that generation, which is the calling thread's; counted already.
    explicit HomeMembership(unsigned generation) noexcept : generation_(generation) {}
    HomeMembership(HomeMembership&& other) noexcept
        : generation_(std::exchange(other.generation_, 0)), threadId_(other.threadId_) {}
    HomeMembership& operator=(HomeMembership&&) = delete;
    ~HomeMembership();

    /// The calling thread is the home thread, and the home is the instance's.
    bool IsOnHomeThread() const noexcept;
    /// Throws RPC_E_WRONG_THREAD, with a text, unless it is.
    void RequireHomeThread() const;

 private:
    unsigned generation_;
    DWORD threadId_ = GetCurrentThreadId();
};

/// A factory or an enumerator: keeps the DLL, but no home.
class ServerReference {
 public:
    ServerReference() noexcept;
    ServerReference(const ServerReference&) = delete;
    ServerReference& operator=(const ServerReference&) = delete;
    ~ServerReference();
};

/// A client's lock on the server, taken and given back as often as it likes. A lock that was never taken cannot be
/// given back.
void LockServer(bool lock) noexcept;
/// Whether nothing lives that needs the DLL's code.
bool CanUnload() noexcept;

/// Creates an instance in the home apartment, which the calling thread's becomes when there is none.
/// Throws RPC_E_WRONG_THREAD for a caller outside a single-threaded apartment, CO_E_NOTINITIALIZED without COM, and
/// what the creation throws.
HRESULT CreateAtHome(REFIID iid, void** object);

/// Has the home thread end `instance` when it is another one than the calling thread. False when the caller must end
/// it: it is the home thread, or there is no home.
bool EndAtHome(BackProcessObject& instance) noexcept;

}  // namespace host::com
