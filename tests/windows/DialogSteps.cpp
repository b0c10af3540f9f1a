#include "tests/windows/DialogSteps.h"

#include <utility>

#include "tests/windows/Queues.h"

namespace tests {
namespace {

/// True if this process has the foreground and the focus is inside the dialog. If another program is in the foreground,
/// the function brings this process back to the foreground.
bool HasFocus(HWND dialog) {
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    if (process != GetCurrentProcessId()) {
        SetForegroundWindow(dialog);
        return false;
    }
    return IsChild(dialog, GetFocus());
}

}  // namespace

HWND ButtonOf(HWND dialog, const wchar_t* caption) {
    return FindWindowExW(dialog, nullptr, L"BUTTON", caption);
}

HWND LabelOf(HWND dialog) {
    return FindWindowExW(dialog, nullptr, L"K4TBackProcess.Label", nullptr);
}

DialogDriver::Step Keys(std::vector<WORD> keys) {
    return [keys = std::move(keys)](HWND dialog) { return HasFocus(dialog) && SendKeys(keys); };
}

DialogDriver::Step Type(WORD key) {
    return [key](HWND dialog) {
        const HWND focus = GetFocus();
        const bool isReady = focus == dialog || IsChild(dialog, focus);
        return isReady && PostMessageW(focus, WM_KEYDOWN, key, 1) && PostMessageW(focus, WM_KEYUP, key, 1);
    };
}

DialogDriver::Step Repeated(WORD key) {
    return [key](HWND dialog) {
        constexpr LPARAM kOnce = 1;
        return HasFocus(dialog) && PostMessageW(GetFocus(), WM_KEYDOWN, key, KF_REPEAT << 16 | kOnce) != FALSE;
    };
}

DialogDriver::Step Character(wchar_t character) {
    return [character](HWND dialog) {
        return HasFocus(dialog) && PostMessageW(GetFocus(), WM_CHAR, character, 1) != FALSE;
    };
}

DialogDriver::Step Press(int id) {
    return [id](HWND dialog) { return PostMessageW(GetDlgItem(dialog, id), BM_CLICK, 0, 0) != FALSE; };
}

DialogDriver::Step ClickOn(const wchar_t* caption) {
    return [caption](HWND dialog) {
        RECT button{};
        if (!HasFocus(dialog) || !GetWindowRect(ButtonOf(dialog, caption), &button)) return false;
        return SendClick({button.left + 5, button.top + 5});
    };
}

DialogDriver::Step FocusIsOn(const wchar_t* caption) {
    return [caption](HWND dialog) { return HasFocus(dialog) && GetFocus() == ButtonOf(dialog, caption); };
}

DialogDriver::Step Do(std::function<void(HWND dialog)> action) {
    return [action = std::move(action)](HWND dialog) {
        action(dialog);
        return true;
    };
}

}  // namespace tests
