#include "devkernel/SectionMemory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <future>
#include <thread>
#include <vector>

#include "devkernel/StringStore.h"

namespace devkernel {
namespace {

using runtime::String;
using runtime::win32::KernelHandle;
using runtime::win32::Wide;

constexpr std::uint32_t kCapacity = 1 << 20;

String OwnName(const char16_t* name) {
    return u"Local\\" + String(name) + runtime::FromAscii(std::to_string(GetCurrentProcessId()));
}

std::string Text(const SectionMemory& memory, std::uint32_t space, std::uint32_t offset, std::uint32_t size) {
    std::string text(size, '\0');
    memory.Read(space, offset, text.data(), size);
    return text;
}

/// Two objects that use one section, as two processes do.
class SectionMemoryOfTwo : public testing::Test {
 protected:
    SectionMemory one_{OwnName(u"SectionMemoryOfTwo"), kCapacity};
    SectionMemory two_{OwnName(u"SectionMemoryOfTwo"), kCapacity};
};

TEST_F(SectionMemoryOfTwo, NewMemory_IsZero) {
    for (std::uint32_t word = 0; word < kWordCount; ++word) EXPECT_EQ(one_.Load(static_cast<Word>(word)), 0u);
}

TEST_F(SectionMemoryOfTwo, WordsAndBytes_AreShared) {
    one_.Store(Word::kUsed1, 7);
    EXPECT_EQ(two_.Load(Word::kUsed1), 7u);
    ASSERT_TRUE(one_.View(1, kCapacity));
    one_.Write(1, kCapacity - 4, "end", 4);
    ASSERT_TRUE(two_.View(1, kCapacity));
    EXPECT_EQ(Text(two_, 1, kCapacity - 4, 3), "end");
}

TEST_F(SectionMemoryOfTwo, Spaces_AreSeparate) {
    for (const std::uint32_t space : {0u, 1u}) {
        ASSERT_TRUE(one_.View(space, kCapacity));
        for (const std::uint32_t offset : {0u, kCapacity - 1}) one_.Write(space, offset, space == 0 ? "a" : "b", 1);
    }
    ASSERT_TRUE(two_.View(0, kCapacity));
    EXPECT_EQ(Text(two_, 0, 0, 1), "a");
    EXPECT_EQ(Text(two_, 0, kCapacity - 1, 1), "a");
}

TEST_F(SectionMemoryOfTwo, ViewsGrowOrEnd_BytesDoNotChange) {
    ASSERT_TRUE(one_.View(0, 5));
    one_.Write(0, 0, "first", 5);
    for (const std::uint32_t size : {64u * 1024, 64u * 1024 + 1, kCapacity}) {
        ASSERT_TRUE(one_.View(0, size)) << size;
        EXPECT_EQ(Text(one_, 0, 0, 5), "first") << size;
    }
    one_.Release(0);
    for (SectionMemory* memory : {&one_, &two_}) {
        ASSERT_TRUE(memory->View(0, 5));
        EXPECT_EQ(Text(*memory, 0, 0, 5), "first");
    }
}

TEST_F(SectionMemoryOfTwo, ViewBeyondTheCapacity_Fails) {
    EXPECT_FALSE(one_.View(0, kCapacity + 1));
    EXPECT_FALSE(one_.View(1, 0xFFFFFFFF));
    EXPECT_TRUE(one_.View(1, kCapacity));
}

TEST(SectionMemory, LockIsHeld_OnlyTheFirstWaitIsLong) {
    constexpr unsigned kTimeout = 500;  // milliseconds
    const String name = OwnName(u"SectionMemoryLock");
    SectionMemory owner(name, kCapacity);
    SectionMemory other(name, kCapacity, kTimeout);
    owner.Lock();
    std::thread([&] {
        const ULONGLONG start = GetTickCount64();
        for (int i = 0; i < 12; ++i) EXPECT_THROW(other.Lock(), StoreError);
        EXPECT_LT(GetTickCount64() - start, 6 * kTimeout);
    }).join();
    owner.Unlock();
    std::thread([&] {
        other.Lock();
        other.Unlock();
    }).join();
}

/// Reserves the whole free address space of the process.
class FullAddressSpace {
 public:
    FullAddressSpace() {
        constexpr std::size_t kSmallest = 64 * 1024;
        constexpr std::size_t kLargest = 1 << 30;
        blocks_.reserve(kLargest / kSmallest);
        for (std::size_t size = kLargest; size >= kSmallest; size /= 2) {
            while (void* const block = VirtualAlloc(nullptr, size, MEM_RESERVE, PAGE_NOACCESS)) {
                blocks_.push_back(block);
            }
        }
    }
    FullAddressSpace(const FullAddressSpace&) = delete;
    FullAddressSpace& operator=(const FullAddressSpace&) = delete;
    ~FullAddressSpace() {
        for (void* const block : blocks_) VirtualFree(block, 0, MEM_RELEASE);
    }

 private:
    std::vector<void*> blocks_;
};

TEST(SectionMemory, AddressSpaceIsFull_StoreKeepsTheOldValue) {
    SectionMemory memory(OwnName(u"SectionMemoryFull"), kCapacity);
    StringStore store(memory);
    const std::string large(200'000, 'x');
    ASSERT_TRUE(store.Set("key", "old"));
    {
        const FullAddressSpace full;
        EXPECT_FALSE(store.Set("key", large));
        EXPECT_EQ(store.Get("key"), "old");
    }
    EXPECT_EQ(store.Get("key"), "old");
    EXPECT_TRUE(store.Set("key", large));
    EXPECT_EQ(store.Get("key"), large);
}

bool CanLock(SectionMemory& memory) {
    try {
        memory.Lock();
    } catch (const StoreError&) {
        return false;
    }
    memory.Unlock();
    return true;
}

TEST(SectionMemory, StuckLockIsReleased_WriterGetsTheLock) {
    constexpr unsigned kTimeout = 100;  // milliseconds
    const String name = OwnName(u"SectionMemoryShortly");
    SectionMemory owner(name, kCapacity);
    SectionMemory other(name, kCapacity, kTimeout);
    owner.Lock();
    std::thread([&] { EXPECT_THROW(other.Lock(), StoreError); }).join();
    std::promise<void> started;
    std::thread writer([&] {
        started.set_value();
        bool isLocked = false;
        for (int attempt = 0; attempt < 20 && !isLocked; ++attempt) isLocked = CanLock(other);
        EXPECT_TRUE(isLocked);
    });
    started.get_future().wait();
    Sleep(100);
    owner.Unlock();
    writer.join();
}

TEST(SectionMemory, NameIsUsedByAnEvent_IsRefused) {
    const String name = OwnName(u"SectionMemoryTaken");
    const KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, Wide(name)));
    EXPECT_THROW(SectionMemory(name, kCapacity), StoreError);
}

TEST(SectionMemory, SectionSmallerThanExpected_ViewBeyondItsEndFails) {
    const String name = OwnName(u"SectionMemorySmall");
    const SectionMemory small(name, kCapacity);
    SectionMemory large(name, 4 * kCapacity);
    EXPECT_FALSE(large.View(1, 1));
}

}  // namespace
}  // namespace devkernel
