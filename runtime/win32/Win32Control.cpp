#include "runtime/win32/Win32Control.h"

#include <commctrl.h>

#include "runtime/Error.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/Pixels.h"
#include "runtime/win32/Win32Label.h"
#include "runtime/win32/Win32Picture.h"
#include "runtime/win32/Win32Window.h"
#include "runtime/win32/Win32Windows.h"

namespace runtime::win32 {
namespace {

struct WindowKind {
    const wchar_t* className;
    DWORD style;
};

WindowKind KindOfWindow(ControlKind kind) {
    switch (kind) {
        case ControlKind::kStatusBar:
            // The form places the bar; the control must not place itself.
            return {STATUSCLASSNAMEW, CCS_NORESIZE | CCS_NOPARENTALIGN};
        case ControlKind::kLabel:
            return {Win32Label::ClassName(), 0};
        case ControlKind::kButton:
            // Reports when it gets the focus, too.
            return {L"BUTTON", BS_PUSHBUTTON | BS_NOTIFY};
        case ControlKind::kPicture:
            return {L"STATIC", SS_ICON};
    }
    return {nullptr, 0};
}

HWND CreateControl(HWND parent, HINSTANCE instance, ControlKind kind, int id) {
    if (kind == ControlKind::kStatusBar) {
        const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_BAR_CLASSES};
        InitCommonControlsEx(&classes);
    }
    const WindowKind made = KindOfWindow(kind);
    return CreateWindowExW(0, made.className, L"", WS_CHILD | WS_VISIBLE | made.style, 0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), instance, nullptr);
}

}  // namespace

Win32Control::Win32Control(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id)
    : parent_(parent), system_(system), kind_(look.kind) {
    window_ = CreateControl(reinterpret_cast<HWND>(parent.Handle()), system.Instance(), look.kind, id);
    if (!window_) throw Error(kOutOfMemory);
    // One text area over the whole bar.
    if (kind_ == ControlKind::kStatusBar) SendMessageW(window_, SB_SIMPLE, TRUE, 0);
    if (look.picture) {
        icon_ = MakeIcon(*look.picture);
        SendMessageW(window_, STM_SETICON, reinterpret_cast<WPARAM>(icon_.Get()), 0);
    }
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
    const String shown = NulsAsBlanks(text);
    if (kind_ == ControlKind::kStatusBar) {
        SendMessageW(window_, SB_SETTEXTW, SB_SIMPLEID, reinterpret_cast<LPARAM>(Wide(shown)));
    } else {
        Callback::Into([&] { SetWindowTextW(window_, Wide(shown)); });
    }
}

void Win32Control::SetFont(const Font& font) {
    const HFONT made = system_.Fonts().Get(font);
    Callback::Into([&] { SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(made), TRUE); });
}

void Win32Control::SetFocus() {
    parent_.FocusControl(window_);
}

void Win32Control::Refresh() {
    InvalidateRect(window_, nullptr, TRUE);
    UpdateWindow(window_);
}

}  // namespace runtime::win32
