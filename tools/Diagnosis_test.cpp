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

/// A machine on which a client works: registered for the user, everything there.
MachineState Sound() {
    MachineState machine;
    machine.forUser = {.library = kPath, .threadingModel = u"Apartment", .typeLibrary = kPath};
    machine.hasManifest = true;
    machine.component = {.path = kPath,
                         .exists = true,
                         .bits = 32,
                         .version = Version{1, 0},
                         .typeLibrary = Version{1, 0},
                         .loadFailure = {}};
    machine.kernel = {.path = u"C:\\Orvane\\QmxKrn2K.dll", .failure = {}, .missing = {}};
    machine.ini = {.path = u"C:\\Orvane\\sys\\MARLENTO.INI", .exists = true};
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
    EXPECT_FALSE(finding.isGood);
    EXPECT_EQ(finding.subject, subject);
    EXPECT_THAT(finding.what, HasSubstr(what));
    EXPECT_THAT(finding.advice, HasSubstr(advice));
}

TEST(Diagnosis, ASoundMachineHasNothingToDo) {
    const std::vector<Finding> findings = Diagnose(Sound());
    EXPECT_THAT(findings, Each(Field(&Finding::isGood, true)));
    EXPECT_THAT(findings, Each(Field(&Finding::advice, "")));
    EXPECT_EQ(findings.size(), 11U);
}

TEST(Diagnosis, TheUsersEntryHidesTheMachines) {
    MachineState machine = Sound();
    machine.forMachine = {.library = u"D:\\old.dll", .threadingModel = u"Apartment", .typeLibrary = u"D:\\old.dll"};
    EXPECT_EQ(EntryInForce(machine)->library, kPath);
    ExpectBad(machine, "registration", "hides", "unregister");
    machine.forUser.reset();
    EXPECT_EQ(EntryInForce(machine)->library, u"D:\\old.dll");
    EXPECT_TRUE(FindingOf(machine, "registration").isGood);
}

TEST(Diagnosis, WithoutRegistrationTellsWhoFindsItByTheManifest) {
    MachineState machine = Sound();
    machine.forUser.reset();
    EXPECT_EQ(EntryInForce(machine), nullptr);
    ExpectBad(machine, "registration", "manifest names K4TBackProcess", "backproc register --user");
    machine.hasManifest = false;
    ExpectBad(machine, "registration", "no K4TBackProcess.manifest", "backproc register --user");
    EXPECT_EQ(FindingOf(machine, "threading").subject, "no finding about threading");
}

TEST(Diagnosis, AMovedFileIsNotLookedInto) {
    MachineState machine = Sound();
    machine.component = {
        .path = kPath, .exists = false, .bits = 0, .version = {}, .typeLibrary = {}, .loadFailure = {}};
    ExpectBad(machine, "file", "is not there", "put it back, or run 'backproc register --user' in the folder");
    EXPECT_EQ(FindingOf(machine, "bitness").subject, "no finding about bitness");
    machine.activationFailure = "0x80070005 Access denied";
    ExpectBad(machine, "activation", "0x80070005", "see 'file' above");
    machine.forMachine = std::exchange(machine.forUser, std::nullopt);
    ExpectBad(machine, "file", "is not there", "or run 'backproc register', as an administrator, in the folder");
}

TEST(Diagnosis, AFileOfAnotherKindIsNamed) {
    MachineState machine = Sound();
    machine.component.bits = 64;
    ExpectBad(machine, "bitness", "64-bit", "32-bit");
    machine.component.bits = 0;
    ExpectBad(machine, "bitness", "no program", "32-bit");
}

TEST(Diagnosis, VersionsOfFileAndTypeLibraryMustAgree) {
    MachineState machine = Sound();
    machine.component.typeLibrary = Version{1, 1};
    ExpectBad(machine, "version", "1.0, but its type library is 1.1", "package");
    machine.component.typeLibrary.reset();
    ExpectBad(machine, "version", "without the component's type library", "package");
    machine.component.version.reset();
    ExpectBad(machine, "version", "the file says none", "package");
}

TEST(Diagnosis, WhatTheSystemSaysIsPassedOn) {
    MachineState machine = Sound();
    machine.component.loadFailure = "0x8007007E The module was not found";
    ExpectBad(machine, "loading", "0x8007007E", "package");
    machine.activationFailure = "0x80040154 Class not registered";
    ExpectBad(machine, "activation", "0x80040154", "user's classes");
    machine.forMachine = std::exchange(machine.forUser, std::nullopt);
    ExpectBad(machine, "activation", "0x80040154", "backproc register --user");
}

TEST(Diagnosis, EntriesMustBeWhole) {
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

TEST(Diagnosis, AKernelMustBeThereAndWhole) {
    MachineState machine = Sound();
    machine.kernel.missing = {"DB_DataBase", "O_GetName"};
    ExpectBad(machine, "kernel", "QmxKrn2K.dll lacks DB_DataBase O_GetName", "put the suite's QmxKrn2K.dll there");
    machine.kernel.failure = "File not found: QmxKrn2K.dll";
    ExpectBad(machine, "kernel", "File not found", "");
}

TEST(Diagnosis, WithoutAKernelNothingIsSaidOfTheLanguage) {
    MachineState machine = Sound();
    machine.kernel.failure = "File not found: QmxKrn2K.dll";
    EXPECT_EQ(FindingOf(machine, "language").subject, "no finding about language");
    machine.kernel.failure.clear();
    machine.kernel.missing = {"E_GetString"};
    EXPECT_EQ(FindingOf(machine, "language").subject, "no finding about language");
}

TEST(Diagnosis, AMissingIniFileIsGoodAndADamagedOneIsNot) {
    MachineState machine = Sound();
    machine.ini.problem = "NUL characters";
    ExpectBad(machine, "INI file", "NUL characters", "UTF-8");
    machine.ini.canBeRead = false;
    ExpectBad(machine, "INI file", "cannot be read", "locks");
    machine.ini.exists = false;
    EXPECT_TRUE(FindingOf(machine, "INI file").isGood);
}

TEST(Diagnosis, ALanguageMayLackTextsButNotItsFile) {
    MachineState machine = Sound();
    machine.language = {.folder = u"C:\\German", .hasFile = true, .lacking = 3, .skipped = 0};
    const Finding lacking = FindingOf(machine, "language");
    EXPECT_TRUE(lacking.isGood);
    EXPECT_EQ(lacking.what, "C:\\German, 3 texts are lacking");
    machine.language.skipped = 2;
    ExpectBad(machine, "language", "2 lines cannot be read", "backproc texts");
    machine.language.hasFile = false;
    ExpectBad(machine, "language", "no K4TBackProcess.txt", "LANGUAGEPATH");
}

}  // namespace
}  // namespace tools
