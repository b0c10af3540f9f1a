#include "devkernel/StringStore.h"

#include <cstring>
#include <mutex>

namespace devkernel {
namespace {

constexpr std::uint32_t kMagic = 0x4B584D51;  // "QMXK"
constexpr std::uint32_t kVersion = 1;
/// In bytes. While the active space has room, outdated records up to this total size cause no rewrite.
constexpr std::uint64_t kSlack = 0x10000;

/// The start of a record. The key's bytes follow, then the value's bytes, then padding.
struct RecordHead {
    std::uint32_t keySize;
    std::uint32_t valueSize;
};

std::uint64_t RecordSize(std::uint64_t keySize, std::uint64_t valueSize) {
    constexpr std::uint64_t kAlignment = alignof(RecordHead);
    return (sizeof(RecordHead) + keySize + valueSize + kAlignment - 1) / kAlignment * kAlignment;
}

struct Record {
    RecordHead head;
    std::uint32_t size;  ///< size of the whole record in bytes
};

/// Returns the record at `offset` in the first `used` bytes of `space`. Throws StoreError if the record does not fit
/// into these bytes.
Record ReadRecord(const SharedMemory& memory, std::uint32_t space, std::uint32_t offset, std::uint32_t used) {
    const std::uint32_t left = used - offset;
    RecordHead head{};
    if (left < sizeof head) throw StoreError("a record of the shared strings is truncated");
    memory.Read(space, offset, &head, sizeof head);
    const std::uint64_t size = RecordSize(head.keySize, head.valueSize);
    if (size > left) throw StoreError("a record of the shared strings exceeds the used size");
    return {head, static_cast<std::uint32_t>(size)};
}

std::string ReadText(const SharedMemory& memory, std::uint32_t space, std::uint32_t offset, std::uint32_t size) {
    std::string text(size, '\0');
    memory.Read(space, offset, text.data(), size);
    return text;
}

std::string ReadKey(const SharedMemory& memory, std::uint32_t space, std::uint32_t offset, const Record& record) {
    return ReadText(memory, space, offset + sizeof(RecordHead), record.head.keySize);
}

void WriteRecord(SharedMemory& memory, std::uint32_t space, std::uint32_t offset, std::string_view key,
                 std::string_view value) {
    const RecordHead head{static_cast<std::uint32_t>(key.size()), static_cast<std::uint32_t>(value.size())};
    memory.Write(space, offset, &head, sizeof head);
    offset += sizeof head;
    memory.Write(space, offset, key.data(), key.size());
    memory.Write(space, offset + head.keySize, value.data(), value.size());
}

Word UsedOf(std::uint32_t space) {
    return space == 0 ? Word::kUsed0 : Word::kUsed1;
}

/// Adapts the memory's lock to the standard lock guards.
class Lockable {
 public:
    explicit Lockable(SharedMemory& memory) : memory_(memory) {}
    void lock() { memory_.Lock(); }
    void unlock() { memory_.Unlock(); }

 private:
    SharedMemory& memory_;
};

}  // namespace

// Tries first without a time limit, because try_lock_for reads the clock.
std::unique_lock<std::timed_mutex> StringStore::LockThreads() {
    std::unique_lock lock(mutex_, std::try_to_lock);
    if (!lock && !lock.try_lock_for(threadTimeout_)) throw StoreError("another thread does not leave the store");
    return lock;
}

/// Updates the index and returns the result of `look`. If the generation has changed, ignores errors and repeats both
/// steps, because a writer may have overwritten the bytes that were read.
template <typename Look>
auto StringStore::Read(const Look& look) {
    const auto lock = LockThreads();
    RefuseForeignMemory();
    for (;;) {
        try {
            CatchUp();
            auto result = look();
            if (IsCurrent()) return result;
        } catch (...) {
            if (IsCurrent()) throw;
        }
    }
}

bool StringStore::Set(std::string_view key, std::string_view value) {
    if (Read([&] { return HasValue(key, value); })) return true;
    Lockable lockable(memory_);
    const std::scoped_lock writing(lockable);
    const auto lock = LockThreads();
    Attach();
    CatchUp();
    if (HasValue(key, value)) return true;

    const auto old = index_.find(key);
    const std::uint64_t needed = RecordSize(key.size(), value.size());
    const std::uint64_t liveAfter = live_ + needed - (old == index_.end() ? 0 : old->second.size);
    const std::uint64_t usedAfter = seen_ + needed;
    if (liveAfter > memory_.Capacity()) return false;
    const bool worthAppending = usedAfter <= memory_.Capacity() && usedAfter <= 2 * liveAfter + kSlack;
    return (worthAppending && Append(key, value)) || Rewrite(key, value, static_cast<std::uint32_t>(liveAfter));
}

std::optional<std::string> StringStore::Get(std::string_view key) {
    return Read([&]() -> std::optional<std::string> {
        const auto found = index_.find(key);
        if (found == index_.end()) return std::nullopt;
        return ValueOf(*found);
    });
}

std::optional<std::string> StringStore::FirstKey() {
    return Read([&]() -> std::optional<std::string> {
        if (index_.empty()) return std::nullopt;
        return index_.begin()->first;
    });
}

std::optional<std::string> StringStore::KeyAfter(std::string_view key) {
    return Read([&]() -> std::optional<std::string> {
        const auto next = index_.upper_bound(key);
        if (next == index_.end()) return std::nullopt;
        return next->first;
    });
}

bool StringStore::IsCurrent() const {
    return memory_.Load(Word::kGeneration) == generation_;
}

/// Marks new memory as a string store. Writes the magic number last. If the process dies before that step, the memory
/// is still new.
void StringStore::Attach() {
    if (memory_.Load(Word::kMagic) == 0) {
        memory_.Store(Word::kVersion, kVersion);
        memory_.Store(Word::kMagic, kMagic);
    }
    RefuseForeignMemory();
}

/// Throws StoreError for foreign memory. Accepts new memory, which has no strings.
void StringStore::RefuseForeignMemory() const {
    const std::uint32_t magic = memory_.Load(Word::kMagic);
    if (magic == 0 || (magic == kMagic && memory_.Load(Word::kVersion) == kVersion)) return;
    throw StoreError("the shared memory is not a string store of this version");
}

void StringStore::CatchUp() {
    const std::uint32_t generation = memory_.Load(Word::kGeneration);
    if (generation_ != generation) StartGeneration(generation);

    const std::uint32_t used = memory_.Load(UsedOf(ActiveSpace()));
    if (used < seen_ || used > memory_.Capacity()) throw StoreError("the used size of the shared strings is invalid");
    // Call View even if there are no new records, because an earlier View may have failed and ended the access.
    if (!memory_.View(ActiveSpace(), used)) throw StoreError("cannot map the shared strings into this process");
    while (seen_ < used) {
        const Record record = ReadRecord(memory_, ActiveSpace(), seen_, used);
        Entry& entry = index_[ReadKey(memory_, ActiveSpace(), seen_, record)];
        live_ += record.size - entry.size;
        entry = {seen_, record.size};
        seen_ += record.size;
    }
}

void StringStore::StartGeneration(std::uint32_t generation) {
    index_.clear();
    seen_ = 0;
    live_ = 0;
    generation_ = generation;
    memory_.Release(OtherSpace());
}

std::string StringStore::ValueOf(const Index::value_type& entry) const {
    const std::uint32_t offset = entry.second.offset;
    const Record record = ReadRecord(memory_, ActiveSpace(), offset, seen_);
    if (ReadKey(memory_, ActiveSpace(), offset, record) != entry.first) {
        throw StoreError("a record of the shared strings was overwritten");
    }
    return ReadText(memory_, ActiveSpace(), offset + sizeof(RecordHead) + record.head.keySize, record.head.valueSize);
}

bool StringStore::HasValue(std::string_view key, std::string_view value) {
    const auto found = index_.find(key);
    return found != index_.end() && ValueOf(*found) == value;
}

bool StringStore::Append(std::string_view key, std::string_view value) {
    const auto usedAfter = static_cast<std::uint32_t>(seen_ + RecordSize(key.size(), value.size()));
    if (!memory_.View(ActiveSpace(), usedAfter)) return false;
    WriteRecord(memory_, ActiveSpace(), seen_, key, value);
    memory_.Store(UsedOf(ActiveSpace()), usedAfter);
    return true;
}

bool StringStore::Rewrite(std::string_view key, std::string_view value, std::uint32_t liveAfter) {
    // If Append has failed, this process may have no access to the active space.
    if (!memory_.View(ActiveSpace(), seen_) || !memory_.View(OtherSpace(), liveAfter)) return false;
    const auto kept = static_cast<std::uint32_t>(liveAfter - RecordSize(key.size(), value.size()));
    CopyLiveRecordsExcept(key, kept);
    WriteRecord(memory_, OtherSpace(), kept, key, value);
    memory_.Store(UsedOf(OtherSpace()), liveAfter);
    memory_.Store(Word::kGeneration, *generation_ + 1);
    return true;
}

/// Copies the valid records to the other space in the order of the log, except the record of `key`. `size` is the total
/// size of the copied records in bytes according to the index.
void StringStore::CopyLiveRecordsExcept(std::string_view key, std::uint32_t size) {
    std::uint32_t copied = 0;
    for (std::uint32_t offset = 0; size > 0 && offset < seen_;) {
        const Record record = ReadRecord(memory_, ActiveSpace(), offset, seen_);
        const auto found = index_.find(ReadKey(memory_, ActiveSpace(), offset, record));
        const bool isLive = found != index_.end() && found->second.offset == offset && found->first != key;
        if (isLive) {
            if (record.size > size - copied) break;
            const std::string bytes = ReadText(memory_, ActiveSpace(), offset, record.size);
            memory_.Write(OtherSpace(), copied, bytes.data(), bytes.size());
            copied += record.size;
        }
        offset += record.size;
    }
    if (copied != size) throw StoreError("the sizes of the shared records do not match the used size");
}

}  // namespace devkernel
