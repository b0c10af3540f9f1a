// The module that this code was linked into: the component's DLL, or a program of the tests.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace host::com {

HMODULE OwnModule();
/// Keeps the module in memory until the process ends, even if a client frees it.
void PinModule();
/// Full path of the module's file.
runtime::String ModulePath();

}  // namespace host::com
