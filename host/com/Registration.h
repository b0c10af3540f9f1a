// Writes and removes the component's registry entries. Each call changes the entries of the machine or the entries of
// the current user.
#pragma once

#include "host/com/RegistryEntries.h"

namespace host::com {

enum class RegistrationScope { kMachine, kUser };

/// Returns all entries for a component file at `modulePath`. Their keys are relative to Software\Classes of a hive.
std::vector<RegistryEntry> RegistrationEntries(const String& modulePath);

/// Registers the file that contains this code. May be repeated. On failure, leaves the registry unchanged and throws
/// the HRESULT. Also fails if the file's path is too long for COM.
void Register(RegistrationScope scope);
/// Removes the entries that Register writes. Also removes the entries that the system adds when a program calls
/// RegisterTypeLib or LoadTypeLibEx for the type library. May be repeated. Does not remove any other entries.
void Unregister(RegistrationScope scope);

}  // namespace host::com
