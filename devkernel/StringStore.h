// Stores named strings in shared memory. Keys and values are bytes of any length and content. Keys are compared
// exactly.
//
// The memory has two spaces. The active space is a log. A change appends a record, which becomes visible when the
// space's used size is written. If the outdated records need over 64 KiB more than the valid records, or if the active
// space has no room for the record, the valid records are copied to the other space. The other space becomes active
// when the generation is written. If a process dies between any two steps, the string has either the old or the new
// value. The used memory stays in proportion to the strings.
//
// Each process has its own StringStore for the same memory, with its own index. Each call first updates the index from
// the log. Any thread may call. Only a call that changes a string takes the memory's lock. The other calls copy the
// data that they need and then compare the generation. If the generation has changed, the calls start again, because a
// writer may have overwritten the copied bytes.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "devkernel/SharedMemory.h"

namespace devkernel {

/// This is longer than any call takes. A wait for another thread ends after this time, because a thread that was
/// terminated inside the store never leaves it.
inline constexpr std::chrono::milliseconds kThreadTimeout{10'000};

/// Every call throws StoreError if the memory cannot be reached or does not belong to a string store, or if another
/// thread does not leave the store in time.
class StringStore {
 public:
    /// `memory` must outlive the store. A wait for another thread ends after `threadTimeout`.
    explicit StringStore(SharedMemory& memory, std::chrono::milliseconds threadTimeout = kThreadTimeout)
        : memory_(memory), threadTimeout_(threadTimeout) {}
    StringStore(const StringStore&) = delete;
    StringStore& operator=(const StringStore&) = delete;

    /// Stores `value` under `key`. If the memory is full, returns false and keeps the old value.
    bool Set(std::string_view key, std::string_view value);
    std::optional<std::string> Get(std::string_view key);

    /// Returns the first key in byte order.
    std::optional<std::string> FirstKey();
    /// Returns the first key after `key` in byte order. `key` itself may be missing.
    std::optional<std::string> KeyAfter(std::string_view key);

 private:
    struct Entry {
        std::uint32_t offset = 0;  ///< offset of the record in the active space
        std::uint32_t size = 0;    ///< size of the record in bytes
    };
    using Index = std::map<std::string, Entry, std::less<>>;

    std::unique_lock<std::timed_mutex> LockThreads();
    template <typename Look>
    auto Read(const Look& look);
    bool IsCurrent() const;
    void Attach();
    void RefuseForeignMemory() const;
    void CatchUp();
    void StartGeneration(std::uint32_t generation);
    std::string ValueOf(const Index::value_type& entry) const;
    bool HasValue(std::string_view key, std::string_view value);
    bool Append(std::string_view key, std::string_view value);
    bool Rewrite(std::string_view key, std::string_view value, std::uint32_t liveAfter);
    void CopyLiveRecordsExcept(std::string_view key, std::uint32_t size);

    std::uint32_t ActiveSpace() const { return generation_.value_or(0) % 2; }
    std::uint32_t OtherSpace() const { return 1 - ActiveSpace(); }

    SharedMemory& memory_;
    const std::chrono::milliseconds threadTimeout_;
    std::timed_mutex mutex_;                   ///< guards the members below; locked after the memory's lock
    std::optional<std::uint32_t> generation_;  ///< the generation that the index describes
    std::uint32_t seen_ = 0;                   ///< bytes of the active space that the index covers
    std::uint32_t live_ = 0;                   ///< bytes of the valid records that the index covers
    Index index_;
};

}  // namespace devkernel
