// Tests commands that clients pass through the service object to the main form: EX, LZ and commands that fail, in many
// states of the component. Also tests the help that the main form's unload closes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/clsQmxBackProcess.h"
#include "host/frmBackProcessMain.h"
#include "kernel_api/Suite.h"
#include "routing/CommandInterpreter.h"
#include "runtime/LoadedForms.h"
#include "services/MessageTexts.h"
#include "services/ProcessValues.h"
#include "services/QMXHLP.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/HandledForm.h"
#include "tests/support/RecordingReader.h"

namespace host {
namespace {

using runtime::Error;
using services::Values;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::ErrorOf;

/// A message box that runs the test's code while it is open.
class InterruptedMessageBox : public runtime::MessageBoxPort {
 public:
    std::int32_t Show(StringView prompt, std::int32_t /*flags*/, StringView /*title*/,
                      const runtime::MessageHelp& /*help*/) override {
        prompts.emplace_back(prompt);
        if (const auto then = std::exchange(onNextMessage, {})) then();
        if (onEachMessage) onEachMessage();
        return 1;
    }

    std::function<void()> onEachMessage;
    std::vector<String> prompts;
    std::function<void()> onNextMessage;
};

/// An instance that records its events. Tests may load a dialog.
template <typename Base>
class CommandsOver : public Base {
 protected:
    CommandsOver() {
        this->kernel_.Put(u"DESIGN_NAME", u"amplifier");
        kernel_api::CurrentSuite().reader = &interruptedReader_;
        runtime::UsePorts(&interruptedPorts_);
    }
    ~CommandsOver() override {
        this->kernel_.StopFailing();
        onEvent_ = {};
        object_.Terminate();
        runtime::UsePorts(&this->ports_);
        kernel_api::CurrentSuite().reader = &this->reader_;
    }

    void Notify(StringView text) { object_.NotifyMe(u"", text); }
    std::function<void()> Notifying(StringView text) {
        return [this, text] { Notify(text); };
    }
    std::int32_t ErrorOfNotifying(StringView text) { return ErrorOf(Notifying(text)); }
    void FailSave(std::int32_t number = runtime::kFileNotFound) {
        this->kernel_.FailOn("DB_DataBase", Error(number, u"no database"));
    }
    static bool NoneLoaded() { return runtime::LoadedForms().Count() == 0; }

    tests::RecordingReader interruptedReader_{this->reader_};
    InterruptedMessageBox box_;
    runtime::Ports interruptedPorts_ = tests::WithPort(this->ports_, box_);
    std::vector<std::string> received_;
    std::function<void()> onEvent_;
    clsQmxBackProcess object_{[this](String& /*module*/, String& command) {
        received_.push_back(runtime::ToUtf8(command));
        if (const auto then = std::exchange(onEvent_, {})) then();
    }};
    frmBackProcessMain& form_ = MainForm();
    tests::HandledForm dialog_{u"dialog"};
};

using Commands = CommandsOver<tests::ComponentTest>;

TEST_F(Commands, Ex_RaisesShutdownOnceAndClearsThePublishedState) {
    form_.EnsureLoaded();
    EXPECT_NE(Kept(u"K4TBACKPROCESS"), u"");
    Notify(u"All,EX");
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"");
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(Commands, ExInAnEventHandler_OperationCompletes) {
    form_.EnsureLoaded();
    onEvent_ = Notifying(u"All,EX");
    String command = u"OPEN";
    form_.AP_SendCmdAll(command);
    EXPECT_THAT(received_, ElementsAre("OPEN", "SHUTDOWN"));
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(Commands, ExInTheShutdown_Completes) {
    form_.EnsureLoaded();
    onEvent_ = Notifying(u"All,EX");
    Notify(u"All,EX");
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(Commands, ExInADialogsUnload_Completes) {
    form_.EnsureLoaded();
    dialog_.EnsureLoaded();
    dialog_.onUnload = Notifying(u"All,EX");
    dialog_.Unload();
    EXPECT_TRUE(NoneLoaded());
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
}

TEST_F(Commands, ExDuringTheLoad_FormIsUnloaded) {
    interruptedReader_.onNextText = Notifying(u"All,EX");
    EXPECT_EQ(ErrorOf([this] { form_.EnsureLoaded(); }), runtime::kObjectWasUnloaded);
    EXPECT_TRUE(NoneLoaded());
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"");
    EXPECT_THAT(box_.prompts, IsEmpty());
}

TEST_F(Commands, ExWhileADialogRefusesToUnload_DialogStaysLoaded) {
    form_.EnsureLoaded();
    dialog_.EnsureLoaded();
    dialog_.refusesUnload = true;
    Notify(u"All,EX");
    EXPECT_TRUE(dialog_.IsLoaded());
    dialog_.refusesUnload = false;
    Notify(u"All,EX");
    EXPECT_TRUE(NoneLoaded());
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
}

TEST_F(Commands, ErrorDuringTheLoad_FormIsUnloaded) {
    FailSave();
    interruptedReader_.onNextText = Notifying(u"All,SAVE");
    EXPECT_EQ(ErrorOf([this] { form_.EnsureLoaded(); }), runtime::kObjectWasUnloaded);
    EXPECT_THAT(box_.prompts, ElementsAre(u"no database"));
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(Commands, ErrorInAnEventHandler_OperationCompletes) {
    form_.EnsureLoaded();
    FailSave();
    onEvent_ = Notifying(u"All,SAVE");
    String command = u"OPEN";
    form_.AP_SendCmdAll(command);
    EXPECT_THAT(box_.prompts, ElementsAre(u"no database"));
    EXPECT_THAT(received_, ElementsAre("OPEN", "SHUTDOWN"));
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(Commands, ExWhileAnErrorMessageIsOpen_UnloadsAtOnce) {
    form_.EnsureLoaded();
    FailSave();
    box_.onNextMessage = [this] {
        Notify(u"All,EX");
        EXPECT_TRUE(NoneLoaded());
    };
    Notify(u"All,SAVE");
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
}

TEST_F(Commands, ErrorsInsideOpenMessages_OnlyEightAreShown) {
    form_.EnsureLoaded();
    FailSave();
    int commands = 1;
    box_.onEachMessage = [&] {
        if (++commands <= 100) Notify(u"All,SAVE");
    };
    Notify(u"All,SAVE");
    EXPECT_EQ(box_.prompts.size(), 8U);
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
    box_.onEachMessage = {};
    Notify(u"All,SAVE");
    EXPECT_EQ(box_.prompts.size(), 9U);
}

TEST_F(Commands, HomeIsLostInsideMessages_LaterErrorsAreShown) {
    FailSave();
    std::size_t commands = 1;
    box_.onEachMessage = [&] {
        if (box_.prompts.size() == 8) AbandonForms();
        if (++commands <= 9) Notify(u"All,SAVE");
    };
    Notify(u"All,SAVE");
    EXPECT_EQ(box_.prompts.size(), 9U);
    // The abandoned messages have closed by now. They must not make the count of open messages negative.
    box_.prompts.clear();
    box_.onEachMessage = [&] {
        if (++commands <= 100) Notify(u"All,SAVE");
    };
    Notify(u"All,SAVE");
    EXPECT_EQ(box_.prompts.size(), 8U);
}

TEST_F(Commands, ClientFailsInTheShutdown_ErrorIsShown) {
    form_.EnsureLoaded();
    onEvent_ = [] { throw Error(runtime::kTypeMismatch); };
    Notify(u"All,EX");
    EXPECT_THAT(box_.prompts, ElementsAre(u"Type mismatch"));
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(Commands, ShutdownFailsAfterAnError_ClientGetsTheShutdownsError) {
    form_.EnsureLoaded();
    FailSave(runtime::kSilent);
    kernel_.FailOn("E_SetString(K4TBACKPROCESS,", Error(runtime::kDllEntryPointNotFound));
    EXPECT_EQ(ErrorOfNotifying(u"All,SAVE"), runtime::kDllEntryPointNotFound);
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(Commands, PublishedStateCannotBeCleared_OtherStepsOfShutdownRun) {
    form_.EnsureLoaded();
    dialog_.EnsureLoaded();
    std::int16_t wanted = -1;
    services::ShowHelpTopic(u"", 0, wanted);
    kernel_.FailOn("E_SetString(K4TBACKPROCESS,", Error(runtime::kDllEntryPointNotFound));
    EXPECT_EQ(ErrorOf([this] { form_.Unload(); }), runtime::kDllEntryPointNotFound);
    EXPECT_EQ(memory_.help.calls.size(), 2U);
    EXPECT_TRUE(NoneLoaded());
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
}

TEST_F(Commands, DialogFailsToUnload_OtherStepsOfShutdownRun) {
    form_.EnsureLoaded();
    tests::HandledForm second(u"second");
    dialog_.EnsureLoaded();
    second.EnsureLoaded();
    second.onUnload = [] { throw Error(runtime::kOverflow); };
    EXPECT_EQ(ErrorOf([this] { form_.Unload(); }), runtime::kOverflow);
    EXPECT_TRUE(NoneLoaded());
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
}

class LanguageCommands : public CommandsOver<tests::ComponentTest> {
 protected:
    LanguageCommands() {
        memory_.files.AddFile(u"C:\\de\\K4TBackProcess.txt", "561 = Hintergrund\n");
        memory_.files.AddFile(u"C:\\en\\K4TBackProcess.txt", "561 = Background\n");
    }
    String CaptionAfterLz(StringView folder) {
        kernel_.Put(u"LANGUAGEPATH", folder);
        Notify(u"All,LZ");
        return form_.Caption();
    }
};

TEST_F(LanguageCommands, LzSwitchesTheCaptionAndBack) {
    form_.EnsureLoaded();
    EXPECT_EQ(CaptionAfterLz(u"C:\\de"), u"Hintergrund");
    EXPECT_EQ(CaptionAfterLz(u"C:\\en"), u"Background");
    EXPECT_EQ(CaptionAfterLz(u"C:\\de"), u"Hintergrund");
    EXPECT_THAT(received_, IsEmpty());
}

TEST_F(LanguageCommands, LzWithTheSameFolder_LocalisesAgain) {
    CaptionAfterLz(u"C:\\de");
    form_.SetCaption(u"changed");
    EXPECT_EQ(CaptionAfterLz(u"C:\\de"), u"Hintergrund");
}

TEST_F(LanguageCommands, LzChoosesTheFontAgain) {
    form_.EnsureLoaded();
    memory_.locale.systemLcid = 0x0411;
    Notify(u"All,LZ");
    EXPECT_EQ(Values().uiFont.size, 9);
    EXPECT_EQ(Values().uiFont.characterSet, 128);
}

TEST_F(LanguageCommands, LzDoesNotChangeThePublishedState) {
    form_.EnsureLoaded();
    const String record = Kept(u"K4TBACKPROCESS");
    CaptionAfterLz(u"C:\\de");
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), record);
}

TEST_F(LanguageCommands, LzLoadsTheForm_StateIsPublishedInTheNewLanguage) {
    CaptionAfterLz(u"C:\\de");
    Notify(u"All,EX");
    CaptionAfterLz(u"C:\\en");
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"Background, 0, 0, 0, 0");
}

TEST_F(LanguageCommands, KernelsFolderChangesAfterLz_TextsStayUnchanged) {
    CaptionAfterLz(u"C:\\de");
    kernel_.Put(u"LANGUAGEPATH", u"C:\\en");
    EXPECT_EQ(services::GetLocalText(u"", u"561"), u"Hintergrund");
}

TEST_F(LanguageCommands, LzWithAnEarlierInstance_ShowsNoMessage) {
    dialog_.EnsureLoaded();
    memory_.process.SetEarlierInstance(true);
    EXPECT_EQ(ErrorOfNotifying(u"All,LZ"), 0);
    EXPECT_THAT(box_.prompts, IsEmpty());
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(LanguageCommands, LzLoadFails_AllFormsAreUnloadedWithoutAMessage) {
    kernel_.FailOn("E_GetString(AllAps)", Error(runtime::kDllEntryPointNotFound));
    EXPECT_EQ(ErrorOfNotifying(u"All,LZ"), 0);
    EXPECT_THAT(box_.prompts, IsEmpty());
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(LanguageCommands, ExAndLzDuringTheLoad_NoMessageIsShown) {
    interruptedReader_.onNextText = [this] {
        Notify(u"All,EX");
        Notify(u"All,LZ");
    };
    EXPECT_EQ(ErrorOf([this] { form_.EnsureLoaded(); }), runtime::kObjectWasUnloaded);
    EXPECT_THAT(box_.prompts, IsEmpty());
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(LanguageCommands, LzCannotMakeTheWindow_ErrorIsShown) {
    runtime::headless::MemoryWindows refusing;
    refusing.refuseWindows = 1;
    const runtime::Ports ports = tests::WithPort(interruptedPorts_, refusing);
    runtime::UsePorts(&ports);
    Notify(u"All,LZ");
    runtime::UsePorts(&interruptedPorts_);
    EXPECT_THAT(box_.prompts, ElementsAre(u"Out of memory"));
}

// A load that EX ends fails with the same error number, and no message is shown. Here, the client throws the error.
TEST_F(LanguageCommands, ClientThrowsObjectWasUnloaded_ErrorIsShown) {
    form_.EnsureLoaded();
    onEvent_ = [] { throw Error(runtime::kObjectWasUnloaded); };
    Notify(u"All,EX");
    EXPECT_THAT(box_.prompts, ElementsAre(u"Object was unloaded"));
    EXPECT_TRUE(NoneLoaded());
}

using CommandsInMemory = CommandsOver<tests::HeadlessComponentTest>;

TEST_F(CommandsInMemory, ExWhileTheSuiteBoxIsOpen_BoxReturnsCancel) {
    form_.EnsureLoaded();
    memory_.windows.Post(Notifying(u"All,EX"));
    EXPECT_EQ(services::ShowMessage(u"Overwrite?", services::kSuiteBox), 2);
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(CommandsInMemory, ErrorWhileTheSuiteBoxIsOpen_BoxReturnsCancel) {
    form_.EnsureLoaded();
    FailSave();
    memory_.windows.Post(Notifying(u"All,SAVE"));
    EXPECT_EQ(services::ShowMessage(u"Overwrite?", services::kSuiteBox), 2);
    EXPECT_THAT(box_.prompts, ElementsAre(u"no database"));
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(CommandsInMemory, ExWithoutALoadedForm_PendingEventsRun) {
    bool ran = false;
    memory_.windows.Post([&ran] { ran = true; });
    Notify(u"All,EX");
    EXPECT_TRUE(ran);
    EXPECT_THAT(received_, IsEmpty());
}

TEST_F(CommandsInMemory, PendingEventLoadsTheForm_ExUnloadsItAgain) {
    form_.EnsureLoaded();
    memory_.windows.Post([this] { form_.EnsureLoaded(); });
    Notify(u"All,EX");
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN", "SHUTDOWN"));
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(CommandsInMemory, ClientReloadsTheFormEachTime_ExEnds) {
    const auto loading = form_.NotifyClass().Connect([this](String&, String&) {
        ASSERT_LT(received_.size(), 1000U) << "the loop does not end";
        memory_.windows.Post([this] { form_.EnsureLoaded(); });
    });
    form_.EnsureLoaded();
    Notify(u"All,EX");
    EXPECT_TRUE(NoneLoaded());
    EXPECT_EQ(received_.size(), 101U);
}

TEST_F(CommandsInMemory, LzChoosesTheFontInTheFormsContextThenLocalises) {
    form_.EnsureLoaded();
    const std::string context = std::to_string(form_.DeviceContext());
    const std::string window = std::to_string(form_.Handle());
    memory_.fonts.installed.clear();
    memory_.fonts.log.clear();
    kernel_.Put(u"LANGUAGEPATH", u"C:\\de");
    interruptedReader_.onNextText = [&] {
        EXPECT_EQ(routing::LanguagePath(), u"C:\\de");
        EXPECT_EQ(Values().uiFont.name, u"Tahoma");
        EXPECT_NE(form_.Controls().at(0)->Font().name, u"Tahoma");
    };
    Notify(u"All,LZ");
    EXPECT_FALSE(interruptedReader_.onNextText);
    EXPECT_THAT(memory_.fonts.log, ::testing::Contains("release " + context + " of " + window));
    EXPECT_EQ(form_.Controls().at(0)->Font().name, u"Tahoma");
}

TEST_F(CommandsInMemory, LzReadsTheFolderBeforeItChoosesTheFont) {
    form_.EnsureLoaded();
    memory_.fonts.log.clear();
    kernel_.FailOn("E_GetString(LANGUAGEPATH)", Error(runtime::kSilent));
    Notify(u"All,LZ");
    EXPECT_THAT(memory_.fonts.log, IsEmpty());
    EXPECT_TRUE(NoneLoaded());
}

TEST_F(CommandsInMemory, LzFontCannotBeRead_ErrorIsShownAndFormsAreUnloaded) {
    form_.EnsureLoaded();
    memory_.fonts.installed.clear();
    memory_.fonts.failsFaceName = true;
    Notify(u"All,LZ");
    EXPECT_THAT(box_.prompts, ElementsAre(u"Out of memory"));
    EXPECT_THAT(received_, ElementsAre("SHUTDOWN"));
    EXPECT_TRUE(NoneLoaded());
}

class StayingMainForm : public frmBackProcessMain {
 public:
    StayingMainForm() { staysLoaded_ = true; }
};

TEST_F(CommandsInMemory, FormStaysLoaded_OnlyAnErrorUnloadsIt) {
    StayingMainForm staying;
    staying.EnsureLoaded();
    staying.AP_ExeCmd(u"All,EX");
    EXPECT_TRUE(staying.IsLoaded());
    FailSave(runtime::kSilent);
    staying.AP_ExeCmd(u"All,SAVE");
    EXPECT_FALSE(staying.IsLoaded());
}

using Help = CommandsOver<tests::ComponentTest>;

TEST_F(Help, OpenedForATopic_UnloadClosesTheHelpOnce) {
    std::int16_t wanted = -1;
    form_.EnsureLoaded();
    services::ShowHelpTopic(u"", 0, wanted);
    const runtime::NativeHandle window = form_.Handle();
    dialog_.EnsureLoaded();
    dialog_.onUnload = [this] {
        EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"");
        EXPECT_EQ(memory_.help.calls.size(), 2U);
    };
    form_.Unload();
    EXPECT_THAT(memory_.help.calls,
                ElementsAre(runtime::headless::RecordingHelp::Call{window, u"C:\\Pelorix\\Marlentine.chm"},
                            runtime::headless::RecordingHelp::Call{window, std::nullopt}));
    form_.EnsureLoaded();
    form_.Unload();
    EXPECT_EQ(memory_.help.calls.size(), 2U);
}

}  // namespace
}  // namespace host
