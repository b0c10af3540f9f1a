#include "runtime/win32/DisabledWindows.h"

#include <algorithm>
#include <utility>

#include "runtime/win32/Callback.h"

namespace runtime::win32 {
namespace {

/// True for a visible window. Also true for a hidden window with a title bar, because it may be shown while the dialog
/// is open. Other hidden windows are not meant for the user, for example windows of input methods.
bool IsForTheUser(HWND window) {
    return IsWindowVisible(window) || (GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
}

}  // namespace

DisabledWindows::DisabledWindows(HWND question) : question_(question) {
    Callback::CallSystem(
        [this] { return EnumThreadWindows(GetCurrentThreadId(), Remember, reinterpret_cast<LPARAM>(this)); });
}

BOOL CALLBACK DisabledWindows::Remember(HWND window, LPARAM self) noexcept {
    return Callback::Guard(FALSE, [window, self]() -> BOOL {
        auto& windows = *reinterpret_cast<DisabledWindows*>(self);
        if (window != windows.question_ && IsForTheUser(window) && IsWindowEnabled(window)) {
            windows.windows_.push_back(window);
        }
        return TRUE;
    });
}

void DisabledWindows::Disable() {
    for (const HWND window : windows_) {
        if (IsWindow(window)) EnableWindow(window, FALSE);
    }
}

void DisabledWindows::Enable() {
    for (const HWND window : std::exchange(windows_, {})) {
        if (IsWindow(window) && !IsWindowEnabled(window)) EnableWindow(window, TRUE);
    }
}

HWND DisabledWindows::FirstVisible() const {
    const auto visible = std::find_if(windows_.begin(), windows_.end(), IsWindowVisible);
    return visible == windows_.end() ? nullptr : *visible;
}

}  // namespace runtime::win32
