// Runs the tests of ProcessPort with the real process. To test claims between processes, the tests start
// claim_holder.exe from their folder. This program makes a claim and reports the result through named events.
#include "runtime/win32/Win32Process.h"

#include <gtest/gtest.h>

#include <thread>

#include "runtime/ProcessPort_test.h"
#include "runtime/win32/GrowingBuffer.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {
namespace {

constexpr DWORD kMaxWait = 30'000;

std::unique_ptr<ProcessPort> MakeWin32Process() {
    return std::make_unique<Win32Process>(nullptr);
}
INSTANTIATE_TEST_SUITE_P(Windows, ProcessPortTest, testing::Values(&MakeWin32Process));

String HolderPath() {
    return Win32Process(nullptr).ComponentFolder() + u"\\claim_holder.exe";
}

String SystemFolder() {
    return FillGrowing(
        [](wchar_t* buffer, DWORD capacity) { return static_cast<DWORD>(GetSystemDirectoryW(buffer, capacity)); });
}

/// Runs another process that claims to be the first instance of its program.
class Holder {
 public:
    explicit Holder(StringView program = HolderPath()) {
        static int count = 0;
        const String name =
            FromAscii("Local\\k4t-claim-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++count));
        claimed_ = MakeEvent(name + u"-claimed");
        refused_ = MakeEvent(name + u"-refused");
        giveUp_ = MakeEvent(name + u"-give-up");
        givenUp_ = MakeEvent(name + u"-given-up");
        end_ = MakeEvent(name + u"-end");
        String commandLine = String(u"\"").append(program).append(u"\" ").append(name);
        STARTUPINFOW startup{};
        startup.cb = sizeof(startup);
        PROCESS_INFORMATION started{};
        if (CreateProcessW(nullptr, Wide(commandLine.data()), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                           &started)) {
            process_ = KernelHandle(started.hProcess);
            CloseHandle(started.hThread);
        }
    }
    ~Holder() {
        if (process_) End();
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    /// Returns "claimed", "refused", or the reason for a failure.
    std::string Answer() {
        if (!process_) return "not started";
        const HANDLE events[] = {claimed_.Get(), refused_.Get(), process_.Get()};
        switch (WaitForMultipleObjects(3, events, FALSE, kMaxWait)) {
            case WAIT_OBJECT_0:
                return "claimed";
            case WAIT_OBJECT_0 + 1:
                return "refused";
            case WAIT_OBJECT_0 + 2:
                return "ended early";
            default:
                return "no answer";
        }
    }
    /// Makes the process release the claim and continue. Returns true if the process confirms the release.
    bool GiveUp() {
        SetEvent(giveUp_.Get());
        return WaitForSingleObject(givenUp_.Get(), kMaxWait) == WAIT_OBJECT_0;
    }
    void End() {
        SetEvent(end_.Get());
        WaitForSingleObject(process_.Get(), kMaxWait);
    }
    void Kill() {
        TerminateProcess(process_.Get(), 3);
        WaitForSingleObject(process_.Get(), kMaxWait);
    }

 private:
    static KernelHandle MakeEvent(const String& name) {
        return KernelHandle(CreateEventW(nullptr, TRUE, FALSE, Wide(name)));
    }

    KernelHandle claimed_;
    KernelHandle refused_;
    KernelHandle giveUp_;
    KernelHandle givenUp_;
    KernelHandle end_;
    KernelHandle process_;
};

TEST(FirstInstanceClaim, SecondProcessOfTheSameProgramIsRefused) {
    Holder first;
    ASSERT_EQ(first.Answer(), "claimed");
    Holder second;
    EXPECT_EQ(second.Answer(), "refused");
    Holder third;
    EXPECT_EQ(third.Answer(), "refused");
}

TEST(FirstInstanceClaim, ProcessReleasedTheClaim_ClaimIsFree) {
    Holder first;
    ASSERT_EQ(first.Answer(), "claimed");
    ASSERT_TRUE(first.GiveUp());
    Holder second;
    EXPECT_EQ(second.Answer(), "claimed");
}

TEST(FirstInstanceClaim, ProcessEnded_ClaimIsFree) {
    Holder first;
    ASSERT_EQ(first.Answer(), "claimed");
    first.End();
    Holder second;
    EXPECT_EQ(second.Answer(), "claimed");
}

TEST(FirstInstanceClaim, ProcessWasKilled_ClaimIsFree) {
    Holder first;
    ASSERT_EQ(first.Answer(), "claimed");
    first.Kill();
    Holder second;
    EXPECT_EQ(second.Answer(), "claimed");
}

TEST(FirstInstanceClaim, SameFileSpeltDifferently_IsTheSameProgram) {
    String upper = HolderPath();
    CharUpperBuffW(Wide(upper.data()), static_cast<DWORD>(upper.size()));
    Holder first;
    ASSERT_EQ(first.Answer(), "claimed");
    Holder second(upper);
    EXPECT_EQ(second.Answer(), "refused");
}

TEST(FirstInstanceClaim, AnotherProgram_HasASeparateClaim) {
    const auto ownClaim = Win32Process(nullptr).ClaimFirstInstance();
    ASSERT_NE(ownClaim, nullptr);
    const String copy = Win32Process(nullptr).ComponentFolder() + u"\\claim_holder_copy.exe";
    ASSERT_TRUE(CopyFileW(Wide(HolderPath()), Wide(copy), FALSE)) << GetLastError();
    {
        Holder first;
        EXPECT_EQ(first.Answer(), "claimed");
        Holder second(copy);
        EXPECT_EQ(second.Answer(), "claimed");
    }
    EXPECT_TRUE(DeleteFileW(Wide(copy))) << GetLastError();
}

TEST(FirstInstanceClaim, ThreadsOfAProcess_ShareTheClaim) {
    auto here = Win32Process(nullptr).ClaimFirstInstance();
    std::unique_ptr<InstanceClaim> there;
    std::thread([&there] { there = Win32Process(nullptr).ClaimFirstInstance(); }).join();
    EXPECT_NE(there, nullptr);
    here.reset();
    EXPECT_NE(Win32Process(nullptr).ClaimFirstInstance(), nullptr);
}

TEST(Win32Process, CommandLine_HasOnlyTheArguments) {
    const String whole = ToString(GetCommandLineW());
    const String arguments = Win32Process(nullptr).CommandLine();
    EXPECT_TRUE(whole.ends_with(arguments));
    EXPECT_EQ(arguments.find(u"unit_tests.exe"), String::npos);
}

TEST(Win32Process, ComponentFolder_IsTheFolderOfTheGivenDll) {
    const String system = SystemFolder();
    const String folder = Win32Process(GetModuleHandleW(L"kernel32.dll")).ComponentFolder();
    EXPECT_EQ(CompareStringOrdinal(Wide(folder), -1, Wide(system), -1, TRUE), CSTR_EQUAL)
        << ToUtf8(folder) << " and " << ToUtf8(system);
}

TEST(Win32Process, ComponentInADriveRoot_FolderEndsWithABackslash) {
    const String root = SystemFolder().substr(0, 3);
    const String copy = root + u"k4t_claim_holder.dll";
    if (!CopyFileW(Wide(HolderPath()), Wide(copy), FALSE)) GTEST_SKIP() << "the drive's root cannot be written";
    Library module(LoadLibraryExW(Wide(copy), nullptr, DONT_RESOLVE_DLL_REFERENCES));
    EXPECT_TRUE(module) << GetLastError();
    EXPECT_EQ(Win32Process(module.Get()).ComponentFolder(), root);
    module.Reset();
    EXPECT_TRUE(DeleteFileW(Wide(copy))) << GetLastError();
}

}  // namespace
}  // namespace runtime::win32
