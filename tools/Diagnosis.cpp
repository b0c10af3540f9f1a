#include "tools/Diagnosis.h"

#include <utility>

#include "kernel_api/builtin/BuiltInReader.h"
#include "tools/Display.h"

namespace tools {

namespace {

constexpr const char* kTakePackage = "put the K4TBackProcess.dll of the package there";

Finding Good(std::string subject, std::string what) {
    return {.subject = std::move(subject), .what = std::move(what)};
}

Finding Note(std::string subject, std::string what, std::string advice = {}) {
    return {.grade = Grade::kNote, .subject = std::move(subject), .what = std::move(what), .advice = std::move(advice)};
}

Finding Bad(std::string subject, std::string what, std::string advice) {
    return {.grade = Grade::kBad, .subject = std::move(subject), .what = std::move(what), .advice = std::move(advice)};
}

std::string Text(const Version& version) {
    return std::to_string(version.major) + "." + std::to_string(version.minor);
}

/// Returns the advice to register again. The advice keeps the scope that is in force, so that the user does not create
/// a second registration.
std::string RegisterAgain(const MachineState& machine) {
    if (machine.forUser && machine.forMachine) return "see 'registration' above";
    if (!machine.forUser && !machine.forMachine) {
        return "run 'backproc register --user', or 'backproc register' as an administrator";
    }
    std::string command =
        machine.forUser ? "run 'backproc register --user'" : "run 'backproc register' as an administrator";
    if (machine.tool.isBesideComponent) return command;
    return command + (machine.tool.hasComponent ? ", which registers the copy beside this tool"
                                                : ", with the backproc.exe beside the component");
}

Finding OfSystem(const ThisSystem& system) {
    return Good("system", system.windows + ", " + std::to_string(system.bits) + "-bit; this tool is 32-bit");
}

Finding OfRights(const ThisSystem& system) {
    if (system.isElevated) return Good("rights", "administrator");
    return Good("rights", "standard user; registering for the machine needs an administrator");
}

Finding OfTool(const MachineState& machine) {
    const std::string subject = "tool";
    const std::string here = machine.tool.fullVersion + " in " + Display(machine.tool.folder);
    const std::string& there = machine.component.fullVersion;
    if (!EntryInForce(machine)) return Good(subject, here);
    if (!machine.tool.isBesideComponent) {
        return Note(subject,
                    here + "; the component in force is " +
                        (there.empty() ? "another copy" : "another copy, " + there) + ": " +
                        Display(machine.component.path),
                    machine.tool.hasComponent ? "to use the copy here, " + RegisterAgain(machine) : "");
    }
    if (there.empty() || there == machine.tool.fullVersion) return Good(subject, here + ", beside the component");
    return Note(subject, here + ", but the component beside it is " + there, "install both from the same package");
}

Finding OfRegistration(const MachineState& machine) {
    const std::string subject = "registration";
    if (machine.forUser && machine.forMachine) {
        return Bad(subject,
                   "for the user (" + Display(machine.forUser->library) + ") and for the machine (" +
                       Display(machine.forMachine->library) + "); the user's hides the machine's",
                   "run 'backproc unregister --user' to keep the machine's, or 'backproc unregister' as an "
                   "administrator to keep the user's");
    }
    if (machine.forUser) return Good(subject, "for the user");
    if (machine.forMachine) return Good(subject, "for the machine");
    const std::string without = machine.hasManifest
                                    ? "none; only a program whose own manifest names K4TBackProcess finds it"
                                    : "none, and no K4TBackProcess.manifest beside the tool";
    return Bad(subject, without, RegisterAgain(machine));
}

Finding OfName(const MachineState& machine) {
    const std::string subject = "name";
    const std::string name = "K4TBackProcess.clsQmxBackProcess";
    if (machine.name.isOurs) return Good(subject, name);
    const std::string what = machine.name.classIdentifier.empty()
                                 ? name + " is not registered"
                                 : name + " names another class: " + Display(machine.name.classIdentifier);
    // Registration for the machine cannot help if the user's entries hide the machine's entries.
    const bool isHidden = machine.forMachine && !machine.forUser && machine.name.scope == Scope::kUser;
    if (isHidden) return Bad(subject, what + ", in the user's entries", "run 'backproc unregister --user'");
    return Bad(subject, what, RegisterAgain(machine));
}

Finding OfFile(const MachineState& machine) {
    const std::string path = Display(machine.component.path);
    if (machine.component.path.starts_with(u'"')) {
        return Bad("file", path + ": the registered path is in quotes", RegisterAgain(machine));
    }
    if (!IsFullPath(machine.component.path)) {
        return Bad("file", path + ": the registered path is not a full path", RegisterAgain(machine));
    }
    if (machine.component.exists) return Good("file", path);
    if (!EntryInForce(machine)) {
        return Bad("file", path + " does not exist", "put the K4TBackProcess.dll of the package there");
    }
    const std::string again =
        machine.forUser ? "'backproc register --user'" : "'backproc register', as an administrator,";
    return Bad("file", path + " does not exist", "put it back, or run " + again + " in the folder where it is now");
}

Finding OfBits(const ComponentFile& component) {
    constexpr int kOurs = 32;
    if (component.bits == kOurs) return Good("bitness", "32-bit; its clients must be 32-bit, too");
    const std::string what =
        component.bits == 0 ? "not a Windows program file" : std::to_string(component.bits) + "-bit";
    return Bad("bitness", what, "put the 32-bit K4TBackProcess.dll of the package there");
}

Finding OfVersions(const ComponentFile& component) {
    const std::string subject = "version";
    if (!component.version) return Bad(subject, "the file has no version", kTakePackage);
    const std::string file = Text(*component.version);
    if (!component.typeLibrary) return Bad(subject, file + ", without the component's type library", kTakePackage);
    if (component.typeLibrary == component.version) return Good(subject, file + ", the same as in its type library");
    return Bad(subject, file + ", but its type library is " + Text(*component.typeLibrary), kTakePackage);
}

Finding OfLoading(const ComponentFile& component) {
    if (component.loadFailure.empty()) return Good("loading", "loads and provides the class");
    return Bad("loading", component.loadFailure, kTakePackage);
}

Finding OfThreading(const MachineState& machine) {
    const std::string model = Display(EntryInForce(machine)->threadingModel);
    if (model == "Apartment") return Good("threading", model);
    return Bad("threading", model.empty() ? "no model is registered" : model + " is registered, not Apartment",
               RegisterAgain(machine));
}

Finding OfTypeLibrary(const MachineState& machine) {
    const ClassEntry& entry = *EntryInForce(machine);
    const std::string path = Display(entry.typeLibrary);
    if (entry.typeLibrary == entry.library) return Good("type library", "registered for the same file");
    if (path.empty()) return Bad("type library", "not registered", RegisterAgain(machine));
    return Bad("type library", "registered for another file: " + path, RegisterAgain(machine));
}

Finding OfProxies(const MachineState& machine) {
    const ClassEntry& entry = *EntryInForce(machine);
    if (entry.noProxies.empty()) return Good("proxies", "registered for both interfaces");
    std::string names;
    for (const std::string& name : entry.noProxies) names += (names.empty() ? "" : " and ") + name;
    return Bad("proxies", "the entries of " + names + " are missing or wrong; threads of other apartments get no proxy",
               RegisterAgain(machine));
}

Finding OfActivation(const MachineState& machine) {
    if (machine.activationFailure.empty()) return Good("activation", "COM returns the class object");
    constexpr int kOurs = 32;
    const ComponentFile& component = machine.component;
    if (!component.exists) return Bad("activation", machine.activationFailure, "see 'file' above");
    if (component.bits != kOurs) return Bad("activation", machine.activationFailure, "see 'bitness' above");
    if (!component.loadFailure.empty()) return Bad("activation", machine.activationFailure, "see 'loading' above");
    constexpr const char* kForAll =
        "COM on this system may ignore the classes of a user: run 'backproc unregister --user', then run 'backproc "
        "register' "
        "as an administrator";
    const bool isUsersAlone = machine.forUser && !machine.forMachine;
    return Bad("activation", machine.activationFailure, isUsersAlone ? kForAll : RegisterAgain(machine));
}

Finding OfNoKernel(const MachineState& machine) {
    const KernelFile& kernel = machine.kernel;
    // The kernel's own error message contains the advice.
    if (kernel.besideTool.empty()) return Bad("kernel", kernel.failure, "");
    return Bad("kernel",
               "found only in this tool's folder, " + Display(kernel.besideTool) +
                   "; programs in other folders do not find it",
               "put the suite's QmxKrn2K.dll beside the component, " + Display(machine.component.path));
}

Finding OfDevelopmentKernel(const KernelFile& kernel) {
    const std::string what = Display(kernel.path) + ", development kernel: shares no strings with the suite";
    switch (kernel.origin) {
        case KernelOrigin::kAskedFor:
            return Note("kernel", what + "; K4TBACKPROCESS_DEVELOPMENT_KERNEL=1 asks for it");
        case KernelOrigin::kDevelopmentFolder:
            return Note("kernel", what, "for use with the suite, put its QmxKrn2K.dll beside the component");
        default:
            break;
    }
    if (kernel.hidden.empty()) return Note("kernel", what, "for use with the suite, put its QmxKrn2K.dll there");
    return Bad("kernel", what + "; it hides the suite's " + Display(kernel.hidden), "delete " + Display(kernel.path));
}

Finding OfKernel(const MachineState& machine) {
    const KernelFile& kernel = machine.kernel;
    if (!kernel.failure.empty()) return OfNoKernel(machine);
    const std::string path = Display(kernel.path);
    if (kernel.missing.empty()) return kernel.isDevelopment ? OfDevelopmentKernel(kernel) : Good("kernel", path);
    std::string names;
    for (const std::string& name : kernel.missing) names += " " + name;
    return Bad("kernel", path + " lacks" + names, "put the suite's QmxKrn2K.dll there");
}

std::string Joined(const std::vector<std::string>& words) {
    std::string joined;
    for (const std::string& word : words) joined += " " + word;
    return joined;
}

Finding OfReadIni(const IniFile& ini) {
    const IniReport& report = ini.report;
    std::string what = Display(ini.path) + ", " + ini.encoding + ", ";
    what += report.taken.empty() ? "no setting read" : "settings read:" + Joined(report.taken);
    if (!report.notTaken.empty()) what += "; the component does not read:" + Joined(report.notTaken);
    if (ini.encoding != "ANSI") return Good("INI file", what);
    return Note("INI file", what + "; letters beyond ASCII depend on the code page", "save it as UTF-8");
}

void AddIni(std::vector<Finding>& findings, const IniFile& ini) {
    const std::string path = Display(ini.path);
    if (ini.isFolder) {
        findings.push_back(Bad("INI file", path + " is a folder", "rename the folder"));
    } else if (!ini.exists) {
        findings.push_back(Good("INI file", path + " does not exist; registry settings and defaults are used"));
    } else if (!ini.canBeRead) {
        findings.push_back(
            Bad("INI file", path + " cannot be read", "check that you may read it and that no program locks it"));
    } else if (!ini.problem.empty()) {
        findings.push_back(Bad("INI file", path + ": " + ini.problem, "save it as UTF-8"));
    } else {
        findings.push_back(OfReadIni(ini));
        for (const IniRemark& remark : ini.report.remarks) {
            findings.push_back(
                Note("INI file", "line " + std::to_string(remark.line) + ": " + remark.what, remark.advice));
        }
    }
}

Finding OfModules(const ModuleListCheck& modules) {
    const std::string subject = "modules";
    if (!modules.problem.empty()) {
        return Bad(subject, "AllAps, " + modules.problem,
                   "run 'backproc strings set AllAps \"" + Display(modules.listWithout) + "\"'");
    }
    if (modules.count == 0) return Good(subject, "AllAps is not set");
    const std::string count = std::to_string(modules.count) + " in AllAps";
    if (modules.ownPlace == 0) return Good(subject, count + ", K4TBACKPROCESS is not among them");
    return Good(subject, count + ", K4TBACKPROCESS is number " + std::to_string(modules.ownPlace));
}

/// Returns the caption in a state record. The caption is the only field that distinguishes main forms. The caption is
/// not quoted and may contain commas. The last four fields are numbers. The caption is everything before these fields.
String CaptionOf(const String& stateRecord) {
    constexpr int kNumbers = 4;
    std::size_t end = stateRecord.size();
    for (int i = 0; i < kNumbers && end != 0; ++i) {
        const std::size_t comma = stateRecord.rfind(u',', end - 1);
        if (comma == String::npos) return stateRecord;
        end = comma;
    }
    return stateRecord.substr(0, end);
}

/// Returns a list such as "process 12 (C:\EDITOR.EXE) and process 14".
std::string ProcessesOf(const std::vector<MainFormOfProcess>& forms) {
    std::string names;
    for (const MainFormOfProcess& form : forms) {
        names += (names.empty() ? "process " : " and process ") + std::to_string(form.process);
        if (!form.program.empty()) names += " (" + Display(form.program) + ")";
    }
    return names;
}

/// The record contains no process number. Therefore the diagnosis cannot distinguish programs whose main forms have the
/// same caption.
Finding OfState(const SuiteStrings& strings) {
    const std::string subject = "state";
    const std::vector<MainFormOfProcess>& forms = strings.mainForms;
    if (strings.stateRecord.empty()) {
        if (forms.empty()) return Good(subject, "the component is not running");
        return Note(
            subject,
            "K4TBACKPROCESS is empty, so modules assume that the component is not running, but the main form is "
            "loaded in " +
                ProcessesOf(forms),
            "end that program and start it again");
    }
    const String caption = CaptionOf(strings.stateRecord);
    std::vector<MainFormOfProcess> named;
    for (const MainFormOfProcess& form : forms) {
        if (form.caption == caption) named.push_back(form);
    }
    if (!named.empty()) return Good(subject, "the main form of the record is loaded in " + ProcessesOf(named));
    if (forms.empty()) {
        return Note(subject,
                    "K4TBACKPROCESS says that the component is running, but no process of this session has its form",
                    "run 'backproc strings set K4TBACKPROCESS \"\"'");
    }
    return Note(
        subject,
        "K4TBACKPROCESS names the main form " + Quoted(caption) +
            ", but no main form of this session has that caption; one with another caption is loaded in " +
            ProcessesOf(forms),
        "if the language was changed since, ignore this; otherwise end that program, then run 'backproc doctor'");
}

Finding OfLanguage(const LanguageFolder& language) {
    if (language.folder.empty()) return Good("language", "no folder is chosen; texts are in English");
    using kernel_api::builtin::kTextsFileName;
    const std::string folder = Display(language.folder);
    if (!language.hasFile) {
        return Bad("language", folder + " has no " + Display(kTextsFileName) + "; texts are in English",
                   "set LANGUAGEPATH to a language folder: 'backproc strings set LANGUAGEPATH FOLDER'");
    }
    if (language.isUtf16) {
        return Bad("language",
                   Display(kernel_api::builtin::TextsPathIn(language.folder)) +
                       " is UTF-16, which is not read; texts are in English",
                   "save it as UTF-8");
    }
    std::string what = folder + ", missing texts: " + std::to_string(language.lacking);
    if (language.skipped == 0) return Good("language", what);
    return Bad("language", what + ", unreadable lines: " + std::to_string(language.skipped),
               "run 'backproc texts' to see which");
}

}  // namespace

const ClassEntry* EntryInForce(const MachineState& machine) {
    if (machine.forUser) return &*machine.forUser;
    return machine.forMachine ? &*machine.forMachine : nullptr;
}

bool IsFullPath(runtime::StringView path) {
    return path.starts_with(u"\\\\") || (path.size() > 2 && path[1] == u':' && path[2] == u'\\');
}

bool HasKernel(const KernelFile& kernel) {
    return kernel.failure.empty() && kernel.missing.empty();
}

std::vector<Finding> Diagnose(const MachineState& machine) {
    std::vector<Finding> findings = {OfSystem(machine.system), OfRights(machine.system), OfTool(machine),
                                     OfRegistration(machine)};
    const bool isRegistered = EntryInForce(machine) != nullptr;
    if (isRegistered) findings.push_back(OfName(machine));
    findings.push_back(OfFile(machine));
    if (machine.component.exists) {
        findings.push_back(OfBits(machine.component));
        findings.push_back(OfVersions(machine.component));
        findings.push_back(OfLoading(machine.component));
    }
    if (isRegistered) {
        findings.push_back(OfThreading(machine));
        findings.push_back(OfTypeLibrary(machine));
        findings.push_back(OfProxies(machine));
        findings.push_back(OfActivation(machine));
    }
    findings.push_back(OfKernel(machine));
    AddIni(findings, machine.ini);
    if (!HasKernel(machine.kernel)) return findings;
    findings.push_back(OfModules(machine.strings.modules));
    findings.push_back(OfState(machine.strings));
    findings.push_back(OfLanguage(machine.language));
    return findings;
}

}  // namespace tools
