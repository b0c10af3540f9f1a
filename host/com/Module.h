// Finds the file that contains this code, and keeps it in memory. The file is the component's DLL or a program.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace host::com {

HMODULE OwnModule();
/// Keeps the DLL in memory until the process ends, even if a client frees it.
void PinModule();
runtime::String ModulePath();

}  // namespace host::com
