// The modal time of a window: it is owned by the window that was active, and all other windows of the thread are
// disabled. The client's own pointer, a busy one perhaps, is an arrow for that time.
#pragma once

#include <optional>

#include "runtime/WindowsPort.h"
#include "runtime/win32/DisabledWindows.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class Win32Windows;

class Win32Modal final : public ModalLoop {
 public:
    /// `window` is the dialog, still hidden.
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
    std::optional<HCURSOR> pointerBefore_;  ///< none when a pointer of ours was shown, which forms keep
    bool ended_ = false;
};

}  // namespace runtime::win32
