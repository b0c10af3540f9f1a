// What `backproc doctor` makes of what it found on the machine: one finding for each thing that a client needs, in the
// order in which a client meets them. Looking is done elsewhere (DoctorVerb.cpp), so that each case can be tested.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "runtime/Text.h"

namespace tools {

using runtime::String;

/// A class entry of the registry.
struct ClassEntry {
    String library;         ///< full path
    String threadingModel;  ///< empty when it is missing
    String typeLibrary;     ///< path registered for the type library; empty when it is missing
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
};

struct KernelFile {
    String path;
    std::string failure;               ///< why there is none; empty when there is one
    std::vector<std::string> missing;  ///< entries that it lacks
};

struct IniFile {
    String path;
    bool exists = false;
    bool canBeRead = true;
    std::string problem = {};  ///< why it is not read as it was meant; empty when it is
};

struct LanguageFolder {
    String folder;  ///< empty: none is chosen
    bool hasFile = false;
    std::size_t lacking = 0;  ///< texts of the component that the file does not have
    std::size_t skipped = 0;  ///< lines that cannot be read
};

struct MachineState {
    std::optional<ClassEntry> forUser;
    std::optional<ClassEntry> forMachine;
    bool hasManifest = false;       ///< beside the tool
    std::string activationFailure;  ///< what COM says when it is asked for the class; empty when it gives it
    ComponentFile component;
    KernelFile kernel;
    IniFile ini;
    LanguageFolder language;
};

struct Finding {
    bool isGood = false;
    std::string subject;
    std::string what;
    std::string advice = {};  ///< empty when nothing is to be done

    bool operator==(const Finding&) const = default;
};

/// The entry that COM takes: the user's hides the machine's. None when there is neither.
const ClassEntry* EntryInForce(const MachineState& machine);

/// There is a kernel, and it is whole.
bool HasKernel(const KernelFile& kernel);

std::vector<Finding> Diagnose(const MachineState& machine);

}  // namespace tools
