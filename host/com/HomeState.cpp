#include "host/com/HomeState.h"

#include <utility>

#include "host/com/Component.h"
#include "host/com/Guard.h"

namespace host::com {
namespace {

class ExclusiveLock {
 public:
    explicit ExclusiveLock(SRWLOCK& lock) noexcept : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    ExclusiveLock(const ExclusiveLock&) = delete;
    ExclusiveLock& operator=(const ExclusiveLock&) = delete;
    ~ExclusiveLock() { ReleaseSRWLockExclusive(&lock_); }

 private:
    SRWLOCK& lock_;
};

}  // namespace

HomeState::Entry HomeState::Join() noexcept {
    const ExclusiveLock lock(lock_);
    ClearIfOver();
    return JoinPresent();
}

HomeState::Entry HomeState::JoinOrBecomeHome(HomeLinks link, runtime::win32::KernelHandle thread) noexcept {
    const ExclusiveLock lock(lock_);
    if (generation_ == 0) {
        generation_ = ++lastGeneration_;
        threadId_ = GetCurrentThreadId();
        thread_ = std::move(thread);
        link_ = std::exchange(link, {});
    }
    staleLinks_.splice(staleLinks_.end(), link);
    return JoinPresent();
}

void HomeState::RemoveInstance(unsigned generation) noexcept {
    const ExclusiveLock lock(lock_);
    --instances_;
    // The present home does not count instances of an abandoned home.
    if (generation == generation_) --homeInstances_;
    ClearIfOver();
}

void HomeState::AbandonHome(unsigned generation) noexcept {
    const ExclusiveLock lock(lock_);
    if (generation == generation_) Abandon();
}

HWND HomeState::WindowElsewhere() noexcept {
    const ExclusiveLock lock(lock_);
    ClearIfOver();
    const bool isElsewhere = generation_ != 0 && threadId_ != GetCurrentThreadId();
    return isElsewhere ? link_.front().window : nullptr;
}

bool HomeState::IsEmpty() noexcept {
    const ExclusiveLock lock(lock_);
    ClearIfOver();
    return instances_ == 0 && LiveWindows() == 0 && staleLinks_.empty();
}

HomeLinks HomeState::TakeStaleLink() noexcept {
    const ExclusiveLock lock(lock_);
    HomeLinks taken;
    if (!staleLinks_.empty()) taken.splice(taken.end(), staleLinks_, staleLinks_.begin());
    return taken;
}

void HomeState::KeepStaleLinks(HomeLinks link) noexcept {
    const ExclusiveLock lock(lock_);
    staleLinks_.splice(staleLinks_.end(), link);
}

HomeState::Entry HomeState::JoinPresent() noexcept {
    Entry entry;
    entry.generation = generation_;
    if (entry.generation == 0) return entry;
    entry.isHere = threadId_ == GetCurrentThreadId();
    entry.cookie = link_.front().cookie;
    if (entry.isHere) {
        ++homeInstances_;
        ++instances_;
    }
    return entry;
}

void HomeState::ClearIfOver() noexcept {
    if (generation_ == 0) return;
    if (HasEnded()) {
        // The window was destroyed when its thread ended. The handle may belong to another window now.
        link_.front().window = nullptr;
        Abandon();
    } else if (homeInstances_ == 0 && LiveWindows() == 0) {
        Clear();
    }
}

void HomeState::Abandon() noexcept {
    GiveUpForms();
    Clear();
}

void HomeState::Clear() noexcept {
    generation_ = 0;
    homeInstances_ = 0;
    threadId_ = 0;
    thread_.Reset();
    staleLinks_.splice(staleLinks_.end(), link_);
}

bool HomeState::HasEnded() const noexcept {
    // While the handle is open, no later thread gets the identifier. Therefore the calling thread is the home thread
    // itself, which still runs.
    if (threadId_ == GetCurrentThreadId()) return false;
    return WaitForSingleObject(thread_.Get(), 0) == WAIT_OBJECT_0;
}

runtime::win32::KernelHandle OwnThread() {
    const HANDLE process = GetCurrentProcess();
    HANDLE thread = nullptr;
    if (!DuplicateHandle(process, GetCurrentThread(), process, &thread, SYNCHRONIZE, FALSE, 0)) {
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    }
    return runtime::win32::KernelHandle(thread);
}

}  // namespace host::com
