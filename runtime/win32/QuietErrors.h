// Suppresses message boxes of the system, for example about a missing disk. The caller handles the error.
#pragma once

#include "runtime/ScopeGuard.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Applies to the current thread until the guard is destroyed. If the thread already suppresses message boxes, they
/// stay suppressed.
/// `kinds`: SEM_FAILCRITICALERRORS, SEM_NOOPENFILEERRORBOX.
[[nodiscard]] inline auto QuietErrors(DWORD kinds) {
    DWORD before = 0;
    SetThreadErrorMode(GetThreadErrorMode() | kinds, &before);
    return ScopeGuard([before] { SetThreadErrorMode(before, nullptr); });
}

}  // namespace runtime::win32
