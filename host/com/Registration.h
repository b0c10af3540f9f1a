// The component's entries in the registry: for the machine or for the current user, never both from one call.
#pragma once

#include "host/com/RegistryEntries.h"

namespace host::com {

enum class RegistrationScope { kMachine, kUser };

/// Everything that is registered, relative to a hive's Software\Classes, for a module at `modulePath`.
std::vector<RegistryEntry> RegistrationEntries(const String& modulePath);

/// Registers this module. May be repeated; a failure leaves the registry as it was. Throws its HRESULT, and that of a
/// path that is too long for COM to load the module from there.
void Register(RegistrationScope scope);
/// Removes what Register wrote, and what the system adds when a program registers the type library by itself. May be
/// repeated. What others put beside it stays.
void Unregister(RegistrationScope scope);

}  // namespace host::com
