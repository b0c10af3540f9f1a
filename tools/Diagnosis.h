// Makes the findings of `backproc doctor`. The findings about the system and the tool come first. The other findings
// are in the order in which a client uses their subjects. A subject that cannot be examined has no finding.
// MachineLook.cpp inspects the machine. This code only judges the state that MachineLook.cpp returns, so that a test
// can cover each case.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "runtime/Text.h"
#include "tools/IniReport.h"
#include "tools/ModuleListCheck.h"

namespace tools {

using runtime::String;

/// Whether an entry is registered for all users of the machine or for the current user.
enum class Scope { kMachine, kUser };

/// The component's class entry in the registry.
struct ClassEntry {
    String library;                           ///< the registered path, which may not be a full path
    String threadingModel;                    ///< empty if it is missing
    String typeLibrary;                       ///< the type library's registered path; empty if it is missing
    std::vector<std::string> noProxies = {};  ///< interfaces whose proxy entries are missing or wrong
};

/// The class's name, "K4TBackProcess.clsQmxBackProcess", in the registry.
struct NameEntry {
    Scope scope = Scope::kMachine;
    String classIdentifier;  ///< empty if it is missing
    bool isOurs = false;     ///< `classIdentifier` is the component's class
};

struct Version {
    unsigned major = 0;
    unsigned minor = 0;
    bool operator==(const Version&) const = default;
};

/// The component file that a client would load; without a registration, the file in the tool's folder.
struct ComponentFile {
    String path;
    bool exists = false;
    int bits = 0;  ///< 32 or 64; 0 if the file is not a Windows program
    std::optional<Version> version;
    std::optional<Version> typeLibrary;  ///< no value if the component's type library is missing
    std::string loadFailure;             ///< why loading the file or getting its class failed; empty on success
    std::string fullVersion = {};        ///< "1.0.0"; empty if the file has no version
};

/// The running tool.
struct ThisTool {
    String folder;
    std::string fullVersion;
    bool hasComponent = false;       ///< the tool's folder contains K4TBackProcess.dll
    bool isBesideComponent = false;  ///< the tool is in the folder of the component that clients load
};

struct ThisSystem {
    std::string windows;  ///< Windows' version
    int bits = 32;
    bool isElevated = false;  ///< the tool runs with administrator rights
};

/// Where the component finds its kernel library.
enum class KernelOrigin { kBesideComponent, kSystemFolder, kDevelopmentFolder, kAskedFor };

/// The kernel library that the component loads. The diagnosis assumes that the client is not in the tool's folder.
struct KernelFile {
    String path;
    std::string failure;               ///< why no kernel could be loaded; empty on success
    std::vector<std::string> missing;  ///< exported functions that the library lacks
    KernelOrigin origin = KernelOrigin::kBesideComponent;
    bool isDevelopment = false;  ///< it is the development kernel
    String besideTool = {};      ///< if no kernel was found: the kernel in the tool's folder
    String hidden = {};          ///< the kernel in the system folder that this kernel hides
};

struct IniFile {
    String path;
    bool exists = false;
    bool isFolder = false;
    bool canBeRead = true;
    std::string problem = {};   ///< why the settings reader misreads the file; empty if there is no problem
    std::string encoding = {};  ///< "UTF-8", "UTF-16", "ANSI"
    IniReport report = {};
};

struct LanguageFolder {
    String folder;  ///< empty if no folder is chosen
    bool hasFile = false;
    std::size_t lacking = 0;  ///< number of the component's texts that the file lacks
    std::size_t skipped = 0;  ///< number of lines that cannot be parsed
    bool isUtf16 = false;
};

/// A loaded main form of the component in a process of this session.
struct MainFormOfProcess {
    String caption;  ///< converted to the ANSI code page and back, as the kernel stores it
    unsigned long process = 0;
    String program;  ///< full path; empty if the path is unknown
};

/// The shared strings that the component uses, and the loaded main forms.
struct SuiteStrings {
    ModuleListCheck modules;
    String stateRecord;  ///< the string K4TBACKPROCESS; empty if the component's state is not published
    std::vector<MainFormOfProcess> mainForms = {};
};

struct MachineState {
    ThisSystem system = {};
    ThisTool tool = {};
    std::optional<ClassEntry> forUser;
    std::optional<ClassEntry> forMachine;
    NameEntry name = {};
    bool hasManifest = false;       ///< the tool's folder contains K4TBackProcess.manifest
    std::string activationFailure;  ///< why COM does not return the class; empty on success and without a registration
    ComponentFile component;
    KernelFile kernel;
    IniFile ini;
    SuiteStrings strings = {};
    LanguageFolder language;
};

/// A note gives useful information. It does not report a cause of failure.
enum class Grade { kOk, kNote, kBad };

struct Finding {
    Grade grade = Grade::kOk;
    std::string subject;
    std::string what;
    std::string advice = {};  ///< empty if nothing needs to be done

    bool operator==(const Finding&) const = default;
};

/// Returns the entry that COM uses. The user's entry hides the machine's entry. Returns null if there is no entry.
const ClassEntry* EntryInForce(const MachineState& machine);

/// True for "C:\…" and "\\server\…". A full path does not depend on the current folder. The tool loads files only by
/// full paths, because an attacker could place a file in the current folder.
bool IsFullPath(runtime::StringView path);

/// True if a kernel was found and lacks no function.
bool HasKernel(const KernelFile& kernel);

std::vector<Finding> Diagnose(const MachineState& machine);

}  // namespace tools
