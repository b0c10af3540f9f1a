// Each operation checks once whether the files of settings and texts have changed. The next operation uses the changed
// files.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "dialogs/Qmxquery.h"
#include "dialogs/frmQMXMsgBox.h"
#include "host/clsQmxBackProcess.h"
#include "host/frmBackProcessMain.h"
#include "services/MessageTexts.h"
#include "services/ProcessValues.h"
#include "services/modReg.h"
#include "tests/support/ComponentFixture.h"

namespace host {
namespace {

class ChecksPerOperation : public tests::HeadlessComponentTest {
 protected:
    ChecksPerOperation() {
        kernel_.Put(u"LANGUAGEPATH", u"C:\\de");
        Translate("561 = eins\nLOC = eins\n");
    }
    void Translate(std::string_view texts) { memory_.files.AddFile(u"C:\\de\\K4TBackProcess.txt", texts); }
    /// Returns how often `action` checks the stamp of the file `name`.
    template <typename Action>
    std::ptrdiff_t At(StringView name, Action&& action) {
        memory_.files.ClearLog();
        action();
        return std::ranges::count_if(memory_.files.Log(), [name](const String& asked) {
            return asked.starts_with(u"Stamp ") && asked.ends_with(name);
        });
    }
    template <typename Action>
    std::ptrdiff_t AtTexts(Action&& action) {
        return At(u"K4TBackProcess.txt", action);
    }
    static clsQmxBackProcess Make() {
        return clsQmxBackProcess([](String&, String&) {});
    }
};

TEST_F(ChecksPerOperation, Creation_ChecksTheSettingsOnce) {
    EXPECT_EQ(At(u"MARLENTO.INI", [] { Make(); }), 1);
}

TEST_F(ChecksPerOperation, SettingsChangeBetweenCreations_NextCreationReadsThem) {
    Make();
    EXPECT_EQ(services::Values().version, u"?");
    memory_.settings.Save(u"Marlento", u"Settings", u"Ver", u"7");
    Make();
    EXPECT_EQ(services::Values().version, u"7");
    memory_.files.AddFile(services::Values().installFolder + u"\\sys\\MARLENTO.INI", "[Marlento]\nVer=8\n");
    Make();
    EXPECT_EQ(services::Values().version, u"8");
}

TEST_F(ChecksPerOperation, LoadOfTheForm_ChecksTheTextsOnce) {
    EXPECT_EQ(AtTexts([] { MainForm().EnsureLoaded(); }), 1);
}

TEST_F(ChecksPerOperation, TextsChangeBetweenCommands_NextCommandReadsThem) {
    frmBackProcessMain& form = MainForm();
    EXPECT_EQ(AtTexts([&] { form.AP_ExeCmd(u"All,LZ"); }), 2);  // the form's load, then the command
    EXPECT_EQ(AtTexts([&] { form.AP_ExeCmd(u"All,LZ"); }), 1);
    EXPECT_EQ(form.Caption(), u"eins");
    Translate("561 = zwei\n");
    form.AP_ExeCmd(u"All,LZ");
    EXPECT_EQ(form.Caption(), u"zwei");
}

TEST_F(ChecksPerOperation, MessageOfTwoTexts_ChecksOnce) {
    memory_.messageBox.answers = {1, 1};
    std::int32_t number = 101;
    EXPECT_EQ(AtTexts([&] { services::ShowError(number, u"R1"); }), 1);
    Translate("99561 = Teil\n99196 = \\sist da\n");
    services::ShowError(number, u"R1");
    EXPECT_EQ(memory_.messageBox.shown.at(1).prompt, u"TeilR1 ist da");
}

TEST_F(ChecksPerOperation, LoadOfADialog_ChecksTheTextsOnce) {
    const auto closeNext = [this] {
        memory_.windows.Post([this] { memory_.windows.Last().Events().Closing(runtime::UnloadReason::kUser); });
    };
    closeNext();
    EXPECT_EQ(AtTexts([] { dialogs::AskWithSuiteBox(u"Overwrite?", 0, u"Title"); }), 1);
    closeNext();
    std::vector<String> values = {u"R1"};
    std::int32_t index = 0;
    EXPECT_EQ(AtTexts([&] { dialogs::AskWithQueryDialog(u"Title", u"Name", values, 0, index, false, u""); }), 1);
}

TEST_F(ChecksPerOperation, SingleTexts_CheckOnceForEachText) {
    const auto twice = [] {
        services::GetLocalText(u"", u"561");
        services::GetLocalText(u"", u"561");
    };
    EXPECT_EQ(AtTexts(twice), 2);
}

}  // namespace
}  // namespace host
