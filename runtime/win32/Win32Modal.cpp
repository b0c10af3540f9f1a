#include "runtime/win32/Win32Modal.h"

#include "runtime/Screen.h"
#include "runtime/win32/Win32Windows.h"

namespace runtime::win32 {
namespace {

/// The thread's active window, if a dialog can belong to it.
HWND OwnerFor(HWND dialog) {
    const HWND active = GetActiveWindow();
    return active != dialog && IsWindowVisible(active) ? active : nullptr;
}

}  // namespace

Win32Modal::Win32Modal(Win32Windows& system, HWND window)
    : system_(system), window_(window), owner_(OwnerFor(window)), others_(window) {
    others_.Disable();
    // While another program is in front no window is the active one; the dialog must not get behind the topmost.
    if (!owner_) owner_ = others_.FirstVisible();
    // An owned dialog stays in front of its owner, and the owner becomes active again when the dialog is hidden.
    SetWindowLongPtrW(window_, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner_));
    if (system_.MousePointer() == kDefaultPointer) pointerBefore_ = SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

Win32Modal::~Win32Modal() {
    End();
    // Only now: the window is hidden, and the windows below it were asked for a pointer already.
    if (pointerBefore_ && system_.MousePointer() == kDefaultPointer) SetCursor(*pointerBefore_);
}

void Win32Modal::End() {
    if (ended_) return;
    ended_ = true;
    others_.Enable();
    // When other code destroyed the dialog, its owner was still disabled and did not become active.
    if (!IsWindowVisible(window_) && owner_ && !GetActiveWindow()) SetActiveWindow(owner_);
    // Run may wait for a message that the system has handled without handing it out.
    PostMessageW(nullptr, WM_NULL, 0, 0);
}

void Win32Modal::Run() {
    MSG message{};
    while (!ended_) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (got < 0) return;
        system_.Dispatch(message);
    }
}

}  // namespace runtime::win32
