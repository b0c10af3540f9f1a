#include "tools/Diagnosis.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace tools {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::HasSubstr;

const String kPath = u"C:\\Orvane\\K4TBackProcess.dll";

/// Returns the state of a machine on which a client works. The component is registered for the user, and nothing is
/// missing.
MachineState Sound() {
    MachineState machine;
    machine.system = {.windows = "Windows 10.0.19045", .bits = 64, .isElevated = true};
    machine.tool = {.folder = u"C:\\Orvane", .fullVersion = "1.0.0", .hasComponent = true, .isBesideComponent = true};
    machine.name = {.scope = Scope::kUser, .classIdentifier = u"{ECD8F3EF}", .isOurs = true};
    machine.forUser = {.library = kPath, .threadingModel = u"Apartment", .typeLibrary = kPath};
    machine.hasManifest = true;
    machine.component = {.path = kPath,
                         .exists = true,
                         .bits = 32,
                         .version = Version{1, 0},
                         .typeLibrary = Version{1, 0},
                         .loadFailure = {},
                         .fullVersion = "1.0.0"};
    machine.kernel = {.path = u"C:\\Orvane\\QmxKrn2K.dll", .failure = {}, .missing = {}};
    machine.ini = {.path = u"C:\\Orvane\\sys\\MARLENTO.INI", .exists = true};
    machine.ini.encoding = "UTF-8";
    return machine;
}

Finding FindingOf(const MachineState& machine, const std::string& subject) {
    const std::vector<Finding> findings = Diagnose(machine);
    const auto found = std::find_if(findings.begin(), findings.end(),
                                    [&](const Finding& finding) { return finding.subject == subject; });
    return found == findings.end() ? Finding{.subject = "no finding about " + subject, .what = {}} : *found;
}

void ExpectBad(const MachineState& machine, const std::string& subject, const std::string& what,
               const std::string& advice) {
    const Finding finding = FindingOf(machine, subject);
    EXPECT_EQ(finding.grade, Grade::kBad);
    EXPECT_EQ(finding.subject, subject);
    EXPECT_THAT(finding.what, HasSubstr(what));
    EXPECT_THAT(finding.advice, HasSubstr(advice));
}

TEST(Diagnosis, SoundMachine_HasOnlyGoodFindings) {
    const std::vector<Finding> findings = Diagnose(Sound());
    EXPECT_THAT(findings, Each(Field(&Finding::grade, Grade::kOk)));
    EXPECT_THAT(findings, Each(Field(&Finding::advice, "")));
    EXPECT_EQ(findings.size(), 18U);
}

TEST(Diagnosis, TwoRegistrations_UsersEntryHidesTheMachinesEntry) {
    MachineState machine = Sound();
    machine.forMachine = {.library = u"D:\\old.dll", .threadingModel = u"Apartment", .typeLibrary = u"D:\\old.dll"};
    EXPECT_EQ(EntryInForce(machine)->library, kPath);
    ExpectBad(machine, "registration", "hides", "unregister");
    machine.forUser.reset();
    EXPECT_EQ(EntryInForce(machine)->library, u"D:\\old.dll");
    EXPECT_EQ(FindingOf(machine, "registration").grade, Grade::kOk);
}

TEST(Diagnosis, NoRegistration_MentionsTheManifest) {
    MachineState machine = Sound();
    machine.forUser.reset();
    EXPECT_EQ(EntryInForce(machine), nullptr);
    ExpectBad(machine, "registration", "manifest names K4TBackProcess", "backproc register --user");
    machine.hasManifest = false;
    ExpectBad(machine, "registration", "no K4TBackProcess.manifest", "backproc register --user");
    EXPECT_EQ(FindingOf(machine, "threading").subject, "no finding about threading");
}

TEST(Diagnosis, MissingFile_IsNotExamined) {
    MachineState machine = Sound();
    machine.component = {
        .path = kPath, .exists = false, .bits = 0, .version = {}, .typeLibrary = {}, .loadFailure = {}};
    ExpectBad(machine, "file", "does not exist", "put it back, or run 'backproc register --user' in the folder");
    EXPECT_EQ(FindingOf(machine, "bitness").subject, "no finding about bitness");
    machine.activationFailure = "0x80070005 Access denied";
    ExpectBad(machine, "activation", "0x80070005", "see 'file' above");
    machine.forMachine = std::exchange(machine.forUser, std::nullopt);
    ExpectBad(machine, "file", "does not exist", "or run 'backproc register', as an administrator, in the folder");
}

TEST(Diagnosis, FileThatIsNot32Bit_IsBad) {
    MachineState machine = Sound();
    machine.component.bits = 64;
    ExpectBad(machine, "bitness", "64-bit", "32-bit");
    machine.component.bits = 0;
    ExpectBad(machine, "bitness", "not a Windows program file", "32-bit");
}

TEST(Diagnosis, TypeLibraryOfAnotherVersion_IsBad) {
    MachineState machine = Sound();
    machine.component.typeLibrary = Version{1, 1};
    ExpectBad(machine, "version", "1.0, but its type library is 1.1", "package");
    machine.component.typeLibrary.reset();
    ExpectBad(machine, "version", "without the component's type library", "package");
    machine.component.version.reset();
    ExpectBad(machine, "version", "the file has no version", "package");
}

TEST(Diagnosis, LoadingOrActivationFails_ShowsTheSystemsMessage) {
    MachineState machine = Sound();
    machine.component.loadFailure = "0x8007007E The module was not found";
    ExpectBad(machine, "loading", "0x8007007E", "package");
    machine.component.loadFailure.clear();
    machine.activationFailure = "0x80040154 Class not registered";
    ExpectBad(machine, "activation", "0x80040154", "classes of a user");
    machine.forMachine = std::exchange(machine.forUser, std::nullopt);
    ExpectBad(machine, "activation", "0x80040154", "backproc register' as an administrator");
}

TEST(Diagnosis, IncompleteRegistryEntries_AreBad) {
    MachineState machine = Sound();
    machine.forUser->threadingModel.clear();
    ExpectBad(machine, "threading", "no model", "register");
    machine.forUser->threadingModel = u"Free";
    ExpectBad(machine, "threading", "Free is registered, not Apartment", "register");
    machine.forUser->typeLibrary.clear();
    ExpectBad(machine, "type library", "not registered", "register");
    machine.forUser->typeLibrary = u"D:\\old.dll";
    ExpectBad(machine, "type library", "D:\\old.dll", "register");
}

TEST(Diagnosis, MissingOrIncompleteKernel_IsBad) {
    MachineState machine = Sound();
    machine.kernel.missing = {"DB_DataBase", "O_GetName"};
    ExpectBad(machine, "kernel", "QmxKrn2K.dll lacks DB_DataBase O_GetName", "put the suite's QmxKrn2K.dll there");
    machine.kernel.failure = "File not found: QmxKrn2K.dll";
    ExpectBad(machine, "kernel", "File not found", "");
}

TEST(Diagnosis, MissingOrIncompleteKernel_HasNoFindingAboutTheLanguage) {
    MachineState machine = Sound();
    machine.kernel.failure = "File not found: QmxKrn2K.dll";
    EXPECT_EQ(FindingOf(machine, "language").subject, "no finding about language");
    machine.kernel.failure.clear();
    machine.kernel.missing = {"E_GetString"};
    EXPECT_EQ(FindingOf(machine, "language").subject, "no finding about language");
}

TEST(Diagnosis, MissingIniFile_IsGood_DamagedIniFile_IsBad) {
    MachineState machine = Sound();
    machine.ini.problem = "NUL characters";
    ExpectBad(machine, "INI file", "NUL characters", "UTF-8");
    machine.ini.canBeRead = false;
    ExpectBad(machine, "INI file", "cannot be read", "locks");
    machine.ini.exists = false;
    EXPECT_EQ(FindingOf(machine, "INI file").grade, Grade::kOk);
}

TEST(Diagnosis, LanguageFolder_NoFileOrUnreadableLines_IsBad) {
    MachineState machine = Sound();
    machine.language = {.folder = u"C:\\German", .hasFile = true, .lacking = 3, .skipped = 0};
    const Finding lacking = FindingOf(machine, "language");
    EXPECT_EQ(lacking.grade, Grade::kOk);
    EXPECT_EQ(lacking.what, "C:\\German, missing texts: 3");
    machine.language.skipped = 2;
    ExpectBad(machine, "language", "unreadable lines: 2", "backproc texts");
    machine.language.hasFile = false;
    ExpectBad(machine, "language", "no K4TBackProcess.txt", "LANGUAGEPATH");
}

void ExpectNote(const MachineState& machine, const std::string& subject, const std::string& what,
                const std::string& advice) {
    const Finding finding = FindingOf(machine, subject);
    EXPECT_EQ(finding.grade, Grade::kNote);
    EXPECT_THAT(finding.what, HasSubstr(what));
    EXPECT_THAT(finding.advice, HasSubstr(advice));
}

MachineState SoundForTheMachine() {
    MachineState machine = Sound();
    machine.forMachine = std::exchange(machine.forUser, std::nullopt);
    machine.name.scope = Scope::kMachine;
    return machine;
}

TEST(Diagnosis, Advice_KeepsTheScopeInForce) {
    MachineState machine = SoundForTheMachine();
    machine.forMachine->threadingModel = u"Both";
    EXPECT_EQ(FindingOf(machine, "threading").advice, "run 'backproc register' as an administrator");
    machine.forUser = std::exchange(machine.forMachine, std::nullopt);
    EXPECT_EQ(FindingOf(machine, "threading").advice, "run 'backproc register --user'");
    machine.forMachine = machine.forUser;
    EXPECT_EQ(FindingOf(machine, "threading").advice, "see 'registration' above");
}

TEST(Diagnosis, ToolInAnotherFolder_AdviceNamesTheCopy) {
    MachineState machine = SoundForTheMachine();
    machine.forMachine->threadingModel = u"Both";
    machine.tool.isBesideComponent = false;
    ExpectBad(machine, "threading", "Both", "which registers the copy beside this tool");
    machine.tool.hasComponent = false;
    ExpectBad(machine, "threading", "Both", "with the backproc.exe beside the component");
}

TEST(Diagnosis, ToolInAnotherFolder_IsNoted) {
    MachineState machine = SoundForTheMachine();
    machine.tool.isBesideComponent = false;
    machine.tool.folder = u"D:\\new";
    ExpectNote(machine, "tool", "1.0.0 in D:\\new; the component in force is another copy, 1.0.0: C:\\Orvane\\",
               "to use the copy here, run 'backproc register' as an administrator");
    machine.tool.hasComponent = false;
    EXPECT_EQ(FindingOf(machine, "tool").advice, "");
}

TEST(Diagnosis, ToolOfAnotherVersion_IsNoted) {
    MachineState machine = Sound();
    machine.component.fullVersion = "1.2.0";
    ExpectNote(machine, "tool", "but the component beside it is 1.2.0", "same package");
}

TEST(Diagnosis, NameMissingOrForAnotherClass_IsBad) {
    MachineState machine = SoundForTheMachine();
    machine.name = {};
    ExpectBad(machine, "name", "clsQmxBackProcess is not registered", "run 'backproc register' as an administrator");
    machine.name.classIdentifier = u"{00000000}";
    ExpectBad(machine, "name", "names another class: {00000000}", "run 'backproc register' as an administrator");
    machine.name.scope = Scope::kUser;
    ExpectBad(machine, "name", "in the user's entries", "run 'backproc unregister --user'");
}

TEST(Diagnosis, InterfacesWithoutProxy_AreNamed) {
    MachineState machine = Sound();
    machine.forUser->noProxies = {"_clsQmxBackProcess", "__clsQmxBackProcess"};
    ExpectBad(machine, "proxies", "_clsQmxBackProcess and __clsQmxBackProcess", "run 'backproc register --user'");
}

TEST(Diagnosis, RegisteredPathInQuotesOrRelative_IsBad) {
    MachineState machine = Sound();
    machine.component.path = u"\"C:\\Orvane\\K4TBackProcess.dll\"";
    ExpectBad(machine, "file", "in quotes", "run 'backproc register --user'");
    machine.component.path = u"K4TBackProcess.dll";
    ExpectBad(machine, "file", "not a full path", "run 'backproc register --user'");
    machine.component.path = u"\\\\server\\share\\K4TBackProcess.dll";
    EXPECT_EQ(FindingOf(machine, "file").grade, Grade::kOk);
}

TEST(Diagnosis, MissingUnregisteredFile_AdviceNamesThePackage) {
    MachineState machine = Sound();
    machine.forUser.reset();
    machine.component.exists = false;
    ExpectBad(machine, "file", "does not exist", "put the K4TBackProcess.dll of the package there");
}

TEST(Diagnosis, ActivationFails_AdviceNamesTheFindingWithTheCause) {
    MachineState machine = SoundForTheMachine();
    machine.activationFailure = "0x800700C1";
    machine.component.loadFailure = "it cannot be loaded";
    EXPECT_EQ(FindingOf(machine, "activation").advice, "see 'loading' above");
    machine.component.bits = 64;
    EXPECT_EQ(FindingOf(machine, "activation").advice, "see 'bitness' above");
}

TEST(Diagnosis, KernelOnlyBesideTheTool_IsBad) {
    MachineState machine = Sound();
    machine.kernel = {.path = {}, .failure = "found only in this tool's folder", .missing = {}};
    machine.kernel.besideTool = u"D:\\tool\\QmxKrn2K.dll";
    ExpectBad(machine, "kernel", "found only in this tool's folder, D:\\tool\\QmxKrn2K.dll",
              "put the suite's QmxKrn2K.dll beside the component, C:\\Orvane\\");
}

TEST(Diagnosis, DevelopmentKernel_IsNoted) {
    MachineState machine = Sound();
    machine.kernel.isDevelopment = true;
    ExpectNote(machine, "kernel", "development kernel: shares no strings with the suite", "put its QmxKrn2K.dll there");
    machine.kernel.origin = KernelOrigin::kDevelopmentFolder;
    ExpectNote(machine, "kernel", "development kernel", "beside the component");
    machine.kernel.origin = KernelOrigin::kAskedFor;
    ExpectNote(machine, "kernel", "K4TBACKPROCESS_DEVELOPMENT_KERNEL=1 asks for it", "");
}

TEST(Diagnosis, DevelopmentKernelHidesTheSuitesKernel_IsBad) {
    MachineState machine = Sound();
    machine.kernel.isDevelopment = true;
    machine.kernel.hidden = u"C:\\Windows\\QmxKrn2K.dll";
    ExpectBad(machine, "kernel", "it hides the suite's C:\\Windows\\QmxKrn2K.dll", "delete C:\\Orvane\\QmxKrn2K.dll");
}

TEST(Diagnosis, IniFile_SettingsAreListed) {
    MachineState machine = Sound();
    machine.ini.report = {.taken = {"JobDir", "Ver"}, .notTaken = {"Plotter"}, .remarks = {}};
    EXPECT_THAT(FindingOf(machine, "INI file").what,
                HasSubstr("MARLENTO.INI, UTF-8, settings read: JobDir Ver; the component does not read: Plotter"));
    machine.ini.report = {};
    EXPECT_THAT(FindingOf(machine, "INI file").what, HasSubstr("no setting read"));
}

TEST(Diagnosis, RemarkOnTheIniFile_IsANote) {
    MachineState machine = Sound();
    machine.ini.report.remarks = {{.line = 3, .what = "'x' has no '='", .advice = "write NAME = VALUE"}};
    const std::vector<Finding> findings = Diagnose(machine);
    const Finding wanted{
        .grade = Grade::kNote, .subject = "INI file", .what = "line 3: 'x' has no '='", .advice = "write NAME = VALUE"};
    EXPECT_NE(std::find(findings.begin(), findings.end(), wanted), findings.end());
}

TEST(Diagnosis, AnsiIniFile_IsNoted) {
    MachineState machine = Sound();
    machine.ini.encoding = "ANSI";
    ExpectNote(machine, "INI file", "depend on the code page", "save it as UTF-8");
}

TEST(Diagnosis, FolderInPlaceOfTheIniFile_IsBad) {
    MachineState machine = Sound();
    machine.ini.isFolder = true;
    ExpectBad(machine, "INI file", "MARLENTO.INI is a folder", "rename");
}

TEST(Diagnosis, ModuleList_LengthAndComponentsPositionAreShown) {
    MachineState machine = Sound();
    EXPECT_EQ(FindingOf(machine, "modules").what, "AllAps is not set");
    machine.strings.modules = {.count = 3, .ownPlace = 2, .problem = {}};
    EXPECT_EQ(FindingOf(machine, "modules").what, "3 in AllAps, K4TBACKPROCESS is number 2");
    machine.strings.modules.ownPlace = 0;
    EXPECT_EQ(FindingOf(machine, "modules").what, "3 in AllAps, K4TBACKPROCESS is not among them");
}

TEST(Diagnosis, BrokenModuleList_AdviceRepairsIt) {
    MachineState machine = Sound();
    machine.strings.modules.problem = "field 2, '1E999' is a number that is too large";
    machine.strings.modules.listWithout = u"EDITOR,LIBRARY";
    ExpectBad(machine, "modules", "AllAps, field 2", "run 'backproc strings set AllAps \"EDITOR,LIBRARY\"'");
}

TEST(Diagnosis, StateRecordWithoutAMainForm_IsNoted) {
    MachineState machine = Sound();
    EXPECT_EQ(FindingOf(machine, "state").what, "the component is not running");
    machine.strings.stateRecord = u"Caption, 0, 0, 0, 0";
    ExpectNote(machine, "state", "no process of this session has its form", "run 'backproc strings set K4TBACKPROCESS");
}

TEST(Diagnosis, StateRecordOfALoadedMainForm_FindingNamesTheProcess) {
    MachineState machine = Sound();
    machine.strings.stateRecord = u"Back, process, 0, 0, 0, 0";
    machine.strings.mainForms = {{.caption = u"Another", .process = 7, .program = {}},
                                 {.caption = u"Back, process", .process = 12, .program = u"C:\\EDITOR.EXE"},
                                 {.caption = u"Back, process", .process = 14, .program = {}}};
    EXPECT_EQ(FindingOf(machine, "state").grade, Grade::kOk);
    EXPECT_EQ(FindingOf(machine, "state").what,
              "the main form of the record is loaded in process 12 (C:\\EDITOR.EXE) and process 14");
}

TEST(Diagnosis, StateRecordWithAnotherCaption_IsNoted) {
    for (const runtime::StringView record : {u"Caption, 0, 0, 0, 0", u"Another", u"Another, 0, 0, 0", u",,,"}) {
        MachineState machine = Sound();
        machine.strings.stateRecord = record;
        machine.strings.mainForms = {{.caption = u"Another, 0", .process = 12, .program = {}}};
        ExpectNote(machine, "state", "no main form of this session has that caption", "end that program");
    }
}

TEST(Diagnosis, MainFormWithoutAStateRecord_IsNoted) {
    MachineState machine = Sound();
    machine.strings.mainForms = {{.caption = u"Caption", .process = 12, .program = {}}};
    ExpectNote(machine, "state", "is empty", "end that program and start it again");
}

TEST(Diagnosis, Utf16LanguageFile_IsBad) {
    MachineState machine = Sound();
    machine.language = {.folder = u"C:\\German", .hasFile = true, .isUtf16 = true};
    ExpectBad(machine, "language", "K4TBackProcess.txt is UTF-16", "save it as UTF-8");
}

TEST(Diagnosis, AdministratorRights_AreDescribed) {
    MachineState machine = Sound();
    EXPECT_EQ(FindingOf(machine, "rights").what, "administrator");
    machine.system.isElevated = false;
    EXPECT_THAT(FindingOf(machine, "rights").what, HasSubstr("registering for the machine needs an administrator"));
    EXPECT_EQ(FindingOf(machine, "system").what, "Windows 10.0.19045, 64-bit; this tool is 32-bit");
}

}  // namespace
}  // namespace tools
