// Loads libraries from known folders only. The current folder and PATH are never searched, neither for the library nor
// for the libraries that it needs: a file prepared in the folder of a design must not run in the program that opens the
// design.
#pragma once

#include "runtime/Text.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {

/// The library with this full path. What it needs is taken from its own folder, the program's and the system's. Empty
/// if it does not load; GetLastError has the reason.
Library LoadTrusted(const String& path);

/// The full path of `file` in the folder of the system's libraries.
String InSystemFolder(StringView file);

}  // namespace runtime::win32
