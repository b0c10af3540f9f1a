// Loads libraries by their full paths. The system loads the imports of these libraries from known folders. It does not
// search the current folder or PATH for them, because a malicious file in the folder of a design could then run in the
// program that opens the design. The exception is an old Windows 7 (see LoadTrusted).
#pragma once

#include "runtime/Text.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {

/// Loads the library with the full path `path`. The system searches for the library's own imports in the library's
/// folder, the program's folder and the system folder. Windows 7 without the update of 2011 also searches the current
/// folder and PATH. Returns an empty owner on failure. GetLastError then returns the reason.
Library LoadTrusted(const String& path);

/// Returns the full path of `file` in the system folder.
String InSystemFolder(StringView file);

}  // namespace runtime::win32
