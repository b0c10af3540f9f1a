// Tests the service object: creation, command line, Load, events and destruction.
#include "host/clsQmxBackProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/frmBackProcessMain.h"
#include "routing/CommandInterpreter.h"
#include "runtime/Numbers.h"
#include "runtime/Screen.h"
#include "services/ProcessValues.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/ReaderInUse.h"
#include "tests/support/RecordingReader.h"

namespace host {
namespace {

using services::Values;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Terminates and then destroys an instance, as an owner must. If Terminate may fail, the test calls Terminate first.
struct Terminating {
    void operator()(clsQmxBackProcess* object) const {
        EXPECT_EQ(tests::ErrorOf([object] { object->Terminate(); }), 0);
        delete object;
    }
};
using Instance = std::unique_ptr<clsQmxBackProcess, Terminating>;

Instance MakeWith(NotifyServerEvent listener) {
    return Instance(new clsQmxBackProcess(std::move(listener)));
}

/// Makes instances numbered from 1. Each instance records its events in the form "1 MODULE|COMMAND".
template <typename Base>
class ServiceObjectOver : public Base {
 protected:
    Instance Make() {
        const std::string number = std::to_string(++made_);
        return MakeWith([this, number](String& module, String& command) {
            received_.push_back(number + " " + runtime::ToUtf8(module) + "|" + runtime::ToUtf8(command));
        });
    }
    static bool Load(clsQmxBackProcess& object) { return object.Load(3); }

    int made_ = 0;
    std::vector<std::string> received_;
};

using Diagnostics = ServiceObjectOver<tests::HeadlessComponentTest>;

TEST_F(Diagnostics, Raise_ReachesAllInstancesInTheirOrder) {
    const auto first = Make();
    const auto second = Make();
    second->AP_SendCmd(u"M", u"RD,  x");
    first->AP_SendCmd(u"", u"");
    first->AP_SendCmdAll(u"OPEN");
    first->AP_Shell(u"M", -3, u"a,b");
    EXPECT_THAT(received_, ElementsAre("1 M|RD,  x", "2 M|RD,  x", "1 |", "2 |", "1 K4TBACKPROCESS|OPEN",
                                       "2 K4TBACKPROCESS|OPEN", "1 M|SHELL,-3,a,b", "2 M|SHELL,-3,a,b"));
    EXPECT_FALSE(MainForm().IsLoaded());
}

TEST_F(Diagnostics, Read_ReturnsTheValuesSetByCommands) {
    const auto object = Make();
    routing::CurrentDesignName() = u"amplifier";
    routing::LanguagePath() = u"C:\\de";
    EXPECT_EQ(object->CurrentDesignName(), u"amplifier");
    EXPECT_EQ(object->LanguagePath(), u"C:\\de");
    EXPECT_EQ(object->Caption(), std::nullopt);
    EXPECT_FALSE(MainForm().IsLoaded());
    MainForm().SetCaption(u"Titel");
    EXPECT_EQ(object->Caption(), u"Titel");
}

TEST_F(Diagnostics, InstanceHasEnded_IsError91) {
    const auto object = Make();
    object->Terminate();
    EXPECT_EQ(tests::ErrorOf([&] { object->AP_SendCmdAll(u"OPEN"); }), runtime::kObjectVariableNotSet);
    EXPECT_EQ(tests::ErrorOf([&] { object->Caption(); }), runtime::kObjectVariableNotSet);
    EXPECT_EQ(tests::ErrorOf([&] { object->LanguagePath(); }), runtime::kObjectVariableNotSet);
}

using Creation = ServiceObjectOver<tests::HeadlessComponentTest>;

TEST_F(Creation, MakesOneSharedMainFormWithoutLoadingTheForm) {
    EXPECT_FALSE(MainFormExists());
    const auto first = Make();
    EXPECT_TRUE(MainFormExists());
    const auto* form = &MainForm();
    const auto second = Make();
    EXPECT_EQ(&MainForm(), form);
    EXPECT_EQ(LoadedWindowCount(), 0u);
}

TEST_F(Creation, RunsItsStepsInOrder) {
    memory_.process.SetComponentFolder(u"C:\\Pelorix");
    const auto object = Make();
    EXPECT_THAT(kernel_.Log(),
                ElementsAre("E_SetString(INITBP, INIT)", "E_SetString(IniFile, C:\\Pelorix\\sys\\MARLENTO.INI)",
                            "E_GetString(PRODUCT_NAME)", "E_GetString(PRODUCT_NAME)", "E_GetString(PRODUCT_NAME)",
                            "E_SetString(JobDir, C:\\\\JOB)", "E_SetString(LibDir, C:\\\\LIB)",
                            "E_SetString(EED3JobDir, C:\\\\JOB)", "E_SetString(PRODUCT_NAME, Orvane)",
                            "E_SetString(MAKER_NAME, Harnwell)", "E_SetString(COPYRIGHT_NAME, Daventa)"));
}

TEST_F(Creation, InitIsPublished_ClientIsAlreadyLinkedToTheForm) {
    bool raised = false;
    kernel_.RewriteValues([&raised](const std::string& key, std::string&) {
        if (key != "INITBP" || std::exchange(raised, true)) return;
        String command = u"EARLY";
        MainForm().AP_SendCmdAll(command);
    });
    const Instance object = Make();
    kernel_.RewriteValues({});
    EXPECT_TRUE(raised);
    EXPECT_THAT(received_, ElementsAre("1 K4TBACKPROCESS|EARLY"));
}

TEST_F(Creation, SetsProcessWideValues) {
    Values().moduleName = u"left over";
    memory_.process.SetComponentFolder(u"D:\\Suite");
    const auto object = Make();
    EXPECT_EQ(Values().moduleName, u"");
    EXPECT_EQ(Values().installFolder, u"D:\\Suite");
    EXPECT_EQ(services::Values().numberFormats.coordinate, u"#0.0000#");
}

TEST_F(Creation, ReadsSettingsFromTheIniFileOfTheSystemFolder) {
    memory_.process.SetComponentFolder(u"C:\\Pelorix");
    memory_.files.AddFile(u"C:\\Pelorix\\sys\\MARLENTO.INI", "[Marlento]\r\nJobDir=E:\\work\r\n");
    const auto object = Make();
    EXPECT_EQ(Kept(u"JobDir"), u"E:\\work");
}

TEST_F(Creation, AnyKernelCallFails_CallerGetsErrorAndLinkIsRemoved) {
    const auto calls = [this] {
        const auto object = Make();
        return kernel_.Log().size();
    }();
    for (std::size_t call = 1; call <= calls; ++call) {
        kernel_.FailAt(static_cast<int>(call), runtime::Error(runtime::kFileNotFound));
        EXPECT_EQ(tests::ErrorOf([&] { Make(); }), runtime::kFileNotFound) << call;
    }
    String text = u"x";
    MainForm().AP_SendCmdAll(text);
    EXPECT_THAT(received_, IsEmpty());
}

TEST_F(Creation, StepFails_EarlierStepsAreNotUndone) {
    kernel_.FailOn("E_SetString(LibDir", runtime::Error(runtime::kFileNotFound));
    EXPECT_EQ(tests::ErrorOf([&] { Make(); }), runtime::kFileNotFound);
    EXPECT_EQ(Kept(u"INITBP"), u"INIT");
    EXPECT_NE(Kept(u"JobDir"), u"(none)");
    EXPECT_TRUE(MainFormExists());
    EXPECT_FALSE(MainForm().IsLoaded());
}

class HostCommandLine : public Creation {
 protected:
    HostCommandLine() { memory_.process.SetComponentFolder(u"C:\\Pelorix"); }

    Instance MakeOn(StringView commandLine) {
        memory_.process.SetCommandLine(commandLine);
        return Make();
    }
    /// Creates an instance whose system folder is refused. Calls `look` just before the component reports the refusal.
    void LookWhileTheFolderIsRefused(const std::function<void()>& look) {
        tests::RecordingReader recording(reader_);
        const tests::ReaderInUse inUse(recording);
        recording.onNextText = look;
        memory_.messageBox.answers = {1};
        const Instance object = MakeOn(u"/sys:C:\\nowhere");
        EXPECT_FALSE(recording.onNextText) << "nothing was reported";
    }
};

TEST_F(HostCommandLine, FolderIsRefused_EarlierStepsAreDone) {
    Values().moduleName = u"left over";
    LookWhileTheFolderIsRefused([this] {
        EXPECT_EQ(Kept(u"INITBP"), u"INIT");
        EXPECT_EQ(Values().moduleName, u"");
        EXPECT_EQ(Values().numberFormats.coordinate, u"#0.0000#");
    });
}

TEST_F(HostCommandLine, Empty_FolderIsSysInTheComponentsFolder) {
    const auto object = MakeOn(u"");
    EXPECT_EQ(object->SystemFolder(), u"C:\\Pelorix\\sys\\");
    EXPECT_EQ(object->StartFile(), u"");
}

TEST_F(HostCommandLine, AcceptedSystemFolderIsUsedAsWritten) {
    memory_.files.AddFolder(u"C:\\cad\\sys");
    const auto object = MakeOn(u"\"/sys:C:\\cad\\sys\\\"");
    EXPECT_EQ(object->SystemFolder(), u"C:\\cad\\sys\\");
    EXPECT_EQ(Kept(u"IniFile"), u"C:\\cad\\sys\\MARLENTO.INI");
}

TEST_F(HostCommandLine, MissingFinalBackslashIsAdded) {
    memory_.files.AddFolder(u"C:\\cad");
    EXPECT_EQ(MakeOn(u"/SYS:  C:\\cad  ")->SystemFolder(), u"C:\\cad\\");
    EXPECT_EQ(MakeOn(u"/sys:d:")->SystemFolder(), u"d:\\");
}

TEST_F(HostCommandLine, RefusedSystemFolderChangesNothing) {
    memory_.messageBox.answers = {1};
    const auto object = MakeOn(u"/sys:C:\\nowhere");
    EXPECT_EQ(object->SystemFolder(), u"C:\\Pelorix\\sys\\");
    EXPECT_EQ(memory_.messageBox.shown.size(), 1u);
}

TEST_F(HostCommandLine, ExistingFileIsTheStartFile) {
    memory_.files.AddFile(u"C:\\Designs\\Amp One.sch");
    EXPECT_EQ(MakeOn(u"c:\\designs\\AMP one.sch")->StartFile(), u"c:\\designs\\AMP one.sch");
    EXPECT_EQ(MakeOn(u"\" C:\\Designs\\Amp One.sch \"")->StartFile(), u"C:\\Designs\\Amp One.sch");
}

TEST_F(HostCommandLine, PieceThatMatchesNoFileSetsNothing) {
    EXPECT_EQ(MakeOn(u"C:\\missing.sch")->StartFile(), u"");
}

TEST_F(HostCommandLine, PatternDoesNotEndWithTheMatchingFilesName_SetsNothing) {
    memory_.files.AddFile(u"C:\\a.sch");
    EXPECT_EQ(MakeOn(u"C:\\*.sch")->StartFile(), u"");
}

TEST_F(HostCommandLine, IsSplitAtQuotesAndNeverAtBlanks) {
    memory_.files.AddFile(u"C:\\a b.sch");
    EXPECT_EQ(MakeOn(u"C:\\a b.sch")->StartFile(), u"C:\\a b.sch");
    EXPECT_EQ(MakeOn(u"C:\\a b.sch /sys:d:")->StartFile(), u"");
}

TEST_F(HostCommandLine, TwoPieces_BothAreUsedInEitherOrder) {
    memory_.files.AddFile(u"C:\\a.sch");
    auto object = MakeOn(u"\"/sys:d:\" \"C:\\a.sch\"");
    EXPECT_EQ(object->SystemFolder(), u"d:\\");
    EXPECT_EQ(object->StartFile(), u"C:\\a.sch");
    object = MakeOn(u"C:\\a.sch \"/sys:e:\\\"");
    EXPECT_EQ(object->SystemFolder(), u"e:\\");
    EXPECT_EQ(object->StartFile(), u"C:\\a.sch");
}

TEST_F(HostCommandLine, TwoPiecesOfAKind_LaterPieceIsUsed) {
    memory_.files.AddFile(u"C:\\a.sch");
    memory_.files.AddFile(u"C:\\b.sch");
    EXPECT_EQ(MakeOn(u"\"C:\\a.sch\"\"C:\\b.sch\"")->StartFile(), u"C:\\b.sch");
    EXPECT_EQ(MakeOn(u"\"/sys:d:\" \"/sys:e:\"")->SystemFolder(), u"e:\\");
}

TEST_F(HostCommandLine, LaterPieceIsRefused_EarlierPieceIsUsed) {
    memory_.files.AddFile(u"C:\\a.sch");
    EXPECT_EQ(MakeOn(u"\"C:\\a.sch\" \"C:\\missing.sch\"")->StartFile(), u"C:\\a.sch");
    memory_.messageBox.answers = {1};
    EXPECT_EQ(MakeOn(u"\"/sys:d:\" \"/sys:C:\\nowhere\"")->SystemFolder(), u"d:\\");
}

TEST_F(HostCommandLine, ThreePiecesSetNothing) {
    memory_.files.AddFile(u"C:\\a.sch");
    const auto object = MakeOn(u"\"/sys:d:\" \"C:\\a.sch\" \"C:\\a.sch\"");
    EXPECT_EQ(object->SystemFolder(), u"C:\\Pelorix\\sys\\");
    EXPECT_EQ(object->StartFile(), u"");
}

TEST_F(HostCommandLine, EmptyAndBlankPiecesAreIgnored) {
    memory_.files.AddFile(u"C:\\a.sch");
    const auto object = MakeOn(u"\"\" \"  \" \"C:\\a.sch\" \"\"\"/sys:d:\"");
    EXPECT_EQ(object->SystemFolder(), u"d:\\");
    EXPECT_EQ(object->StartFile(), u"C:\\a.sch");
}

TEST_F(HostCommandLine, OnlyQuotes_SetNothing) {
    EXPECT_EQ(MakeOn(u"\"\"\"\"")->SystemFolder(), u"C:\\Pelorix\\sys\\");
}

TEST_F(HostCommandLine, SystemFolderWithoutANameIsRefused) {
    for (const auto* commandLine : {u"/sys:", u"\"/SYS:   \"", u"  /sys:  "}) {
        memory_.messageBox.answers = {1};
        memory_.messageBox.shown.clear();
        EXPECT_EQ(MakeOn(commandLine)->SystemFolder(), u"C:\\Pelorix\\sys\\");
        ASSERT_EQ(memory_.messageBox.shown.size(), 1u);
        EXPECT_EQ(memory_.messageBox.shown[0].prompt, u"Path:  not available");
    }
}

using Loading = ServiceObjectOver<tests::ComponentTest>;

TEST_F(Loading, LoadsTheFormHiddenAndMinimised) {
    const auto object = Make();
    EXPECT_TRUE(Load(*object));
    EXPECT_TRUE(MainForm().IsLoaded());
    EXPECT_FALSE(MainForm().Visible());
    EXPECT_EQ(MainForm().State(), runtime::WindowState::kMinimised);
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"Pelorix Background Processing Application, 0, 0, 0, 0");
}

TEST_F(Loading, FormIsAlreadyLoaded_TrueWithoutASecondLoad) {
    const auto object = Make();
    Load(*object);
    kernel_.ClearLog();
    EXPECT_TRUE(Load(*object));
    EXPECT_THAT(kernel_.Log(), IsEmpty());
}

TEST_F(Loading, SavedPlacement_IsThePlaceOfTheNormalState) {
    const Instance object = Make();
    Load(*object);
    ASSERT_EQ(MainForm().State(), runtime::WindowState::kMinimised);
    const runtime::Size screen = runtime::ScreenSize();
    const runtime::Size outer = windows_.OuterSize({2025, 2130}, runtime::BorderStyle::kSizable);
    object->Terminate();
    std::vector<String> values;
    for (const auto& setting : memory_.settings.Saved()) values.push_back(setting.value);
    const auto saved = [this](runtime::Twips length) {
        return runtime::Trim(runtime::Str(runtime::ToInt32(OnPixels(length))));
    };
    EXPECT_THAT(values,
                ElementsAre(saved((screen.height - outer.height) / 2.0F), saved((screen.width - outer.width) / 2.0F),
                            saved(outer.height), saved(outer.width)));
}

using LoadingInMemory = ServiceObjectOver<tests::HeadlessComponentTest>;

TEST_F(LoadingInMemory, SettingTheStateFails_NextStatementRuns) {
    const Instance object = Make();
    memory_.windows.refuseWindows = 1;
    EXPECT_TRUE(Load(*object));
    EXPECT_TRUE(MainForm().IsLoaded());
    // The state is set first, so setting the state is the statement that failed.
    EXPECT_EQ(MainForm().State(), runtime::WindowState::kNormal);
}

TEST_F(LoadingInMemory, LastStatementHidesTheForm) {
    const Instance object = Make();
    memory_.windows.refuseWindows = 2;
    EXPECT_TRUE(Load(*object));
    EXPECT_TRUE(MainForm().IsLoaded());
    EXPECT_FALSE(MainForm().Visible());
}

TEST_F(LoadingInMemory, FormIsVisible_FalseAndNothingChanges) {
    const auto object = Make();
    Load(*object);
    // A minimised form does not become active, so it stays visible.
    MainForm().SetVisible(true);
    EXPECT_FALSE(Load(*object));
    EXPECT_TRUE(MainForm().Visible());
    EXPECT_EQ(MainForm().State(), runtime::WindowState::kMinimised);
}

TEST_F(LoadingInMemory, FormIsLoading_PointerIsTheHourglassUntilTheEnd) {
    const Instance object = Make();
    std::vector<std::int16_t> whileLoading;
    kernel_.RewriteValues([&whileLoading](const std::string& key, std::string&) {
        if (key == "K4TBACKPROCESS") whileLoading.push_back(runtime::MousePointer());
    });
    Load(*object);
    kernel_.RewriteValues({});
    EXPECT_THAT(whileLoading, ElementsAre(11));
    EXPECT_THAT(memory_.windows.pointers, ElementsAre(11, 0));
}

TEST_F(LoadingInMemory, AllStatementsFail_NoErrorAndPointerIsReset) {
    const auto object = Make();
    memory_.windows.refuseWindows = 3;
    EXPECT_TRUE(Load(*object));
    EXPECT_FALSE(MainForm().IsLoaded());
    EXPECT_THAT(memory_.windows.pointers, ElementsAre(11, 0));
    // Each of the three statements tried to load the form.
    EXPECT_EQ(memory_.windows.refuseWindows, 0);
}

TEST_F(LoadingInMemory, EarlierInstance_NoFormAndNoMessage) {
    const auto object = Make();
    memory_.process.SetEarlierInstance(true);
    EXPECT_TRUE(Load(*object));
    EXPECT_EQ(LoadedWindowCount(), 0u);
    EXPECT_THAT(memory_.messageBox.shown, IsEmpty());
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"");
    // Each of the three statements tries to load the form. The client receives SHUTDOWN each time.
    EXPECT_THAT(received_,
                ElementsAre("1 K4TBACKPROCESS|SHUTDOWN", "1 K4TBACKPROCESS|SHUTDOWN", "1 K4TBACKPROCESS|SHUTDOWN"));
}

using Properties = ServiceObjectOver<tests::HeadlessComponentTest>;

TEST_F(Properties, SeverPath_IsEmptyAndClearsTheStoredValue) {
    const auto object = Make();
    object->SetSeverPath(u"X");
    EXPECT_EQ(Values().serverPath, u"X");
    EXPECT_EQ(object->SeverPath(), u"");
    EXPECT_EQ(Values().serverPath, u"");
    EXPECT_EQ(object->SeverPath(), u"");
}

TEST_F(Properties, NotifyMe_EmptyCommand_DoesNothing) {
    const auto object = Make();
    object->Terminate();
    String name = u"X";
    String command;
    object->NotifyMe(name, command);
    command = u"All,SAVE";
    EXPECT_EQ(tests::ErrorOf([&] { object->NotifyMe(name, command); }), runtime::kObjectVariableNotSet);
}

using Relaying = ServiceObjectOver<tests::HeadlessComponentTest>;

TEST_F(Relaying, ClientChangesTheTexts_NextClientReceivesTheChange) {
    const Instance first = MakeWith([](String& module, String& command) {
        module = u"CHANGED";
        command += u"!";
    });
    const auto second = Make();
    String module = u"M";
    String command = u"C";
    MainForm().AP_SendCmd(module, command);
    EXPECT_THAT(received_, ElementsAre("1 CHANGED|C!"));
}

using Destruction = ServiceObjectOver<tests::ComponentTest>;

TEST_F(Destruction, ClientsReceiveShutdownThenTermIsPublished) {
    const auto first = Make();
    const auto second = Make();
    Load(*first);
    kernel_.ClearLog();
    first->Terminate();
    EXPECT_THAT(received_, ElementsAre("1 K4TBACKPROCESS|SHUTDOWN", "2 K4TBACKPROCESS|SHUTDOWN"));
    EXPECT_THAT(kernel_.Log(), ElementsAre("E_SetString(K4TBACKPROCESS, )", "E_SetString(INITBP, TERM)"));
    EXPECT_FALSE(MainForm().IsLoaded());
}

TEST_F(Destruction, FormWasNeverLoaded_NoEvent) {
    const auto object = Make();
    object->Terminate();
    EXPECT_THAT(received_, IsEmpty());
    EXPECT_EQ(Kept(u"INITBP"), u"TERM");
}

TEST_F(Destruction, TerminatesOnce) {
    const auto object = Make();
    object->Terminate();
    kernel_.ClearLog();
    object->Terminate();
    EXPECT_THAT(kernel_.Log(), IsEmpty());
}

TEST_F(Destruction, InsideItsOwnShutdown_DoesNothing) {
    Instance object;
    int received = 0;
    object = MakeWith([&](String&, String&) {
        ++received;
        object->Terminate();
    });
    Load(*object);
    object->Terminate();
    EXPECT_EQ(received, 1);
    EXPECT_EQ(Kept(u"INITBP"), u"TERM");
}

TEST_F(Destruction, TerminatedInstance_NoEventAndNoLoad) {
    const auto first = Make();
    const auto second = Make();
    first->Terminate();
    EXPECT_FALSE(Load(*first));
    EXPECT_TRUE(Load(*second));
    String command = u"C";
    MainForm().AP_SendCmdAll(command);
    EXPECT_THAT(received_, ElementsAre("2 K4TBACKPROCESS|C"));
}

TEST_F(Destruction, OtherInstanceCanLoadTheFormAgain) {
    const auto first = Make();
    const auto second = Make();
    Load(*first);
    second->Terminate();
    kernel_.Put(u"AllAps", u"K4TBACKPROCESS");
    EXPECT_TRUE(Load(*first));
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"Pelorix Background Processing Application, 0, 0, 0, 0");
    received_.clear();
    first->Terminate();
    EXPECT_THAT(received_, ElementsAre("1 K4TBACKPROCESS|SHUTDOWN"));
}

TEST_F(Destruction, NewInstanceAfterTheLastOne_PublishesInit) {
    Make()->Terminate();
    const auto object = Make();
    EXPECT_EQ(Kept(u"INITBP"), u"INIT");
    EXPECT_TRUE(Load(*object));
}

TEST_F(Destruction, KernelFails_CallerGetsErrorAndLinkIsRemoved) {
    const auto object = Make();
    Load(*object);
    kernel_.FailOn("E_SetString(K4TBACKPROCESS", runtime::Error(runtime::kDllEntryPointNotFound));
    EXPECT_EQ(tests::ErrorOf([&] { object->Terminate(); }), runtime::kDllEntryPointNotFound);
    EXPECT_EQ(LoadedWindowCount(), 0u);
    EXPECT_EQ(Kept(u"INITBP"), u"TERM");
    EXPECT_FALSE(Load(*object));
}

TEST_F(Destruction, RemovesTheLinkBeforeItPublishesTerm) {
    const Instance object = Make();
    bool raised = false;
    kernel_.RewriteValues([&](const std::string& key, std::string&) {
        if (key != "INITBP") return;
        raised = true;
        String command = u"LATE";
        MainForm().AP_SendCmdAll(command);
    });
    object->Terminate();
    EXPECT_TRUE(raised);
    EXPECT_THAT(received_, IsEmpty());
}

TEST_F(Destruction, ClientFails_CallerGetsErrorAfterTermIsPublished) {
    const Instance object = MakeWith([](String&, String&) { throw runtime::Error(runtime::kTypeMismatch); });
    Load(*object);
    EXPECT_EQ(tests::ErrorOf([&] { object->Terminate(); }), runtime::kTypeMismatch);
    EXPECT_EQ(Kept(u"INITBP"), u"TERM");
    EXPECT_EQ(LoadedWindowCount(), 0u);
    EXPECT_EQ(memory_.process.HeldClaims(), 0);
}

TEST_F(Destruction, SettingsRefused_CallerGetsErrorAfterTermIsPublished) {
    const Instance object = Make();
    Load(*object);
    memory_.settings.Refuse();
    EXPECT_EQ(tests::ErrorOf([&] { object->Terminate(); }), runtime::kInvalidProcedureCall);
    EXPECT_THAT(received_, ElementsAre("1 K4TBACKPROCESS|SHUTDOWN"));
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"");
    EXPECT_EQ(Kept(u"INITBP"), u"TERM");
    EXPECT_EQ(LoadedWindowCount(), 0u);
}

/// Actions of clients while they receive SHUTDOWN.
class DuringShutdown : public Destruction {
 protected:
    /// Makes an instance whose client runs `then` at each event.
    static Instance MakeThatRuns(std::function<void()> then) {
        return MakeWith([then](String&, String&) { then(); });
    }
};

TEST_F(DuringShutdown, LoadDuringShutdown_FormIsUnloaded) {
    Instance busy;
    int received = 0;
    busy = MakeThatRuns([&] {
        ++received;
        EXPECT_TRUE(Load(*busy));
    });
    const Instance other = Make();
    Load(*busy);
    busy->Terminate();
    EXPECT_EQ(received, 1);
    EXPECT_THAT(received_, ElementsAre("1 K4TBACKPROCESS|SHUTDOWN"));
    EXPECT_EQ(LoadedWindowCount(), 0u);
}

TEST_F(DuringShutdown, NewInstance_NoEventAndCanLoadAfterwards) {
    Instance made;
    const Instance maker = MakeThatRuns([&] {
        if (!made) made = Make();
    });
    Load(*maker);
    maker->Terminate();
    EXPECT_THAT(received_, IsEmpty());
    EXPECT_EQ(Kept(u"INITBP"), u"TERM");
    ASSERT_TRUE(made);
    EXPECT_TRUE(Load(*made));
    EXPECT_TRUE(MainForm().IsLoaded());
}

TEST_F(DuringShutdown, ReleasedInstance_NoEvent) {
    Instance released;
    const Instance releaser = MakeThatRuns([&] { released.reset(); });
    released = Make();
    const Instance last = Make();
    Load(*releaser);
    releaser->Terminate();
    EXPECT_THAT(received_, ElementsAre("2 K4TBACKPROCESS|SHUTDOWN"));
    EXPECT_EQ(LoadedWindowCount(), 0u);
}

}  // namespace
}  // namespace host
