// Where a module, a program or a library, lies on the disk.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Full path of the module's file, null meaning the program's; "" when the system refuses.
String ModulePath(HMODULE module);
/// The folder of `path`, without a final backslash unless it is a drive's root; "" for a name without a folder.
String FolderOf(StringView path);

}  // namespace runtime::win32
