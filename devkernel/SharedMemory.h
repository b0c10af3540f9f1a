// This interface describes the memory in which several processes share the strings. The memory has a few header words,
// two spaces of bytes that grow on demand, and one lock. The interface hides the operating system. Therefore tests can
// run the store in ordinary memory and stop it at any step.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace devkernel {

/// The strings cannot be reached, because the memory is missing, foreign or damaged, or because its lock cannot be
/// acquired.
class StoreError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// The header's words, all 0 in new memory.
enum class Word : std::uint32_t { kMagic, kVersion, kGeneration, kUsed0, kUsed1 };
inline constexpr std::uint32_t kWordCount = static_cast<std::uint32_t>(Word::kUsed1) + 1;

/// Any thread may call Lock and Unlock. Within a process, one thread at a time may call the other functions. A writer
/// must hold the lock. A reader does not need the lock.
class SharedMemory {
 public:
    virtual ~SharedMemory() = default;

    /// Waits for the lock. If the lock's owner has died, the lock is free. Throws StoreError if the wait takes too
    /// long.
    virtual void Lock() = 0;
    virtual void Unlock() noexcept = 0;

    virtual std::uint32_t Load(Word word) const = 0;
    /// Stores `value`. Other processes see it at once and as a whole. They see it after all earlier writes and before
    /// all later writes.
    virtual void Store(Word word, std::uint32_t value) = 0;

    /// Returns the maximum size of each space, in bytes.
    virtual std::uint32_t Capacity() const = 0;
    /// Makes the first `size` bytes of `space` (0 or 1) accessible to this process. False if there is not enough
    /// memory. The process may then have no access to `space` until a later call succeeds.
    virtual bool View(std::uint32_t space, std::uint32_t size) = 0;
    /// Reads bytes that View made accessible. A writer may change the bytes during the call. A later Load is not
    /// reordered before the read.
    virtual void Read(std::uint32_t space, std::uint32_t offset, void* bytes, std::size_t size) const = 0;
    /// Writes bytes that View made accessible.
    virtual void Write(std::uint32_t space, std::uint32_t offset, const void* bytes, std::size_t size) = 0;
    /// Ends this process's access to `space`. View makes the space accessible again.
    virtual void Release(std::uint32_t space) noexcept = 0;
};

}  // namespace devkernel
