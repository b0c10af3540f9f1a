// Loads libraries from known folders only, not from the current folder or PATH. Otherwise a prepared file in the folder
// of a design could run in the program that opens the design.
#pragma once

#include "runtime/Text.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {

/// Loads the library with the full path `path`. The libraries that it needs are loaded from its own folder, the
/// program's folder and the system folder. Empty on failure; GetLastError has the reason.
Library LoadTrusted(const String& path);

/// The full path of `file` in the system folder.
String InSystemFolder(StringView file);

}  // namespace runtime::win32
