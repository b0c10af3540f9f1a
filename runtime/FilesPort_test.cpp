// Tests every FilesPort. Runs with the files in memory on every platform, and with the real file system on Windows.
#include "runtime/FilesPort_test.h"

namespace runtime {
namespace {

TEST_P(FilesPortTest, ChangeFolder_FolderIsTheCurrentFolder) {
    AddFolder(u"job");
    Files().ChangeFolder(Path(u"job"));
    EXPECT_EQ(Files().CurrentFolder(), Path(u"job"));
}

TEST_P(FilesPortTest, RelativeFolder_IsRelativeToTheCurrentFolder) {
    AddFolder(u"job\\deep");
    Files().ChangeFolder(Path(u"job"));
    Files().ChangeFolder(u"deep");
    EXPECT_EQ(Files().CurrentFolder(), Path(u"job\\deep"));
    Files().ChangeFolder(u"..");
    EXPECT_EQ(Files().CurrentFolder(), Path(u"job"));
}

TEST_P(FilesPortTest, FinalBackslashAndForwardSlashes_AreAccepted) {
    AddFolder(u"job\\deep");
    EXPECT_EQ(ChangeError(Path(u"job\\")), 0);
    EXPECT_EQ(ChangeError(Path(u"job/deep")), 0);
    EXPECT_EQ(Files().FirstMatch(u"*"), u"");
}

TEST_P(FilesPortTest, LetterCaseOfAFolderDoesNotMatter) {
    AddFolder(u"Job");
    EXPECT_EQ(ChangeError(Path(u"jOB")), 0);
}

TEST_P(FilesPortTest, ChangeToMissingFolderOrFile_IsPathNotFound) {
    AddFile(u"file.txt", "x");
    EXPECT_EQ(ChangeError(Path(u"missing")), kPathNotFound);
    EXPECT_EQ(ChangeError(Path(u"file.txt")), kPathNotFound);
    EXPECT_EQ(ChangeError(Path(u"missing\\deep")), kPathNotFound);
}

TEST_P(FilesPortTest, ChangeToInvalidPath_IsPathNotFound) {
    EXPECT_EQ(ChangeError(u""), kPathNotFound);
    EXPECT_EQ(ChangeError(Path(StringView(u"a\0b", 3))), kPathNotFound);
    EXPECT_EQ(ChangeError(Path(u"a*b")), kPathNotFound);
    for (const std::size_t length : {300u, 32000u, 32760u, 40000u}) {
        EXPECT_EQ(ChangeError(Path(String(length, u'x'))), kPathNotFound) << length;
    }
}

TEST_P(FilesPortTest, ChangeToMissingDrive_IsDeviceUnavailable) {
    EXPECT_EQ(ChangeError(MissingDrive() + u"\\"), kDeviceUnavailable);
    EXPECT_EQ(ChangeError(MissingDrive() + u"\\cad"), kDeviceUnavailable);
    EXPECT_EQ(ChangeError(MissingDrive()), kDeviceUnavailable);
}

TEST_P(FilesPortTest, FailedChange_KeepsTheCurrentFolder) {
    const String before = Files().CurrentFolder();
    EXPECT_EQ(ChangeError(Path(u"missing")), kPathNotFound);
    EXPECT_EQ(Files().CurrentFolder(), before);
}

TEST_P(FilesPortTest, Match_IsTheStoredNameWithoutTheFolder) {
    AddFile(u"Board.sch", "x");
    EXPECT_EQ(Files().FirstMatch(Path(u"Board.sch")), u"Board.sch");
    EXPECT_EQ(Files().FirstMatch(Path(u"bOARD.SCH")), u"Board.sch");
}

TEST_P(FilesPortTest, Wildcards_AreAllowedInTheLastPart) {
    AddFile(u"board.sch", "x");
    EXPECT_EQ(Files().FirstMatch(Path(u"*.sch")), u"board.sch");
    EXPECT_EQ(Files().FirstMatch(Path(u"b?ard.*")), u"board.sch");
    EXPECT_EQ(Files().FirstMatch(Path(u"*")), u"board.sch");
    EXPECT_EQ(Files().FirstMatch(Path(u"*.*")), u"board.sch");
    EXPECT_EQ(Files().FirstMatch(Path(u"*.pcb")), u"");
    EXPECT_EQ(Files().FirstMatch(Path(u"b?oard.sch")), u"");
}

TEST_P(FilesPortTest, WildcardsInAFolder_MatchNothing) {
    AddFile(u"job\\board.sch", "x");
    EXPECT_EQ(Files().FirstMatch(Path(u"j*\\board.sch")), u"");
}

TEST_P(FilesPortTest, PatternWithoutFolder_SearchesTheCurrentFolder) {
    AddFile(u"job\\board.sch", "x");
    EXPECT_EQ(Files().FirstMatch(u"board.sch"), u"");
    Files().ChangeFolder(Path(u"job"));
    EXPECT_EQ(Files().FirstMatch(u"board.sch"), u"board.sch");
}

TEST_P(FilesPortTest, FolderWithSeparator_MatchesItsFiles) {
    AddFile(u"job\\board.sch", "x");
    EXPECT_EQ(Files().FirstMatch(Path(u"job\\")), u"board.sch");
    EXPECT_EQ(Files().FirstMatch(Path(u"job")), u"");
}

TEST_P(FilesPortTest, FoldersAndHiddenOrSystemFiles_DoNotMatch) {
    AddFolder(u"a.sch");
    AddFile(u"b.sch", "x", FilesBed::Kind::kHidden);
    AddFile(u"c.sch", "x", FilesBed::Kind::kSystem);
    EXPECT_EQ(Files().FirstMatch(Path(u"*.sch")), u"");
    AddFile(u"d.sch", "x");
    EXPECT_EQ(Files().FirstMatch(Path(u"*.sch")), u"d.sch");
}

TEST_P(FilesPortTest, InvalidPath_HasNoMatch) {
    AddFile(u"a", "x");
    EXPECT_EQ(Files().FirstMatch(u""), u"");
    EXPECT_EQ(Files().FirstMatch(Path(StringView(u"a\0b", 3))), u"");
    EXPECT_EQ(Files().FirstMatch(Path(u"<")), u"");
    EXPECT_EQ(Files().FirstMatch(Path(u">")), u"");
    EXPECT_EQ(Files().FirstMatch(Path(u"a|b")), u"");
    EXPECT_EQ(Files().FirstMatch(Path(u"x:y:z")), u"");
    EXPECT_EQ(Files().FirstMatch(MissingDrive() + u"\\a"), u"");
    for (const std::size_t length : {300u, 32000u, 32760u, 40000u}) {
        EXPECT_EQ(Files().FirstMatch(String(length, u'x')), u"") << length;
        EXPECT_EQ(Files().Read(Path(String(length, u'x'))), std::nullopt) << length;
    }
}

TEST_P(FilesPortTest, Read_ReturnsEveryByte) {
    using namespace std::string_literals;
    const std::string contents = "a\r\n\0\x80\xFF\x1A"s + "z";
    AddFile(u"raw.bin", contents);
    EXPECT_EQ(Files().Read(Path(u"raw.bin")), contents);
}

TEST_P(FilesPortTest, EmptyAndLargeFilesAreRead) {
    const std::string large(3'000'001, 'x');
    AddFile(u"empty", "");
    AddFile(u"large", large);
    EXPECT_EQ(Files().Read(Path(u"empty")), "");
    EXPECT_TRUE(Files().Read(Path(u"large")) == large);
}

TEST_P(FilesPortTest, PathWithoutFile_HasNeitherStampNorContents) {
    AddFolder(u"job");
    for (const String& path : {Path(u"missing"), Path(u"job"), Path(u"a*b"), Path(StringView(u"a\0b", 3)), String()}) {
        EXPECT_EQ(Files().Stamp(path), std::nullopt) << ToUtf8(path);
        EXPECT_EQ(Files().Read(path), std::nullopt) << ToUtf8(path);
    }
}

TEST_P(FilesPortTest, UnchangedFile_KeepsItsStamp_StampHasTheSize) {
    AddFile(u"a.ini", "12345");
    const auto stamp = Files().Stamp(Path(u"a.ini"));
    ASSERT_TRUE(stamp);
    EXPECT_EQ(stamp->size, 5u);
    EXPECT_NE(stamp->modified, 0u);
    EXPECT_EQ(Files().Stamp(Path(u"A.INI")), stamp);
}

TEST_P(FilesPortTest, ChangedFile_HasAnotherStamp_RemovedFileHasNoStamp) {
    AddFile(u"a.ini", "12345");
    const auto before = Files().Stamp(Path(u"a.ini"));
    AddFile(u"a.ini", "123456");
    const auto after = Files().Stamp(Path(u"a.ini"));
    EXPECT_TRUE(after && after != before);
    RemoveFile(u"a.ini");
    EXPECT_EQ(Files().Stamp(Path(u"a.ini")), std::nullopt);
}

}  // namespace
}  // namespace runtime
