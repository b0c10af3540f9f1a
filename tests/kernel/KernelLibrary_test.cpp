#include "kernel_api/win32/KernelLibrary.h"

#include <gtest/gtest.h>

#include <functional>

#include "runtime/Error.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/HelpControl.h"
#include "runtime/win32/TrustedLibrary.h"
#include "runtime/win32/Win32Files.h"
#include "tests/support/TestFolder.h"

namespace kernel_api::win32 {
namespace {

using runtime::win32::FileHandle;
using runtime::win32::Wide;

const String kFile = u"\\QmxKrn2K.dll";

/// Returns the error that `call` throws, as "53: File not found: …"; "" if `call` throws no error.
std::string ErrorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const runtime::Error& error) {
        return std::to_string(error.Number()) + ": " + error.what();
    }
    return {};
}

std::string Recorded(const String& folder) {
    const HMODULE library = GetModuleHandleW(Wide(folder + kFile));
    const FARPROC recorded = library ? GetProcAddress(library, "Recorded") : nullptr;
    if (!recorded) return "not loaded";
    return reinterpret_cast<const char*(__stdcall*)()>(reinterpret_cast<void*>(recorded))();
}

/// Copies a library to a folder and deletes the copy at the end of the block.
class PlacedLibrary {
 public:
    PlacedLibrary(const String& from, const String& folder) : path_(folder + kFile) {
        EXPECT_TRUE(CopyFileW(Wide(from + kFile), Wide(path_), TRUE)) << runtime::ToUtf8(path_);
    }
    PlacedLibrary(const PlacedLibrary&) = delete;
    PlacedLibrary& operator=(const PlacedLibrary&) = delete;
    ~PlacedLibrary() { EXPECT_TRUE(DeleteFileW(Wide(path_))); }

 private:
    String path_;
};

/// Creates a folder for libraries. Removes the folder after the test.
class KernelLibraryTest : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(CreateDirectoryW(Wide(folder_), nullptr));
        ASSERT_TRUE(CreateDirectoryW(Wide(development_), nullptr));
        SetEnvironmentVariableW(kAskForDevelopmentKernel, nullptr);
    }
    void TearDown() override {
        SetEnvironmentVariableW(kAskForDevelopmentKernel, nullptr);
        DeleteFileW(Wide(folder_ + kFile));
        EXPECT_TRUE(RemoveDirectoryW(Wide(development_)));
        EXPECT_TRUE(RemoveDirectoryW(Wide(folder_)));
    }

    void PutLibrary(const String& from) { ASSERT_TRUE(CopyFileW(Wide(from + kFile), Wide(folder_ + kFile), FALSE)); }
    void PutFile(std::string_view bytes) {
        const FileHandle file(CreateFileW(Wide(folder_ + kFile), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        DWORD written = 0;
        ASSERT_TRUE(WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
    }
    /// Returns the path of the library that a component in `folder_` loads; "" if the component finds no library.
    String Found() const {
        const auto found = FindKernel(folder_, tests::TestFolder());
        return found ? found->path : String();
    }
    KernelPlace Place() const { return FindKernel(folder_, tests::TestFolder())->place; }

    const String folder_ =
        tests::TestFolder() + u"\\come_and_go" + runtime::FromAscii(std::to_string(GetCurrentProcessId()));
    const String development_ = folder_ + u"\\dev";
    const String recording_ = tests::TestFolder() + u"\\recording";
    const String partial_ = tests::TestFolder() + u"\\partial";
    const String system_ = runtime::win32::FolderOf(runtime::win32::InSystemFolder(u"x"));
    String value_ = u"value";
};

TEST_F(KernelLibraryTest, EveryCall_IsForwarded) {
    KernelLibrary kernel(recording_);
    kernel.E_SetString(u"INITBP", value_);
    EXPECT_EQ(value_, u"value");
    EXPECT_EQ(kernel.E_GetString(u"AllAps"), 0x1234);
    EXPECT_EQ(kernel.E_GetString(u"negative"), -5);
    EXPECT_EQ(kernel.DB_DataBase(), -7);
    EXPECT_EQ(kernel.O_GetName(-7), 0x5678);
    EXPECT_EQ(Recorded(recording_),
              "E_SetString(INITBP, value)\nE_GetString(AllAps)\nE_GetString(negative)\nDB_DataBase()\nO_GetName(-7)\n");
}

TEST_F(KernelLibraryTest, Library_IsLoadedAtTheFirstCall) {
    KernelLibrary kernel(recording_);
    EXPECT_EQ(Recorded(recording_), "not loaded");
    kernel.DB_DataBase();
    EXPECT_EQ(Recorded(recording_), "DB_DataBase()\n");
}

TEST_F(KernelLibraryTest, KernelChangesTheValue_CallerGetsTheNewValue) {
    KernelLibrary kernel(recording_ + u"\\");
    kernel.E_SetString(u"upper", value_);
    EXPECT_EQ(value_, u"VALUE");
    kernel.E_SetString(u"cut", value_);
    EXPECT_EQ(value_, u"VA");
    kernel.E_SetString(u"unterminated", value_);
    EXPECT_EQ(value_, u"VA!");
    value_.clear();
    kernel.E_SetString(u"upper", value_);
    EXPECT_EQ(value_, u"");
}

TEST_F(KernelLibraryTest, Text_IsPassedInAnsiUpToTheFirstNul) {
    KernelLibrary kernel(recording_);
    value_ = String(u"a\u4E2D\0b", 4);  // U+4E2D is not in a Western code page
    if (GetACP() == 1252) {
        kernel.E_SetString(String(u"caf\u00E9\0x", 6), value_);
        EXPECT_EQ(value_, u"a?");
        EXPECT_EQ(Recorded(recording_), "E_SetString(caf\xE9, a?)\n");
    } else {
        GTEST_SKIP() << "needs code page 1252";
    }
}

TEST_F(KernelLibraryTest, LongValue_IsNotCut) {
    KernelLibrary kernel(recording_);
    value_ = String(3'000'000, u'x');
    kernel.E_SetString(u"upper", value_);
    EXPECT_TRUE(value_ == String(3'000'000, u'X'));
}

TEST_F(KernelLibraryTest, NoLibrary_IsError53) {
    KernelLibrary kernel(folder_);
    const std::string error = ErrorOf([&] { kernel.E_SetString(u"key", value_); });
    EXPECT_TRUE(error.starts_with("53: File not found: QmxKrn2K.dll")) << error;
    EXPECT_NE(error.find(runtime::ToUtf8(folder_)), std::string::npos) << error;
    EXPECT_EQ(ErrorOf([&] { kernel.O_GetName(1); }), error);
    EXPECT_EQ(value_, u"value");
    EXPECT_TRUE(ErrorOf([] { KernelLibrary(u"").DB_DataBase(); }).starts_with("53: File not found: QmxKrn2K.dll"));
}

TEST_F(KernelLibraryTest, LibraryInEachPlace_FirstPlaceWins) {
    EXPECT_EQ(Found(), u"");
    const PlacedLibrary development(partial_, development_);
    EXPECT_EQ(Found(), development_ + kFile);
    EXPECT_EQ(Place(), KernelPlace::kDevelopmentFolder);
    const PlacedLibrary inSystemFolder(partial_, system_);
    EXPECT_EQ(Found(), system_ + kFile);
    EXPECT_EQ(Place(), KernelPlace::kSystemFolder);
    const PlacedLibrary inProgramFolder(partial_, tests::TestFolder());
    EXPECT_EQ(Found(), tests::TestFolder() + kFile);
    EXPECT_EQ(Place(), KernelPlace::kProgramFolder);
    PutLibrary(recording_);
    EXPECT_EQ(Found(), folder_ + kFile);
    EXPECT_EQ(Place(), KernelPlace::kBesideComponent);
    KernelLibrary kernel(folder_);
    kernel.DB_DataBase();
    EXPECT_EQ(Recorded(folder_), "DB_DataBase()\n");
}

TEST_F(KernelLibraryTest, DevelopmentKernelRequested_OtherKernelsAreIgnored) {
    SetEnvironmentVariableW(kAskForDevelopmentKernel, L"1");
    PutLibrary(partial_);
    EXPECT_EQ(Found(), u"");
    const std::string error = ErrorOf([&] { KernelLibrary(folder_).DB_DataBase(); });
    EXPECT_TRUE(error.starts_with("53: File not found: " + runtime::ToUtf8(development_ + kFile))) << error;
    const PlacedLibrary development(recording_, development_);
    EXPECT_EQ(Found(), development_ + kFile);
    EXPECT_EQ(Place(), KernelPlace::kAskedFor);
}

TEST_F(KernelLibraryTest, EnvironmentVariableOtherThan1_IsIgnored) {
    PutLibrary(partial_);
    for (const wchar_t* value : {L"", L"0", L"10", L"yes"}) {
        SetEnvironmentVariableW(kAskForDevelopmentKernel, value);
        EXPECT_EQ(Found(), folder_ + kFile);
    }
}

/// Sets the current folder and the first folder of PATH to a folder with a kernel library. No library in this folder
/// may be loaded.
class PreparedLibraryTest : public KernelLibraryTest {
 protected:
    PreparedLibraryTest() {
        oldFolder_ = runtime::win32::Win32Files().CurrentFolder();
        EXPECT_TRUE(SetCurrentDirectoryW(Wide(recording_)));
        wchar_t path[32767]{};
        GetEnvironmentVariableW(L"PATH", path, 32767);
        oldPath_ = runtime::win32::ToString(path);
        SetEnvironmentVariableW(L"PATH", Wide(recording_ + u';' + oldPath_));
    }
    ~PreparedLibraryTest() override {
        SetEnvironmentVariableW(L"PATH", Wide(oldPath_));
        SetCurrentDirectoryW(Wide(oldFolder_));
    }

    String oldFolder_;
    String oldPath_;
};

TEST_F(PreparedLibraryTest, InCurrentFolderAndPath_KernelIsNotLoaded) {
    EXPECT_TRUE(ErrorOf([&] { KernelLibrary(folder_).DB_DataBase(); }).starts_with("53: "));
    EXPECT_TRUE(ErrorOf([] { KernelLibrary(u"").DB_DataBase(); }).starts_with("53: "));
    EXPECT_EQ(Recorded(recording_), "not loaded");
}

TEST_F(PreparedLibraryTest, InCurrentFolderAndPath_HelpControlIsNotLoaded) {
    // Hide the system's own control, which the component would find first.
    const String control = runtime::win32::InSystemFolder(u"hhctrl.ocx");
    const String hidden = control + u".hidden";
    ASSERT_TRUE(MoveFileW(Wide(control), Wide(hidden)));
    const String prepared = recording_ + u"\\hhctrl.ocx";
    EXPECT_TRUE(CopyFileW(Wide(recording_ + kFile), Wide(prepared), FALSE));
    runtime::win32::HelpControl help;
    help.CloseAll(0);
    EXPECT_EQ(GetModuleHandleW(Wide(prepared)), nullptr);
    EXPECT_TRUE(DeleteFileW(Wide(prepared)));
    EXPECT_TRUE(MoveFileW(Wide(hidden), Wide(control)));
}

TEST_F(KernelLibraryTest, MissingFunction_IsError453WithTheFunctionsName) {
    KernelLibrary kernel(partial_);
    EXPECT_EQ(ErrorOf([&] { kernel.O_GetName(1); }), "453: Can't find DLL entry point: O_GetName in " +
                                                         runtime::ToUtf8(partial_ + kFile) +
                                                         "; put the suite's QmxKrn2K.dll there");
    EXPECT_EQ(kernel.DB_DataBase(), -7);
    EXPECT_TRUE(ErrorOf([&] { kernel.E_SetString(u"key", value_); }).starts_with("453: "));
    EXPECT_EQ(value_, u"value");
}

TEST_F(KernelLibraryTest, BrokenLibrary_IsError48WithTheReason) {
    const std::string before = "48: Error in loading DLL: " + runtime::ToUtf8(folder_ + kFile);
    PutFile("not a library");
    const std::string text = ErrorOf([&] { KernelLibrary(folder_).E_GetString(u"key"); });
    EXPECT_EQ(text, before + " (not a library); put the suite's 32-bit QmxKrn2K.dll there");
    std::string program(0x80, '\0');
    program.replace(0, 2, "MZ");
    program[0x3C] = '\x40';
    program.replace(0x40, 6, std::string_view("PE\0\0\x64\x86", 6));
    PutFile(program);
    const std::string bits = ErrorOf([&] { KernelLibrary(folder_).E_GetString(u"key"); });
    EXPECT_EQ(bits, before + " (a 64-bit file); put the suite's 32-bit QmxKrn2K.dll there");
}

TEST_F(KernelLibraryTest, FailedCall_NextCallTriesAgain) {
    KernelLibrary kernel(folder_);
    const auto call = [&] { kernel.E_SetString(u"key", value_); };
    EXPECT_TRUE(ErrorOf(call).starts_with("53: "));
    PutFile("not a library");
    EXPECT_TRUE(ErrorOf(call).starts_with("48: "));
    PutLibrary(partial_);
    EXPECT_TRUE(ErrorOf(call).starts_with("453: "));
    PutLibrary(recording_);
    EXPECT_EQ(ErrorOf(call), "");
    EXPECT_EQ(Recorded(folder_), "E_SetString(key, value)\n");
}

}  // namespace
}  // namespace kernel_api::win32
