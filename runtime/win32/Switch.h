// Switches that a user sets in the environment of the host program.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// True if the value of the environment variable is exactly "1". Any other value is off.
inline bool IsSwitchedOn(const wchar_t* variable) {
    wchar_t value[2]{};
    return GetEnvironmentVariableW(variable, value, 2) == 1 && value[0] == L'1';
}

}  // namespace runtime::win32
