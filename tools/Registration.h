// Entering the component in the registry and taking it out again, and looking at what stands there.
#pragma once

#include <optional>

#include "tools/Diagnosis.h"

namespace tools {

enum class Scope { kMachine, kUser };

/// Has the component beside the tool register itself. ComFailure when it refuses, std::runtime_error when it cannot be
/// loaded.
void Register(Scope scope);
/// The reverse; fails alike.
void Unregister(Scope scope);

/// The component's file that is registered for `scope`; none when it is not registered there.
std::optional<String> RegisteredLibrary(Scope scope);
/// The whole entry; none when the class is not registered there.
std::optional<ClassEntry> RegisteredClass(Scope scope);
/// The component's class identifier, in braces.
String ClassIdentifier();
/// Where a scope's classes stand in the registry.
const char* RegistryPlace(Scope scope);

}  // namespace tools
