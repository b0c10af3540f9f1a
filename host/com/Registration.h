// The component's entries in the registry. Each call changes those of the machine or those of the current user.
#pragma once

#include "host/com/RegistryEntries.h"

namespace host::com {

enum class RegistrationScope { kMachine, kUser };

/// All entries for a module at `modulePath`. Their keys are relative to Software\Classes of a hive.
std::vector<RegistryEntry> RegistrationEntries(const String& modulePath);

/// Registers this module. May be repeated. A failure leaves the registry unchanged; its HRESULT is thrown. A path that
/// is too long for COM is a failure.
void Register(RegistrationScope scope);
/// Removes the entries of Register, and those that the system adds when a program registers the type library itself.
/// May be repeated. Other entries stay.
void Unregister(RegistrationScope scope);

}  // namespace host::com
