// Tests the strings that processes share. The tests use ordinary memory and let a writer die after any of its steps.
#include "devkernel/StringStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstring>
#include <future>
#include <random>
#include <vector>

namespace devkernel {
namespace {

using testing::Optional;

struct WriterDied {};

/// Implements shared memory in ordinary memory. If several stores use one object, each store acts as a process. All
/// stores share the views. Each written byte and each stored word is one step. The writer dies when `stepsLeft` steps
/// are done.
class HeapMemory : public SharedMemory {
 public:
    explicit HeapMemory(std::uint32_t capacity) : capacity_(capacity) {}

    void Lock() override {
        EXPECT_FALSE(locked_);
        locked_ = true;
    }
    void Unlock() noexcept override { locked_ = false; }
    std::uint32_t Load(Word word) const override { return words_[static_cast<std::size_t>(word)]; }
    void Store(Word word, std::uint32_t value) override {
        Step();
        Overwrite(word, value);
    }
    std::uint32_t Capacity() const override { return capacity_; }
    bool View(std::uint32_t space, std::uint32_t size) override {
        EXPECT_LE(size, capacity_);
        std::uint32_t& viewed = viewed_.at(space);
        viewed = size > available ? 0 : std::max(viewed, size);
        Bytes& bytes = spaces_.at(space);
        if (bytes.size() < viewed) bytes.resize(viewed);
        peak = std::max(peak, viewed);
        return size <= viewed;
    }
    void Read(std::uint32_t space, std::uint32_t offset, void* bytes, std::size_t size) const override {
        ASSERT_LE(offset + size, viewed_.at(space));
        if (size > 0) std::memcpy(bytes, spaces_.at(space).data() + offset, size);
    }
    void Write(std::uint32_t space, std::uint32_t offset, const void* bytes, std::size_t size) override {
        ASSERT_LE(offset + size, viewed_.at(space));
        for (std::size_t i = 0; i < size; ++i) {
            Step();
            spaces_.at(space).at(offset + i) = static_cast<const std::byte*>(bytes)[i];
        }
    }
    void Release(std::uint32_t space) noexcept override {
        viewed_[space] = 0;
        released.push_back(space);
    }

    void Overwrite(Word word, std::uint32_t value) { words_[static_cast<std::size_t>(word)] = value; }
    void OverwriteBytes(std::uint32_t space, std::uint32_t offset, std::uint32_t value) {
        std::memcpy(&spaces_.at(space).at(offset), &value, sizeof value);
    }

    std::uint32_t available = UINT32_MAX;  ///< maximum number of bytes of a space that the system grants
    std::uint32_t peak = 0;                ///< maximum number of accessible bytes of a space so far
    std::size_t stepsLeft = SIZE_MAX;
    std::vector<std::uint32_t> released;  ///< numbers of the released spaces

 private:
    using Bytes = std::vector<std::byte>;

    void Step() {
        EXPECT_TRUE(locked_);
        if (stepsLeft == 0) throw WriterDied();
        --stepsLeft;
    }

    const std::uint32_t capacity_;
    bool locked_ = false;
    std::array<std::uint32_t, kWordCount> words_{};
    std::array<Bytes, 2> spaces_;
    std::array<std::uint32_t, 2> viewed_{};  ///< accessible bytes of each space
};

constexpr std::uint32_t kRoom = 1 << 20;

TEST(StringStore, NewStore_HasNoStrings) {
    HeapMemory memory(kRoom);
    StringStore store(memory);
    EXPECT_EQ(store.Get("AllAps"), std::nullopt);
    EXPECT_EQ(store.FirstKey(), std::nullopt);
}

TEST(StringStore, EmptyValueDiffersFromNoValue) {
    HeapMemory memory(kRoom);
    StringStore store(memory);
    EXPECT_TRUE(store.Set("K4TBACKPROCESS", ""));
    EXPECT_THAT(store.Get("K4TBACKPROCESS"), Optional(std::string()));
}

TEST(StringStore, ComparesKeysExactly) {
    HeapMemory memory(kRoom);
    StringStore store(memory);
    store.Set("Key", "1");
    store.Set("", "2");
    EXPECT_EQ(store.Get("KEY"), std::nullopt);
    EXPECT_EQ(store.Get("Key "), std::nullopt);
    EXPECT_THAT(store.Get(""), Optional(std::string("2")));
}

TEST(StringStore, AnyBytes_AreStoredUnchanged) {
    HeapMemory memory(kRoom);
    StringStore store(memory);
    const std::string value("\0\xFF,\n\0", 5);
    store.Set(value, value);
    EXPECT_THAT(store.Get(value), Optional(value));
}

TEST(StringStore, Keys_AreListedInByteOrder) {
    HeapMemory memory(kRoom);
    StringStore store(memory);
    for (const char* key : {"b", "\xE9", "B", "a"}) store.Set(key, "x");
    EXPECT_THAT(store.FirstKey(), Optional(std::string("B")));
    EXPECT_THAT(store.KeyAfter("B"), Optional(std::string("a")));
    EXPECT_THAT(store.KeyAfter("aa"), Optional(std::string("b")));
    EXPECT_THAT(store.KeyAfter("b"), Optional(std::string("\xE9")));
    EXPECT_EQ(store.KeyAfter("\xE9"), std::nullopt);
}

TEST(StringStore, SetToTheSameValue_WritesNothing) {
    HeapMemory memory(kRoom);
    StringStore store(memory);
    store.Set("key", "value");
    memory.stepsLeft = 0;
    EXPECT_TRUE(store.Set("key", "value"));
}

TEST(StringStore, ReadingAndUnchangedSet_TakeNoLock) {
    HeapMemory memory(kRoom);
    StringStore store(memory);
    store.Set("key", "value");
    memory.Lock();  // imitates a process that is stopped while it holds the lock
    EXPECT_THAT(store.Get("key"), Optional(std::string("value")));
    EXPECT_THAT(StringStore(memory).FirstKey(), Optional(std::string("key")));
    EXPECT_EQ(store.KeyAfter("key"), std::nullopt);
    EXPECT_TRUE(store.Set("key", "value"));
}

TEST(StringStore, ManyChanges_UsedMemoryStaysLimited) {
    HeapMemory memory(kRoom);
    StringStore writer(memory);
    StringStore reader(memory);
    writer.Set("kept", "from the start");
    for (int i = 0; i < 2000; ++i) {
        ASSERT_TRUE(writer.Set("often", std::string(1000, i % 2 == 0 ? 'a' : 'b')));
        if (i % 7 == 0) {
            ASSERT_TRUE(reader.Get("often").has_value());
        }
    }
    EXPECT_LE(memory.peak, 64u * 1024 + 2 * 2000);
    EXPECT_THAT(reader.Get("kept"), Optional(std::string("from the start")));
    EXPECT_THAT(reader.Get("often"), Optional(std::string(1000, 'b')));
}

TEST(StringStore, MemoryIsFull_OldValueIsKept) {
    HeapMemory memory(1000);
    StringStore store(memory);
    EXPECT_TRUE(store.Set("a", std::string(400, 'a')));
    EXPECT_TRUE(store.Set("b", std::string(500, 'b')));
    EXPECT_FALSE(store.Set("a", std::string(600, 'x')));
    EXPECT_THAT(store.Get("a"), Optional(std::string(400, 'a')));
    EXPECT_THAT(store.Get("b"), Optional(std::string(500, 'b')));
}

TEST(StringStore, ReplacesAValueThatFillsTheMemory) {
    HeapMemory memory(1000);
    StringStore store(memory);
    EXPECT_TRUE(store.Set("a", std::string(900, 'a')));
    EXPECT_TRUE(store.Set("a", std::string(980, 'b')));
    EXPECT_THAT(store.Get("a"), Optional(std::string(980, 'b')));
}

TEST(StringStore, RecordUpToTheCapacity_IsStored) {
    HeapMemory memory(1000);
    StringStore store(memory);
    // A record has 8 bytes before its key and ends at a multiple of 4: 8 + 1 + 991 = 1000.
    EXPECT_FALSE(store.Set("a", std::string(992, 'a')));
    EXPECT_TRUE(store.Set("a", std::string(991, 'a')));
    EXPECT_THAT(store.Get("a"), Optional(std::string(991, 'a')));
}

TEST(StringStore, Rewrite_ReleasesTheOldSpace) {
    HeapMemory memory(1000);
    StringStore store(memory);
    store.Set("a", std::string(900, 'a'));
    store.Set("a", std::string(900, 'b'));
    memory.released.clear();
    EXPECT_THAT(store.Get("a"), Optional(std::string(900, 'b')));
    EXPECT_EQ(memory.released, std::vector<std::uint32_t>{0});
}

TEST(StringStore, SystemGrantsTooLittleMemory_OldValueIsKept) {
    HeapMemory memory(kRoom);
    StringStore store(memory);
    EXPECT_TRUE(store.Set("a", "old"));
    memory.available = 100;
    EXPECT_FALSE(store.Set("a", std::string(200, 'x')));
    EXPECT_THAT(store.Get("a"), Optional(std::string("old")));
    EXPECT_TRUE(store.Set("b", "small"));
}

TEST(StringStore, ViewIsLost_StoreErrorUntilMemoryIsGranted) {
    HeapMemory memory(kRoom);
    StringStore store(memory);
    EXPECT_TRUE(store.Set("a", "old"));
    memory.available = 100;
    EXPECT_FALSE(store.Set("a", std::string(200, 'x')));
    memory.available = 0;
    EXPECT_THROW(store.Get("a"), StoreError);
    EXPECT_THROW(store.Set("a", "new"), StoreError);
    memory.available = UINT32_MAX;
    EXPECT_THAT(store.Get("a"), Optional(std::string("old")));
}

TEST(StringStore, OnlyARewriteFitsIntoAView_OtherStringsAreKept) {
    HeapMemory memory(kRoom);
    StringStore store(memory);
    EXPECT_TRUE(store.Set("kept", "1"));
    EXPECT_TRUE(store.Set("a", std::string(60, 'o')));
    memory.available = 150;
    EXPECT_TRUE(store.Set("a", std::string(100, 'n')));
    EXPECT_THAT(store.Get("kept"), Optional(std::string("1")));
    EXPECT_THAT(store.Get("a"), Optional(std::string(100, 'n')));
}

TEST(StringStore, ViewFails_StoreError) {
    HeapMemory memory(kRoom);
    StringStore writer(memory);
    writer.Set("a", std::string(200, 'x'));
    StringStore late(memory);
    memory.available = 100;
    EXPECT_THROW(late.Get("a"), StoreError);
    memory.available = UINT32_MAX;
    EXPECT_THAT(late.Get("a"), Optional(std::string(200, 'x')));
}

/// Stops the thread that reads, until the test lets it continue.
class StoppingMemory : public HeapMemory {
 public:
    using HeapMemory::HeapMemory;
    void Read(std::uint32_t space, std::uint32_t offset, void* bytes, std::size_t size) const override {
        if (!stops.exchange(false)) return HeapMemory::Read(space, offset, bytes, size);
        stopped.set_value();
        continued.get_future().wait();
        HeapMemory::Read(space, offset, bytes, size);
    }

    mutable std::atomic<bool> stops = false;
    mutable std::promise<void> stopped;
    mutable std::promise<void> continued;
};

TEST(StringStore, ThreadStopsInsideTheStore_OtherThreadsGetStoreError) {
    StoppingMemory memory(kRoom);
    StringStore store(memory, std::chrono::milliseconds(20));
    store.Set("a", "1");
    memory.stops = true;
    auto inside = std::async(std::launch::async, [&] { return store.Get("a"); });
    memory.stopped.get_future().wait();
    auto outside = std::async(std::launch::async, [&] {
        EXPECT_THROW(store.Get("a"), StoreError);
        EXPECT_THROW(store.Set("a", "2"), StoreError);
    });
    EXPECT_EQ(outside.wait_for(std::chrono::seconds(10)), std::future_status::ready);
    memory.continued.set_value();
    EXPECT_THAT(inside.get(), Optional(std::string("1")));
    EXPECT_TRUE(store.Set("a", "2"));
}

TEST(StringStore, ForeignMemory_StoreError) {
    HeapMemory memory(kRoom);
    StringStore(memory).Set("a", "1");
    const std::uint32_t version = memory.Load(Word::kVersion);
    memory.Overwrite(Word::kVersion, version + 1);
    EXPECT_THROW(StringStore(memory).Get("a"), StoreError);
    memory.Overwrite(Word::kVersion, version);
    memory.Overwrite(Word::kMagic, 0x12345678);
    EXPECT_THROW(StringStore(memory).Set("a", "2"), StoreError);
}

TEST(StringStore, InvalidUsedSize_StoreError) {
    HeapMemory memory(kRoom);
    StringStore store(memory);
    store.Set("a", "1");
    store.Get("a");
    for (const std::uint32_t used : {kRoom + 4, 0u, 13u}) {
        memory.Overwrite(Word::kUsed0, used);
        EXPECT_THROW(store.Get("a"), StoreError) << used;
        memory.Overwrite(Word::kUsed0, 12);
    }
    EXPECT_THAT(store.Get("a"), Optional(std::string("1")));
}

TEST(StringStore, RecordBeyondTheEnd_StoreError) {
    for (const std::uint32_t offset : {0u, 4u}) {  // the key's size, the value's size
        for (const std::uint32_t size : {100u, 0x7FFFFFFFu, 0xFFFFFFF0u, 0xFFFFFFFFu}) {
            HeapMemory memory(kRoom);
            StringStore(memory).Set("key", "value");
            memory.OverwriteBytes(0, offset, size);
            EXPECT_THROW(StringStore(memory).Get("key"), StoreError) << size;
        }
    }
}

TEST(StringStore, OverwrittenRecord_StoreError) {
    HeapMemory memory(64);
    StringStore store(memory);
    store.Set("one", "a");
    store.Set("two", "b");
    ASSERT_TRUE(store.Get("two"));
    memory.OverwriteBytes(0, 8, 0x20202020);  // the first record's key
    EXPECT_THROW(store.Get("one"), StoreError);
    EXPECT_THROW(store.Set("two", "a value that needs a rewrite........"), StoreError);
    EXPECT_THAT(store.Get("two"), Optional(std::string("b")));
}

/// Sets `key` with a writer that dies after 0, 1, 2 … steps, until a writer completes. After each death, another
/// process must read the complete old value and must be able to set the string.
void CheckEveryDeath(std::uint32_t capacity, const std::string& newValue) {
    const std::string oldValue(300, 'o');
    std::size_t deaths = 0;
    for (bool died = true; died; ++deaths) {
        HeapMemory memory(capacity);
        StringStore survivor(memory);
        survivor.Set("key", std::string(250, 'x'));
        survivor.Set("other", "kept");
        survivor.Set("key", oldValue);
        StringStore writer(memory);
        memory.stepsLeft = deaths;
        try {
            ASSERT_TRUE(writer.Set("key", newValue));
            died = false;
        } catch (const WriterDied&) {
        }
        memory.stepsLeft = SIZE_MAX;
        for (StringStore* store : {&survivor, &writer}) {
            EXPECT_THAT(store->Get("key"), Optional(died ? oldValue : newValue)) << deaths;
            EXPECT_THAT(store->Get("other"), Optional(std::string("kept"))) << deaths;
        }
        EXPECT_TRUE(survivor.Set("key", newValue + "!"));
        EXPECT_THAT(writer.Get("key"), Optional(newValue + "!")) << deaths;
    }
    EXPECT_GT(deaths, newValue.size());
}

TEST(StringStore, WriterDiesWhileAppending_OldValueIsComplete) {
    CheckEveryDeath(kRoom, std::string(280, 'n'));
}

TEST(StringStore, WriterDiesWhileRewriting_OldValueIsComplete) {
    CheckEveryDeath(700, std::string(280, 'n'));
}

TEST(StringStore, FirstUserDiesAtAnyStep_NextUserCanSetStrings) {
    std::size_t deaths = 0;
    for (bool died = true; died; ++deaths) {
        HeapMemory memory(kRoom);
        memory.stepsLeft = deaths;
        try {
            StringStore(memory).Set("key", "value");
            died = false;
        } catch (const WriterDied&) {
        }
        memory.stepsLeft = SIZE_MAX;
        StringStore next(memory);
        EXPECT_EQ(next.Get("key").has_value(), !died);
        EXPECT_TRUE(next.Set("key", "next"));
        EXPECT_THAT(next.Get("key"), Optional(std::string("next")));
    }
    EXPECT_GT(deaths, 3u);
}

TEST(StringStore, RandomCalls_AgreeWithAMap) {
    std::mt19937 random(20031);
    const auto below = [&random](std::size_t bound) { return random() % bound; };
    for (const std::uint32_t capacity : {2000u, 20000u, 1u << 22}) {
        HeapMemory memory(capacity);
        std::array<std::optional<StringStore>, 3> processes;
        for (auto& process : processes) process.emplace(memory);
        std::map<std::string, std::string> expected;
        std::size_t refused = 0;
        for (int i = 0; i < 20000; ++i) {
            auto& process = processes.at(below(3));
            const std::string key(1 + below(3), static_cast<char>('a' + below(20)));
            if (below(200) == 0) process.emplace(memory);  // one process ends and another starts
            if (below(2) == 0) {
                const std::string value(below(120), static_cast<char>(below(256)));
                if (process->Set(key, value)) {
                    expected[key] = value;
                } else {
                    ++refused;
                }
            }
            const auto found = expected.find(key);
            ASSERT_EQ(process->Get(key), found == expected.end() ? std::nullopt : std::optional(found->second));
        }
        EXPECT_EQ(refused > 0, capacity == 2000u);
        std::vector<std::string> keys;
        for (auto key = processes[0]->FirstKey(); key; key = processes[0]->KeyAfter(*key)) keys.push_back(*key);
        std::vector<std::string> expectedKeys;
        for (const auto& [key, value] : expected) expectedKeys.push_back(key);
        EXPECT_EQ(keys, expectedKeys);
    }
}

}  // namespace
}  // namespace devkernel
