#include "trace/win32/TraceFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <future>
#include <memory>
#include <regex>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "trace/Line.h"

namespace trace::win32 {
namespace {

using Clock = std::chrono::steady_clock;
using runtime::String;

constexpr const char* kPrefix = R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} \d+/\d+ )";

class TraceFileTest : public ::testing::Test {
 protected:
    TraceFileTest() {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    ~TraceFileTest() override {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    String Path(const char16_t* name = u"trace.txt") const { return (folder_ / name).u16string(); }

    /// Returns the lines without time, process and thread. A line without this prefix becomes "bad: " and the line.
    std::vector<std::string> Lines() const {
        const std::regex prefix(kPrefix);
        std::ifstream file(std::filesystem::path(Path()), std::ios::binary);
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);) {
            std::smatch found;
            const bool isWhole = std::regex_search(line, found, prefix, std::regex_constants::match_continuous);
            lines.push_back(isWhole ? found.suffix().str() : "bad: " + line);
        }
        return lines;
    }

    /// Takes the lock with a separate handle, as another process does while it writes a line.
    runtime::win32::FileHandle HoldLock() const {
        runtime::win32::FileHandle file(CreateFileW(runtime::win32::Wide(Path()), GENERIC_READ | GENERIC_WRITE,
                                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        OVERLAPPED place{};
        place.OffsetHigh = 0x40000000;
        EXPECT_TRUE(LockFileEx(file.Get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place));
        return file;
    }

    const std::filesystem::path folder_ = std::filesystem::temp_directory_path() / u"trace file test";
};

using Texts = std::vector<std::string>;

TEST_F(TraceFileTest, Lines_BeginWithTimeProcessAndThread) {
    TraceFile::Open(Path())->Write("first");
    TraceFile::Open(Path())->Write("second");
    EXPECT_EQ(Lines(), (Texts{"first", "second"}));
    std::ifstream file(std::filesystem::path(Path()), std::ios::binary);
    std::stringstream whole;
    whole << file.rdbuf();
    const std::string numbers = std::to_string(GetCurrentProcessId()) + "/" + std::to_string(GetCurrentThreadId());
    EXPECT_NE(whole.str().find(" " + numbers + " first\n"), std::string::npos) << whole.str();
}

TEST_F(TraceFileTest, Write_KeepsTheLastError) {
    const auto file = TraceFile::Open(Path());
    SetLastError(12345);
    file->Write("line");
    EXPECT_EQ(GetLastError(), 12345u);
    const auto held = HoldLock();
    SetLastError(12346);
    file->Write("lost");
    EXPECT_EQ(GetLastError(), 12346u);
}

TEST_F(TraceFileTest, OpenFile_OtherProgramsCanReadAndDeleteTheFile) {
    const auto file = TraceFile::Open(Path());
    file->Write("line");
    EXPECT_EQ(Lines(), Texts{"line"});
    EXPECT_TRUE(DeleteFileW(runtime::win32::Wide(Path())));
    file->Write("into the deleted file");
}

TEST_F(TraceFileTest, EmptiedFile_NextLineIsTheFirstLine) {
    const auto file = TraceFile::Open(Path());
    file->Write("before");
    std::ofstream(std::filesystem::path(Path()), std::ios::binary | std::ios::trunc).close();
    file->Write("after");
    EXPECT_EQ(Lines(), Texts{"after"});
}

TEST_F(TraceFileTest, FolderDeviceOrLockedFile_IsNotOpened) {
    EXPECT_EQ(TraceFile::Open(folder_.u16string()), nullptr);
    EXPECT_EQ(TraceFile::Open(Path(u"missing\\trace.txt")), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(TraceFile::Open(u"NUL"), nullptr);
    const runtime::win32::FileHandle locked(CreateFileW(runtime::win32::Wide(Path()), GENERIC_WRITE, 0, nullptr,
                                                        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    EXPECT_EQ(TraceFile::Open(Path()), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
}

TEST_F(TraceFileTest, VariableMissingOrInvalid_NothingIsOpened) {
    SetEnvironmentVariableW(kFileVariable, nullptr);
    EXPECT_EQ(OpenFromEnvironment(), nullptr);
    SetEnvironmentVariableW(kFileVariable, L"");
    EXPECT_EQ(OpenFromEnvironment(), nullptr);
    SetEnvironmentVariableW(kFileVariable, runtime::win32::Wide(Path(u"missing\\trace.txt")));
    EXPECT_EQ(OpenFromEnvironment(), nullptr);
    SetEnvironmentVariableW(kFileVariable, runtime::win32::Wide(Path()));
    EXPECT_NE(OpenFromEnvironment(), nullptr);
    SetEnvironmentVariableW(kFileVariable, nullptr);
}

TEST_F(TraceFileTest, LockIsNotReleased_WaitsOnceAndCountsLostLines) {
    const auto file = TraceFile::Open(Path());
    auto held = HoldLock();
    const auto start = Clock::now();
    file->Write("lost 1");
    const auto firstWait = Clock::now() - start;
    for (int i = 0; i < 100; ++i) file->Write("lost");
    file->CountLost();
    EXPECT_GE(firstWait, kMaxWait);
    EXPECT_LT(Clock::now() - start, kMaxWait + std::chrono::seconds(2));
    // Release the lock, as the system does when the process that holds the lock ends.
    held.Reset();
    file->Write("again");
    file->Write("and again");
    EXPECT_EQ(Lines(), (Texts{"trace lines lost=[102]", "again", "and again"}));
}

TEST_F(TraceFileTest, WritingThreadIsStopped_WaitsOnceAndCountsLostLines) {
    const auto file = TraceFile::Open(Path());
    auto held = HoldLock();
    std::promise<DWORD> writing;
    std::thread writer([&] {
        writing.set_value(GetCurrentThreadId());
        file->Write("lost");
    });
    const runtime::win32::KernelHandle thread(OpenThread(THREAD_SUSPEND_RESUME, FALSE, writing.get_future().get()));
    // Give the writer time to begin its wait for the lock of the file.
    Sleep(300);
    ASSERT_NE(SuspendThread(thread.Get()), static_cast<DWORD>(-1));
    const auto start = Clock::now();
    for (int i = 0; i < 5; ++i) file->Write("lost");
    EXPECT_LT(Clock::now() - start, kMaxWait + std::chrono::seconds(2));
    held.Reset();
    ResumeThread(thread.Get());
    writer.join();
    file->Write("again");
    EXPECT_EQ(Lines(), Texts({"trace lines lost=[5]", "lost", "again"}));
}

TEST_F(TraceFileTest, LockIsHeldForAShortTime_NothingIsLost) {
    const auto file = TraceFile::Open(Path());
    auto held = HoldLock();
    std::thread writer([&] { file->Write("line"); });
    Sleep(300);
    held.Reset();
    writer.join();
    EXPECT_EQ(Lines(), Texts{"line"});
}

TEST_F(TraceFileTest, FourThreads_EveryLineIsWhole) {
    constexpr int kThreads = 4;
    constexpr int kLines = 250;
    const auto file = TraceFile::Open(Path());
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&file] {
            for (int line = 0; line < kLines; ++line) file->Write("line");
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(Lines(), Texts(kThreads * kLines, "line"));
}

}  // namespace
}  // namespace trace::win32
