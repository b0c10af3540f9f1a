#include "runtime/win32/Win32Process.h"

#include <utility>

#include "runtime/CommandLine.h"
#include "runtime/NeverDestroyed.h"
#include "runtime/win32/GrowingBuffer.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/ModulePath.h"
#include "runtime/win32/OutOfResources.h"
#include "runtime/win32/Win32Locale.h"

namespace runtime::win32 {
namespace {

/// Returns the path of the program's file in a uniform spelling with long names in lower case.
String ProgramPath() {
    const String path = ModulePath(nullptr);
    const String longPath = FillGrowing(
        [&path](wchar_t* buffer, DWORD capacity) { return GetLongPathNameW(Wide(path), buffer, capacity); });
    return Win32Locale().LowerCase(longPath.empty() ? path : longPath);
}

/// FNV-1a. The hash must be the same in every build of the component, because two builds may run at the same time.
std::uint64_t StableHash(StringView text) {
    constexpr std::uint64_t kPrime = 0x100000001B3u;
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (const char16_t unit : text) {
        hash = (hash ^ (unit & 0xFFu)) * kPrime;
        hash = (hash ^ (unit >> 8u)) * kPrime;
    }
    return hash;
}

String Hexadecimal(std::uint64_t number) {
    constexpr StringView kDigits = u"0123456789abcdef";
    String text;
    for (int shift = 60; shift >= 0; shift -= 4) text += kDigits[(number >> shift) & 0xF];
    return text;
}

/// Computes the name only once, because the name must not change if the program's file is renamed.
const String& NameOfProgram() {
    static const String* const name =
        &NeverDestroyed<String>(u"Local\\K4TBackProcess.FirstInstance." + Hexadecimal(StableHash(ProgramPath())));
    return *name;
}

/// Returns the name of a mutex that exists while this process has a claim.
String NameOfProcess() {
    return NameOfProgram() + u'.' + Hexadecimal(GetCurrentProcessId());
}

KernelHandle MakeMutex(const String& name) {
    return KernelHandle(CreateMutexW(nullptr, FALSE, Wide(name)));
}

bool Exists(const String& mutexName) {
    return static_cast<bool>(KernelHandle(OpenMutexW(SYNCHRONIZE, FALSE, Wide(mutexName))));
}

Error NoClaim(DWORD systemError) {
    return OutOfResources(u"cannot create the single-instance mutex", systemError);
}

KernelHandle MakeLock() {
    const String name = NameOfProcess() + u".lock";
    KernelHandle lock = MakeMutex(name);
    if (!lock) throw NoClaim(GetLastError());
    return lock;
}

/// While the object exists, no other thread of this process creates or releases a claim. All copies of this code in the
/// process share the lock. Error 7 if the system refuses the mutex. After the first success, a copy's locks never fail.
class ClaimLock {
 public:
    ClaimLock() { WaitForSingleObject(Mutex(), INFINITE); }
    ClaimLock(const ClaimLock&) = delete;
    ClaimLock& operator=(const ClaimLock&) = delete;
    ~ClaimLock() { ReleaseMutex(Mutex()); }

 private:
    static HANDLE Mutex() {
        static const auto* const mutex = &NeverDestroyed<KernelHandle>(MakeLock());
        return mutex->Get();
    }
};

/// The claim is the existence of two mutexes. No thread owns them, because ownership would tie the claim to a thread.
/// The system removes a mutex when the mutex's last handle is closed. A crash of the process also closes the handles.
class ProcessClaim : public InstanceClaim {
 public:
    ProcessClaim(KernelHandle program, KernelHandle process)
        : program_(std::move(program)), process_(std::move(process)) {}
    ~ProcessClaim() override {
        const ClaimLock lock;
        process_.Reset();
        program_.Reset();
    }
    ProcessClaim(const ProcessClaim&) = delete;
    ProcessClaim& operator=(const ProcessClaim&) = delete;

 private:
    KernelHandle program_;
    KernelHandle process_;
};

}  // namespace

String Win32Process::CommandLine() {
    return String(WithoutProgramName(Utf16(GetCommandLineW())));
}

String Win32Process::ComponentFolder() {
    return FolderOf(ModulePath(component_));
}

std::unique_ptr<InstanceClaim> Win32Process::ClaimFirstInstance() {
    const ClaimLock lock;
    KernelHandle program = MakeMutex(NameOfProgram());
    const DWORD error = GetLastError();
    // Access is denied if a process with higher rights in the same session created the mutex.
    if (!program && error == ERROR_ACCESS_DENIED) return nullptr;
    if (!program) throw NoClaim(error);
    const String nameOfProcess = NameOfProcess();
    if (error == ERROR_ALREADY_EXISTS && !Exists(nameOfProcess)) return nullptr;
    KernelHandle process = MakeMutex(nameOfProcess);
    if (!process) throw NoClaim(GetLastError());
    return std::make_unique<ProcessClaim>(std::move(program), std::move(process));
}

}  // namespace runtime::win32
