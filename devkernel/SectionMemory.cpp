#include "devkernel/SectionMemory.h"

#include <sddl.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <vector>

namespace devkernel {
namespace {

using runtime::String;
using runtime::win32::KernelHandle;
using runtime::win32::Wide;

/// In bytes. A view starts at a multiple of this size. This size is a multiple of the page size.
constexpr std::uint32_t kGranularity = 64 * 1024;

struct LocalMemoryPolicy {
    using Type = void*;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type address) noexcept { LocalFree(address); }
};
using LocalMemory = runtime::win32::UniqueHandle<LocalMemoryPolicy>;

[[noreturn]] void Fail(const char* what) {
    const DWORD error = GetLastError();
    throw StoreError(std::string(what) + ": system error " + std::to_string(error));
}

std::uint32_t RoundedUp(std::uint32_t size) {
    return (size + kGranularity - 1) / kGranularity * kGranularity;
}

/// Returns the user's security identifier as text.
String UserSid() {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened)) Fail("cannot read the user of this process");
    const KernelHandle token(opened);
    DWORD size = 0;
    GetTokenInformation(token.Get(), TokenUser, nullptr, 0, &size);
    std::vector<std::byte> buffer(size);
    if (!GetTokenInformation(token.Get(), TokenUser, buffer.data(), size, &size))
        Fail("cannot read the user of this process");
    LPWSTR text = nullptr;
    if (!ConvertSidToStringSidW(reinterpret_cast<const TOKEN_USER*>(buffer.data())->User.Sid, &text)) {
        Fail("cannot read the user of this process");
    }
    const LocalMemory owner(text);
    return runtime::win32::ToString(text);
}

/// Grants access to all processes of the user, elevated or not, and to the system account. Denies access to all other
/// accounts.
LocalMemory UserOnly() {
    const String description = u"D:P(A;;GA;;;SY)(A;;GA;;;" + UserSid() + u")";
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorW(Wide(description), SDDL_REVISION_1, &descriptor,
                                                              nullptr)) {
        Fail("cannot create the security descriptor of the shared strings");
    }
    return LocalMemory(descriptor);
}

}  // namespace

String DevelopmentStoreName() {
    constexpr const wchar_t* kVariable = L"QMXKRN2K_STORE";
    const String base = u"Local\\QmxKrn2K.Strings";
    const DWORD size = GetEnvironmentVariableW(kVariable, nullptr, 0);
    if (size == 0) return base;
    String own(size, u'\0');
    own.resize(GetEnvironmentVariableW(kVariable, Wide(own.data()), size));
    std::replace(own.begin(), own.end(), u'\\', u'/');  // a backslash would select another name space
    return base + u'.' + own;
}

SectionMemory::SectionMemory(const String& name, std::uint32_t capacity, std::uint32_t lockTimeout)
    : capacity_(capacity), lockTimeout_(lockTimeout) {
    const LocalMemory descriptor = UserOnly();
    SECURITY_ATTRIBUTES userOnly{sizeof userOnly, descriptor.Get(), FALSE};
    const String lockName = name + u".Lock";
    mutex_ = KernelHandle(CreateMutexW(&userOnly, FALSE, Wide(lockName)));
    if (!mutex_) Fail("cannot create the lock of the shared strings");
    const std::uint64_t size = kGranularity + 2 * std::uint64_t{capacity};
    section_ = KernelHandle(CreateFileMappingW(INVALID_HANDLE_VALUE, &userOnly, PAGE_READWRITE | SEC_RESERVE,
                                               static_cast<DWORD>(size >> 32), static_cast<DWORD>(size), Wide(name)));
    if (!section_) Fail("cannot create the memory of the shared strings");
    header_ = Map(0, kGranularity);
    if (!header_ || !VirtualAlloc(header_.Get(), kGranularity, MEM_COMMIT, PAGE_READWRITE)) {
        Fail("cannot map the memory of the shared strings");
    }
}

void SectionMemory::Lock() {
    const DWORD result = WaitForSingleObject(mutex_.Get(), isLockStuck_ ? kStuckLockTimeout : lockTimeout_);
    isLockStuck_ = result == WAIT_TIMEOUT;
    if (result == WAIT_OBJECT_0 || result == WAIT_ABANDONED) return;
    if (result == WAIT_TIMEOUT) throw StoreError("another process holds the lock of the shared strings");
    Fail("cannot lock the shared strings");
}

void SectionMemory::Unlock() noexcept {
    ReleaseMutex(mutex_.Get());
}

std::uint32_t* SectionMemory::WordAt(Word word) const {
    return reinterpret_cast<std::uint32_t*>(header_.Get()) + static_cast<std::uint32_t>(word);
}

std::uint32_t SectionMemory::Load(Word word) const {
    return std::atomic_ref(*WordAt(word)).load(std::memory_order_acquire);
}

void SectionMemory::Store(Word word, std::uint32_t value) {
    std::atomic_ref(*WordAt(word)).store(value, std::memory_order_release);
    std::atomic_thread_fence(std::memory_order_seq_cst);
}

MappedView SectionMemory::Map(std::uint64_t offset, std::uint32_t size) const {
    return MappedView(
        static_cast<std::byte*>(MapViewOfFile(section_.Get(), FILE_MAP_READ | FILE_MAP_WRITE,
                                              static_cast<DWORD>(offset >> 32), static_cast<DWORD>(offset), size)));
}

/// Maps `space` again with at least `size` bytes. If the address space allows it, maps at least twice the former size,
/// but not more than the capacity.
bool SectionMemory::Grow(std::uint32_t space, std::uint32_t size) {
    Space& grown = spaces_.at(space);
    const std::uint32_t least = RoundedUp(size);
    const std::uint32_t generous = std::min(capacity_, std::max(least, 2 * grown.mapped));
    grown = {};
    const std::uint64_t offset = kGranularity + std::uint64_t{space} * capacity_;
    for (const std::uint32_t mapped : {generous, least}) {
        grown.view = Map(offset, mapped);
        if (!grown.view) continue;
        grown.mapped = mapped;
        return true;
    }
    return false;
}

bool SectionMemory::View(std::uint32_t space, std::uint32_t size) {
    Space& viewed = spaces_.at(space);
    if (size > capacity_) return false;
    if (size > viewed.mapped && !Grow(space, size)) return false;
    if (size > viewed.committed) {
        const std::uint32_t committed = RoundedUp(size);
        if (!VirtualAlloc(viewed.view.Get(), committed, MEM_COMMIT, PAGE_READWRITE)) return false;
        viewed.committed = committed;
    }
    return true;
}

void SectionMemory::Read(std::uint32_t space, std::uint32_t offset, void* bytes, std::size_t size) const {
    if (size > 0) std::memcpy(bytes, spaces_.at(space).view.Get() + offset, size);
    std::atomic_thread_fence(std::memory_order_acquire);
}

void SectionMemory::Write(std::uint32_t space, std::uint32_t offset, const void* bytes, std::size_t size) {
    if (size > 0) std::memcpy(spaces_.at(space).view.Get() + offset, bytes, size);
}

void SectionMemory::Release(std::uint32_t space) noexcept {
    spaces_[space] = {};
}

}  // namespace devkernel
