#include "kernel_api/win32/KernelLibrary.h"

#include <gtest/gtest.h>

#include <functional>

#include "runtime/Error.h"
#include "runtime/win32/Handle.h"
#include "tests/support/TestFolder.h"

namespace kernel_api::win32 {
namespace {

using runtime::win32::FileHandle;
using runtime::win32::Wide;

const String kFile = u"\\QmxKrn2K.dll";

/// "53: File not found: …" of the error, "" when there is none.
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

/// A folder for libraries that come and go.
class KernelLibraryTest : public testing::Test {
 protected:
    void SetUp() override { ASSERT_TRUE(CreateDirectoryW(Wide(folder_), nullptr)); }
    void TearDown() override {
        SetDllDirectoryW(nullptr);
        DeleteFileW(Wide(folder_ + kFile));
        EXPECT_TRUE(RemoveDirectoryW(Wide(folder_)));
    }

    void PutLibrary(const String& from) { ASSERT_TRUE(CopyFileW(Wide(from + kFile), Wide(folder_ + kFile), FALSE)); }
    void PutRubbish() {
        const FileHandle file(CreateFileW(Wide(folder_ + kFile), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        DWORD written = 0;
        ASSERT_TRUE(WriteFile(file.Get(), "not a library", 13, &written, nullptr));
    }

    const String folder_ =
        tests::TestFolder() + u"\\come_and_go" + runtime::FromAscii(std::to_string(GetCurrentProcessId()));
    const String recording_ = tests::TestFolder() + u"\\recording";
    const String partial_ = tests::TestFolder() + u"\\partial";
    String value_ = u"value";
};

TEST_F(KernelLibraryTest, PassesEveryCallOn) {
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

TEST_F(KernelLibraryTest, LoadsNothingBeforeTheFirstCall) {
    KernelLibrary kernel(recording_);
    EXPECT_EQ(Recorded(recording_), "not loaded");
    kernel.DB_DataBase();
    EXPECT_EQ(Recorded(recording_), "DB_DataBase()\n");
}

TEST_F(KernelLibraryTest, TakesBackWhatTheKernelMadeOfTheValue) {
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

TEST_F(KernelLibraryTest, LeavesOtherCopiesOfTheValueAlone) {
    KernelLibrary kernel(recording_);
    const String before = value_;
    kernel.E_SetString(u"upper", value_);
    EXPECT_EQ(before, u"value");
}

TEST_F(KernelLibraryTest, CrossesInTheSystemsCodePageUpToTheFirstNul) {
    KernelLibrary kernel(recording_);
    value_ = String(u"a\u4E2D\0b", 4);  // not in a western code page
    if (GetACP() == 1252) {
        kernel.E_SetString(String(u"caf\u00E9\0x", 6), value_);
        EXPECT_EQ(value_, u"a?");
        EXPECT_EQ(Recorded(recording_), "E_SetString(caf\xE9, a?)\n");
    } else {
        GTEST_SKIP() << "needs code page 1252";
    }
}

TEST_F(KernelLibraryTest, CrossesLongValuesWhole) {
    KernelLibrary kernel(recording_);
    value_ = String(3'000'000, u'x');
    kernel.E_SetString(u"upper", value_);
    EXPECT_TRUE(value_ == String(3'000'000, u'X'));
}

TEST_F(KernelLibraryTest, FindsNoLibrary) {
    KernelLibrary kernel(folder_);
    const std::string error = ErrorOf([&] { kernel.E_SetString(u"key", value_); });
    EXPECT_TRUE(error.starts_with("53: File not found: QmxKrn2K.dll")) << error;
    EXPECT_NE(error.find(runtime::ToUtf8(folder_)), std::string::npos) << error;
    EXPECT_EQ(ErrorOf([&] { kernel.O_GetName(1); }), error);
    EXPECT_EQ(value_, u"value");
    EXPECT_TRUE(ErrorOf([] { KernelLibrary(u"").DB_DataBase(); }).starts_with("53: File not found: QmxKrn2K.dll"));
}

TEST_F(KernelLibraryTest, FindsTheLibraryWhereTheSystemLooks) {
    SetDllDirectoryW(Wide(recording_));
    EXPECT_EQ(KernelLibrary(folder_).DB_DataBase(), -7);
}

TEST_F(KernelLibraryTest, PrefersTheLibraryBesideTheComponent) {
    SetDllDirectoryW(Wide(partial_));
    KernelLibrary kernel(recording_);
    kernel.DB_DataBase();
    EXPECT_EQ(Recorded(recording_), "DB_DataBase()\n");
}

TEST_F(KernelLibraryTest, SaysWhichEntryOfWhichLibraryIsMissing) {
    KernelLibrary kernel(partial_);
    EXPECT_EQ(ErrorOf([&] { kernel.O_GetName(1); }), "453: Can't find DLL entry point: O_GetName in " +
                                                         runtime::ToUtf8(partial_ + kFile) +
                                                         "; put the suite's QmxKrn2K.dll there");
    EXPECT_EQ(kernel.DB_DataBase(), -7);
    EXPECT_TRUE(ErrorOf([&] { kernel.E_SetString(u"key", value_); }).starts_with("453: "));
    EXPECT_EQ(value_, u"value");
}

TEST_F(KernelLibraryTest, SaysWhichLibraryWillNotLoad) {
    PutRubbish();
    const std::string beside = ErrorOf([&] { KernelLibrary(folder_).E_GetString(u"key"); });
    EXPECT_TRUE(beside.starts_with("48: Error in loading DLL: " + runtime::ToUtf8(folder_ + kFile))) << beside;
    SetDllDirectoryW(Wide(folder_));
    const std::string elsewhere = ErrorOf([&] { KernelLibrary(u"").E_GetString(u"key"); });
    EXPECT_TRUE(elsewhere.starts_with("48: Error in loading DLL: QmxKrn2K.dll")) << elsewhere;
}

TEST_F(KernelLibraryTest, TriesAgainAfterEveryFailure) {
    KernelLibrary kernel(folder_);
    const auto call = [&] { kernel.E_SetString(u"key", value_); };
    EXPECT_TRUE(ErrorOf(call).starts_with("53: "));
    PutRubbish();
    EXPECT_TRUE(ErrorOf(call).starts_with("48: "));
    PutLibrary(partial_);
    EXPECT_TRUE(ErrorOf(call).starts_with("453: "));
    PutLibrary(recording_);
    EXPECT_EQ(ErrorOf(call), "");
    EXPECT_EQ(Recorded(folder_), "E_SetString(key, value)\n");
}

}  // namespace
}  // namespace kernel_api::win32
