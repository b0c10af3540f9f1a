#include "tests/messagebox/BoxSteps.h"

#include <utility>

namespace tests {
namespace {

/// The thread's own window in front; another program on the same screen may have taken the keyboard.
bool HasKeyboard(HWND box) {
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    if (process != GetCurrentProcessId()) {
        SetForegroundWindow(box);
        return false;
    }
    return IsChild(box, GetFocus());
}

void AddKey(std::vector<INPUT>& inputs, WORD key, DWORD flags) {
    INPUT& input = inputs.emplace_back();
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
}

bool Send(std::vector<INPUT> inputs) {
    const auto count = static_cast<UINT>(inputs.size());
    return SendInput(count, inputs.data(), sizeof inputs[0]) == count;
}

}  // namespace

HWND ButtonOf(HWND box, const wchar_t* caption) {
    return FindWindowExW(box, nullptr, L"BUTTON", caption);
}

HWND LabelOf(HWND box) {
    return FindWindowExW(box, nullptr, L"K4TBackProcess.Label", nullptr);
}

BoxDriver::Step Keys(std::vector<WORD> keys) {
    return [keys = std::move(keys)](HWND box) {
        if (!HasKeyboard(box)) return false;
        std::vector<INPUT> inputs;
        for (const WORD key : keys) AddKey(inputs, key, 0);
        for (auto key = keys.rbegin(); key != keys.rend(); ++key) AddKey(inputs, *key, KEYEVENTF_KEYUP);
        return Send(std::move(inputs));
    };
}

BoxDriver::Step Repeated(WORD key) {
    return [key](HWND box) {
        constexpr LPARAM kOnce = 1;
        return HasKeyboard(box) && PostMessageW(GetFocus(), WM_KEYDOWN, key, KF_REPEAT << 16 | kOnce) != FALSE;
    };
}

BoxDriver::Step Character(wchar_t character) {
    return
        [character](HWND box) { return HasKeyboard(box) && PostMessageW(GetFocus(), WM_CHAR, character, 1) != FALSE; };
}

BoxDriver::Step ClickOn(const wchar_t* caption) {
    return [caption](HWND box) {
        RECT button{};
        if (!HasKeyboard(box) || !GetWindowRect(ButtonOf(box, caption), &button)) return false;
        SetCursorPos(static_cast<int>(button.left + 5), static_cast<int>(button.top + 5));
        std::vector<INPUT> inputs(2);
        for (INPUT& input : inputs) input.type = INPUT_MOUSE;
        inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
        inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
        return Send(std::move(inputs));
    };
}

BoxDriver::Step FocusIsOn(const wchar_t* caption) {
    return [caption](HWND box) { return HasKeyboard(box) && GetFocus() == ButtonOf(box, caption); };
}

BoxDriver::Step Do(std::function<void(HWND box)> action) {
    return [action = std::move(action)](HWND box) {
        action(box);
        return true;
    };
}

}  // namespace tests
