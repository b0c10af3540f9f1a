// Keeps the system from showing messages of its own about what fails, such as a missing disk: the caller answers it.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// For this thread, and as long as it lives. What the thread kept quiet already stays so.
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
