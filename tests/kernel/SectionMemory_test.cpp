#include "devkernel/SectionMemory.h"

#include <gtest/gtest.h>

#include <cstring>

namespace devkernel {
namespace {

using runtime::String;
using runtime::win32::KernelHandle;
using runtime::win32::Wide;

constexpr std::uint32_t kCapacity = 1 << 20;

String OwnName(const char16_t* name) {
    return u"Local\\" + String(name) + runtime::FromAscii(std::to_string(GetCurrentProcessId()));
}

/// Two users of one memory, as two processes are.
class SectionMemoryOfTwo : public testing::Test {
 protected:
    SectionMemory one_{OwnName(u"SectionMemoryOfTwo"), kCapacity};
    SectionMemory two_{OwnName(u"SectionMemoryOfTwo"), kCapacity};
};

TEST_F(SectionMemoryOfTwo, StartsWithZeroesInEveryWord) {
    for (std::uint32_t word = 0; word < kWordCount; ++word) EXPECT_EQ(one_.Load(static_cast<Word>(word)), 0u);
}

TEST_F(SectionMemoryOfTwo, SharesWordsAndBytes) {
    one_.Store(Word::kUsed1, 7);
    EXPECT_EQ(two_.Load(Word::kUsed1), 7u);
    ASSERT_TRUE(one_.View(1, kCapacity));
    one_.Write(1, kCapacity - 4, "end", 4);
    const std::byte* seen = two_.View(1, kCapacity);
    ASSERT_TRUE(seen);
    EXPECT_STREQ(reinterpret_cast<const char*>(seen) + kCapacity - 4, "end");
}

TEST_F(SectionMemoryOfTwo, KeepsTheSpacesApart) {
    for (const std::uint32_t space : {0u, 1u}) {
        ASSERT_TRUE(one_.View(space, kCapacity));
        for (const std::uint32_t offset : {0u, kCapacity - 1}) one_.Write(space, offset, space == 0 ? "a" : "b", 1);
    }
    const std::byte* first = two_.View(0, kCapacity);
    EXPECT_EQ(first[0], std::byte{'a'});
    EXPECT_EQ(first[kCapacity - 1], std::byte{'a'});
}

TEST_F(SectionMemoryOfTwo, KeepsBytesWhenViewsGrowAndGo) {
    ASSERT_TRUE(one_.View(0, 5));
    one_.Write(0, 0, "first", 5);
    for (const std::uint32_t size : {64u * 1024, 64u * 1024 + 1, kCapacity}) {
        const std::byte* seen = one_.View(0, size);
        ASSERT_TRUE(seen) << size;
        EXPECT_EQ(std::memcmp(seen, "first", 5), 0) << size;
    }
    one_.Release(0);
    EXPECT_EQ(std::memcmp(one_.View(0, 5), "first", 5), 0);
    EXPECT_EQ(std::memcmp(two_.View(0, 5), "first", 5), 0);
}

TEST_F(SectionMemoryOfTwo, ViewsNoMoreThanItsCapacity) {
    EXPECT_EQ(one_.View(0, kCapacity + 1), nullptr);
    EXPECT_EQ(one_.View(1, 0xFFFFFFFF), nullptr);
    EXPECT_NE(one_.View(1, kCapacity), nullptr);
}

TEST(SectionMemory, RefusesANameThatIsNotForMemory) {
    const String name = OwnName(u"SectionMemoryTaken");
    const KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, Wide(name)));
    EXPECT_THROW(SectionMemory(name, kCapacity), StoreError);
}

TEST(SectionMemory, CannotViewMoreThanASmallerSectionHas) {
    const String name = OwnName(u"SectionMemorySmall");
    const SectionMemory small(name, kCapacity);
    SectionMemory large(name, 4 * kCapacity);
    EXPECT_EQ(large.View(1, 1), nullptr);
}

}  // namespace
}  // namespace devkernel
