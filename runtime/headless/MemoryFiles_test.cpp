// Runs the tests of FilesPort with MemoryFiles. Also tests FailChange, FailRead and the log.
#include "runtime/headless/MemoryFiles.h"

#include <gmock/gmock.h>

#include "runtime/Error.h"
#include "runtime/FilesPort_test.h"

namespace runtime::headless {
namespace {

FileKind FileKindOf(FilesBed::Kind kind) {
    switch (kind) {
        case FilesBed::Kind::kHidden:
            return FileKind::kHidden;
        case FilesBed::Kind::kSystem:
            return FileKind::kSystem;
        case FilesBed::Kind::kOrdinary:
            break;
    }
    return FileKind::kOrdinary;
}

class MemoryBed : public FilesBed {
 public:
    MemoryBed() { files_.AddFolder(Folder()); }

    FilesPort& Port() override { return files_; }
    String Folder() override { return u"C:\\bed"; }
    String MissingDrive() override { return u"Q:"; }
    void AddFolder(StringView name) override { files_.AddFolder(Full(name)); }
    void AddFile(StringView name, std::string_view contents, Kind kind) override {
        files_.AddFile(Full(name), contents, FileKindOf(kind));
    }
    void RemoveFile(StringView name) override { files_.RemoveFile(Full(name)); }

 private:
    String Full(StringView name) { return Folder().append(u"\\").append(name); }

    MemoryFiles files_;
};

std::unique_ptr<FilesBed> MakeMemoryBed() {
    return std::make_unique<MemoryBed>();
}
INSTANTIATE_TEST_SUITE_P(Memory, FilesPortTest, testing::Values(&MakeMemoryBed));

TEST(MemoryFiles, StartsAtTheRootOfDriveC) {
    EXPECT_EQ(MemoryFiles().CurrentFolder(), u"C:\\");
}

TEST(MemoryFiles, ChangeToAnotherDrive_ChangesDriveAndFolder) {
    MemoryFiles files;
    files.AddFolder(u"D:\\cad\\sys");
    files.ChangeFolder(u"d:\\CAD\\sys\\");
    EXPECT_EQ(files.CurrentFolder(), u"D:\\cad\\sys");
    files.ChangeFolder(u"\\");
    EXPECT_EQ(files.CurrentFolder(), u"D:\\");
}

TEST(MemoryFiles, FailChange_ChangeFailsUntilTheErrorIsRemoved) {
    MemoryFiles files;
    files.AddFolder(u"C:\\locked");
    files.FailChange(u"c:\\LOCKED", kPathFileAccessError);
    EXPECT_THROW(files.ChangeFolder(u"C:\\locked\\"), Error);
    files.FailChange(u"C:\\locked", 0);
    files.ChangeFolder(u"C:\\locked");
    EXPECT_EQ(files.CurrentFolder(), u"C:\\locked");
}

TEST(MemoryFiles, FailRead_FileKeepsItsStamp) {
    MemoryFiles files;
    files.AddFile(u"C:\\a.ini", "x");
    files.FailRead(u"C:\\a.ini");
    EXPECT_TRUE(files.Stamp(u"C:\\a.ini"));
    EXPECT_EQ(files.Read(u"C:\\a.ini"), std::nullopt);
}

TEST(MemoryFiles, FileIsReplaced_HasANewStamp) {
    MemoryFiles files;
    files.AddFile(u"C:\\a.ini", "x");
    const auto before = files.Stamp(u"C:\\a.ini");
    files.AddFile(u"C:\\a.ini", "y");
    EXPECT_NE(files.Stamp(u"C:\\a.ini"), before);
}

TEST(MemoryFiles, SeveralMatches_FirstNameIsReturned) {
    MemoryFiles files;
    files.AddFile(u"C:\\b.sch");
    files.AddFile(u"C:\\A.sch");
    EXPECT_EQ(files.FirstMatch(u"C:\\*.sch"), u"A.sch");
}

TEST(MemoryFiles, Log_HasTheCallsInOrder) {
    MemoryFiles files;
    files.CurrentFolder();
    files.ChangeFolder(u"c:\\");
    files.FirstMatch(u"*.sch");
    files.Stamp(u"a.ini");
    files.Read(u"a.ini");
    EXPECT_THAT(files.Log(), testing::ElementsAre(u"CurrentFolder", u"ChangeFolder c:\\", u"FirstMatch *.sch",
                                                  u"Stamp a.ini", u"Read a.ini"));
    files.ClearLog();
    EXPECT_THAT(files.Log(), testing::IsEmpty());
}

}  // namespace
}  // namespace runtime::headless
