#include "runtime/win32/Win32Process.h"

#include <mutex>
#include <utility>

#include "runtime/CommandLine.h"
#include "runtime/win32/GrowingBuffer.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/ModulePath.h"
#include "runtime/win32/SystemFailure.h"
#include "runtime/win32/Win32Locale.h"

namespace runtime::win32 {
namespace {

/// The program's file, spelt alike however it was started: no short names, one letter case.
String ProgramPath() {
    const String path = ModulePath(nullptr);
    const String longPath = FillGrowing(
        [&path](wchar_t* buffer, DWORD capacity) { return GetLongPathNameW(Wide(path), buffer, capacity); });
    return Win32Locale().LowerCase(longPath.empty() ? path : longPath);
}

/// FNV-1a: the same in every build of the component, as two builds may run side by side.
std::uint64_t StableHash(StringView text) {
    constexpr std::uint64_t kPrime = 0x100000001B3u;
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (const char16_t unit : text) {
        hash = (hash ^ (unit & 0xFFu)) * kPrime;
        hash = (hash ^ (unit >> 8u)) * kPrime;
    }
    return hash;
}

String MutexName() {
    constexpr StringView kDigits = u"0123456789abcdef";
    String name = u"Local\\K4TBackProcess.FirstInstance.";
    const std::uint64_t hash = StableHash(ProgramPath());
    for (int shift = 60; shift >= 0; shift -= 4) name += kDigits[(hash >> shift) & 0xF];
    return name;
}

/// Null when another process has it. The mutex is never waited for, as owning it would tie the claim to a thread:
/// that it exists is the claim, and the system removes it with the last handle, however a process ends.
std::shared_ptr<KernelHandle> CreateFirst() {
    const String name = MutexName();
    KernelHandle mutex(CreateMutexW(nullptr, FALSE, Wide(name)));
    const DWORD error = GetLastError();
    if (mutex && error != ERROR_ALREADY_EXISTS) return std::make_shared<KernelHandle>(std::move(mutex));
    // Refused access: a process of the session with higher rights made it.
    if (mutex || error == ERROR_ACCESS_DENIED) return nullptr;
    throw SystemFailure(u"no mark for the first process of a program");
}

/// Taken to claim and to give up, so that no claim meets a mutex of this process that is just being closed.
std::mutex claimGuard;

class SharedClaim : public InstanceClaim {
 public:
    explicit SharedClaim(std::shared_ptr<KernelHandle> mutex) : mutex_(std::move(mutex)) {}
    ~SharedClaim() override {
        const std::lock_guard lock(claimGuard);
        mutex_.reset();
    }
    SharedClaim(const SharedClaim&) = delete;
    SharedClaim& operator=(const SharedClaim&) = delete;

 private:
    std::shared_ptr<KernelHandle> mutex_;
};

}  // namespace

String Win32Process::CommandLine() {
    return String(WithoutProgramName(Utf16(GetCommandLineW())));
}

String Win32Process::ComponentFolder() {
    return FolderOf(ModulePath(component_));
}

std::unique_ptr<InstanceClaim> Win32Process::ClaimFirstInstance() {
    static std::weak_ptr<KernelHandle> held;
    const std::lock_guard lock(claimGuard);
    std::shared_ptr<KernelHandle> mutex = held.lock();
    if (!mutex) {
        mutex = CreateFirst();
        held = mutex;
    }
    if (!mutex) return nullptr;
    return std::make_unique<SharedClaim>(std::move(mutex));
}

}  // namespace runtime::win32
