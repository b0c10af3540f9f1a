// The path of a module: a program or a library.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// The full path of the module's file; null means the program. "" on failure.
String ModulePath(HMODULE module);
/// The folder of `path`. It ends with a backslash only if it is a drive's root. "" if `path` has no folder.
String FolderOf(StringView path);

}  // namespace runtime::win32
