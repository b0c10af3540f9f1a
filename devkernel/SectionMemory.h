// Implements the string store's memory on Windows with one mutex and one section backed by the paging file. Both have
// names in the session's name space. Windows deletes them when the last process closes them. Pages are committed when
// they are needed. A view grows with the stored strings, because the address space of a 32-bit process is small.
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

/// Returns the name of the development kernel's memory. The value of the environment variable QMXKRN2K_STORE becomes
/// part of the name. Processes with different values share no strings.
runtime::String DevelopmentStoreName();
/// The maximum total size of the development kernel's strings in bytes, including keys and record heads.
inline constexpr std::uint32_t kDevelopmentStoreCapacity = 256u << 20;

/// In milliseconds. This is longer than any operation holds the lock. If a process is stopped while it holds the lock,
/// the next write of each other process waits this long.
inline constexpr std::uint32_t kLockTimeout = 10'000;
/// In milliseconds. After a wait for the lock has timed out, the next writes of the same process wait only this long,
/// until one of them gets the lock. Most operations hold the lock for a shorter time. Therefore a write normally
/// succeeds unless the lock's owner is stopped.
inline constexpr std::uint32_t kStuckLockTimeout = 30;

class SectionMemory : public SharedMemory {
 public:
    /// Opens or creates the memory `name`. `capacity` is the size of each space in bytes. It is a multiple of 64 KiB
    /// and the same in all processes. A wait for the lock ends after `lockTimeout` milliseconds. Throws StoreError.
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
        std::uint32_t mapped = 0;     ///< mapped bytes
        std::uint32_t committed = 0;  ///< committed bytes at the start of the view
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
    std::atomic<bool> isLockStuck_ = false;  ///< true if the last wait for the lock timed out
};

}  // namespace devkernel
