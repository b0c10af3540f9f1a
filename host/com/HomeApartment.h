// The home apartment: the single-threaded apartment of all instances in the process. There is only one, because a
// window belongs to one thread. The first client's apartment becomes the home. Clients in other apartments get proxies,
// and COM carries calls and events between the threads. Without instances and windows there is no home, and the next
// client's apartment becomes it.
//
// A home ends early if its thread ends or leaves COM while instances live. Its forms are then given up, and the next
// home loads its own forms. The remaining instances of the old home reach no form and receive no event. Calls on them
// return RPC_E_WRONG_THREAD.
//
// This file also counts everything that needs the DLL, because "may the DLL be unloaded" and "is the home still needed"
// depend on each other. Any thread may call all functions.
#pragma once

#include <utility>

#include "host/com/ComHeaders.h"

namespace host::com {

class BackProcessObject;

/// Counts one instance as a member of a home.
class HomeMembership {
 public:
    /// For the home `generation` on the calling thread. The instance has been counted already.
    explicit HomeMembership(unsigned generation) noexcept : generation_(generation) {}
    HomeMembership(HomeMembership&& other) noexcept
        : generation_(std::exchange(other.generation_, 0)), threadId_(other.threadId_) {}
    HomeMembership& operator=(HomeMembership&&) = delete;
    ~HomeMembership();

    /// Whether the calling thread is the home thread and the instance belongs to the present home.
    bool IsOnHomeThread() const noexcept;
    /// Throws RPC_E_WRONG_THREAD, with a description, unless IsOnHomeThread().
    void RequireHomeThread() const;

 private:
    unsigned generation_;
    DWORD threadId_ = GetCurrentThreadId();
};

/// Part of a factory or an enumerator. Keeps the DLL in memory, but not the home.
class ServerReference {
 public:
    ServerReference() noexcept;
    ServerReference(const ServerReference&) = delete;
    ServerReference& operator=(const ServerReference&) = delete;
    ~ServerReference();
};

/// Adds or removes a client's lock, which keeps the DLL in memory. Removing a lock that was not added does nothing.
void LockServer(bool lock) noexcept;
/// Whether no object needs the DLL's code.
bool CanUnload() noexcept;

/// Creates an instance in the home apartment. If there is no home, the calling thread's apartment becomes the home.
/// Throws RPC_E_WRONG_THREAD if the caller is not in a single-threaded apartment, CO_E_NOTINITIALIZED without COM, and
/// the errors of the creation.
HRESULT CreateAtHome(REFIID iid, void** object);

/// If the home thread is another thread, makes it end `instance`. False if the caller must end the instance, because
/// the caller is the home thread or there is no home.
bool EndAtHome(BackProcessObject& instance) noexcept;

}  // namespace host::com
