// The string store's memory on Windows: one section backed by the paging file, whose pages are committed as they are
// needed, and one mutex. Both have names in the session's own name space and go with the last process that holds them.
// Views grow with what is stored, so that a 32-bit process gives up no more address space than it must.
#pragma once

#include <array>
#include <atomic>

#include "devkernel/SharedMemory.h"
#include "runtime/win32/Handle.h"

namespace devkernel {

struct MappedViewPolicy {
    using Type = std::byte*;
    static Type Invalid() noexcept { return nullptr; }
    static void Close(Type address) noexcept { UnmapViewOfFile(address); }
};
using MappedView = runtime::win32::UniqueHandle<MappedViewPolicy>;

/// Name of the development kernel's memory. The environment variable QMXKRN2K_STORE sets a process, and those that
/// inherit the variable, apart from the others of the session: its value becomes part of the name.
runtime::String DevelopmentStoreName();
/// The most bytes of its strings, keys and record heads included.
inline constexpr std::uint32_t kDevelopmentStoreCapacity = 256u << 20;

/// Longer than any use of the lock takes, in milliseconds. If a process is stopped while it has the lock, one write of
/// each other process waits this long; later writes fail at once, until the lock can be had again.
inline constexpr std::uint32_t kLockTimeout = 10'000;

class SectionMemory : public SharedMemory {
 public:
    /// Joins the memory `name`, or makes it. `capacity` is the size of each space in bytes, a multiple of 64 KiB, and
    /// the same in all processes. A wait for the lock ends after `lockTimeout` milliseconds. Throws StoreError.
    SectionMemory(const runtime::String& name, std::uint32_t capacity, std::uint32_t lockTimeout = kLockTimeout);

    void Lock() override;
    void Unlock() noexcept override;
    std::uint32_t Load(Word word) const override;
    void Store(Word word, std::uint32_t value) override;
    std::uint32_t Capacity() const override { return capacity_; }
    bool View(std::uint32_t space, std::uint32_t size) override;
    void Read(std::uint32_t space, std::uint32_t offset, void* bytes, std::size_t size) const override;
    void Write(std::uint32_t space, std::uint32_t offset, const void* bytes, std::size_t size) override;
    void Release(std::uint32_t space) noexcept override;

 private:
    struct Space {
        MappedView view;
        std::uint32_t mapped = 0;     ///< bytes
        std::uint32_t committed = 0;  ///< bytes known to be committed, from the first on
    };

    MappedView Map(std::uint64_t offset, std::uint32_t size) const;
    bool Grow(std::uint32_t space, std::uint32_t size);
    std::uint32_t* WordAt(Word word) const;

    const std::uint32_t capacity_;
    const std::uint32_t lockTimeout_;
    runtime::win32::KernelHandle mutex_;
    runtime::win32::KernelHandle section_;
    MappedView header_;
    std::array<Space, 2> spaces_;
    std::atomic<bool> isLockStuck_ = false;  ///< the last wait for the lock was in vain
};

}  // namespace devkernel
