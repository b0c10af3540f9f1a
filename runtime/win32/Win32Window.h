// A form's window and its controls' windows. The window reports its place and size whenever they change; else what the
// user and the system do, and not what its form asked for itself.
#pragma once

#include <memory>
#include <vector>

#include "runtime/WindowsPort.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class Win32Control;
class Win32Windows;

class Win32Window : public NativeWindow {
 public:
    /// Error 7 when the system refuses. `system` outlives the window.
    Win32Window(Win32Windows& system, const WindowDesign& design, WindowEvents& events);
    Win32Window(const Win32Window&) = delete;
    Win32Window& operator=(const Win32Window&) = delete;
    ~Win32Window() override;

    void SetCaption(const String& caption) override;
    void SetBounds(const Rect& outer) override;
    void Show(WindowState state) override;
    void Hide() override;
    void SetState(WindowState state) override;
    void SetBackColour(Colour colour) override;
    void SetTopMost(bool onTop) override;
    Size InnerSize() const override;
    NativeHandle Handle() const override { return reinterpret_cast<NativeHandle>(window_); }
    NativeHandle DeviceContext() override;
    NativeControl& AddControl(const ControlLook& look) override;

    static DWORD StyleOf(BorderStyle border);
    static DWORD ExtendedStyleOf(BorderStyle border);
    /// Shows a key of the queue to the form that it is meant for; true when the form used it up.
    static bool TakesKey(const MSG& message);
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

 private:
    /// Binds the new window to its object; false when the message is not of a window that this class makes.
    static bool Adopt(HWND window, LPARAM createMessage);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);
    /// `self` still exists and has the window; for use after a call in which others may have destroyed it.
    static bool Lives(const Win32Window* self, HWND window);
    void OnDestroy();
    /// Destroys `window`, on its own thread. It must not be this object's any more.
    static void Destroy(HWND window) noexcept;
    LRESULT OnActivate(WPARAM wParam, LPARAM lParam);
    LRESULT OnShowWindow(WPARAM wParam, LPARAM lParam);
    LRESULT OnChanged(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyMessage(UINT message, WPARAM wParam, LPARAM lParam);
    bool OnKey(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(WPARAM wParam, LPARAM lParam);
    LRESULT GiveColours(HDC context) const;
    void ReportChanges();
    void ReportBounds();
    void ReportVisibility();
    void Erase(HDC context) const;
    WindowState CurrentState() const;

    Win32Windows& system_;
    WindowEvents& events_;
    HWND window_ = nullptr;
    bool isHiddenWithOwner_ = false;  ///< the system hid it because its owner was minimised, and will show it again
    GdiBrush background_;
    std::vector<std::unique_ptr<Win32Control>> controls_;
};

}  // namespace runtime::win32
