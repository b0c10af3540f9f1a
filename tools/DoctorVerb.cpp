// `backproc doctor`: what a client would get, and why. It looks without creating an instance, so that it changes none
// of the strings that running modules share.
#include <ostream>
#include <set>

#include "host/TextCatalogue.h"
#include "kernel_api/dev/BuiltInReader.h"
#include "kernel_api/dev/IniText.h"
#include "kernel_api/win32/KernelLibrary.h"
#include "runtime/Error.h"
#include "runtime/win32/Win32Files.h"
#include "runtime/win32/Win32Locale.h"
#include "runtime/win32/Win32Process.h"
#include "tools/Apartment.h"
#include "tools/ComFailure.h"
#include "tools/ComponentLook.h"
#include "tools/Diagnosis.h"
#include "tools/Display.h"
#include "tools/Registration.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

using runtime::win32::Win32Files;

constexpr std::string_view kHelp =
    R"(Usage: backproc doctor

Shows what a program of the suite would get here that creates the component, one line for each thing that it needs:
registration, file, version, kernel library, INI file, language. Each line begins with 'ok', or with 'BAD' and then
says what to do. Without a registration the file beside the tool is looked at. Nothing is changed, and no instance is
created.

Exit code: 0 all is well, 1 there is a BAD line, 2 bad usage.

Example:
  backproc doctor
)";

String FolderOf(const String& path) {
    return path.substr(0, path.find_last_of(u'\\'));
}

KernelFile LookAtKernel(kernel_api::win32::KernelLibrary& kernel) try {
    return {.path = kernel.Path(), .failure = {}, .missing = kernel.MissingEntries()};
} catch (const runtime::Error& error) {
    return {.path = {}, .failure = Display(error.Description()), .missing = {}};
}

IniFile LookAtIni(Win32Files& files, const String& folder) {
    IniFile ini{.path = folder + u"\\sys\\MARLENTO.INI"};
    ini.exists = files.Stamp(ini.path).has_value();
    if (!ini.exists) return ini;
    const std::optional<std::string> bytes = files.Read(ini.path);
    ini.canBeRead = bytes.has_value();
    if (bytes) ini.problem = kernel_api::dev::IniProblem(*bytes);
    return ini;
}

/// The folder that the shared string names, as a client would take it.
LanguageFolder LookAtLanguage(Win32Files& files, kernel_api::win32::KernelLibrary& kernel) {
    LanguageFolder language;
    const kernel_api::TextPointer text = kernel.E_GetString(u"LANGUAGEPATH");
    if (text > 0) language.folder = runtime::win32::Win32Locale().FromAnsi(reinterpret_cast<const char*>(text));
    if (language.folder.empty()) return language;
    const auto bytes = files.Read(kernel_api::dev::TextsPathIn(language.folder));
    language.hasFile = bytes && bytes->size() <= kernel_api::dev::kMostTextsBytes;
    if (!language.hasFile) return language;
    const kernel_api::dev::TextFile texts(*bytes);
    language.skipped = texts.SkippedLines();
    std::set<String> lacking;
    for (const host::CatalogueText& wanted : host::TextCatalogue()) {
        if (!texts.Find(wanted.id)) lacking.insert(runtime::Trim(wanted.id));
    }
    language.lacking = lacking.size();
    return language;
}

MachineState Look() {
    Win32Files files;
    const String toolFolder = runtime::win32::Win32Process(nullptr).ComponentFolder();
    MachineState machine;
    machine.forUser = RegisteredClass(Scope::kUser);
    machine.forMachine = RegisteredClass(Scope::kMachine);
    machine.hasManifest = files.Stamp(toolFolder + u"\\K4TBackProcess.manifest").has_value();
    const ClassEntry* entry = EntryInForce(machine);
    machine.component = LookAtComponent(files, entry ? entry->library : toolFolder + u"\\K4TBackProcess.dll");
    if (entry) machine.activationFailure = ActivationFailure();
    const String folder = FolderOf(machine.component.path);
    kernel_api::win32::KernelLibrary kernel(folder);
    machine.kernel = LookAtKernel(kernel);
    machine.ini = LookAtIni(files, folder);
    if (HasKernel(machine.kernel)) machine.language = LookAtLanguage(files, kernel);
    return machine;
}

int RunDoctor(const Arguments& arguments, Console& console) {
    AtMost(0, arguments);
    const Apartment apartment;
    int code = kSuccess;
    for (const Finding& finding : Diagnose(Look())) {
        console.out << (finding.isGood ? "ok   " : "BAD  ") << finding.subject << ": " << finding.what;
        if (!finding.advice.empty()) console.out << "; " << finding.advice;
        console.out << '\n';
        if (!finding.isGood) code = kFailure;
    }
    return code;
}

}  // namespace

const Verb kDoctorVerb = {"doctor", "Tells whether a client would get the component, and why not", kHelp, RunDoctor};

}  // namespace tools
