// A form's window and the windows of its controls. The form or other code may change the window. The window reports
// changes of its bounds, state and visibility to its form. It reports its destruction only if other code destroys it.
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
    /// Error 7 if the system cannot create the window. `system` and `events` must outlive the window.
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
    void SetAccessibleDescription(const String& description) override { accessibleDescription_ = description; }
    NativeControl& AddControl(const ControlLook& look) override;

    static DWORD StyleOf(BorderStyle border);
    static DWORD ExtendedStyleOf(BorderStyle border);
    /// Passes a key message from the queue to its form. True if the form consumed the key.
    static bool TakesKey(const MSG& message);
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

 private:
    /// Connects a new window to its object. False if other code created the window or sent the message.
    static bool Adopt(HWND window, LPARAM createMessage);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);
    /// True if `self` still exists and owns `window`. Call it after a call that may run other code, because that code
    /// may destroy the window.
    static bool Exists(const Win32Window* self, HWND window);
    void OnDestroy();
    /// Destroys `window` on its own thread. `window` must no longer be connected to this object.
    static void Destroy(HWND window) noexcept;
    LRESULT OnActivate(WPARAM wParam, LPARAM lParam);
    LRESULT OnShowWindow(WPARAM wParam, LPARAM lParam);
    LRESULT OnChanged(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyMessage(UINT message, WPARAM wParam, LPARAM lParam);
    bool OnKey(UINT message, WPARAM wParam, LPARAM lParam);
    static bool ClosesWindow(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(WPARAM wParam, LPARAM lParam);
    LRESULT GiveColours(HDC context) const;
    LRESULT OnLookChanged(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnGetObject(WPARAM wParam, LPARAM lParam);
    HBRUSH Background() const;
    void ReportChanges();
    void ReportBounds();
    void ReportVisibility();
    void Erase(HDC context) const;
    WindowState CurrentState() const;

    Win32Windows& system_;
    WindowEvents& events_;
    HWND window_ = nullptr;
    bool isHiddenWithOwner_ = false;  ///< true if Windows hid the window because its owner was minimised
    const BorderStyle border_;
    Colour backColour_ = kButtonFace;
    GdiBrush ownBackground_;  ///< empty for a system colour
    String accessibleDescription_;
    std::vector<std::unique_ptr<Win32Control>> controls_;
};

}  // namespace runtime::win32
