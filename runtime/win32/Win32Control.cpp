#include "runtime/win32/Win32Control.h"

#include <commctrl.h>

#include "runtime/Error.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/Pixels.h"

namespace runtime::win32 {
namespace {

HWND CreateStatusBar(HWND parent, HINSTANCE instance) {
    const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    // The form places the bar; the control must not place itself.
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | CCS_NORESIZE | CCS_NOPARENTALIGN;
    const HWND bar = CreateWindowExW(0, STATUSCLASSNAMEW, L"", kStyle, 0, 0, 0, 0, parent, nullptr, instance, nullptr);
    // One text area over the whole bar.
    if (bar) SendMessageW(bar, SB_SIMPLE, TRUE, 0);
    return bar;
}

HWND Create(HWND parent, ControlKind kind, HINSTANCE instance) {
    switch (kind) {
        case ControlKind::kStatusBar:
            return CreateStatusBar(parent, instance);
    }
    return nullptr;
}

}  // namespace

Win32Control::Win32Control(HWND parent, ControlKind kind, HINSTANCE instance)
    : window_(Create(parent, kind, instance)) {
    if (!window_) throw Error(kOutOfMemory);
}

void Win32Control::SetBounds(const Rect& bounds) {
    const RECT pixels = ToPixels(bounds);
    Callback::Into([&] {
        SetWindowPos(window_, nullptr, static_cast<int>(pixels.left), static_cast<int>(pixels.top),
                     static_cast<int>(pixels.right - pixels.left), static_cast<int>(pixels.bottom - pixels.top),
                     SWP_NOZORDER | SWP_NOACTIVATE);
    });
}

void Win32Control::SetText(const String& text) {
    SendMessageW(window_, SB_SETTEXTW, SB_SIMPLEID, reinterpret_cast<LPARAM>(Wide(text)));
}

void Win32Control::Refresh() {
    InvalidateRect(window_, nullptr, TRUE);
    UpdateWindow(window_);
}

}  // namespace runtime::win32
