// Named strings in shared memory. Keys and values are bytes of any length and content, keys are compared exactly.
//
// One of the memory's two spaces is active and holds a log: a changed string is appended as a new record, which becomes
// visible by one store of the space's used size. When the dead records outweigh the live ones, the live ones go to the
// other space, which becomes the active one by one store of the generation. So a process that dies between any two
// steps leaves the old or the new value of what it wrote, and memory stays in proportion to what is stored.
//
// Each process has its own store object over the same memory, with its own index that catches up with the log at every
// call. The calls may come from any thread. Only a call that changes a string takes the memory's lock. The others copy
// what they need and then look at the generation: while it is the same, no writer has touched the space that they read.
#pragma once

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

/// Every call throws StoreError when the memory cannot be reached or is not a string store's.
class StringStore {
 public:
    /// `memory` outlives the store.
    explicit StringStore(SharedMemory& memory) : memory_(memory) {}
    StringStore(const StringStore&) = delete;
    StringStore& operator=(const StringStore&) = delete;

    /// False when the memory is full; the old value stays then.
    bool Set(std::string_view key, std::string_view value);
    std::optional<std::string> Get(std::string_view key);

    /// The first key in byte order.
    std::optional<std::string> FirstKey();
    /// The first key after `key` in byte order; `key` itself need not exist.
    std::optional<std::string> KeyAfter(std::string_view key);

 private:
    struct Entry {
        std::uint32_t offset = 0;  ///< of the record in the active space
        std::uint32_t size = 0;    ///< of the record, bytes
    };
    using Index = std::map<std::string, Entry, std::less<>>;

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
    std::mutex mutex_;                         ///< of the members below; never waited for the memory's lock with it
    std::optional<std::uint32_t> generation_;  ///< the one that the index describes
    std::uint32_t seen_ = 0;                   ///< bytes of the active space that the index covers
    std::uint32_t live_ = 0;                   ///< bytes of these in records that are still valid
    Index index_;
};

}  // namespace devkernel
