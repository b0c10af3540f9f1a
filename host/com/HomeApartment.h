// Manages the home apartment: the single-threaded apartment of all instances in the process. There is only one home,
// because a window belongs to one thread. The first client's apartment becomes the home. Clients in other apartments
// get proxies, and COM marshals calls and events between the threads. The home ends when there are no instances and no
// windows. Then the next client's apartment becomes the home.
//
// A home ends early if its thread ends or leaves COM while instances or windows exist. A later call notices this and
// abandons the forms of the old home. The next home loads its own forms. The remaining instances of the old home reach
// no form and receive no event. Calls on these instances return RPC_E_WRONG_THREAD.
//
// This file also counts every object that needs the DLL, because two questions depend on each other: may the DLL be
// unloaded, and is the home still needed? Any thread may call the functions, unless a comment says otherwise.
#pragma once

#include <utility>

#include "host/com/ComHeaders.h"

namespace host::com {

class BackProcessObject;

/// The membership of one instance in a home. The destructor removes the instance from the home's count.
class HomeMembership {
 public:
    /// `generation` is the number of the home. Call it on that home's thread, after the home has counted the instance.
    explicit HomeMembership(unsigned generation) noexcept : generation_(generation) {}
    HomeMembership(HomeMembership&& other) noexcept
        : generation_(std::exchange(other.generation_, 0)), threadId_(other.threadId_) {}
    HomeMembership& operator=(HomeMembership&&) = delete;
    ~HomeMembership();

    /// True if the calling thread is the home thread and the instance belongs to the present home.
    bool IsOnHomeThread() const noexcept;
    /// Throws RPC_E_WRONG_THREAD with a description if IsOnHomeThread() is false.
    void RequireHomeThread() const;

 private:
    unsigned generation_;
    DWORD threadId_ = GetCurrentThreadId();
};

/// A member of each client's factory and of each enumerator. It keeps the DLL in memory, but not the home.
class ServerReference {
 public:
    ServerReference() noexcept;
    ServerReference(const ServerReference&) = delete;
    ServerReference& operator=(const ServerReference&) = delete;
    ~ServerReference();
};

/// Adds or removes a client's lock, which keeps the DLL in memory. Removing a lock that was not added does nothing.
void LockServer(bool lock) noexcept;
/// True if nothing needs the DLL's code: no object, no window and no client's lock.
bool CanUnload() noexcept;

/// Creates an instance in the home apartment. If there is no home, the calling thread's apartment becomes the home.
/// Throws RPC_E_WRONG_THREAD if the caller is not in a single-threaded apartment. Throws CO_E_NOTINITIALIZED if the
/// caller has not initialised COM. Errors of the creation reach the caller.
HRESULT CreateAtHome(REFIID iid, void** object);

/// If the home thread is another thread, posts `instance` to that thread, which ends the instance. Returns false if the
/// caller must end the instance. The caller must do so if it is the home thread, if there is no home, or if posting
/// fails.
bool EndAtHome(BackProcessObject& instance) noexcept;

}  // namespace host::com
