// Finds and pins the module that contains this code: the component's DLL or a test program.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace host::com {

HMODULE OwnModule();
/// Keeps the module in memory until the process ends, even if a client frees it.
void PinModule();
runtime::String ModulePath();

}  // namespace host::com
