// Registers and unregisters the component, and reads its registry entries.
#pragma once

#include <optional>

#include "tools/Diagnosis.h"

namespace tools {

/// Calls the registration function of the component in the tool's folder. Throws ComFailure if the function fails.
/// Throws std::runtime_error if the component cannot be loaded.
void Register(Scope scope);
/// Removes the registration. Throws the same errors as `Register`.
void Unregister(Scope scope);

/// Returns the path of the component's file in the registration for `scope`. Returns no value if the component is not
/// registered for `scope`.
std::optional<String> RegisteredLibrary(Scope scope);
/// Returns the whole class entry. Returns no value if the class is not registered for `scope`.
std::optional<ClassEntry> RegisteredClass(Scope scope);
/// One value of the registry, for display.
struct RegistryValue {
    String key;   ///< relative to the scope's "Software\Classes" key
    String name;  ///< empty for the key's default value
    String text;
};
/// Returns the existing values of the registration.
std::vector<RegistryValue> RegisteredValues(Scope scope);
/// Returns the class that is registered for the component's name. The user's entry hides the machine's entry.
NameEntry RegisteredName();
/// Returns the component's class identifier in braces.
String ClassIdentifier();
/// Returns the full name of the scope's "Software\Classes" key.
const char* RegistryPlace(Scope scope);

}  // namespace tools
