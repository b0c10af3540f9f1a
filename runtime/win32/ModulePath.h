// Returns the path of a module (a program or a library) and the folder of a path.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Returns the full path of the module's file. Null means the program. Returns "" on failure.
String ModulePath(HMODULE module);
/// Returns the folder of `path`. The result ends with a backslash only if it is a drive's root. Returns "" if `path`
/// has no folder.
String FolderOf(StringView path);

}  // namespace runtime::win32
