// Tests the reader of settings and texts with files and settings in memory: the source of each value, and when the
// reader reads a file again.
#include "kernel_api/builtin/BuiltInReader.h"
#include "kernel_api/Suite.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <new>

#include "runtime/Error.h"
#include "runtime/Operation.h"
#include "runtime/headless/MemoryFiles.h"
#include "runtime/headless/MemorySettings.h"
#include "runtime/headless/PlainLocale.h"
#include "tests/support/InMemoryKernel.h"

namespace kernel_api::builtin {
namespace {

class BuiltInReaderTest : public testing::Test {
 protected:
    void UseFolder(StringView folder) {
        String text(folder);
        reader_.NormaliseFolder(text);
    }
    String Ver() { return reader_.GetSetting(u"Marlento", u"Ver", u"?"); }
    std::ptrdiff_t Reads() {
        return std::ranges::count_if(files_.Log(), [](const String& entry) { return entry.starts_with(u"Read "); });
    }

    runtime::headless::MemoryFiles files_;
    runtime::headless::MemorySettings settings_;
    runtime::headless::PlainLocale locale_;
    BuiltInReader reader_{files_, settings_, locale_};
};

TEST_F(BuiltInReaderTest, NormaliseFolder_AppendsAMissingBackslash) {
    const auto normalised = [this](String folder) {
        reader_.NormaliseFolder(folder);
        return folder;
    };
    EXPECT_EQ(normalised(u"C:\\cad\\sys"), u"C:\\cad\\sys\\");
    EXPECT_EQ(normalised(u"C:\\cad\\sys\\"), u"C:\\cad\\sys\\");
    EXPECT_EQ(normalised(u"C:/cad/"), u"C:/cad/\\");
    EXPECT_EQ(normalised(u"C:"), u"C:\\");
    EXPECT_EQ(normalised(u""), u"\\");
}

TEST_F(BuiltInReaderTest, IniFileComesFirstThenTheRegistryThenTheDefault) {
    EXPECT_EQ(Ver(), u"?");
    settings_.Save(u"Marlento", u"Settings", u"Ver", u"registry");
    EXPECT_EQ(Ver(), u"registry");
    files_.AddFile(u"C:\\sys\\MARLENTO.INI", "[Marlento]\r\nVer=ini\r\n");
    UseFolder(u"C:\\sys");
    EXPECT_EQ(Ver(), u"ini");
}

TEST_F(BuiltInReaderTest, Find_ReportsTheSourceOfASetting) {
    files_.AddFile(u"C:\\sys\\MARLENTO.INI", "[Marlento]\r\nVer=1\r\nRev=\r\n");
    settings_.Save(u"Marlento", u"Settings", u"Maker", u"Harnwell");
    UseFolder(u"C:\\sys");
    EXPECT_EQ(reader_.Find(u"MARLENTO", u"VER").source, SettingSource::IniFile);
    EXPECT_EQ(reader_.Find(u"Marlento", u"Ver").value, u"1");
    EXPECT_EQ(reader_.Find(u"Marlento", u"Rev").source, SettingSource::IniFile);
    EXPECT_EQ(reader_.Find(u"Marlento", u"Maker").source, SettingSource::Registry);
    EXPECT_EQ(reader_.Find(u"Marlento", u"Maker").value, u"Harnwell");
    EXPECT_EQ(reader_.Find(u"Marlento", u"Range").source, SettingSource::None);
}

TEST_F(BuiltInReaderTest, EmptyValue_IsReturnedInsteadOfTheDefault) {
    files_.AddFile(u"C:\\sys\\MARLENTO.INI", "[Marlento]\r\nVer=\r\n");
    UseFolder(u"C:\\sys");
    EXPECT_EQ(Ver(), u"");
}

TEST_F(BuiltInReaderTest, OtherRegistrySection_IsIgnored) {
    settings_.Save(u"Marlento", u"Other", u"Ver", u"1");
    EXPECT_EQ(Ver(), u"?");
}

TEST_F(BuiltInReaderTest, NoFolder_NoFileIsRead) {
    files_.AddFile(u"C:\\MARLENTO.INI", "[Marlento]\r\nVer=1\r\n");
    EXPECT_EQ(Ver(), u"?");
    EXPECT_THAT(files_.Log(), testing::IsEmpty());
}

TEST_F(BuiltInReaderTest, FileIsReadOnce) {
    files_.AddFile(u"C:\\sys\\MARLENTO.INI", "[Marlento]\r\nVer=1\r\n");
    UseFolder(u"C:\\sys");
    EXPECT_EQ(Ver(), u"1");
    EXPECT_EQ(Ver(), u"1");
    UseFolder(u"C:\\sys\\");
    EXPECT_EQ(Ver(), u"1");
    EXPECT_EQ(Reads(), 1);
}

TEST_F(BuiltInReaderTest, ChangedFile_IsReadAgain) {
    files_.AddFile(u"C:\\sys\\MARLENTO.INI", "[Marlento]\r\nVer=1\r\nRev=2\r\n");
    UseFolder(u"C:\\sys");
    EXPECT_EQ(Ver(), u"1");
    files_.AddFile(u"C:\\sys\\MARLENTO.INI", "[Marlento]\r\nVer=3\r\n");
    EXPECT_EQ(Ver(), u"3");
    EXPECT_EQ(reader_.GetSetting(u"Marlento", u"Rev", u"?"), u"?");
    EXPECT_EQ(Reads(), 2);
}

TEST_F(BuiltInReaderTest, FileAppearsAndIsDeleted_ReaderFollows) {
    UseFolder(u"C:\\sys");
    EXPECT_EQ(Ver(), u"?");
    files_.AddFile(u"C:\\sys\\MARLENTO.INI", "[Marlento]\r\nVer=1\r\n");
    EXPECT_EQ(Ver(), u"1");
    files_.RemoveFile(u"C:\\sys\\MARLENTO.INI");
    EXPECT_EQ(Ver(), u"?");
}

TEST_F(BuiltInReaderTest, OtherFolder_FileInThatFolderIsRead) {
    files_.AddFile(u"C:\\a\\MARLENTO.INI", "[Marlento]\r\nVer=1\r\n");
    files_.AddFile(u"C:\\b\\MARLENTO.INI", "[Marlento]\r\nVer=2\r\n");
    UseFolder(u"C:\\a");
    EXPECT_EQ(Ver(), u"1");
    UseFolder(u"C:\\b");
    EXPECT_EQ(Ver(), u"2");
    UseFolder(u"C:\\none");
    EXPECT_EQ(Ver(), u"?");
}

TEST_F(BuiltInReaderTest, UnreadableFile_EarlierSettingsAreUsed) {
    files_.AddFile(u"C:\\sys\\MARLENTO.INI", "[Marlento]\r\nVer=1\r\n");
    UseFolder(u"C:\\sys");
    EXPECT_EQ(Ver(), u"1");
    files_.AddFile(u"C:\\sys\\MARLENTO.INI", "[Marlento]\r\nVer=2\r\n");
    files_.FailRead(u"C:\\sys\\MARLENTO.INI");
    EXPECT_EQ(Ver(), u"1");
    files_.AddFile(u"C:\\sys\\MARLENTO.INI", "[Marlento]\r\nVer=3\r\n");
    EXPECT_EQ(Ver(), u"3");
}

/// A locale that runs out of memory when it converts from the ANSI code page.
class ShortOfMemory : public runtime::headless::PlainLocale {
 public:
    String FromAnsi(std::string_view) override { throw std::bad_alloc(); }
};

TEST_F(BuiltInReaderTest, FileDoesNotFitIntoMemory_RegistryIsUsed) {
    ShortOfMemory locale;
    BuiltInReader reader(files_, settings_, locale);
    files_.AddFile(u"C:\\sys\\MARLENTO.INI", "[Marlento]\nVer=\xE4\n");
    settings_.Save(u"Marlento", u"Settings", u"Ver", u"registry");
    String folder = u"C:\\sys";
    reader.NormaliseFolder(folder);
    EXPECT_EQ(reader.GetSetting(u"Marlento", u"Ver", u"?"), u"registry");
}

TEST_F(BuiltInReaderTest, TextIsReadFromItsAnsiBytes) {
    const char bytes[] = "Orvane \xE4\0hidden";
    EXPECT_EQ(reader_.TextAt(reinterpret_cast<TextPointer>(bytes)), u"Orvane \u00E4");
    EXPECT_EQ(reader_.TextAt(reinterpret_cast<TextPointer>("")), u"");
}

TEST_F(BuiltInReaderTest, AddressNearZero_HasNoText) {
    EXPECT_EQ(reader_.TextAt(0), u"");
    EXPECT_EQ(reader_.TextAt(-1), u"");
    EXPECT_EQ(reader_.TextAt(1), u"");
}

class LocalTexts : public BuiltInReaderTest {
 protected:
    LocalTexts() {
        CurrentSuite().kernel = &kernel_;
        reader_.UseLanguageFolder([this] { return folder_; });
    }
    ~LocalTexts() override { CurrentSuite().kernel = nullptr; }

    void WriteTexts(StringView folder, std::string_view lines) {
        files_.AddFile(String(folder).append(u"\\K4TBackProcess.txt"), lines);
    }
    String Text(StringView textId) { return reader_.GetText(u"default", textId); }

    tests::InMemoryKernel kernel_;
    String folder_;
};

TEST_F(LocalTexts, NoLanguageFolder_DefaultText) {
    files_.AddFile(u"C:\\K4TBackProcess.txt", "1 = eins\n");
    EXPECT_EQ(Text(u"1"), u"default");
    EXPECT_THAT(files_.Log(), testing::IsEmpty());
}

TEST_F(LocalTexts, ComponentHasNoFolder_KernelsFolderIsUsed) {
    WriteTexts(u"C:\\de", "1 = eins\n");
    WriteTexts(u"C:\\fr", "1 = un\n");
    kernel_.Put(u"LANGUAGEPATH", u"C:\\de");
    EXPECT_EQ(Text(u"1"), u"eins");
    folder_ = u"C:\\fr";
    EXPECT_EQ(Text(u"1"), u"un");
    folder_.clear();
    EXPECT_EQ(Text(u"1"), u"eins");
}

TEST_F(LocalTexts, FolderCleared_DefaultTextAgain) {
    files_.AddFile(u"C:\\K4TBackProcess.txt", "1 = of no folder\n");
    WriteTexts(u"C:\\de", "1 = eins\n");
    folder_ = u"C:\\de";
    EXPECT_EQ(Text(u"1"), u"eins");
    folder_.clear();
    EXPECT_EQ(Text(u"1"), u"default");
}

TEST_F(LocalTexts, NoFolderFunction_KernelsFolderIsUsed) {
    WriteTexts(u"C:\\de", "1 = eins\n");
    kernel_.Put(u"LANGUAGEPATH", u"C:\\de");
    reader_.UseLanguageFolder(nullptr);
    EXPECT_EQ(Text(u"1"), u"eins");
}

TEST_F(LocalTexts, FolderMayEndInABackslash) {
    WriteTexts(u"C:\\de", "1 = eins\n");
    folder_ = u"C:\\de\\";
    EXPECT_EQ(Text(u"1"), u"eins");
    folder_ = u"C:\\de";
    EXPECT_EQ(Text(u"1"), u"eins");
    EXPECT_EQ(Reads(), 1);
}

TEST_F(LocalTexts, FileAppearsChangesAndIsDeleted_ReaderFollows) {
    folder_ = u"C:\\de";
    EXPECT_EQ(Text(u"1"), u"default");
    WriteTexts(u"C:\\de", "1 = eins\n2 = zwei\n");
    EXPECT_EQ(Text(u"1"), u"eins");
    WriteTexts(u"C:\\de", "1 = ein\n");
    EXPECT_EQ(Text(u"1"), u"ein");
    EXPECT_EQ(Text(u"2"), u"default");
    files_.RemoveFile(u"C:\\de\\K4TBackProcess.txt");
    EXPECT_EQ(Text(u"1"), u"default");
    EXPECT_EQ(Reads(), 2);
}

TEST_F(LocalTexts, FileCannotBeRead_EarlierTextsAreUsed) {
    folder_ = u"C:\\de";
    WriteTexts(u"C:\\de", "1 = eins\n");
    EXPECT_EQ(Text(u"1"), u"eins");
    WriteTexts(u"C:\\de", "1 = ein\n");
    files_.FailRead(u"C:\\de\\K4TBackProcess.txt");
    EXPECT_EQ(Text(u"1"), u"eins");
}

TEST_F(LocalTexts, UnreadableFile_DefaultTextUntilItIsReadable) {
    folder_ = u"C:\\de";
    WriteTexts(u"C:\\de", "1 = eins\n");
    files_.FailRead(u"C:\\de\\K4TBackProcess.txt");
    EXPECT_EQ(Text(u"1"), u"default");
    EXPECT_EQ(Text(u"1"), u"default");
    WriteTexts(u"C:\\de", "1 = eins\n");
    EXPECT_EQ(Text(u"1"), u"eins");
}

TEST_F(LocalTexts, FolderNamedLikeTheFile_DefaultText) {
    files_.AddFolder(u"C:\\de\\K4TBackProcess.txt");
    folder_ = u"C:\\de";
    EXPECT_EQ(Text(u"1"), u"default");
    EXPECT_EQ(Reads(), 0);
}

TEST_F(LocalTexts, InvalidFolder_DefaultText) {
    for (const String& folder : {String(u"Q:\\none"), String(u"C:\\a|b\0c", 8), String(u":"), String(40'000, u'x')}) {
        folder_ = folder;
        EXPECT_EQ(Text(u"1"), u"default");
    }
}

TEST_F(LocalTexts, TooLargeFile_IsNotRead) {
    folder_ = u"C:\\de";
    std::string lines = "1 = eins\n# ";
    lines.resize(kMaxTextsBytes, 'x');
    WriteTexts(u"C:\\de", lines);
    EXPECT_EQ(Text(u"1"), u"eins");
    files_.ClearLog();
    WriteTexts(u"C:\\de", lines + "x");
    EXPECT_EQ(Text(u"1"), u"default");
    EXPECT_EQ(Text(u"1"), u"default");
    EXPECT_EQ(Reads(), 0);
    WriteTexts(u"C:\\de", "1 = ein\n");
    EXPECT_EQ(Text(u"1"), u"ein");
}

TEST_F(LocalTexts, FolderChangedBack_FileIsReadAgain) {
    WriteTexts(u"C:\\de", "1 = eins\n");
    WriteTexts(u"C:\\fr", "1 = un\n");
    for (const StringView folder : {u"C:\\de", u"C:\\fr", u"C:\\de", u"C:\\none", u"C:\\fr"}) {
        folder_ = folder;
        const StringView expected = folder == u"C:\\de" ? u"eins" : folder == u"C:\\fr" ? u"un" : u"default";
        EXPECT_EQ(Text(u"1"), expected);
    }
}

TEST_F(LocalTexts, FolderChangesInAnOperation_NextOperationUsesIt) {
    WriteTexts(u"C:\\de", "1 = eins\n2 = zwei\n");
    WriteTexts(u"C:\\fr", "1 = un\n2 = deux\n");
    folder_ = u"C:\\de";
    {
        const runtime::Operation operation;
        EXPECT_EQ(Text(u"1"), u"eins");
        folder_ = u"C:\\fr";
        EXPECT_EQ(Text(u"2"), u"zwei");
    }
    EXPECT_EQ(Text(u"2"), u"deux");
}

TEST_F(LocalTexts, KernelFails_CallerReceivesTheError) {
    kernel_.FailOn("E_GetString", runtime::Error(runtime::kFileNotFound));
    EXPECT_THROW(Text(u"1"), runtime::Error);
}

}  // namespace
}  // namespace kernel_api::builtin
