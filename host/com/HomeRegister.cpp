#include "host/com/HomeRegister.h"

#include <utility>

#include "host/com/Component.h"
#include "host/com/Guard.h"

namespace host::com {
namespace {

class Locked {
 public:
    explicit Locked(SRWLOCK& lock) noexcept : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { ReleaseSRWLockExclusive(&lock_); }

 private:
    SRWLOCK& lock_;
};

}  // namespace

HomeRegister::Entry HomeRegister::Enter() noexcept {
    const Locked locked(lock_);
    ClearIfOver();
    return Found();
}

HomeRegister::Entry HomeRegister::Settle(HomeLinks link, runtime::win32::KernelHandle thread) noexcept {
    const Locked locked(lock_);
    if (generation_ == 0) {
        generation_ = ++lastGeneration_;
        threadId_ = GetCurrentThreadId();
        thread_ = std::move(thread);
        link_ = std::exchange(link, {});
    }
    unwanted_.splice(unwanted_.end(), link);
    return Found();
}

void HomeRegister::Leave(unsigned generation) noexcept {
    const Locked locked(lock_);
    --instances_;
    // An instance of a home that was given up does not count for the one after it.
    if (generation == generation_) --residents_;
    ClearIfOver();
}

void HomeRegister::Forget(unsigned generation) noexcept {
    const Locked locked(lock_);
    if (generation == generation_) GiveUp();
}

HWND HomeRegister::WindowElsewhere() noexcept {
    const Locked locked(lock_);
    ClearIfOver();
    const bool isElsewhere = generation_ != 0 && threadId_ != GetCurrentThreadId();
    return isElsewhere ? link_.front().window : nullptr;
}

bool HomeRegister::IsEmpty() noexcept {
    const Locked locked(lock_);
    ClearIfOver();
    return instances_ == 0 && LiveWindows() == 0 && unwanted_.empty();
}

HomeLinks HomeRegister::TakeUnwanted() noexcept {
    const Locked locked(lock_);
    HomeLinks taken;
    if (!unwanted_.empty()) taken.splice(taken.end(), unwanted_, unwanted_.begin());
    return taken;
}

void HomeRegister::KeepUnwanted(HomeLinks link) noexcept {
    const Locked locked(lock_);
    unwanted_.splice(unwanted_.end(), link);
}

HomeRegister::Entry HomeRegister::Found() noexcept {
    Entry entry;
    entry.generation = generation_;
    if (entry.generation == 0) return entry;
    entry.isHere = threadId_ == GetCurrentThreadId();
    entry.cookie = link_.front().cookie;
    if (entry.isHere) {
        ++residents_;
        ++instances_;
    }
    return entry;
}

void HomeRegister::ClearIfOver() noexcept {
    if (generation_ == 0) return;
    if (HasEnded()) {
        // Its window went with the thread, and the handle may be another window's by now.
        link_.front().window = nullptr;
        GiveUp();
    } else if (residents_ == 0 && LiveWindows() == 0) {
        Clear();
    }
}

void HomeRegister::GiveUp() noexcept {
    GiveUpForms();
    Clear();
}

void HomeRegister::Clear() noexcept {
    generation_ = 0;
    residents_ = 0;
    threadId_ = 0;
    thread_.Reset();
    unwanted_.splice(unwanted_.end(), link_);
}

bool HomeRegister::HasEnded() const noexcept {
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
