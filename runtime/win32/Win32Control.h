// A control's window.
#pragma once

#include "runtime/WindowsPort.h"
#include "runtime/win32/Handle.h"

namespace runtime::win32 {

class Win32Window;
class Win32Windows;

class Win32Control : public NativeControl {
 public:
    /// Error 7 when the system refuses. The window goes with that of `parent`; `id` is what it reports itself as.
    Win32Control(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id);

    void SetBounds(const Rect& bounds) override;
    void SetText(const String& text) override;
    void SetFont(const Font& font) override;
    void SetFocus() override;
    void Refresh() override;

    HWND Window() const { return window_; }

 private:
    Win32Window& parent_;
    Win32Windows& system_;
    const ControlKind kind_;
    Icon icon_;
    HWND window_ = nullptr;
};

}  // namespace runtime::win32
