#include "tools/Diagnosis.h"

#include <utility>

#include "tools/Display.h"

namespace tools {

namespace {

constexpr const char* kRegister = "run 'backproc register --user', or 'backproc register' as an administrator";

Finding Good(std::string subject, std::string what) {
    return {.isGood = true, .subject = std::move(subject), .what = std::move(what)};
}

Finding Bad(std::string subject, std::string what, std::string advice) {
    return {.subject = std::move(subject), .what = std::move(what), .advice = std::move(advice)};
}

std::string Text(const Version& version) {
    return std::to_string(version.major) + "." + std::to_string(version.minor);
}

Finding OfRegistration(const MachineState& machine) {
    const std::string subject = "registration";
    if (machine.forUser && machine.forMachine) {
        return Bad(subject, "for the user and for the machine; the user's hides the machine's",
                   "take one back: 'backproc unregister --user' or 'backproc unregister'");
    }
    if (machine.forUser) return Good(subject, "for the user");
    if (machine.forMachine) return Good(subject, "for the machine");
    const std::string without = machine.hasManifest
                                    ? "none; only a program whose own manifest names K4TBackProcess finds it"
                                    : "none, and no K4TBackProcess.manifest beside the tool";
    return Bad(subject, without, kRegister);
}

Finding OfFile(const MachineState& machine) {
    const std::string path = Display(machine.component.path);
    if (machine.component.exists) return Good("file", path);
    const std::string again =
        machine.forUser ? "'backproc register --user'" : "'backproc register', as an administrator,";
    return Bad("file", path + " is not there", "put it back, or run " + again + " in the folder where it is now");
}

Finding OfBits(const ComponentFile& component) {
    constexpr int kOurs = 32;
    if (component.bits == kOurs) return Good("bitness", "32-bit; so must its clients be");
    const std::string what =
        component.bits == 0 ? "no program file for Windows" : std::to_string(component.bits) + "-bit";
    return Bad("bitness", what, "put the 32-bit K4TBackProcess.dll of the package there");
}

Finding OfVersions(const ComponentFile& component) {
    const std::string subject = "version";
    const std::string advice = "put the K4TBackProcess.dll of the package there";
    if (!component.version) return Bad(subject, "the file says none", advice);
    const std::string file = Text(*component.version);
    if (!component.typeLibrary) return Bad(subject, file + ", without the component's type library", advice);
    if (component.typeLibrary == component.version) return Good(subject, file + ", and so is its type library");
    return Bad(subject, file + ", but its type library is " + Text(*component.typeLibrary), advice);
}

Finding OfLoading(const ComponentFile& component) {
    if (component.loadFailure.empty()) return Good("loading", "it loads and has the class");
    return Bad("loading", component.loadFailure, "put the K4TBackProcess.dll of the package there");
}

Finding OfThreading(const ClassEntry& entry) {
    const std::string model = Display(entry.threadingModel);
    if (model == "Apartment") return Good("threading", model);
    return Bad("threading", model.empty() ? "no model is registered" : model + " is registered, not Apartment",
               kRegister);
}

Finding OfTypeLibrary(const ClassEntry& entry) {
    const std::string path = Display(entry.typeLibrary);
    if (entry.typeLibrary == entry.library) return Good("type library", "registered for the same file");
    if (path.empty()) return Bad("type library", "not registered", kRegister);
    return Bad("type library", "registered for another file: " + path, kRegister);
}

Finding OfActivation(const MachineState& machine) {
    if (machine.activationFailure.empty()) return Good("activation", "COM gives the class");
    if (!machine.component.exists) return Bad("activation", machine.activationFailure, "see 'file' above");
    constexpr const char* kForAll =
        "this system may not look at a user's classes: run 'backproc unregister --user', then 'backproc register' as "
        "an "
        "administrator";
    return Bad("activation", machine.activationFailure, machine.forUser ? kForAll : kRegister);
}

Finding OfKernel(const KernelFile& kernel) {
    if (!kernel.failure.empty()) {
        // The kernel's own error says what to do.
        return Bad("kernel", kernel.failure, "");
    }
    const std::string path = Display(kernel.path);
    if (kernel.missing.empty()) return Good("kernel", path);
    std::string names;
    for (const std::string& name : kernel.missing) names += " " + name;
    return Bad("kernel", path + " lacks" + names, "put the suite's QmxKrn2K.dll there");
}

Finding OfIni(const IniFile& ini) {
    const std::string path = Display(ini.path);
    if (!ini.exists) return Good("INI file", path + " is not there: registry settings and defaults count");
    if (!ini.canBeRead) {
        return Bad("INI file", path + " cannot be read", "check that you may read it and that no program locks it");
    }
    if (ini.problem.empty()) return Good("INI file", path);
    return Bad("INI file", path + ": " + ini.problem, "save it as UTF-8");
}

Finding OfLanguage(const LanguageFolder& language) {
    if (language.folder.empty()) return Good("language", "no folder is chosen: English");
    const std::string folder = Display(language.folder);
    if (!language.hasFile) {
        return Bad("language", folder + " has no K4TBackProcess.txt: English", "set LANGUAGEPATH to a language folder");
    }
    std::string what = folder + ", " + std::to_string(language.lacking) + " texts are lacking";
    if (language.skipped == 0) return Good("language", what);
    return Bad("language", what + ", " + std::to_string(language.skipped) + " lines cannot be read",
               "run 'backproc texts' to see which");
}

}  // namespace

const ClassEntry* EntryInForce(const MachineState& machine) {
    if (machine.forUser) return &*machine.forUser;
    return machine.forMachine ? &*machine.forMachine : nullptr;
}

bool HasKernel(const KernelFile& kernel) {
    return kernel.failure.empty() && kernel.missing.empty();
}

std::vector<Finding> Diagnose(const MachineState& machine) {
    std::vector<Finding> findings = {OfRegistration(machine), OfFile(machine)};
    if (machine.component.exists) {
        findings.push_back(OfBits(machine.component));
        findings.push_back(OfVersions(machine.component));
        findings.push_back(OfLoading(machine.component));
    }
    if (const ClassEntry* entry = EntryInForce(machine)) {
        findings.push_back(OfThreading(*entry));
        findings.push_back(OfTypeLibrary(*entry));
        findings.push_back(OfActivation(machine));
    }
    findings.push_back(OfKernel(machine.kernel));
    findings.push_back(OfIni(machine.ini));
    // Only the kernel knows which language it is.
    if (HasKernel(machine.kernel)) findings.push_back(OfLanguage(machine.language));
    return findings;
}

}  // namespace tools
