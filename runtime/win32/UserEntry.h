// Finds functions of the window system that the Windows headers declare for newer systems only.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Returns the function `name` of user32, or null if the system does not have it.
template <typename Function>
Function* UserEntry(const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32"), name)));
}

}  // namespace runtime::win32
