// Finds the component and the kernel library that a client would load. The tool inspects these two files, not the files
// in its own folder.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include "kernel_api/win32/KernelLibrary.h"
#include "tools/Registration.h"

namespace tools {

/// True if the two paths are equal. Ignores letter case.
bool IsSamePath(const String& one, const String& other);

/// Returns the tool's folder. Only a drive's root has a trailing backslash.
String ToolFolder();

struct ComponentInForce {
    String library;  ///< the registered path, even if it is not a full path; else the full path of the tool's copy
    std::optional<Scope>
        scope;  ///< no value: no registered component can be used, and `library` is the copy in the tool's folder
};

/// Finds the component that COM loads for a client. Without a registration, returns the copy in the tool's folder.
ComponentInForce FindComponent();

/// Returns "registered for the machine", "registered for the user" or "not registered; the copy beside this tool".
std::string_view ScopeInWords(const ComponentInForce& component);

/// Finds the kernel library that the component in `componentFolder` loads. The function assumes that the client is not
/// in the tool's folder. Returns no value if the component finds no kernel.
std::optional<kernel_api::win32::FoundKernel> KernelOfClients(const String& componentFolder);

/// Returns the path of QmxKrn2K.dll in the tool's folder if `KernelOfClients` finds no kernel. Otherwise returns "".
String KernelBesideToolAlone(const String& componentFolder);

/// Makes an object for the kernel that `KernelOfClients` finds. The object's first call loads the kernel. If there is
/// no kernel, the object's calls fail with error 53. If the only kernel is in the tool's folder, this function throws
/// error 53.
std::unique_ptr<kernel_api::win32::KernelLibrary> MakeKernelOfClients(const String& componentFolder);

/// Sets this process's ports, kernel and reader as the component sets them in a client. Returns the component. If the
/// component's library cannot be loaded, prints a line to `err` and uses the tool's folder.
ComponentInForce ComposeAsClient(std::string_view verb, std::ostream& err);

/// Prints the component and the kernel in use to `err`. Prints nothing if the component is in the tool's folder.
void PrintWhichComponent(std::string_view verb, const ComponentInForce& component, std::ostream& err);

}  // namespace tools
