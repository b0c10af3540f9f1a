// Finds the component and the kernel library that a client would load. The tool inspects these, not the files in its
// own folder.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include "kernel_api/win32/KernelLibrary.h"
#include "tools/Registration.h"

namespace tools {

/// Compares two paths, ignoring letter case.
bool IsSamePath(const String& one, const String& other);

/// The tool's folder, without a trailing backslash unless it is a drive's root.
String ToolFolder();

struct ComponentInForce {
    String library;              ///< full path
    std::optional<Scope> scope;  ///< none: the component is not registered, and `library` is the copy beside the tool
};

/// The component that COM loads for a client. Without a registration, the copy beside the tool.
ComponentInForce FindComponent();

/// "registered for the machine", "registered for the user", "not registered, the copy beside this tool".
std::string_view ScopeInWords(const ComponentInForce& component);

/// The kernel library that the component in `componentFolder` loads. The client is assumed to be in another folder than
/// the tool. None if the component finds no kernel.
std::optional<kernel_api::win32::FoundKernel> KernelOfClients(const String& componentFolder);

/// The QmxKrn2K.dll beside the tool if `KernelOfClients` finds none; otherwise "".
String KernelBesideToolAlone(const String& componentFolder);

/// Makes the kernel that `KernelOfClients` finds; it is loaded at the first call. Without one, calls fail with error
/// 53.
std::unique_ptr<kernel_api::win32::KernelLibrary> MakeKernelOfClients(const String& componentFolder);

/// Sets this process's ports, kernel and reader to those that the component has in a client. Returns the component. If
/// its library cannot be loaded, prints a line to `err` and uses the tool's folder instead.
ComponentInForce ComposeAsClient(std::string_view verb, std::ostream& err);

/// Prints the component and kernel in use to `err`, unless the component is beside the tool.
void PrintWhichComponent(std::string_view verb, const ComponentInForce& component, std::ostream& err);

}  // namespace tools
