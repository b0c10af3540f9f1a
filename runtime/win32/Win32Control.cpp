#include "runtime/win32/Win32Control.h"

#include <commctrl.h>

#include "runtime/win32/Callback.h"
#include "runtime/win32/OutOfResources.h"
#include "runtime/win32/Pixels.h"
#include "runtime/win32/Win32Combo.h"
#include "runtime/win32/Win32Label.h"
#include "runtime/win32/Win32ListBox.h"
#include "runtime/win32/Win32TextBox.h"
#include "runtime/win32/Win32Window.h"
#include "runtime/win32/Win32Windows.h"

namespace runtime::win32 {
namespace {

HWND CreateChild(HWND parent, HINSTANCE instance, const wchar_t* className, const wchar_t* text, DWORD style,
                 DWORD extendedStyle, int id) {
    return CreateWindowExW(extendedStyle, className, text, WS_CHILD | style, 0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), instance, nullptr);
}

}  // namespace

Win32Control::WindowKind Win32Control::KindOfWindow(ControlKind kind) {
    switch (kind) {
        case ControlKind::kStatusBar:
            // The form sets the position of the bar. The control must not set the position itself.
            return {STATUSCLASSNAMEW, CCS_NORESIZE | CCS_NOPARENTALIGN, 0};
        case ControlKind::kLabel:
            return {Win32Label::ClassName(), 0, 0};
        case ControlKind::kPicture:
            return {WC_STATICW, SS_ICON, 0};
        default:
            return {WC_BUTTONW, BS_PUSHBUTTON, 0};
    }
}

std::unique_ptr<Win32Control> Win32Control::Make(Win32Window& parent, Win32Windows& system, const ControlLook& look,
                                                 int id) {
    if (DropsDown(look.kind)) return std::make_unique<Win32Combo>(parent, system, look, id);
    if (HasEdit(look.kind)) return std::make_unique<Win32TextBox>(parent, system, look, id);
    if (HasList(look.kind)) return std::make_unique<Win32ListBox>(parent, system, look, id);
    return std::unique_ptr<Win32Control>(new Win32Control(parent, system, look, id));
}

Win32Control::Win32Control(Win32Window& parent, Win32Windows& system, ControlKind kind, int id,
                           const WindowKind& windowKind)
    : system_(system), kind_(kind) {
    if (kind == ControlKind::kStatusBar) {
        const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_BAR_CLASSES};
        InitCommonControlsEx(&classes);
    }
    window_ = CreateChild(reinterpret_cast<HWND>(parent.Handle()), system.Instance(), windowKind.className, L"",
                          WS_VISIBLE | windowKind.style, windowKind.extendedStyle, id);
    if (!window_) throw OutOfResources(u"cannot create the window of a control");
    if (kind == ControlKind::kLabel || kind == ControlKind::kPicture) KeepContentUnmirrored();
    // While a button has the focus, a form may use a typed letter as an access key. An input method must not use the
    // letter to compose text.
    if (kind == ControlKind::kButton) ImmAssociateContext(window_, nullptr);
}

Win32Control::Win32Control(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id)
    : Win32Control(parent, system, look.kind, id, KindOfWindow(look.kind)) {
    // Use one text area for the whole bar.
    if (kind_ == ControlKind::kStatusBar) SendMessageW(window_, SB_SIMPLE, TRUE, 0);
    if (!look.picture.empty()) {
        // Load the icon in its original size, not in the system's icon size.
        icon_.Reset(
            static_cast<HICON>(LoadImageW(system.Instance(), Wide(look.picture), IMAGE_ICON, 0, 0, LR_DEFAULTCOLOR)));
        SendMessageW(window_, STM_SETICON, reinterpret_cast<WPARAM>(icon_.Get()), 0);
    }
}

// On a mirrored form, the system mirrors the control's place. The content of a picture must not be mirrored. A label
// aligns its text itself.
void Win32Control::KeepContentUnmirrored() {
    const LONG_PTR style = GetWindowLongPtrW(window_, GWL_EXSTYLE);
    if ((style & WS_EX_LAYOUTRTL) == 0) return;
    SetWindowLongPtrW(window_, GWL_EXSTYLE, (style & ~LONG_PTR{WS_EX_LAYOUTRTL}) | WS_EX_RIGHT | WS_EX_RTLREADING);
}

void Win32Control::SetBounds(const Rect& bounds) {
    const RECT pixels = ToPixels(bounds);
    Callback::CallSystem([&] {
        SetWindowPos(window_, nullptr, static_cast<int>(pixels.left), static_cast<int>(pixels.top),
                     static_cast<int>(pixels.right - pixels.left), static_cast<int>(pixels.bottom - pixels.top),
                     SWP_NOZORDER | SWP_NOACTIVATE);
    });
}

void Win32Control::SetText(const String& text) {
    const String shown = NulsAsBlanks(text);
    if (kind_ == ControlKind::kStatusBar) {
        SendMessageW(window_, SB_SETTEXTW, SB_SIMPLEID, reinterpret_cast<LPARAM>(Wide(shown)));
    } else if (kind_ == ControlKind::kPicture) {
        // Screen readers announce this text. The window class would use the text as the name of a picture.
        DefWindowProcW(window_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(shown)));
    } else {
        Callback::CallSystem([&] { SetWindowTextW(window_, Wide(shown)); });
    }
}

void Win32Control::SetFont(const Font& font) {
    const HFONT made = system_.Fonts().Get(font);
    Callback::CallSystem([&] { SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(made), TRUE); });
}

void Win32Control::SetVisible(bool visible) {
    Callback::CallSystem([&] { ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE); });
}

void Win32Control::SetFocus() {
    if (GetActiveWindow() == GetParent(window_)) Callback::CallSystem([this] { ::SetFocus(window_); });
}

bool Win32Control::HasFocus() const {
    const HWND focused = GetFocus();
    return focused && (focused == window_ || IsChild(window_, focused));
}

void Win32Control::Refresh() {
    InvalidateRect(window_, nullptr, TRUE);
    UpdateWindow(window_);
}

void Win32Control::SetAccessibleName(const String& name) {
    const String shown = NulsAsBlanks(name);
    if (name_) {
        SetWindowTextW(name_, Wide(shown));
        return;
    }
    name_ = CreateChild(GetParent(window_), system_.Instance(), WC_STATICW, Wide(shown), SS_NOPREFIX, 0, -1);
    if (!name_) throw OutOfResources(u"cannot create the label that names a control");
    const auto putBehind = [](HWND window, HWND before) {
        SetWindowPos(window, before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    };
    const HWND before = GetWindow(window_, GW_HWNDPREV);
    putBehind(name_, before ? before : HWND_TOP);
}

Notice Win32Control::NoticeOf(WORD code) {
    return kind_ == ControlKind::kButton && code == BN_CLICKED ? Notice::kClicked : Notice::kNone;
}

String TextOf(HWND window) {
    String text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
    const int taken = GetWindowTextW(window, Wide(text.data()), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(taken));
    return text;
}

TextRange SelectionOf(HWND edit) {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {start, end - start};
}

void SelectIn(HWND edit, TextRange range) {
    SendMessageW(edit, EM_SETSEL, range.start, static_cast<LPARAM>(range.start + range.length));
    SendMessageW(edit, EM_SCROLLCARET, 0, 0);
}

void WriteInto(HWND edit, const String& text) {
    Callback::CallSystem([&] { SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(text))); });
}

}  // namespace runtime::win32
