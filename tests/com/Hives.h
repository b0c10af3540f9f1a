// Takes snapshots of registry keys.
#pragma once

#include <map>
#include <string>

#include "runtime/win32/Handle.h"

namespace tests::com {

/// Maps "path\name" to a value's type and bytes. Each key has the entry "path\", which holds the key's
/// default value or is empty.
using Hive = std::map<std::u16string, std::string>;

Hive Snapshot(HKEY root, const wchar_t* path);

inline Hive MachineClasses() {
    return Snapshot(HKEY_LOCAL_MACHINE, L"Software\\Classes");
}
inline Hive UserClasses() {
    return Snapshot(HKEY_CURRENT_USER, L"Software\\Classes");
}

}  // namespace tests::com
