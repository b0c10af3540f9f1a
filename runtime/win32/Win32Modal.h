// Runs the modal loop of a dialog. The thread's active window owns the dialog; without an active window, the first
// visible window of the thread. Other windows of the thread are disabled; see DisabledWindows. Until the dialog
// closes, an arrow replaces the client's mouse pointer, which may be an hourglass.
#pragma once

#include <optional>

#include "runtime/WindowsPort.h"
#include "runtime/win32/DisabledWindows.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class Win32Windows;

class Win32Modal final : public ModalLoop {
 public:
    /// `window` is the dialog. It must still be hidden.
    Win32Modal(Win32Windows& system, HWND window);
    Win32Modal(const Win32Modal&) = delete;
    Win32Modal& operator=(const Win32Modal&) = delete;
    ~Win32Modal() override;

    void Run() override;
    void End() override;

 private:
    Win32Windows& system_;
    HWND window_;
    HWND owner_;
    DisabledWindows others_;
    std::optional<HCURSOR> pointerBefore_;  ///< the client's pointer; no value if the component shows a pointer
    bool ended_ = false;
};

}  // namespace runtime::win32
