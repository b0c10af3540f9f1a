// Runs the tests of FilesPort with the real file system in a temporary folder. Also tests pipes, locked files and long
// paths.
#include "runtime/win32/Win32Files.h"

#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "runtime/FilesPort_test.h"
#include "runtime/win32/GrowingBuffer.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {
namespace {

/// Deletes the folder and its contents, including read-only, hidden and system files.
void DeleteFolder(const String& folder) {
    WIN32_FIND_DATAW found{};
    FindHandle search(FindFirstFileW(Wide(folder + u"\\*"), &found));
    for (bool more = static_cast<bool>(search); more; more = FindNextFileW(search.Get(), &found)) {
        const String name = ToString(found.cFileName);
        if (name == u"." || name == u"..") continue;
        const String path = folder + u"\\" + name;
        SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_NORMAL);
        if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
            DeleteFolder(path);
        } else {
            DeleteFileW(Wide(path));
        }
    }
    search.Reset();
    RemoveDirectoryW(Wide(folder));
}

DWORD AttributesOf(FilesBed::Kind kind) {
    switch (kind) {
        case FilesBed::Kind::kHidden:
            return FILE_ATTRIBUTE_HIDDEN;
        case FilesBed::Kind::kSystem:
            return FILE_ATTRIBUTE_SYSTEM;
        case FilesBed::Kind::kOrdinary:
            break;
    }
    return FILE_ATTRIBUTE_NORMAL;
}

class RealBed : public FilesBed {
 public:
    RealBed() {
        const String temporary =
            FillGrowing([](wchar_t* buffer, DWORD capacity) { return GetTempPathW(capacity, buffer); });
        const String name = temporary + u"k4t-files-" + FromAscii(std::to_string(GetCurrentProcessId()));
        CreateDirectoryW(Wide(name), nullptr);
        folder_ = FillGrowing(
            [&name](wchar_t* buffer, DWORD capacity) { return GetLongPathNameW(Wide(name), buffer, capacity); });
    }
    ~RealBed() override { DeleteFolder(folder_); }

    FilesPort& Port() override { return files_; }
    String Folder() override { return folder_; }
    String MissingDrive() override {
        String drive = u"B:";
        while (GetDriveTypeW(Wide(drive + u"\\")) != DRIVE_NO_ROOT_DIR) ++drive[0];
        return drive;
    }
    void AddFolder(StringView name) override {
        for (auto end = name.find(u'\\'); end != StringView::npos; end = name.find(u'\\', end + 1)) {
            CreateDirectoryW(Wide(Full(name.substr(0, end))), nullptr);
        }
        EXPECT_TRUE(CreateDirectoryW(Wide(Full(name)), nullptr)) << GetLastError();
    }
    void AddFile(StringView name, std::string_view contents, Kind kind) override {
        if (const auto end = name.rfind(u'\\'); end != StringView::npos) AddFolder(name.substr(0, end));
        const FileHandle file(
            CreateFileW(Wide(Full(name)), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, AttributesOf(kind), nullptr));
        DWORD written = 0;
        WriteFile(file.Get(), contents.data(), static_cast<DWORD>(contents.size()), &written, nullptr);
        EXPECT_EQ(written, contents.size());
    }
    void RemoveFile(StringView name) override { EXPECT_TRUE(DeleteFileW(Wide(Full(name)))) << GetLastError(); }

 private:
    String Full(StringView name) { return String(folder_).append(u"\\").append(name); }

    String folder_;
    Win32Files files_;
};

std::unique_ptr<FilesBed> MakeRealBed() {
    return std::make_unique<RealBed>();
}
INSTANTIATE_TEST_SUITE_P(Windows, FilesPortTest, testing::Values(&MakeRealBed));

TEST(Win32Files, CurrentFolder_IsTheCurrentFolderOfTheProcess) {
    wchar_t current[MAX_PATH];
    ASSERT_NE(GetCurrentDirectoryW(MAX_PATH, current), 0u);
    EXPECT_EQ(Win32Files().CurrentFolder(), ToString(current));
}

TEST(Win32Files, DevicesAndPipesAreNeverRead) {
    const FileHandle pipe(
        CreateNamedPipeW(L"\\\\.\\pipe\\k4t-files-test", PIPE_ACCESS_OUTBOUND, 0, 1, 16, 16, 0, nullptr));
    ASSERT_TRUE(pipe) << GetLastError();
    EXPECT_EQ(Win32Files().Read(u"\\\\.\\pipe\\k4t-files-test"), std::nullopt);
    EXPECT_EQ(Win32Files().Read(u"NUL"), std::nullopt);
}

TEST(Win32Files, FileIsOpenForWriting_CanBeRead) {
    RealBed bed;
    bed.AddFile(u"a.ini", "[Marlento]", FilesBed::Kind::kOrdinary);
    const String path = bed.Folder() + u"\\a.ini";
    const FileHandle writer(
        CreateFileW(Wide(path), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(writer);
    EXPECT_EQ(bed.Port().Read(path), "[Marlento]");
}

TEST(Win32Files, LockedFile_HasAStampButNoContents) {
    RealBed bed;
    bed.AddFile(u"a.ini", "[Marlento]", FilesBed::Kind::kOrdinary);
    const String path = bed.Folder() + u"\\a.ini";
    const FileHandle holder(CreateFileW(Wide(path), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(holder);
    EXPECT_TRUE(bed.Port().Stamp(path));
    EXPECT_EQ(bed.Port().Read(path), std::nullopt);
}

TEST(Win32Files, PathLongerThanMaxPath_CanBeUsed) {
    RealBed bed;
    const String deep = bed.Folder() + u"\\" + String(120, u'a');
    const String deeper = deep + u"\\" + String(120, u'b');
    const String extended = u"\\\\?\\" + deeper;
    ASSERT_TRUE(CreateDirectoryW(Wide(deep), nullptr));
    ASSERT_TRUE(CreateDirectoryW(Wide(extended), nullptr));
    const String file = extended + u"\\x.ini";
    FileHandle(CreateFileW(Wide(file), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));

    EXPECT_EQ(bed.Port().FirstMatch(deeper + u"\\*.ini"), u"x.ini");
    EXPECT_EQ(bed.Port().Read(deeper + u"\\x.ini"), "");
    EXPECT_TRUE(bed.Port().Stamp(deeper + u"\\x.ini"));
    EXPECT_TRUE(DeleteFileW(Wide(file)));
    EXPECT_TRUE(RemoveDirectoryW(Wide(extended)));
}

}  // namespace
}  // namespace runtime::win32
