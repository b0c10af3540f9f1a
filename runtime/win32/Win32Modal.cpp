#include "runtime/win32/Win32Modal.h"

#include "runtime/Screen.h"
#include "runtime/win32/Win32Windows.h"

namespace runtime::win32 {
namespace {

/// Returns the thread's active window, or null if that window cannot own `dialog`.
HWND OwnerFor(HWND dialog) {
    const HWND active = GetActiveWindow();
    return active != dialog && IsWindowVisible(active) ? active : nullptr;
}

}  // namespace

Win32Modal::Win32Modal(Win32Windows& system, HWND window)
    : system_(system), window_(window), owner_(OwnerFor(window)), others_(window) {
    others_.Disable();
    // The thread has no active window while another program is in front. The dialog must still stay in front of the
    // thread's first visible window.
    if (!owner_) owner_ = others_.FirstVisible();
    // An owned dialog stays in front of its owner, and the owner becomes active again when the dialog is hidden.
    SetWindowLongPtrW(window_, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner_));
    if (system_.MousePointer() == kDefaultPointer) pointerBefore_ = SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

Win32Modal::~Win32Modal() {
    End();
    // Restore the pointer last, because the windows below the dialog may have set another pointer when it was hidden.
    if (pointerBefore_ && system_.MousePointer() == kDefaultPointer) SetCursor(*pointerBefore_);
}

void Win32Modal::End() {
    if (ended_) return;
    ended_ = true;
    others_.Enable();
    // If other code destroyed the dialog, its owner was disabled at that time and did not become active.
    if (!IsWindowVisible(window_) && owner_ && !GetActiveWindow()) SetActiveWindow(owner_);
    // Wake up Run. It may still wait for a message, because the system handles some messages without returning them to
    // Run.
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
