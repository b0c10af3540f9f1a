// Tests the development kernel as its users run it: several processes of one session load the library.
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <thread>

#include "devkernel/SectionMemory.h"
#include "tests/kernel/LoadedKernel.h"
#include "tests/kernel/Peer.h"
#include "tests/support/Rounds.h"
#include "tests/support/TestFolder.h"

namespace tests::kernel {
namespace {

using devkernel::DevelopmentStoreName;
using devkernel::kDevelopmentStoreCapacity;
using devkernel::SectionMemory;
using devkernel::Word;
using runtime::String;
using runtime::win32::KernelHandle;
using runtime::win32::Wide;

const char* At(long address) {
    return reinterpret_cast<const char*>(address);
}

/// Gives each test its own strings, separate from the session's strings.
class DevelopmentKernel : public testing::Test {
 protected:
    void SetUp() override {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        const std::string name = std::string(test->name()) + std::to_string(GetCurrentProcessId());
        SetEnvironmentVariableA("QMXKRN2K_STORE", name.c_str());
    }
    void TearDown() override { SetEnvironmentVariableA("QMXKRN2K_STORE", nullptr); }

    /// Loads a copy of the kernel into this process. Each call loads a new copy, because a library that was used stays
    /// in memory with its strings.
    static LoadedKernel Load() {
        static int count = 0;
        const String copy = TestFolder() + u"\\kernel_copy_" + runtime::FromAscii(std::to_string(++count)) + u".dll";
        EXPECT_TRUE(CopyFileW(Wide(KernelFolder() + u"\\QmxKrn2K.dll"), Wide(copy), FALSE)) << GetLastError();
        return LoadedKernel(copy);
    }
};

TEST_F(DevelopmentKernel, TwoProcesses_ShareTheStrings) {
    const LoadedKernel kernel = Load();
    Peer peer;
    EXPECT_EQ(peer.Request("get\tINITBP"), "none");
    EXPECT_NE(kernel.E_SetString("INITBP", "INIT"), 0);
    EXPECT_EQ(peer.Request("get\tINITBP"), "=INIT");
    EXPECT_EQ(peer.Request("set\tINITBP\tTERM"), "stored");
    EXPECT_STREQ(At(kernel.E_GetString("INITBP")), "TERM");
}

TEST_F(DevelopmentKernel, Strings_ExistUntilTheLastProcessEnds) {
    auto first = std::make_unique<Peer>();
    EXPECT_EQ(first->Request("set\tkey\tvalue"), "stored");
    auto second = std::make_unique<Peer>();
    EXPECT_EQ(second->Request("get\tkey"), "=value");
    first.reset();
    EXPECT_EQ(second->Request("get\tkey"), "=value");
    second.reset();
    EXPECT_EQ(Peer().Request("get\tkey"), "none");
}

TEST_F(DevelopmentKernel, LibraryFreedBeforeUse_IsUnloaded) {
    EXPECT_EQ(Peer().Request("unload"), "unloaded");
}

TEST_F(DevelopmentKernel, LibraryFreedAfterUse_StaysInMemoryWithItsStrings) {
    Peer peer;
    EXPECT_EQ(peer.Request("set\tkey\tvalue"), "stored");
    EXPECT_EQ(peer.Request("unload"), "still loaded");
    EXPECT_STREQ(At(Load().E_GetString("key")), "value");
}

TEST_F(DevelopmentKernel, LockOwnerKilled_OtherProcessesContinue) {
    Peer peer;
    EXPECT_EQ(peer.Request("set\tkey\tvalue"), "stored");
    for (int i = 0; i < 3; ++i) {
        Peer owner;
        EXPECT_EQ(owner.Request("lock"), "locked");
        owner.Die();
        EXPECT_EQ(peer.Request("get\tkey"), i == 0 ? "=value" : "=new");
        EXPECT_EQ(peer.Request("set\tkey\tother"), "stored");
        EXPECT_EQ(peer.Request("set\tkey\tnew"), "stored");
    }
}

TEST_F(DevelopmentKernel, LockIsHeld_ReadingAndStoringTheSameValueSucceed) {
    const LoadedKernel kernel = Load();
    EXPECT_NE(kernel.E_SetString("key", "value"), 0);
    Peer owner;
    EXPECT_EQ(owner.Request("lock"), "locked");
    EXPECT_STREQ(At(kernel.E_GetString("key")), "value");
    EXPECT_NE(kernel.E_SetString("key", "value"), 0);
    EXPECT_EQ(kernel.E_GetString("none"), 0);
    EXPECT_EQ(kernel.QmxDev_NextString(nullptr, nullptr, 0), 4);
}

TEST_F(DevelopmentKernel, WriterKilledWhileAddingARecord_RecordIsNotVisible) {
    Peer peer;
    EXPECT_EQ(peer.Request("set\tkey\told"), "stored");
    {
        Peer writer;
        EXPECT_EQ(writer.Request("half"), "written");
        writer.Die();
    }
    EXPECT_EQ(peer.Request("get\tkey"), "=old");
    EXPECT_EQ(peer.Request("set\tkey\tnew"), "stored");
    EXPECT_EQ(Peer().Request("get\tkey"), "=new");
}

TEST_F(DevelopmentKernel, EightProcessesAndKilledWriters_NoTextIsTorn) {
    constexpr std::size_t kKeys = 2;
    const auto writeOver = [](Peer& writer, std::size_t i) {
        writer.Send("write\tkey" + std::to_string(i % kKeys) + "\t1000000\t" + std::to_string(17 * i + 1));
    };
    std::array<std::optional<Peer>, 4> writers;
    std::array<Peer, 4> readers;
    for (std::size_t i = 0; i < kKeys; ++i) readers[0].Request("set\tkey" + std::to_string(i) + "\t");
    for (std::size_t i = 0; i < writers.size(); ++i) writeOver(writers[i].emplace(), i);
    for (std::size_t round = 0; round < static_cast<std::size_t>(Rounds(40, 4)); ++round) {
        for (std::size_t i = 0; i < readers.size(); ++i) {
            readers[i].Send("follow\tkey" + std::to_string(i % kKeys) + "\t200");
        }
        std::optional<Peer>& killed = writers[round % writers.size()];
        killed->Kill();
        writeOver(killed.emplace(), round);
        for (Peer& reader : readers) EXPECT_EQ(reader.ReadReply(), "0") << round;
    }
    for (auto& writer : writers) writer->Kill();
    EXPECT_EQ(readers[0].Request("watch\tkey0\t2"), "0");
}

TEST_F(DevelopmentKernel, TenThousandStrings_AreStored) {
    Peer one;
    Peer two;
    one.Send("many\tone\t5000");
    two.Send("many\ttwo\t5000");
    EXPECT_EQ(one.ReadReply(), "stored");
    EXPECT_EQ(two.ReadReply(), "stored");
    EXPECT_EQ(one.Request("check\ttwo\t5000"), "5000");
    EXPECT_EQ(two.Request("check\tone\t5000"), "5000");
    EXPECT_EQ(one.Request("list"), "10000 sorted");
}

TEST_F(DevelopmentKernel, StringOf40Megabytes_IsStored) {
    Peer one;
    Peer two;
    EXPECT_EQ(one.Request("fill\tbig\t1000000\tm"), "stored");
    EXPECT_EQ(two.Request("summary\tbig"), "1000000 m");
    for (const char* letter : {"a", "b", "c", "d"}) {
        EXPECT_EQ(one.Request(std::string("fill\tbig\t40000000\t") + letter), "stored");
        EXPECT_EQ(two.Request("summary\tbig"), std::string("40000000 ") + letter);
    }
}

TEST_F(DevelopmentKernel, StringThatDoesNotFit_KeepsTheOldValue) {
    Peer one;
    Peer two;
    EXPECT_EQ(one.Request("set\tkey\told"), "stored");
    EXPECT_EQ(one.Request("fill\tkey\t300000000\tx"), "refused");
    EXPECT_EQ(one.Request("fill\tbig\t150000000\tb"), "stored");
    EXPECT_EQ(two.Request("fill\tkey\t150000000\tx"), "refused");
    EXPECT_EQ(two.Request("get\tkey"), "=old");
    EXPECT_EQ(two.Request("summary\tbig"), "150000000 b");
    EXPECT_EQ(one.Request("fill\tbig\t10\tc"), "stored");
    EXPECT_EQ(two.Request("fill\tkey\t1000000\tx"), "stored");
}

TEST_F(DevelopmentKernel, EmptyString_DiffersFromMissingString) {
    const LoadedKernel kernel = Load();
    EXPECT_NE(kernel.E_SetString("key", ""), 0);
    EXPECT_STREQ(At(kernel.E_GetString("key")), "");
    EXPECT_EQ(kernel.E_GetString("Key"), 0);
}

TEST_F(DevelopmentKernel, NullArguments_AreRefused) {
    const LoadedKernel kernel = Load();
    EXPECT_EQ(kernel.E_SetString(nullptr, "value"), 0);
    EXPECT_EQ(kernel.E_SetString("key", nullptr), 0);
    EXPECT_EQ(kernel.E_GetString(nullptr), 0);
    EXPECT_EQ(kernel.E_GetString("key"), 0);
}

TEST_F(DevelopmentKernel, O_GetName_ReturnsOnlyTheOpenDesignsName) {
    const LoadedKernel kernel = Load();
    EXPECT_EQ(kernel.O_GetName(kernel.DB_DataBase()), 0);
    kernel.E_SetString("DESIGN_NAME", "amplifier");
    EXPECT_EQ(kernel.DB_DataBase(), 1);
    EXPECT_STREQ(At(kernel.O_GetName(1)), "amplifier");
    EXPECT_EQ(kernel.O_GetName(0), 0);
    EXPECT_EQ(kernel.O_GetName(2), 0);
}

TEST_F(DevelopmentKernel, Address_StaysValidUntilTheSameThreadReadsTheSameKey) {
    const LoadedKernel kernel = Load();
    kernel.E_SetString("DESIGN_NAME", "old");
    const char* text = At(kernel.E_GetString("DESIGN_NAME"));
    kernel.E_SetString("DESIGN_NAME", "new");
    std::thread([&] { EXPECT_STREQ(At(kernel.E_GetString("DESIGN_NAME")), "new"); }).join();
    EXPECT_STREQ(At(kernel.O_GetName(1)), "new");
    kernel.E_GetString("other");
    EXPECT_STREQ(text, "old");
    EXPECT_STREQ(At(kernel.E_GetString("DESIGN_NAME")), "new");
}

TEST_F(DevelopmentKernel, NextString_BufferTooSmall_BufferIsUnchanged) {
    const LoadedKernel kernel = Load();
    EXPECT_EQ(kernel.QmxDev_NextString(nullptr, nullptr, 0), 0);
    kernel.E_SetString("LibDir", "1");
    kernel.E_SetString("JobDir", "2");
    char key[8] = "?";
    EXPECT_EQ(kernel.QmxDev_NextString(nullptr, key, 6), 7);
    EXPECT_STREQ(key, "?");
    EXPECT_EQ(kernel.QmxDev_NextString(nullptr, key, 7), 7);
    EXPECT_STREQ(key, "JobDir");
    EXPECT_EQ(kernel.QmxDev_NextString("JobDir", key, 7), 7);
    EXPECT_STREQ(key, "LibDir");
    EXPECT_EQ(kernel.QmxDev_NextString("LibDir", key, 7), 0);
}

TEST_F(DevelopmentKernel, ForeignSharedMemory_CallsFail) {
    SectionMemory memory(DevelopmentStoreName(), kDevelopmentStoreCapacity);
    memory.Lock();
    memory.Store(Word::kMagic, 0x20202020);
    memory.Unlock();
    const LoadedKernel kernel = Load();
    EXPECT_EQ(kernel.E_SetString("key", "value"), 0);
    EXPECT_EQ(kernel.E_GetString("key"), 0);
    EXPECT_EQ(kernel.QmxDev_NextString(nullptr, nullptr, 0), -1);
}

TEST_F(DevelopmentKernel, StoreNameIsTakenAndFreedLater_NextCallConnects) {
    std::optional<KernelHandle> event(CreateEventW(nullptr, TRUE, FALSE, Wide(DevelopmentStoreName())));
    const LoadedKernel kernel = Load();
    EXPECT_EQ(kernel.E_SetString("key", "value"), 0);
    event.reset();
    EXPECT_NE(kernel.E_SetString("key", "value"), 0);
}

}  // namespace
}  // namespace tests::kernel
