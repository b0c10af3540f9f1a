#include "runtime/win32/Win32Process.h"

#include <utility>

#include "runtime/CommandLine.h"
#include "runtime/NeverDestroyed.h"
#include "runtime/ScopeGuard.h"
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

/// The names of the mutexes of a claim.
struct ClaimNames {
    /// The name of a mutex that exists while any process of the program has a claim.
    String program = NameOfProgram();
    /// The name of a mutex that exists while this process has a claim.
    String process = program + u'.' + Hexadecimal(GetCurrentProcessId());
    String lock = process + u".lock";
};

KernelHandle MakeMutex(const String& name) {
    return KernelHandle(CreateMutexW(nullptr, FALSE, Wide(name)));
}

bool Exists(const String& mutexName) {
    return static_cast<bool>(KernelHandle(OpenMutexW(SYNCHRONIZE, FALSE, Wide(mutexName))));
}

Error NoClaim(DWORD systemError) {
    return OutOfResources(u"cannot create the single-instance mutex", systemError);
}

/// Locks a mutex, so that only one thread of this process at a time creates or releases a claim. All copies of this
/// code in the process share the mutex. The caller releases the mutex. Returns an empty handle if the system refuses
/// the mutex.
KernelHandle Acquire(const String& lockName) {
    KernelHandle mutex = MakeMutex(lockName);
    if (mutex) WaitForSingleObject(mutex.Get(), INFINITE);
    return mutex;
}

/// The claim is the existence of two mutexes. No thread owns them, because ownership would tie the claim to a thread.
/// The system removes a mutex when the mutex's last handle is closed. A crash of the process also closes the handles.
class ProcessClaim : public InstanceClaim {
 public:
    ProcessClaim(ClaimNames names, KernelHandle program, KernelHandle process)
        : names_(std::move(names)), program_(std::move(program)), process_(std::move(process)) {}
    ~ProcessClaim() override {
        const KernelHandle lock = Acquire(names_.lock);
        const ScopeGuard released([&lock] { ReleaseMutex(lock.Get()); });
        process_.Reset();
        program_.Reset();
    }
    ProcessClaim(const ProcessClaim&) = delete;
    ProcessClaim& operator=(const ProcessClaim&) = delete;

 private:
    const ClaimNames names_;
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
    ClaimNames names;
    const KernelHandle lock = Acquire(names.lock);
    if (!lock) throw NoClaim(GetLastError());
    const ScopeGuard released([&lock] { ReleaseMutex(lock.Get()); });
    const bool isOurs = Exists(names.process);
    KernelHandle program = MakeMutex(names.program);
    const DWORD error = GetLastError();
    // Access is denied if a process with higher rights in the same session created the mutex.
    if (!program && error == ERROR_ACCESS_DENIED) return nullptr;
    if (!program) throw NoClaim(error);
    if (error == ERROR_ALREADY_EXISTS && !isOurs) return nullptr;
    KernelHandle process = MakeMutex(names.process);
    if (!process) throw NoClaim(GetLastError());
    return std::make_unique<ProcessClaim>(std::move(names), std::move(program), std::move(process));
}

}  // namespace runtime::win32
