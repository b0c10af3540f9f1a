// Stores the data of the home apartment under one lock: the home thread, the number of instances, and the link through
// which other threads reach the home. The class makes no COM calls. It returns stale links to its caller. The caller
// revokes the stale links without holding the lock. Any thread may call.
#pragma once

#include <atomic>
#include <list>

#include "host/com/ComHeaders.h"
#include "runtime/win32/Handle.h"

namespace host::com {

/// The way in which other threads reach a home.
struct HomeLink {
    DWORD cookie = 0;       ///< cookie of the home's factory in the process's interface table; 0: none
    HWND window = nullptr;  ///< the home window; null: none
};
/// A list stores the links, because moving a list node needs no memory and cannot fail.
using HomeLinks = std::list<HomeLink>;

class HomeState {
 public:
    struct Entry {
        unsigned generation = 0;  ///< 0: there is no home
        bool isHere = false;      ///< true if the calling thread is the home thread; an instance was then counted
        DWORD cookie = 0;         ///< cookie of the home's factory
    };

    /// Returns the present home. If the calling thread is the home thread, counts an instance.
    Entry Join() noexcept;
    /// Like Join, but if there is no home, the calling thread becomes the home thread, with `link` and `thread`. If
    /// there is a home, `link` becomes stale.
    Entry JoinOrBecomeHome(HomeLinks link, runtime::win32::KernelHandle thread) noexcept;
    void RemoveInstance(unsigned generation) noexcept;
    /// Abandons a home that cannot be reached, and its forms. Does nothing if `generation` is not the present home.
    void AbandonHome(unsigned generation) noexcept;

    /// True if `generation` is the present home. Takes no lock.
    bool IsCurrent(unsigned generation) const noexcept { return generation_ == generation; }
    /// Returns the window of a home on another thread. Null if there is no home or the calling thread is the home
    /// thread.
    HWND WindowElsewhere() noexcept;
    /// True if there is no instance, no window and no stale link.
    bool IsEmpty() noexcept;

    /// Removes and returns one stale link; empty if there is no stale link.
    HomeLinks TakeStaleLink() noexcept;
    /// Stores stale links that the caller could not revoke.
    void KeepStaleLinks(HomeLinks link) noexcept;

 private:
    void ClearIfOver() noexcept;
    void Abandon() noexcept;
    void Clear() noexcept;
    Entry JoinPresent() noexcept;
    bool HasEnded() const noexcept;

    SRWLOCK lock_ = SRWLOCK_INIT;
    unsigned lastGeneration_ = 0;
    unsigned instances_ = 0;  ///< instances of all generations
    std::atomic<unsigned> generation_ = 0;
    unsigned homeInstances_ = 0;
    DWORD threadId_ = 0;
    runtime::win32::KernelHandle thread_;
    HomeLinks link_;
    HomeLinks staleLinks_;
};

/// Returns a handle of the calling thread. Other threads use the handle to detect that the thread has ended.
runtime::win32::KernelHandle OwnThread();

}  // namespace host::com
