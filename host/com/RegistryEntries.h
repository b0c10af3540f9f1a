// Writes and removes a list of registry values. If writing a value fails, the registry's earlier values are
// restored. Removing deletes the values of the list, and then each of their keys and parent keys that is empty. It does
// not delete anything else.
#pragma once

#include <optional>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace host::com {

using runtime::String;

struct RegistryEntry {
    String key;   ///< path below the root
    String name;  ///< empty for the key's default value
    String value;
};

/// On failure, restores the earlier values and throws the HRESULT.
void WriteEntries(HKEY root, const std::vector<RegistryEntry>& entries);
/// Ignores values that do not exist. If removing a value fails, removes the other values and then throws the HRESULT.
void RemoveEntries(HKEY root, const std::vector<RegistryEntry>& entries);

}  // namespace host::com
