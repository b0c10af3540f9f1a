#include "services/modReg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "runtime/Form.h"
#include "services/ProcessValues.h"
#include "tests/support/BrokenReader.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/ReaderInUse.h"
#include "tests/support/RecordingReader.h"

namespace services {
namespace {

using runtime::headless::MemorySettings;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

class ModReg : public tests::HeadlessComponentTest {
 protected:
    void WriteIni(std::string_view text) {
        String folder = u"C:\\sys\\";
        reader_.NormaliseFolder(folder);
        memory_.files.AddFile(u"C:\\sys\\MARLENTO.INI", text);
    }
    /// Returns the reads and publications of `load`, in order; for example "read JobDir", "publish JobDir".
    std::vector<std::string> StepsOf(void (*load)()) {
        std::vector<std::string> steps;
        tests::RecordingReader recording(reader_);
        const tests::ReaderInUse inUse(recording);
        recording.onEachSetting = [&steps](StringView key) { steps.push_back("read " + runtime::ToUtf8(key)); };
        kernel_.RewriteValues([&steps](const std::string& key, std::string&) { steps.push_back("publish " + key); });
        load();
        kernel_.RewriteValues({});
        return steps;
    }
};

class LoadingDirectories : public ModReg {};

TEST_F(LoadingDirectories, Defaults_ContainTheKernelsProductName) {
    kernel_.Put(u"PRODUCT_NAME", u"Orvane");
    LoadDirectories();
    EXPECT_EQ(Values().jobFolder, u"C:\\Orvane\\JOB");
    EXPECT_EQ(Values().libraryFolder, u"C:\\Orvane\\LIB");
    EXPECT_EQ(Values().systemFolder, u"C:\\Orvane\\SYS");
    EXPECT_EQ(Values().secondaryJobFolder, u"C:\\CADJOB");
}

TEST_F(LoadingDirectories, NoProductName_DefaultsDoNotContainAName) {
    LoadDirectories();
    EXPECT_EQ(Values().jobFolder, u"C:\\\\JOB");
}

TEST_F(LoadingDirectories, AllFolders_AreReadBeforeAnyIsPublished) {
    EXPECT_THAT(StepsOf(LoadDirectories), ElementsAre("read JobDir", "read LibDir", "read SysDir", "read EED3JobDir",
                                                      "publish JobDir", "publish LibDir", "publish EED3JobDir"));
}

TEST_F(LoadingDirectories, SettingsOverrideTheDefaults) {
    WriteIni("[Marlento]\nJobDir=D:\\job\nLibDir=D:\\lib\nSysDir=D:\\sys\nEED3JobDir=D:\\third\n");
    LoadDirectories();
    EXPECT_EQ(Values().jobFolder, u"D:\\job");
    EXPECT_EQ(Values().libraryFolder, u"D:\\lib");
    EXPECT_EQ(Values().systemFolder, u"D:\\sys");
    EXPECT_EQ(Values().secondaryJobFolder, u"D:\\third");
}

TEST_F(LoadingDirectories, SecondaryJobFoldersKey_GetsTheJobFolder) {
    WriteIni("[Marlento]\nJobDir=D:\\job\nEED3JobDir=D:\\third\n");
    LoadDirectories();
    EXPECT_EQ(Kept(u"JobDir"), u"D:\\job");
    EXPECT_EQ(Kept(u"EED3JobDir"), u"D:\\job");
    EXPECT_EQ(Kept(u"SysDir"), u"(none)");
}

TEST_F(LoadingDirectories, KernelRewritesValues_NewValuesAreKept) {
    kernel_.RewriteValues([](const std::string&, std::string& value) { value += "!"; });
    WriteIni("[Marlento]\nJobDir=J\nLibDir=L\n");
    LoadDirectories();
    // The kernel has rewritten the job folder twice, because it is published under two keys.
    EXPECT_EQ(Values().jobFolder, u"J!!");
    EXPECT_EQ(Values().libraryFolder, u"L!");
    EXPECT_EQ(Kept(u"EED3JobDir"), u"J!!");
}

TEST_F(LoadingDirectories, ReaderFails_NothingIsPublished) {
    tests::BrokenReader broken;
    const tests::ReaderInUse inUse(broken);
    EXPECT_EQ(tests::ErrorOf([] { LoadDirectories(); }), runtime::kPropertyNotSupported);
    EXPECT_EQ(Kept(u"JobDir"), u"(none)");
}

class LoadingProductIdentity : public ModReg {};

TEST_F(LoadingProductIdentity, ReaderFails_NothingIsPublished) {
    tests::BrokenReader broken;
    const tests::ReaderInUse inUse(broken);
    EXPECT_EQ(tests::ErrorOf([] { LoadProductIdentity(); }), runtime::kPropertyNotSupported);
    EXPECT_THAT(kernel_.Log(), IsEmpty());
}

TEST_F(LoadingProductIdentity, SixSettings_AreReadBeforeThreeArePublished) {
    EXPECT_THAT(StepsOf(LoadProductIdentity),
                ElementsAre("read SysName", "read Maker", "read Copyright", "read Ver", "read Rev", "read Range",
                            "publish PRODUCT_NAME", "publish MAKER_NAME", "publish COPYRIGHT_NAME"));
}

TEST_F(LoadingProductIdentity, NoSettings_DefaultsAreUsed) {
    LoadProductIdentity();
    EXPECT_EQ(Values().productName, u"Orvane");
    EXPECT_EQ(Values().makerName, u"Harnwell");
    EXPECT_EQ(Values().copyrightHolder, u"Daventa");
    EXPECT_EQ(Values().version, u"?");
    EXPECT_EQ(Values().revision, u"?");
    EXPECT_EQ(Values().productRange, u"Electronic design engineering system");
}

TEST_F(LoadingProductIdentity, ReadsEachSetting) {
    WriteIni("[Marlento]\nSysName=N\nMaker=M\nCopyright=C\nVer=1.2\nRev=7\nRange=R\n");
    LoadProductIdentity();
    EXPECT_EQ(Values().productName, u"N");
    EXPECT_EQ(Values().makerName, u"M");
    EXPECT_EQ(Values().copyrightHolder, u"C");
    EXPECT_EQ(Values().version, u"1.2");
    EXPECT_EQ(Values().revision, u"7");
    EXPECT_EQ(Values().productRange, u"R");
}

TEST_F(LoadingProductIdentity, PublishesThreeInOrderAndKeepsRewrittenValues) {
    kernel_.RewriteValues([](const std::string&, std::string& value) { value += "+"; });
    LoadProductIdentity();
    EXPECT_THAT(kernel_.Log(), ElementsAre("E_SetString(PRODUCT_NAME, Orvane)", "E_SetString(MAKER_NAME, Harnwell)",
                                           "E_SetString(COPYRIGHT_NAME, Daventa)"));
    EXPECT_EQ(Values().productName, u"Orvane+");
    EXPECT_EQ(Values().makerName, u"Harnwell+");
    EXPECT_EQ(Values().copyrightHolder, u"Daventa+");
}

TEST_F(ModReg, ProductNameIsReadFromTheKernelEachTime) {
    EXPECT_EQ(GetProductName(), u"");
    kernel_.Put(u"PRODUCT_NAME", u"Other");
    EXPECT_EQ(GetProductName(), u"Other");
}

TEST_F(ModReg, AppSettings_AreThePerUserSettings) {
    EXPECT_EQ(GetAppSetting(u"App", u"Section", u"Key", u"default"), u"default");
    SaveAppSetting(u"App", u"Section", u"Key", u"value");
    EXPECT_EQ(GetAppSetting(u"App", u"Section", u"Key", u"default"), u"value");
}

class CheckingFolders : public ModReg {
 protected:
    /// Returns the result of CheckFolder. CheckFolder may change `path`.
    std::int32_t Check(String& path) {
        std::int32_t result = -1;
        CheckFolder(path, result);
        return result;
    }
    std::int32_t CheckOf(String path) { return Check(path); }
    bool AskedTheDisk() {
        for (const auto& line : memory_.files.Log())
            if (line.starts_with(u"ChangeFolder")) return true;
        return false;
    }
};

TEST_F(CheckingFolders, BareDrivesAToY_AreAcceptedWithoutACheck) {
    for (const char16_t drive : {u'a', u'A', u'c', u'Y', u'y'}) {
        EXPECT_EQ(CheckOf(String{drive, u':'}), 0);
        EXPECT_EQ(CheckOf(String{drive, u':', u'\\'}), 0);
    }
    EXPECT_FALSE(AskedTheDisk());
}

TEST_F(CheckingFolders, ArgumentIsUpperCasedInPlace) {
    String path = u"c:";
    EXPECT_EQ(Check(path), 0);
    EXPECT_EQ(path, u"C:");
    memory_.files.AddFolder(u"C:\\cad\\sys");
    path = u"c:\\cad\\sys";
    EXPECT_EQ(Check(path), 0);
    EXPECT_EQ(path, u"C:\\CAD\\SYS");
}

TEST_F(CheckingFolders, LettersOutsideAscii_AreUpperCased) {
    memory_.files.AddFolder(u"C:\\gr\u00F6\u00DFe");
    String path = u"c:\\gr\u00F6\u00DFe";
    EXPECT_EQ(Check(path), 0);
    EXPECT_EQ(path, u"C:\\GR\u00D6\u00DFE");
}

TEST_F(CheckingFolders, DriveZ_IsCheckedOnTheDisk) {
    memory_.messageBox.answers = {1};
    EXPECT_EQ(CheckOf(u"Z:"), 1);
    EXPECT_TRUE(AskedTheDisk());
    memory_.files.AddFolder(u"Z:\\");
    EXPECT_EQ(CheckOf(u"z:\\"), 0);
}

TEST_F(CheckingFolders, NotExactlyABareDrive_IsCheckedOnTheDisk) {
    for (const auto* path : {u"@:", u"[:", u"C:/", u"CC:", u"1:"}) {
        memory_.messageBox.answers = {1};
        memory_.files.ClearLog();
        CheckOf(path);
        EXPECT_TRUE(AskedTheDisk()) << runtime::ToUtf8(path);
    }
}

TEST_F(CheckingFolders, CurrentFolder_IsRestored) {
    memory_.files.AddFolder(u"C:\\here");
    memory_.files.AddFolder(u"D:\\there");
    memory_.files.ChangeFolder(u"C:\\here");
    EXPECT_EQ(CheckOf(u"D:\\there"), 0);
    EXPECT_EQ(memory_.files.CurrentFolder(), u"C:\\here");
    memory_.messageBox.answers = {1};
    EXPECT_EQ(CheckOf(u"D:\\nowhere"), 1);
    EXPECT_EQ(memory_.files.CurrentFolder(), u"C:\\here");
}

TEST_F(CheckingFolders, MissingFolderIsReported) {
    memory_.messageBox.answers = {1};
    EXPECT_EQ(CheckOf(u"c:\\no\\such"), 1);
    ASSERT_EQ(memory_.messageBox.shown.size(), 1u);
    EXPECT_EQ(memory_.messageBox.shown[0].prompt, u"Path: C:\\NO\\SUCH not available");
    EXPECT_EQ(memory_.messageBox.shown[0].flags, 4144);
    EXPECT_EQ(memory_.messageBox.shown[0].title, u"Path not found");
}

TEST_F(CheckingFolders, TitleIsTheDescriptionOfTheError) {
    memory_.files.AddFolder(u"C:\\locked");
    memory_.files.FailChange(u"C:\\locked", runtime::kPathFileAccessError);
    memory_.messageBox.answers = {1};
    EXPECT_EQ(CheckOf(u"C:\\locked"), 1);
    EXPECT_EQ(memory_.messageBox.shown.at(0).title, u"Path/File access error");
}

TEST_F(CheckingFolders, RestoringTheFolderFails_IsReported) {
    memory_.files.AddFolder(u"C:\\here");
    memory_.files.AddFolder(u"D:\\there");
    memory_.files.ChangeFolder(u"C:\\here");
    memory_.files.FailChange(u"C:\\here", runtime::kDeviceUnavailable);
    memory_.messageBox.answers = {1};
    EXPECT_EQ(CheckOf(u"D:\\there"), 1);
    ASSERT_EQ(memory_.messageBox.shown.size(), 1u);
    EXPECT_EQ(memory_.messageBox.shown[0].prompt, u"Path: D:\\THERE not available");
    EXPECT_EQ(memory_.messageBox.shown[0].title, u"Device unavailable");
}

TEST_F(CheckingFolders, TextsOfTheReportAreLookedUpByIdentifier) {
    tests::RecordingReader recording(reader_);
    const tests::ReaderInUse inUse(recording);
    memory_.messageBox.answers = {1};
    CheckOf(u"C:\\no");
    // Each identifier ends in a blank. The blank is part of the identifier.
    EXPECT_THAT(recording.Asked(),
                UnorderedElementsAre(Pair(u"Path: ", u"991019 "), Pair(u" not available", u"99961 ")));
}

TEST_F(CheckingFolders, ReportFails_ResultIsOne) {
    String path = u"C:\\no";
    std::int32_t result = 0;
    // The message has no prepared answer. That raises error 51 in the test.
    EXPECT_EQ(tests::ErrorOf([&] { CheckFolder(path, result); }), runtime::kInternalError);
    EXPECT_EQ(result, 1);
}

class SavingPlacement : public ModReg {
 protected:
    runtime::Form form_{{.name = u"frmAny", .caption = u"", .left = 150, .top = 300, .inner = {3000, 1500}}};
};

TEST_F(SavingPlacement, WritesTopLeftHeightWidthInThatOrder) {
    SaveWindowPlacement(form_);
    // The frame of a window in memory adds 120 x 405 twips.
    const auto setting = [](StringView key, StringView value) {
        return MemorySettings::Setting{u"Pelorix", u"K4TBACKPROCESS", String(key), String(value)};
    };
    EXPECT_THAT(memory_.settings.Saved(),
                ElementsAre(setting(u"frmAny_TOP", u"300"), setting(u"frmAny_LEFT", u"150"),
                            setting(u"frmAny_HEIGHT", u"1905"), setting(u"frmAny_WIDTH", u"3120")));
}

TEST_F(SavingPlacement, WritesThePlaceRoundedToPixels) {
    form_.Move(8527.5F, -6412.5F);
    SaveWindowPlacement(form_);
    EXPECT_EQ(memory_.settings.Saved().at(0).value, u"-6420");
    EXPECT_EQ(memory_.settings.Saved().at(1).value, u"8535");
}

TEST_F(SavingPlacement, PixelIsNotAWholeNumberOfTwips_WritesWholeTwips) {
    memory_.windows.dpi = 192;  // 7.5 twips a pixel
    form_.Move(7.5F, 22.5F);
    SaveWindowPlacement(form_);
    EXPECT_EQ(form_.Left(), 7.5F);
    EXPECT_EQ(memory_.settings.Saved().at(0).value, u"22");
    EXPECT_EQ(memory_.settings.Saved().at(1).value, u"8");
}

/// Records the form's scale mode at each saved setting.
class ScaleModeSettings : public runtime::headless::MemorySettings {
 public:
    explicit ScaleModeSettings(runtime::Form& form) : form_(form) {}
    void Save(StringView application, StringView section, StringView key, StringView value) override {
        scaleModes.push_back(form_.ScaleMode());
        MemorySettings::Save(application, section, key, value);
    }
    std::vector<std::int16_t> scaleModes;

 private:
    runtime::Form& form_;
};

TEST_F(SavingPlacement, SwitchesTheFormToTwipsWhileSaving) {
    ScaleModeSettings settings(form_);
    const runtime::Ports ports = tests::WithPort(ports_, settings);
    form_.SetScaleMode(3);
    runtime::UsePorts(&ports);
    SaveWindowPlacement(form_);
    runtime::UsePorts(&ports_);
    EXPECT_THAT(settings.scaleModes, ElementsAre(1, 1, 1, 1));
    EXPECT_EQ(form_.ScaleMode(), 3);
}

}  // namespace
}  // namespace services
