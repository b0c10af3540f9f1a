// The registry as a test sees it: everything below a key, and a key of the tests' own.
#pragma once

#include <map>
#include <string>

#include "runtime/win32/Handle.h"

namespace tests::com {

/// "path\name" to the value's type and bytes; a key itself stands as "path\".
using Hive = std::map<std::u16string, std::string>;

Hive Snapshot(HKEY root, const wchar_t* path);

inline Hive MachineClasses() {
    return Snapshot(HKEY_LOCAL_MACHINE, L"Software\\Classes");
}
inline Hive UserClasses() {
    return Snapshot(HKEY_CURRENT_USER, L"Software\\Classes");
}

}  // namespace tests::com
