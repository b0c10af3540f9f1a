// Writes and removes a list of registry values as a whole. Writing undoes itself when it fails half-way; removing
// takes away the values of the list and the keys that are then empty, and nothing else.
#pragma once

#include <optional>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace host::com {

using runtime::String;

struct RegistryEntry {
    String key;   ///< path below the root
    String name;  ///< empty: the key's default value
    String value;
};

/// Throws the HRESULT of what failed, after everything has been put back.
void WriteEntries(HKEY root, const std::vector<RegistryEntry>& entries);
/// Removing what is not there succeeds. Goes on after a failure, then throws its HRESULT.
void RemoveEntries(HKEY root, const std::vector<RegistryEntry>& entries);

}  // namespace host::com
