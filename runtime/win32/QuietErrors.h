// Suppresses message boxes of the system, for example about a missing disk. The caller handles the error instead.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Applies to the current thread until the object is destroyed. Message boxes that the thread suppresses already stay
/// suppressed.
class QuietErrors {
 public:
    /// `kinds`: SEM_FAILCRITICALERRORS, SEM_NOOPENFILEERRORBOX.
    explicit QuietErrors(DWORD kinds) { SetThreadErrorMode(GetThreadErrorMode() | kinds, &before_); }
    ~QuietErrors() { SetThreadErrorMode(before_, nullptr); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

 private:
    DWORD before_ = 0;
};

}  // namespace runtime::win32
