// Disables the windows of a thread while a dialog is open, so that the user cannot start an action in them.
#pragma once

#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Stores the calling thread's top-level windows that are enabled when this object is created. Leaves out hidden
/// windows without a title bar. The destructor enables the stored windows that are disabled, even if other code
/// disabled them. Use the object only on the thread that created it.
class DisabledWindows {
 public:
    /// `question` is the dialog. It stays enabled. It may be null.
    explicit DisabledWindows(HWND question);
    DisabledWindows(const DisabledWindows&) = delete;
    DisabledWindows& operator=(const DisabledWindows&) = delete;
    ~DisabledWindows() { Enable(); }

    /// Disables the windows. Each window gets a message about the change. A handler of the message may run any code.
    void Disable();
    /// Re-enables the windows. A second call does nothing.
    void Enable();
    /// Returns the first stored window that is visible; null if there is none.
    HWND FirstVisible() const;

 private:
    static BOOL CALLBACK Remember(HWND window, LPARAM self) noexcept;

    const HWND question_;
    std::vector<HWND> windows_;
};

}  // namespace runtime::win32
