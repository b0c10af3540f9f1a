// What `backproc doctor` makes of what it found on the machine: one finding for each thing that a client needs, in the
// order in which a client meets them. Looking is done elsewhere (MachineLook.cpp), so that each case can be tested.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "runtime/Text.h"
#include "tools/IniReport.h"
#include "tools/ModuleListCheck.h"

namespace tools {

using runtime::String;

/// For whom something is registered: for all users of the machine, or for the current one.
enum class Scope { kMachine, kUser };

/// A class entry of the registry.
struct ClassEntry {
    String library;                           ///< full path
    String threadingModel;                    ///< empty when it is missing
    String typeLibrary;                       ///< path registered for the type library; empty when it is missing
    std::vector<std::string> noProxies = {};  ///< the interfaces whose entries are missing or wrong
};

/// The class's name, "K4TBackProcess.clsQmxBackProcess", in the registry.
struct NameEntry {
    Scope scope = Scope::kMachine;
    String classIdentifier;  ///< empty when it is missing
    bool isOurs = false;     ///< it is the component's class
};

struct Version {
    unsigned major = 0;
    unsigned minor = 0;
    bool operator==(const Version&) const = default;
};

/// The component's file that a client would load.
struct ComponentFile {
    String path;
    bool exists = false;
    int bits = 0;  ///< 32 or 64; 0 when the file is no program for Windows
    std::optional<Version> version;
    std::optional<Version> typeLibrary;  ///< none when the file has none, or that of another component
    std::string loadFailure;             ///< why it cannot be loaded or has no such class; empty when it has
    std::string fullVersion = {};        ///< "1.0.0"; empty when the file has none
};

/// The tool that looks.
struct ThisTool {
    String folder;
    std::string fullVersion;
    bool hasComponent = false;       ///< a K4TBackProcess.dll is beside it
    bool isBesideComponent = false;  ///< it is in the folder of the component in force
};

struct ThisSystem {
    std::string windows;  ///< its version
    int bits = 32;
    bool isElevated = false;  ///< the tool runs with an administrator's rights
};

/// Where the component finds its kernel library.
enum class KernelOrigin { kBesideComponent, kSystemFolder, kDevelopmentFolder, kAskedFor };

/// The kernel library that the component loads in a program of any other folder.
struct KernelFile {
    String path;
    std::string failure;               ///< why there is none; empty when there is one
    std::vector<std::string> missing;  ///< entries that it lacks
    KernelOrigin origin = KernelOrigin::kBesideComponent;
    bool isDevelopment = false;  ///< it is the development kernel
    String besideTool = {};      ///< without a kernel: the one beside the tool, which other programs do not find
    String hidden = {};          ///< the kernel in the system folder, which this one hides
};

struct IniFile {
    String path;
    bool exists = false;
    bool isFolder = false;
    bool canBeRead = true;
    std::string problem = {};   ///< why it is not read as it was meant; empty when it is
    std::string encoding = {};  ///< "UTF-8", "UTF-16", "ANSI"
    IniReport report = {};
};

struct LanguageFolder {
    String folder;  ///< empty: none is chosen
    bool hasFile = false;
    std::size_t lacking = 0;  ///< texts of the component that the file does not have
    std::size_t skipped = 0;  ///< lines that cannot be read
    bool isUtf16 = false;
};

/// A main form of the component that a process of this session has.
struct MainFormOfProcess {
    String caption;  ///< as the kernel's ANSI code page holds it
    unsigned long process = 0;
    String program;  ///< full path; empty when it is unknown
};

/// The shared strings that the component's work depends on.
struct SuiteStrings {
    ModuleListCheck modules;
    String stateRecord;  ///< empty: the component is not running
    std::vector<MainFormOfProcess> mainForms = {};
};

struct MachineState {
    ThisSystem system = {};
    ThisTool tool = {};
    std::optional<ClassEntry> forUser;
    std::optional<ClassEntry> forMachine;
    NameEntry name = {};
    bool hasManifest = false;       ///< beside the tool
    std::string activationFailure;  ///< what COM says when it is asked for the class; empty when it gives it
    ComponentFile component;
    KernelFile kernel;
    IniFile ini;
    SuiteStrings strings = {};
    LanguageFolder language;
};

/// A note is worth knowing, but no client fails for it.
enum class Grade { kOk, kNote, kBad };

struct Finding {
    Grade grade = Grade::kOk;
    std::string subject;
    std::string what;
    std::string advice = {};  ///< empty when nothing is to be done

    bool operator==(const Finding&) const = default;
};

/// The entry that COM takes: the user's hides the machine's. None when there is neither.
const ClassEntry* EntryInForce(const MachineState& machine);

/// "C:\…" or "\\server\…": a path that does not depend on the current folder. The tool loads no other: a file that was
/// prepared in the current folder must not run.
bool IsFullPath(runtime::StringView path);

/// There is a kernel, and it is whole.
bool HasKernel(const KernelFile& kernel);

std::vector<Finding> Diagnose(const MachineState& machine);

}  // namespace tools
