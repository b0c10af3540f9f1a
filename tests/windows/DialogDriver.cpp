#include "tests/windows/DialogDriver.h"

#include <gtest/gtest.h>

#include <utility>

#include "tests/windows/Queues.h"
#include "tests/windows/WindowTexts.h"

namespace tests {
namespace {

constexpr UINT kTick = 10;  // milliseconds
constexpr int kTimedOut = 99;

bool IsSystemDialog(HWND window) {
    return IsClass(window, L"#32770");
}

bool IsSuiteDialog(HWND window) {
    return IsClass(window, L"K4TBackProcess.Form") && (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_DLGMODALFRAME);
}

BOOL CALLBACK TakeDialog(HWND window, LPARAM found) noexcept {
    const bool isDialog = IsSystemDialog(window) || IsSuiteDialog(window);
    if (!isDialog || !IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

}  // namespace

DialogDriver* DialogDriver::current_ = nullptr;

DialogDriver::DialogDriver(std::vector<Step> steps, ULONGLONG longestWait)
    : steps_(std::move(steps)), end_(GetTickCount64() + longestWait), timer_(SetTimer(nullptr, 0, kTick, OnTimer)) {
    current_ = this;
}

DialogDriver::~DialogDriver() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
    if (hasAskedToQuit_) TakeQuit();
    EXPECT_EQ(next_, steps_.size()) << "some steps are not done";
}

void CALLBACK DialogDriver::OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept {
    if (current_) current_->Tick();
}

void DialogDriver::Tick() {
    const HWND dialog = ShownDialog();
    if (GetTickCount64() > end_) {
        GiveUp(dialog);
        return;
    }
    if (!dialog || next_ == steps_.size()) return;
    // Advance the counter first, because the step may show another dialog. The next steps then run on that dialog.
    const std::size_t step = next_++;
    if (!steps_[step](dialog)) next_ = step;
}

void DialogDriver::GiveUp(HWND dialog) {
    if (!dialog) {
        if (hasAskedToQuit_) return;
        ADD_FAILURE() << "the test waits without a dialog in step " << next_;
        hasAskedToQuit_ = true;
        PostQuitMessage(kTimedOut);
        return;
    }
    ADD_FAILURE() << "a dialog is still open in step " << next_;
    if (IsSuiteDialog(dialog)) PostMessageW(dialog, WM_CLOSE, 0, 0);
    if (IsSystemDialog(dialog)) EndDialog(dialog, kTimedOut);
}

HWND ShownDialog() {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeDialog, reinterpret_cast<LPARAM>(&dialog));
    return dialog;
}

}  // namespace tests
