// Tests the main form's load, unload, operations and events.
#include "host/frmBackProcessMain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Composition.h"
#include "routing/ModuleList.h"
#include "runtime/LoadedForms.h"
#include "runtime/Screen.h"
#include "services/ProcessValues.h"
#include "services/QMXHLP.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/HandledForm.h"

namespace host {
namespace {

using runtime::WindowState;
using services::Values;
using ::testing::ElementsAre;

/// Records the main form's events.
template <typename Base>
class MainFormOver : public Base {
 protected:
    MainFormOver() {
        connection_ = form_.NotifyClass().Connect([this](String& module, String& command) {
            received_.push_back(runtime::ToUtf8(module) + "|" + runtime::ToUtf8(command));
        });
    }

    frmBackProcessMain& form_ = MainForm();
    std::vector<std::string> received_;
    frmBackProcessMain::NotifyClassEvent::Connection connection_;
};

using MainFormLoad = MainFormOver<tests::ComponentTest>;
using MainFormInMemory = MainFormOver<tests::HeadlessComponentTest>;

TEST_F(MainFormLoad, HasItsDesignAndStaysHidden) {
    EXPECT_EQ(form_.Name(), u"frmBackProcessMain");
    EXPECT_EQ(form_.Tag(), u"561");
    EXPECT_EQ(form_.InnerSize(), (runtime::Size{2025, 2130}));
    EXPECT_FALSE(form_.Visible());
    EXPECT_EQ(form_.State(), WindowState::kNormal);
    const auto& bar = form_.Controls().at(0);
    EXPECT_EQ(bar->Name(), u"MsgLine");
    EXPECT_EQ(bar->Bounds(), (runtime::Rect{0, 1800, 2025, 330}));
}

TEST_F(MainFormLoad, SetsCaptionsAndProcessWideValues) {
    kernel_.Put(u"PRODUCT_NAME", u"Orvane");
    Values().installFolder = u"D:\\Pelorix";
    EXPECT_EQ(form_.Caption(), u"Pelorix Background Processing Application");
    EXPECT_EQ(Values().forms.main.get(), &form_);
    EXPECT_EQ(Values().moduleCaption, u"Pelorix Background process ");
    EXPECT_EQ(Values().moduleName, u"Orvane");
    EXPECT_EQ(Values().helpFilePath, u"D:\\Pelorix\\Marlentine.HLP");
}

TEST_F(MainFormLoad, HelpFilePathIsTrimmed) {
    Values().installFolder = u"  D:\\Pelorix";
    form_.EnsureLoaded();
    EXPECT_EQ(Values().helpFilePath, u"D:\\Pelorix\\Marlentine.HLP");
}

TEST_F(MainFormLoad, CentresTheForm) {
    const runtime::Size screen = runtime::ScreenSize();
    EXPECT_EQ(form_.Left(), OnPixels((screen.width - form_.Width()) / 2.0F));
    EXPECT_EQ(form_.Top(), OnPixels((screen.height - form_.Height()) / 2.0F));
    EXPECT_EQ(form_.InnerSize(), (runtime::Size{2025, 2130}));
}

TEST_F(MainFormLoad, ReadsTheListThenPublishesTheState) {
    kernel_.Put(u"AllAps", u"EDITOR,K4TBACKPROCESS");
    form_.EnsureLoaded();
    EXPECT_EQ(routing::OwnModuleIndex(), 2);
    // The reader asks for the language folder once, because it looks up both captions and the text of the form's tag in
    // one operation.
    EXPECT_THAT(kernel_.Log(),
                ElementsAre("E_GetString(LANGUAGEPATH)", "E_GetString(PRODUCT_NAME)", "E_GetString(AllAps)",
                            "E_SetString(K4TBACKPROCESS, Pelorix Background Processing Application, 0, 0, 0, 0)"));
    EXPECT_TRUE(received_.empty());
}

TEST_F(MainFormLoad, ChoosesTheFontAndSetsItInTheStatusLine) {
    memory_.locale.systemLcid = 0x0411;
    form_.EnsureLoaded();
    EXPECT_EQ(Values().uiFont.size, 9);
    EXPECT_EQ(Values().uiFont.characterSet, 128);
    const runtime::Font font = form_.Controls().at(0)->Font();
    EXPECT_EQ(font, (runtime::Font{Values().uiFont.name, 9, 128, false}));
}

TEST_F(MainFormInMemory, FontIsChosenWithTheFormsWindowAndContext) {
    memory_.fonts.installed.clear();
    form_.EnsureLoaded();
    const std::string release =
        "release " + std::to_string(form_.DeviceContext()) + " of " + std::to_string(form_.Handle());
    EXPECT_NE(form_.DeviceContext(), 0);
    EXPECT_THAT(memory_.fonts.log, ::testing::Contains(release).Times(1));
}

TEST_F(MainFormLoad, Caption_IsTheTextOfTheFormsTag) {
    kernel_.Put(u"LANGUAGEPATH", u"C:\\de");
    memory_.files.AddFile(u"C:\\de\\K4TBackProcess.txt", "561 = Hintergrund\n");
    EXPECT_EQ(form_.Caption(), u"Hintergrund");
}

TEST_F(MainFormLoad, CentresAnyForm) {
    tests::HandledForm dialog;
    frmBackProcessMain::SetForm(dialog);
    const runtime::Size screen = runtime::ScreenSize();
    EXPECT_EQ(dialog.Left(), OnPixels((screen.width - dialog.Width()) / 2.0F));
    EXPECT_EQ(dialog.Top(), OnPixels((screen.height - dialog.Height()) / 2.0F));
    EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(MainFormLoad, LoadAfterAnUnload_RunsAllStepsAgain) {
    form_.EnsureLoaded();
    form_.Unload();
    kernel_.ClearLog();
    kernel_.Put(u"AllAps", u"K4TBACKPROCESS");
    form_.EnsureLoaded();
    EXPECT_EQ(routing::ModuleCount(), 1);
    EXPECT_THAT(kernel_.Log(), ::testing::Contains("E_GetString(AllAps)").Times(1));
}

TEST_F(MainFormLoad, EarlierInstance_FormIsUnloadedWithoutAMessage) {
    memory_.process.SetEarlierInstance(true);
    EXPECT_EQ(tests::ErrorOf([&] { form_.EnsureLoaded(); }), runtime::kObjectWasUnloaded);
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_TRUE(memory_.messageBox.shown.empty());
    EXPECT_THAT(received_, ElementsAre("K4TBACKPROCESS|SHUTDOWN"));
    EXPECT_EQ(routing::InterModuleMessage(), 0u);
}

TEST_F(MainFormLoad, Error_AllFormsAreUnloadedWithoutAMessage) {
    runtime::Form dialog({.name = u"dialog", .caption = u"", .inner = {3000, 1500}});
    dialog.EnsureLoaded();
    kernel_.FailOn("E_GetString(AllAps)", runtime::Error(runtime::kDllEntryPointNotFound));
    EXPECT_EQ(tests::ErrorOf([&] { form_.EnsureLoaded(); }), runtime::kObjectWasUnloaded);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
    EXPECT_TRUE(memory_.messageBox.shown.empty());
    EXPECT_THAT(received_, ElementsAre("K4TBACKPROCESS|SHUTDOWN"));
}

TEST_F(MainFormLoad, HoldsTheClaimOfTheFirstInstanceUntilItsUnload) {
    form_.EnsureLoaded();
    EXPECT_EQ(memory_.process.HeldClaims(), 1);
    form_.Unload();
    EXPECT_EQ(memory_.process.HeldClaims(), 0);
}

TEST_F(MainFormInMemory, EarlierInstance_TextsAndHandleAreSet) {
    kernel_.Put(u"PRODUCT_NAME", u"Orvane");
    memory_.process.SetEarlierInstance(true);
    // Open help is closed with the window handle that the load has stored.
    Values().helpIsOpen = -1;
    String caption;
    runtime::NativeHandle window = 0;
    const auto looking = form_.NotifyClass().Connect([&](String&, String&) {
        caption = form_.Caption();
        window = form_.Handle();
    });
    tests::ErrorOf([this] { form_.EnsureLoaded(); });
    EXPECT_EQ(caption, u"Pelorix Background Processing Application");
    EXPECT_EQ(Values().moduleCaption, u"Pelorix Background process ");
    EXPECT_EQ(Values().moduleName, u"Orvane");
    EXPECT_NE(window, 0);
    EXPECT_THAT(memory_.help.calls, ElementsAre(runtime::headless::RecordingHelp::Call{window, std::nullopt}));
}

TEST_F(MainFormInMemory, EarlierInstance_FormIsNotCentred) {
    memory_.process.SetEarlierInstance(true);
    tests::ErrorOf([this] { form_.EnsureLoaded(); });
    ASSERT_EQ(memory_.settings.Saved().size(), 4u);
    EXPECT_EQ(memory_.settings.Saved()[0].value, u"5070");
    EXPECT_EQ(memory_.settings.Saved()[1].value, u"8595");
    EXPECT_EQ(Values().uiFont, services::UiFont());
}

TEST_F(MainFormInMemory, LoadHidesTheFormAgain_HelpPathIsNotSetYet) {
    kernel_.RewriteValues([this](const std::string&, std::string&) {
        // A minimised form does not become active, so only the load hides the form.
        form_.SetState(WindowState::kMinimised);
        form_.SetVisible(true);
    });
    std::vector<String> helpPaths;
    memory_.windows.onWindowHidden = [&helpPaths] { helpPaths.push_back(Values().helpFilePath); };
    Values().installFolder = u"D:\\Pelorix";
    form_.EnsureLoaded();
    kernel_.RewriteValues({});
    memory_.windows.onWindowHidden = {};
    EXPECT_THAT(helpPaths, ElementsAre(u""));
    EXPECT_EQ(Values().helpFilePath, u"D:\\Pelorix\\Marlentine.HLP");
}

using MainFormUnload = MainFormOver<tests::ComponentTest>;

TEST_F(MainFormUnload, UnloadsDialogsLoadedBeforeAndAfterIt) {
    runtime::Form before({.name = u"before", .caption = u"", .inner = {3000, 1500}});
    runtime::Form after({.name = u"after", .caption = u"", .inner = {3000, 1500}});
    before.EnsureLoaded();
    form_.EnsureLoaded();
    after.EnsureLoaded();
    form_.Unload();
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
    EXPECT_THAT(received_, ElementsAre("K4TBACKPROCESS|SHUTDOWN"));
}

using MainFormUnloadInMemory = MainFormOver<tests::HeadlessComponentTest>;

TEST_F(MainFormUnloadInMemory, UnloadBegins_PlacementIsAlreadySaved) {
    struct WatchedForm : frmBackProcessMain {
        void OnUnload(bool& cancel) override {
            savedBefore = settings->Saved().size();
            frmBackProcessMain::OnUnload(cancel);
        }
        runtime::headless::MemorySettings* settings = nullptr;
        std::size_t savedBefore = 0;
    } form;
    form.settings = &memory_.settings;
    form.EnsureLoaded();
    form.Unload();
    EXPECT_EQ(form.savedBefore, 4u);
}

TEST_F(MainFormUnloadInMemory, PublishedStateIsCleared_HelpIsStillOpen) {
    form_.EnsureLoaded();
    std::int16_t wanted = -1;
    services::ShowHelpTopic(u"", 0, wanted);
    std::vector<std::size_t> helpCalls;
    kernel_.RewriteValues([&](const std::string&, std::string&) { helpCalls.push_back(memory_.help.calls.size()); });
    form_.Unload();
    kernel_.RewriteValues({});
    EXPECT_THAT(helpCalls, ElementsAre(1u));
    EXPECT_EQ(memory_.help.calls.size(), 2u);
}

TEST_F(MainFormUnloadInMemory, PendingEventsRunBetweenUnloads) {
    runtime::Form dialog({.name = u"dialog", .caption = u"", .inner = {3000, 1500}});
    form_.EnsureLoaded();
    dialog.EnsureLoaded();
    bool ran = false;
    memory_.windows.Post([&] {
        ran = true;
        EXPECT_TRUE(dialog.IsLoaded());
    });
    form_.Unload();
    EXPECT_TRUE(ran);
}

TEST_F(MainFormUnloadInMemory, DialogUnloadedByAnEvent_IsNotUnloadedTwice) {
    tests::HandledForm dialog;
    form_.EnsureLoaded();
    dialog.EnsureLoaded();
    memory_.windows.Post([&] { dialog.Unload(); });
    form_.Unload();
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
    EXPECT_THAT(dialog.log, ElementsAre("load", "query 1", "unload"));
}

using MainFormEvents = MainFormOver<tests::ComponentTest>;

TEST_F(MainFormEvents, StatusLineShowsTheTextAndLoadsTheForm) {
    form_.EditMsgLine(u"routing…");
    EXPECT_TRUE(form_.IsLoaded());
    EXPECT_EQ(form_.Controls().at(0)->Text(), u"routing…");
}

TEST_F(MainFormEvents, SizeBelowTheLimits_IsRaisedToTheLimits) {
    form_.SetWidth(5000);
    form_.SetHeight(2000);
    EXPECT_EQ(form_.Width(), OnPixels(8000));
    EXPECT_EQ(form_.Height(), OnPixels(3000));
}

TEST_F(MainFormEvents, SizeAtOrAboveTheLimits_StaysUnchanged) {
    form_.SetWidth(8000);
    form_.SetHeight(3000);
    form_.SetWidth(9000);
    EXPECT_EQ(form_.Width(), 9000);
    EXPECT_EQ(form_.Height(), OnPixels(3000));
}

TEST_F(MainFormEvents, FormIsShown_IsHiddenAgain) {
    form_.SetVisible(true);
    runtime::DoEvents();
    EXPECT_FALSE(form_.Visible());
    EXPECT_FALSE(routing::IsFormShown(form_));
}

using MainFormEventsInMemory = MainFormOver<tests::HeadlessComponentTest>;

TEST_F(MainFormEventsInMemory, StatusLineRepaintsAtOnce) {
    form_.EditMsgLine(u"x");
    EXPECT_EQ(memory_.windows.Last().Control(u"MsgLine").refreshes, 1);
    EXPECT_EQ(memory_.windows.Last().Control(u"MsgLine").text, u"x");
}

TEST_F(MainFormEventsInMemory, KeysHideTheForm) {
    form_.EnsureLoaded();
    auto& window = memory_.windows.Last();
    const auto hidesAfter = [&](const std::function<void(runtime::WindowEvents&)>& key) {
        // A minimised form does not become active when it is shown.
        form_.SetState(WindowState::kMinimised);
        form_.SetVisible(true);
        EXPECT_TRUE(form_.Visible());
        key(window.Events());
        EXPECT_FALSE(form_.Visible());
    };
    // The controls do not get a KeyDown that hides the form. They get a KeyPress or a KeyUp that hides the form.
    hidesAfter([](auto& events) { EXPECT_TRUE(events.KeyDown(65, 0)); });
    hidesAfter([](auto& events) { EXPECT_FALSE(events.KeyPress(u'a')); });
    hidesAfter([](auto& events) { EXPECT_FALSE(events.KeyUp(65, 0)); });
}

TEST_F(MainFormEventsInMemory, ShownByOtherProgram_IsHiddenAtOnce) {
    for (const bool activates : {true, false}) {
        for (const auto state : {WindowState::kNormal, WindowState::kMinimised, WindowState::kMaximised}) {
            form_.EnsureLoaded();
            memory_.windows.Last().ShowExternally(state, activates);
            EXPECT_FALSE(memory_.windows.Last().visible);
            EXPECT_FALSE(form_.Visible());
            form_.Unload();
        }
    }
}

TEST_F(MainFormEventsInMemory, LimitsInWholePixels_AreExact) {
    memory_.windows.dpi = 144;  // 10 twips a pixel
    form_.SetWidth(5000);
    form_.SetHeight(2000);
    EXPECT_EQ(form_.Width(), 8000);
    EXPECT_EQ(form_.Height(), 3000);
}

TEST_F(MainFormEventsInMemory, MaximisedFormIgnoresTheLimits) {
    form_.EnsureLoaded();
    memory_.windows.Last().Events().BoundsChanged({0, 0, 600, 300}, WindowState::kMaximised);
    EXPECT_EQ(form_.Width(), 600);
    EXPECT_EQ(form_.Height(), 300);
}

TEST_F(MainFormEventsInMemory, MinimisedFormIgnoresTheLimits) {
    form_.EnsureLoaded();
    const runtime::Twips width = form_.Width();
    memory_.windows.Last().Events().BoundsChanged({0, 0, 600, 300}, WindowState::kMinimised);
    EXPECT_EQ(form_.State(), WindowState::kMinimised);
    EXPECT_EQ(form_.Width(), width);
    EXPECT_EQ(memory_.windows.Last().outer.width, width);
}

using MainFormCommands = MainFormOver<tests::HeadlessComponentTest>;

TEST_F(MainFormCommands, ListenerChangesTheTexts_CallersTextsChange) {
    const auto changing = form_.NotifyClass().Connect([](String& module, String& command) {
        module += u"1";
        command += u"2";
    });
    String module = u"M";
    String command = u"C";
    form_.AP_SendCmd(module, command);
    EXPECT_EQ(module, u"M1");
    EXPECT_EQ(command, u"C2");
    form_.AP_SendCmdAll(command);
    EXPECT_EQ(command, u"C22");
    form_.AP_Shell(module, 1, u"X");
    EXPECT_EQ(module, u"M11");
}

}  // namespace
}  // namespace host
