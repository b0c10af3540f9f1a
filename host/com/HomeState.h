// The data of the home apartment, under one lock: the home thread, the number of instances, and the link through which
// other threads reach the home. The class makes no COM calls. It returns stale links to its caller, which revokes them
// without holding the lock. Any thread may call.
#pragma once

#include <atomic>
#include <list>

#include "host/com/ComHeaders.h"
#include "runtime/win32/Handle.h"

namespace host::com {

/// How other threads reach a home.
struct HomeLink {
    DWORD cookie = 0;       ///< of the home's factory in the process's interface table; 0: none
    HWND window = nullptr;  ///< the home window; null: none
};
/// Links are moved as list nodes, because moving a node needs no memory and cannot fail.
using HomeLinks = std::list<HomeLink>;

class HomeState {
 public:
    struct Entry {
        unsigned generation = 0;  ///< 0: there is no home
        bool isHere = false;      ///< the calling thread is the home; an instance was counted for it
        DWORD cookie = 0;         ///< of the home's factory
    };

    /// The present home. If the calling thread is the home, counts an instance for it.
    Entry Join() noexcept;
    /// The same, but if there is no home, the calling thread becomes the home, with `link` and `thread`. Otherwise
    /// `link` becomes stale.
    Entry JoinOrBecomeHome(HomeLinks link, runtime::win32::KernelHandle thread) noexcept;
    void RemoveInstance(unsigned generation) noexcept;
    /// Gives up a home that cannot be reached, and its forms. Does nothing if it is not the present home.
    void AbandonHome(unsigned generation) noexcept;

    /// Takes no lock.
    bool IsCurrent(unsigned generation) const noexcept { return generation_ == generation; }
    /// The window of a home on another thread; null if there is no home or the calling thread is the home.
    HWND WindowElsewhere() noexcept;
    /// Whether there is no instance, no window and no stale link.
    bool IsEmpty() noexcept;

    /// Removes and returns one stale link; empty if there is none.
    HomeLinks TakeStaleLink() noexcept;
    /// Takes back links that could not be revoked.
    void KeepStaleLinks(HomeLinks link) noexcept;

 private:
    void ClearIfOver() noexcept;
    void Abandon() noexcept;
    void Clear() noexcept;
    Entry JoinPresent() noexcept;
    bool HasEnded() const noexcept;

    SRWLOCK lock_ = SRWLOCK_INIT;
    unsigned lastGeneration_ = 0;
    unsigned instances_ = 0;  ///< of all generations
    std::atomic<unsigned> generation_ = 0;
    unsigned homeInstances_ = 0;
    DWORD threadId_ = 0;
    runtime::win32::KernelHandle thread_;
    HomeLinks link_;
    HomeLinks staleLinks_;
};

/// A handle of the calling thread that shows other threads when it has ended.
runtime::win32::KernelHandle OwnThread();

}  // namespace host::com
