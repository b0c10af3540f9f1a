// The owner window of a benchmark's dialogs. The owner paints each dialog directly after the dialog is shown, records
// the time, and clicks a button.
#pragma once

#include "tests/bench/Row.h"
#include "tests/windows/OwnerWindow.h"

namespace tests {

/// Only one object of this class may exist at a time.
class AnsweringOwner {
 public:
    /// `button` is the caption of the button, including its '&'. The string must outlive the object.
    explicit AnsweringOwner(const wchar_t* button)
        : button_(button), hook_(SetWindowsHookExW(WH_CALLWNDPROC, SeeMessage, nullptr, GetCurrentThreadId())) {
        current_ = this;
    }
    AnsweringOwner(const AnsweringOwner&) = delete;
    AnsweringOwner& operator=(const AnsweringOwner&) = delete;
    ~AnsweringOwner() {
        UnhookWindowsHookEx(hook_);
        current_ = nullptr;
    }

    HWND Handle() const { return window_.Handle(); }
    /// Returns the time at which the last dialog was painted.
    Clock::time_point ShownAt() const { return shownAt_; }

 private:
    static constexpr UINT kDialogIsShown = WM_APP;

    static LRESULT CALLBACK SeeMessage(int code, WPARAM wParam, LPARAM lParam) noexcept {
        const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (code == HC_ACTION && sent.message == WM_WINDOWPOSCHANGED && current_->IsDialog(sent.hwnd)) {
            const auto& change = *reinterpret_cast<const WINDOWPOS*>(sent.lParam);
            const bool isShown = (change.flags & SWP_SHOWWINDOW) != 0;
            if (isShown) PostMessageW(current_->Handle(), kDialogIsShown, reinterpret_cast<WPARAM>(sent.hwnd), 0);
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    bool IsDialog(HWND window) const { return window != Handle() && GetWindow(window, GW_OWNER) == Handle(); }

    void Answer(HWND dialog) {
        RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        shownAt_ = Clock::now();
        PostMessageW(FindWindowExW(dialog, nullptr, L"BUTTON", button_), BM_CLICK, 0, 0);
    }

    inline static AnsweringOwner* current_ = nullptr;

    const wchar_t* button_;
    Clock::time_point shownAt_;
    OwnerWindow window_{[this](UINT message, WPARAM wParam, LPARAM) {
                            if (message == kDialogIsShown) Answer(reinterpret_cast<HWND>(wParam));
                        },
                        {600, 400}};
    HHOOK hook_;
};

}  // namespace tests
