// The component and the kernel library that a client would get, so that the tool looks where a client looks and not
// where the tool itself is.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include "kernel_api/win32/KernelLibrary.h"
#include "tools/Registration.h"

namespace tools {

/// The paths are equal but for letter case.
bool IsSamePath(const String& one, const String& other);

/// The tool's folder, without a final backslash unless it is a drive's root.
String ToolFolder();

struct ComponentInForce {
    String library;              ///< full path
    std::optional<Scope> scope;  ///< none: it is not registered, and the copy beside the tool is meant
};

/// The component that COM gives a client; without a registration the one beside the tool.
ComponentInForce FindComponent();

/// "registered for the machine", "registered for the user", "not registered, the copy beside this tool".
std::string_view ScopeInWords(const ComponentInForce& component);

/// The kernel library that the component in `componentFolder` loads in a program of another folder than the tool's.
/// None when it finds none.
std::optional<kernel_api::win32::FoundKernel> KernelOfClients(const String& componentFolder);

/// The QmxKrn2K.dll beside the tool, when it is the only one; "" otherwise.
String KernelBesideToolAlone(const String& componentFolder);

/// That kernel, loaded at the first call. Its calls fail with error 53 when clients find none.
std::unique_ptr<kernel_api::win32::KernelLibrary> MakeKernelOfClients(const String& componentFolder);

/// Makes the ports, the kernel and the reader of this process those that the component has in a client, and gives the
/// component. When it cannot be loaded, the folder is the tool's, and a line is printed to `err`.
ComponentInForce ComposeAsClient(std::string_view verb, std::ostream& err);

/// Prints to `err` which component and kernel are looked at, unless they are those beside the tool.
void PrintWhichComponent(std::string_view verb, const ComponentInForce& component, std::ostream& err);

}  // namespace tools
