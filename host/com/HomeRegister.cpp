#include "host/com/HomeRegister.h"

#include <utility>

#include "host/com/Guard.h"
#include "host/com/ServiceObject.h"

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

bool HasEnded(HANDLE thread) {
    return WaitForSingleObject(thread, 0) == WAIT_OBJECT_0;
}

}  // namespace

HomeRegister::Entry HomeRegister::Enter() {
    const Locked locked(lock_);
    const DWORD unwanted = ForgetIfOver();
    Entry entry = Found();
    entry.unwantedCookie = unwanted;
    return entry;
}

HomeRegister::Entry HomeRegister::Settle(DWORD cookie, runtime::win32::KernelHandle thread) {
    const Locked locked(lock_);
    if (generation_ == 0) {
        generation_ = ++lastGeneration_;
        threadId_ = GetCurrentThreadId();
        thread_ = std::move(thread);
        cookie_ = std::exchange(cookie, 0);
    }
    Entry entry = Found();
    entry.unwantedCookie = cookie;
    return entry;
}

DWORD HomeRegister::Leave(unsigned generation) {
    const Locked locked(lock_);
    --instances_;
    // An instance of a home that was given up does not count for the one after it.
    if (generation == generation_) --residents_;
    return ForgetIfOver();
}

DWORD HomeRegister::Forget(unsigned generation) {
    const Locked locked(lock_);
    return generation == generation_ ? Clear() : 0;
}

HomeRegister::Rest HomeRegister::LookForRest() {
    const Locked locked(lock_);
    const DWORD unwanted = ForgetIfOver();
    return {instances_ == 0 && LiveWindows() == 0, unwanted};
}

HomeRegister::Entry HomeRegister::Found() {
    Entry entry;
    entry.generation = generation_;
    entry.isHere = generation_ != 0 && threadId_ == GetCurrentThreadId();
    entry.cookie = cookie_;
    if (entry.isHere) {
        ++residents_;
        ++instances_;
    }
    return entry;
}

DWORD HomeRegister::ForgetIfOver() {
    if (generation_ == 0) return 0;
    if (HasEnded(thread_.Get())) {
        HomeThreadLost();
        return Clear();
    }
    return residents_ == 0 && LiveWindows() == 0 ? Clear() : 0;
}

DWORD HomeRegister::Clear() {
    generation_ = 0;
    residents_ = 0;
    threadId_ = 0;
    thread_.Reset();
    return std::exchange(cookie_, 0);
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
