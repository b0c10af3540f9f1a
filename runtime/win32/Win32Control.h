// A control's window.
#pragma once

#include "runtime/WindowsPort.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class Win32Control : public NativeControl {
 public:
    /// Error 7 when the system refuses. The window goes with its parent.
    Win32Control(HWND parent, ControlKind kind, HINSTANCE instance);

    void SetBounds(const Rect& bounds) override;
    void SetText(const String& text) override;
    void Refresh() override;

 private:
    HWND window_;
};

}  // namespace runtime::win32
