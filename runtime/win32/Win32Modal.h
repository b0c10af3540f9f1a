// The modal loop of a dialog. The window that was active owns the dialog. All other windows of the thread are disabled.
// An arrow replaces the client's mouse pointer, which may be an hourglass, until the dialog closes.
#pragma once

#include <optional>

#include "runtime/WindowsPort.h"
#include "runtime/win32/DisabledWindows.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class Win32Windows;

class Win32Modal final : public ModalLoop {
 public:
    /// `window` is the dialog, which is still hidden.
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
    std::optional<HCURSOR> pointerBefore_;  ///< the client's pointer; none if the component shows its own
    bool ended_ = false;
};

}  // namespace runtime::win32
