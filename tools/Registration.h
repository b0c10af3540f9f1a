// Registers and unregisters the component, and reads its registry entries.
#pragma once

#include <optional>

#include "tools/Diagnosis.h"

namespace tools {

/// Calls the registration function of the component beside the tool. Throws ComFailure if that fails, and
/// std::runtime_error if the component cannot be loaded.
void Register(Scope scope);
/// Removes the registration. Throws as `Register` does.
void Unregister(Scope scope);

/// The component's file that is registered for `scope`. None if it is not registered there.
std::optional<String> RegisteredLibrary(Scope scope);
/// The whole class entry. None if the class is not registered there.
std::optional<ClassEntry> RegisteredClass(Scope scope);
/// One value of the registry, for display.
struct RegistryValue {
    String key;   ///< relative to the scope's classes
    String name;  ///< empty for the key's default value
    String text;
};
/// All existing values that registering writes.
std::vector<RegistryValue> RegisteredValues(Scope scope);
/// The class for which the name is registered. The user's entry hides the machine's.
NameEntry RegisteredName();
/// The component's class identifier, in braces.
String ClassIdentifier();
/// The registry key of a scope's classes.
const char* RegistryPlace(Scope scope);

}  // namespace tools
