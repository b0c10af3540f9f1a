// Disables the windows of a thread while a dialog is open, so that the user cannot start another action in them.
#pragma once

#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// The calling thread's top-level windows that are enabled when this object is created. The destructor enables each of
/// them that is disabled, no matter which code disabled it. Used on that thread only.
class DisabledWindows {
 public:
    /// `question` is the dialog, which stays enabled; may be null.
    explicit DisabledWindows(HWND question);
    DisabledWindows(const DisabledWindows&) = delete;
    DisabledWindows& operator=(const DisabledWindows&) = delete;
    ~DisabledWindows() { Enable(); }

    /// Disables the windows. Each window gets a message about it, whose handler may run any code.
    void Disable();
    /// Re-enables the windows. A second call does nothing.
    void Enable();
    /// The first visible window; null if there is none.
    HWND FirstVisible() const;

 private:
    static BOOL CALLBACK Remember(HWND window, LPARAM self) noexcept;

    const HWND question_;
    std::vector<HWND> windows_;
};

}  // namespace runtime::win32
