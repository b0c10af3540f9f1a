#include "runtime/win32/Win32Window.h"

#include <ole2.h>
// Include this header after ole2.h, because the header needs ole2.h.
#include <oleacc.h>

#include "runtime/win32/AccessibleWindow.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/OutOfResources.h"
#include "runtime/win32/Pixels.h"
#include "runtime/win32/Win32Control.h"
#include "runtime/win32/Win32Windows.h"

namespace runtime::win32 {
namespace {

std::int16_t HeldModifiers() {
    const auto held = [](int key) { return GetKeyState(key) < 0; };
    return static_cast<std::int16_t>((held(VK_SHIFT) ? kShift : 0) | (held(VK_CONTROL) ? kCtrl : 0) |
                                     (held(VK_MENU) ? kAlt : 0));
}

bool IsRepeated(LPARAM keyMessage) {
    return (HIWORD(keyMessage) & KF_REPEAT) != 0;
}

constexpr Colour kSystemColour = 0x80000000;

bool IsSystemColour(Colour colour) {
    return (colour & kSystemColour) != 0;
}

int SystemColourIndex(Colour colour) {
    return static_cast<int>(colour & ~kSystemColour);
}

BOOL CALLBACK PassOn(HWND child, LPARAM message) noexcept {
    SendMessageW(child, static_cast<UINT>(message), 0, 0);
    return TRUE;
}

constexpr int kFirstControlId = 100;

/// A form may have any size, even larger than the screen.
void LiftSizeLimits(MINMAXINFO* limits) {
    constexpr LONG kAnySize = 32767;
    if (!limits) return;
    limits->ptMinTrackSize = {1, 1};
    limits->ptMaxTrackSize = {kAnySize, kAnySize};
}

int ShowCommand(WindowState state) {
    switch (state) {
        case WindowState::kMinimised:
            return SW_SHOWMINIMIZED;
        case WindowState::kMaximised:
            return SW_SHOWMAXIMIZED;
        case WindowState::kNormal:
            break;
    }
    return SW_SHOWNORMAL;
}

}  // namespace

Win32Window::Win32Window(Win32Windows& system, const WindowDesign& design, WindowEvents& events)
    : system_(system), events_(events), border_(design.border) {
    SetBackColour(design.backColour);
    const RECT place = ToPixels(design.outer);
    const DWORD direction = design.isRightToLeft ? WS_EX_LAYOUTRTL : 0;
    CreateWindowExW(ExtendedStyleOf(design.border) | direction, system.ClassName(), Wide(NulsAsBlanks(design.caption)),
                    StyleOf(design.border), static_cast<int>(place.left), static_cast<int>(place.top),
                    static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top), nullptr,
                    nullptr, system.Instance(), this);
    if (!window_) throw OutOfResources(u"cannot create the window of a form");
    ReportBounds();
    // Show the underlines of access keys and the focus rectangle from the start, also on systems that hide them until a
    // key is pressed.
    SendMessageW(window_, WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
}

Win32Window::~Win32Window() {
    // The window may have been destroyed with its thread, and the handle may now belong to another window.
    if (!window_ || !Exists(this, window_)) return;
    const HWND window = window_;
    // Disconnect this object from the window, so that the destruction is not reported to the form.
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    window_ = nullptr;
    Destroy(window);
}

// DestroyWindow fails for a window of another thread. WM_CLOSE then destroys the window, because the window is not
// connected to an object.
void Win32Window::Destroy(HWND window) noexcept {
    if (!DestroyWindow(window)) PostMessageW(window, WM_CLOSE, 0, 0);
}

DWORD Win32Window::StyleOf(BorderStyle border) {
    if (border == BorderStyle::kFixedDialog) return WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
    return WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
}

DWORD Win32Window::ExtendedStyleOf(BorderStyle border) {
    // Use a dialog frame without an icon in the title bar.
    return border == BorderStyle::kFixedDialog ? WS_EX_DLGMODALFRAME : 0;
}

void Win32Window::SetCaption(const String& caption) {
    Callback::CallSystem([&] { SetWindowTextW(window_, Wide(NulsAsBlanks(caption))); });
}

void Win32Window::SetBounds(const Rect& outer) {
    const RECT place = ToPixels(outer);
    // The window procedure reports the change to the form.
    Callback::CallSystem([&] {
        SetWindowPos(window_, nullptr, static_cast<int>(place.left), static_cast<int>(place.top),
                     static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top),
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
    });
}

void Win32Window::Show(WindowState state) {
    Callback::CallSystem([&] { ShowWindow(window_, ShowCommand(state)); });
}

void Win32Window::Hide() {
    Callback::CallSystem([&] { ShowWindow(window_, SW_HIDE); });
}

void Win32Window::SetState(WindowState state) {
    if (!IsWindowVisible(window_)) return;
    Callback::CallSystem([&] { ShowWindow(window_, ShowCommand(state)); });
}

void Win32Window::SetBackColour(Colour colour) {
    backColour_ = colour;
    ownBackground_.Reset(IsSystemColour(colour) ? nullptr : CreateSolidBrush(colour));
    if (window_) InvalidateRect(window_, nullptr, TRUE);
}

void Win32Window::SetTopMost(bool onTop) {
    Callback::CallSystem([&] {
        SetWindowPos(window_, onTop ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                     SWP_NOSIZE | SWP_NOMOVE | SWP_NOOWNERZORDER);
    });
}

Size Win32Window::InnerSize() const {
    RECT client{};
    GetClientRect(window_, &client);
    return ToTwips(client).Size();
}

NativeHandle Win32Window::DeviceContext() {
    // The window class has CS_OWNDC. Each window has one context, and the context need not be released.
    return reinterpret_cast<NativeHandle>(GetDC(window_));
}

NativeControl& Win32Window::AddControl(const ControlLook& look) {
    const int id = kFirstControlId + static_cast<int>(controls_.size());
    controls_.push_back(Win32Control::Make(*this, system_, look, id));
    return *controls_.back();
}

bool Win32Window::TakesKey(const MSG& message) {
    const HWND form = message.hwnd ? GetAncestor(message.hwnd, GA_ROOT) : nullptr;
    // Check the class, because other code may have replaced the window's own procedure.
    if (!form || GetClassLongPtrW(form, GCLP_WNDPROC) != reinterpret_cast<ULONG_PTR>(&Procedure)) return false;
    auto* self = reinterpret_cast<Win32Window*>(GetWindowLongPtrW(form, GWLP_USERDATA));
    return self && self->OnKey(message.message, message.wParam, message.lParam);
}

LRESULT CALLBACK Win32Window::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return Callback::Guard(LRESULT{0}, [&]() -> LRESULT {
        if (message == WM_GETMINMAXINFO) {  // also sent before the window has its object
            LiftSizeLimits(reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        }
        if (message == WM_NCCREATE && !Adopt(window, lParam)) return FALSE;
        auto* self = reinterpret_cast<Win32Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        return self ? self->OnMessage(message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
    });
}

// Other code may send WM_NCCREATE, or create a window of this class.
bool Win32Window::Adopt(HWND window, LPARAM createMessage) {
    if (!createMessage || GetWindowLongPtrW(window, GWLP_USERDATA)) return false;
    auto* created = static_cast<Win32Window*>(reinterpret_cast<const CREATESTRUCTW*>(createMessage)->lpCreateParams);
    if (!created) return false;
    created->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    return true;
}

bool Win32Window::Exists(const Win32Window* self, HWND window) {
    return reinterpret_cast<const Win32Window*>(GetWindowLongPtrW(window, GWLP_USERDATA)) == self;
}

LRESULT Win32Window::Default(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window_, message, wParam, lParam);
}

// A form's handler may destroy this window. After an event that runs handlers, each function returns at once, uses
// only local variables, or first calls Exists. LosingFocus runs no handlers.
LRESULT Win32Window::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CLOSE:
            events_.Closing(UnloadReason::kUser);
            return 0;
        case WM_ENDSESSION:
            if (wParam) events_.Closing(UnloadReason::kSystemEnd);
            return 0;
        case WM_DESTROY:
            OnDestroy();
            return 0;
        case WM_ACTIVATE:
            return OnActivate(wParam, lParam);
        case WM_SHOWWINDOW:
            return OnShowWindow(wParam, lParam);
        case WM_WINDOWPOSCHANGED:
        case WM_STYLECHANGED:  // other code can show a window by changing its style
            return OnChanged(message, wParam, lParam);
        case WM_WINDOWPOSCHANGING:
            // A form has no size limits. The default handling would ask for the limits and query the displays each
            // time.
            return 0;
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_SYSKEYDOWN:  // a minimised window gets its keys in these messages
        case WM_SYSKEYUP:
        case WM_CHAR:
        case WM_SYSCHAR:
            return OnKeyMessage(message, wParam, lParam);
        case WM_SETFOCUS:
            events_.GotFocus();
            return 0;
        case WM_CANCELMODE:  // also sent before the window is disabled
            events_.LosingFocus();
            return Default(message, wParam, lParam);
        case WM_HELP:
            // The default handling would send WM_HELP to the owner. The form's handlers have already got F1.
            return TRUE;
        case WM_COMMAND:
            OnCommand(wParam, lParam);
            return 0;
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            return GiveColours(reinterpret_cast<HDC>(wParam));
        case WM_ERASEBKGND:
            Erase(reinterpret_cast<HDC>(wParam));
            return 1;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE:
            return OnLookChanged(message, wParam, lParam);
        case WM_GETOBJECT:
            return OnGetObject(wParam, lParam);
        case WM_SETCURSOR:
            if (LOWORD(lParam) == HTCLIENT && system_.ShowPointer()) return TRUE;
            return Default(message, wParam, lParam);
        default:
            return Default(message, wParam, lParam);
    }
}

// Called when other code destroys the window. The form's handlers run while the child windows still exist.
//
// Other code can also send WM_DESTROY to a window that is not being destroyed. WM_CLOSE then destroys this window,
// because it is no longer connected to an object.
void Win32Window::OnDestroy() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    window_ = nullptr;
    events_.Lost();
}

LRESULT Win32Window::OnActivate(WPARAM wParam, LPARAM lParam) {
    const bool activated = LOWORD(wParam) != WA_INACTIVE && HIWORD(wParam) == 0;
    const HWND window = window_;
    if (!activated) events_.LosingFocus();
    const LRESULT result = Default(WM_ACTIVATE, wParam, lParam);
    if (!activated) return result;
    // If other code shows the window, WM_ACTIVATE arrives before the message about the change.
    if (Exists(this, window)) ReportChanges();
    if (Exists(this, window)) events_.Activated();
    return result;
}

// The default handling hides the window when the window's owner is minimised, and shows the window again later. The
// form still counts the window as visible.
LRESULT Win32Window::OnShowWindow(WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    if (lParam == SW_PARENTCLOSING) isHiddenWithOwner_ = true;
    const LRESULT result = Default(WM_SHOWWINDOW, wParam, lParam);
    if (lParam != SW_PARENTOPENING || !Exists(this, window)) return result;
    isHiddenWithOwner_ = false;
    ReportVisibility();
    return result;
}

LRESULT Win32Window::OnChanged(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    const LRESULT result = Default(message, wParam, lParam);
    if (Exists(this, window)) ReportChanges();
    return result;
}

// A key from the client's own message loop has not been passed to the form yet.
LRESULT Win32Window::OnKeyMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    const bool isNew = !system_.IsDispatchingKey();
    if (isNew && OnKey(message, wParam, lParam)) return 0;
    return DefWindowProcW(window, message, wParam, lParam);
}

bool Win32Window::OnKey(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            return events_.KeyDown(static_cast<std::int16_t>(wParam), HeldModifiers(), IsRepeated(lParam)) ||
                   ClosesWindow(window, message, wParam, lParam);
        case WM_KEYUP:
        case WM_SYSKEYUP:
            return events_.KeyUp(static_cast<std::int16_t>(wParam), HeldModifiers());
        case WM_CHAR:
            return events_.KeyPress(static_cast<char16_t>(wParam));
        case WM_SYSCHAR:
            return events_.AccessKey(static_cast<char16_t>(wParam));
        default:
            return false;
    }
}

// Handle Alt+F4 here for every focused control, because a drop-down list would consume the key.
bool Win32Window::ClosesWindow(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool isWithAlt = (HIWORD(lParam) & KF_ALTDOWN) != 0;
    if (message != WM_SYSKEYDOWN || wParam != VK_F4 || !isWithAlt) return false;
    DefWindowProcW(window, message, wParam, lParam);
    return true;
}

void Win32Window::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (!lParam) return;
    const auto control = static_cast<std::size_t>(LOWORD(wParam)) - kFirstControlId;
    if (control >= controls_.size()) return;
    switch (controls_[control]->NoticeOf(HIWORD(wParam))) {
        case Notice::kClicked:
            // A message can press a button of a disabled window.
            if (IsWindowEnabled(window_)) events_.Clicked(control);
            return;
        case Notice::kEdited:
            events_.Edited(control);
            return;
        case Notice::kChosen:
            events_.Chosen(control, controls_[control]->ChosenItem());
            return;
        case Notice::kNone:
            return;
    }
}

LRESULT Win32Window::GiveColours(HDC context) const {
    const bool isSystemColour = IsSystemColour(backColour_);
    SetBkColor(context, isSystemColour ? GetSysColor(SystemColourIndex(backColour_)) : backColour_);
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    return reinterpret_cast<LRESULT>(Background());
}

// The brush of a system colour changes with the colour.
HBRUSH Win32Window::Background() const {
    return IsSystemColour(backColour_) ? GetSysColorBrush(SystemColourIndex(backColour_)) : ownBackground_.Get();
}

LRESULT Win32Window::OnLookChanged(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    // The system sends this message to top-level windows only.
    if (message == WM_SYSCOLORCHANGE) EnumChildWindows(window, PassOn, WM_SYSCOLORCHANGE);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT Win32Window::OnGetObject(WPARAM wParam, LPARAM lParam) {
    const bool isDialog = border_ == BorderStyle::kFixedDialog;
    const LRESULT answer = isDialog && AsksForClientObject(lParam)
                               ? AnswerGetObject(window_, wParam, ROLE_SYSTEM_DIALOG, accessibleDescription_)
                               : 0;
    return answer != 0 ? answer : Default(WM_GETOBJECT, wParam, lParam);
}

WindowState Win32Window::CurrentState() const {
    if (IsIconic(window_)) return WindowState::kMinimised;
    return IsZoomed(window_) ? WindowState::kMaximised : WindowState::kNormal;
}

void Win32Window::ReportChanges() {
    const HWND window = window_;
    ReportBounds();
    if (Exists(this, window)) ReportVisibility();
}

void Win32Window::ReportBounds() {
    const bool isShown = IsWindowVisible(window_) != FALSE;
    // Do not report a hidden minimised window. Its bounds and state differ from those that the form will have when it
    // is shown.
    if (!isShown && IsIconic(window_)) return;
    RECT outer{};
    GetWindowRect(window_, &outer);
    events_.BoundsChanged(ToTwips(outer), isShown ? std::optional(CurrentState()) : std::nullopt);
}

void Win32Window::ReportVisibility() {
    if (!isHiddenWithOwner_) events_.VisibilityChanged(IsWindowVisible(window_) != FALSE);
}

void Win32Window::Erase(HDC context) const {
    RECT client{};
    GetClientRect(window_, &client);
    FillRect(context, &client, Background());
}

}  // namespace runtime::win32
