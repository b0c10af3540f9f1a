// Registers the component, removes its registration, and reads the entries of the registry.
#pragma once

#include <optional>

#include "tools/Diagnosis.h"

namespace tools {

/// Has the component beside the tool register itself. ComFailure when it refuses, std::runtime_error when it cannot be
/// loaded.
void Register(Scope scope);
/// The reverse; fails alike.
void Unregister(Scope scope);

/// The component's file that is registered for `scope`; none when it is not registered there.
std::optional<String> RegisteredLibrary(Scope scope);
/// The whole entry; none when the class is not registered there.
std::optional<ClassEntry> RegisteredClass(Scope scope);
/// A text in the registry, for showing it.
struct RegistryValue {
    String key;   ///< below the classes
    String name;  ///< empty for the key's default value
    String text;
};
/// All texts that registering writes, as far as they are there.
std::vector<RegistryValue> RegisteredValues(Scope scope);
/// The class that the name is registered for. The user's entry hides the machine's.
NameEntry RegisteredName();
/// The component's class identifier, in braces.
String ClassIdentifier();
/// The registry key of a scope's classes.
const char* RegistryPlace(Scope scope);

}  // namespace tools
