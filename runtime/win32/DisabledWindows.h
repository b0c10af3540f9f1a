// Disables the windows of a thread while a question is open, so that none of their handlers runs into it.
#pragma once

#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// The top-level windows of the calling thread that are enabled when this is made. The destructor re-enables those that
/// are disabled, by this or by other code, unless Enable was called before. Used on that thread only.
class DisabledWindows {
 public:
    /// `question` is left out; it may be null.
    explicit DisabledWindows(HWND question);
    DisabledWindows(const DisabledWindows&) = delete;
    DisabledWindows& operator=(const DisabledWindows&) = delete;
    ~DisabledWindows() { Enable(); }

    /// The windows get messages about it, and their handlers may do anything.
    void Disable();
    /// Re-enables the windows. A second call does nothing.
    void Enable();
    /// Null when none of the windows is visible.
    HWND FirstVisible() const;

 private:
    static BOOL CALLBACK Remember(HWND window, LPARAM self) noexcept;

    const HWND question_;
    std::vector<HWND> windows_;
};

}  // namespace runtime::win32
