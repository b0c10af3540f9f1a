// Simulates a user at the keyboard. In the Windows build, the keys are posted to the window with the keyboard focus.
// Elsewhere, the form's window in memory receives them.
#pragma once

#include "runtime/Form.h"
#include "runtime/Ports.h"

#ifdef _WIN32
#include <algorithm>
#include <iterator>

#include "runtime/win32/WindowsHeaders.h"
#else
#include "runtime/headless/MemoryWindows.h"
#endif

namespace tests {

class TypingUser {
 public:
    /// `form` must be visible and have the keyboard focus. Its focused control receives the keys.
    explicit TypingUser(runtime::Form& form) : form_(form) {}

    /// Presses and releases a key with the modifiers `shift` (kShift, kCtrl, kAlt). Enter, Space, Escape and Tab also
    /// produce a character if the form does not consume the key.
    void Press(std::int16_t keyCode, std::int16_t shift = 0);
    void Type(runtime::StringView text);

 private:
    runtime::Form& form_;
};

#ifdef _WIN32

/// Holds exactly the given modifier keys down for this thread. The destructor restores the earlier state of the keys.
class HeldKeys {
 public:
    explicit HeldKeys(std::int16_t shift) {
        GetKeyboardState(before_);
        BYTE held[kKeys];
        std::copy(std::begin(before_), std::end(before_), held);
        const auto hold = [&](int modifier, int key) { held[key] = (shift & modifier) != 0 ? 0x80 : 0; };
        hold(runtime::kShift, VK_SHIFT);
        hold(runtime::kCtrl, VK_CONTROL);
        hold(runtime::kAlt, VK_MENU);
        SetKeyboardState(held);
    }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
    ~HeldKeys() { SetKeyboardState(before_); }

 private:
    static constexpr int kKeys = 256;
    BYTE before_[kKeys]{};
};

inline void TypingUser::Press(std::int16_t keyCode, std::int16_t shift) {
    runtime::DoEvents();
    const HWND focus = GetFocus();
    const bool isSystemKey = (shift & runtime::kAlt) != 0;
    const LPARAM alt = isSystemKey ? static_cast<LPARAM>(KF_ALTDOWN) << 16 : 0;
    const LPARAM scan = static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(keyCode), MAPVK_VK_TO_VSC)) << 16 | alt;
    const HeldKeys held(shift);
    PostMessageW(focus, isSystemKey ? WM_SYSKEYDOWN : WM_KEYDOWN, static_cast<WPARAM>(keyCode), scan | 1);
    PostMessageW(focus, isSystemKey ? WM_SYSKEYUP : WM_KEYUP, static_cast<WPARAM>(keyCode),
                 scan | static_cast<LPARAM>(0xC0000001));
    runtime::DoEvents();
}

inline void TypingUser::Type(runtime::StringView text) {
    runtime::DoEvents();
    for (const char16_t character : text) {
        PostMessageW(GetFocus(), WM_CHAR, character, 1);
        runtime::DoEvents();
    }
}

#else

inline runtime::headless::MemoryWindow& WindowOf(runtime::Form& form) {
    auto& windows = dynamic_cast<runtime::headless::MemoryWindows&>(runtime::CurrentPorts().windows);
    for (runtime::headless::MemoryWindow* window : windows.Windows()) {
        if (window->Handle() == form.Handle()) return *window;
    }
    return windows.Last();
}

inline void TypingUser::Press(std::int16_t keyCode, std::int16_t shift) {
    WindowOf(form_).Press(keyCode, shift);
}

inline void TypingUser::Type(runtime::StringView text) {
    WindowOf(form_).Type(text);
}

#endif

}  // namespace tests
