// Finds the path of a DLL or program, and the folder of a path.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Returns the full path of the DLL or program `module`. Null means the program of this process. Returns "" on failure.
String ModulePath(HMODULE module);
/// Returns the folder of `path`. The result ends with a backslash only if it is a drive's root. Returns "" if `path`
/// has no folder.
String FolderOf(StringView path);

}  // namespace runtime::win32
