// Memory that several processes share, as the string store needs it: a few header words, two spaces of bytes that
// grow on demand, and one lock. The operating system stands behind this interface so that the store's algorithm can
// be tested, stopped at any step, in plain memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace devkernel {

/// The strings cannot be reached: the memory is missing, foreign or damaged, or its lock cannot be had.
class StoreError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// The header's words, all 0 in new memory.
enum class Word : std::uint32_t { kMagic, kVersion, kGeneration, kUsed0, kUsed1 };
inline constexpr std::uint32_t kWordCount = static_cast<std::uint32_t>(Word::kUsed1) + 1;

/// One process calls it from one thread at a time, the lock apart. Writing needs the lock, reading does not.
class SharedMemory {
 public:
    virtual ~SharedMemory() = default;

    /// Waits for the lock, which an owner that died gives up. Throws StoreError when it cannot be had in reasonable
    /// time.
    virtual void Lock() = 0;
    virtual void Unlock() noexcept = 0;

    virtual std::uint32_t Load(Word word) const = 0;
    /// Visible to the other processes at once and as a whole, after everything written before it and before everything
    /// written after it.
    virtual void Store(Word word, std::uint32_t value) = 0;

    /// The most bytes that each of the two spaces can hold.
    virtual std::uint32_t Capacity() const = 0;
    /// Makes the first `size` bytes of `space` (0 or 1) usable here. False when there is no memory for them.
    virtual bool View(std::uint32_t space, std::uint32_t size) = 0;
    /// Reads from what View made usable. A writer may change the bytes during the call; every Load that follows it is
    /// made after it.
    virtual void Read(std::uint32_t space, std::uint32_t offset, void* bytes, std::size_t size) const = 0;
    /// Writes into what View made usable.
    virtual void Write(std::uint32_t space, std::uint32_t offset, const void* bytes, std::size_t size) = 0;
    /// This process does not need `space` for now.
    virtual void Release(std::uint32_t space) noexcept = 0;
};

}  // namespace devkernel
