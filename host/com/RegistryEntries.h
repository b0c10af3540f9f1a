// Writes and removes a list of registry values as a whole. If writing fails half-way, it is undone. Removing deletes
// the values of the list and the keys that are then empty, and nothing else.
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

/// A failure restores the earlier values and throws its HRESULT.
void WriteEntries(HKEY root, const std::vector<RegistryEntry>& entries);
/// A value that does not exist is no error. After a failure the other values are removed, then its HRESULT is thrown.
void RemoveEntries(HKEY root, const std::vector<RegistryEntry>& entries);

}  // namespace host::com
