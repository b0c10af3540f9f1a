// Who is home, how many instances live there, and how to reach it: the data behind the home apartment, under one lock.
// It makes no COM calls. How other threads reach a home is a link; one that is stale is handed out to the
// caller, who takes it back without holding the lock.
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
/// Links are handed around as nodes, which takes no memory and cannot fail.
using HomeLinks = std::list<HomeLink>;

class HomeState {
 public:
    struct Entry {
        unsigned generation = 0;  ///< 0: there is no home
        bool isHere = false;      ///< the calling thread is home; a place in the count was taken for it
        DWORD cookie = 0;         ///< of the home's factory
    };

    /// The way to the home there is.
    Entry Join() noexcept;
    /// The same; the calling thread, which `link` leads to, becomes home when there is none. Else `link` is stale.
    Entry JoinOrBecomeHome(HomeLinks link, runtime::win32::KernelHandle thread) noexcept;
    /// Gives back a place in the count.
    void RemoveInstance(unsigned generation) noexcept;
    /// Gives up a home that cannot be reached, and its forms.
    void AbandonHome(unsigned generation) noexcept;

    /// That home is the present one. Takes no lock.
    bool IsCurrent(unsigned generation) const noexcept { return generation_ == generation; }
    /// The window of a home on another thread; null when there is no home or the calling thread is home.
    HWND WindowElsewhere() noexcept;
    /// No instance, no window and no stale link is left.
    bool IsEmpty() noexcept;

    /// Hands out one stale link; none when there is none.
    HomeLinks TakeStaleLink() noexcept;
    /// Keeps a link that could not be taken back.
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

/// A handle of the calling thread by which others see that it has ended.
runtime::win32::KernelHandle OwnThread();

}  // namespace host::com
