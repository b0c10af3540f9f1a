#include "tests/messagebox/BoxDriver.h"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>

namespace tests {

namespace {

constexpr UINT kTick = 10;  // milliseconds
constexpr int kTimedOut = 99;

bool IsClass(HWND window, std::wstring_view name) {
    wchar_t its[32]{};
    return name == std::wstring_view(its, static_cast<std::size_t>(GetClassNameW(window, its, 32)));
}

bool IsSystemBox(HWND window) {
    return IsClass(window, L"#32770");
}

bool IsSuiteBox(HWND window) {
    return IsClass(window, L"K4TBackProcess.Form") && (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_DLGMODALFRAME);
}

BOOL CALLBACK TakeBox(HWND window, LPARAM found) noexcept {
    const bool isBox = IsSystemBox(window) || IsSuiteBox(window);
    if (!isBox || !IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

}  // namespace

BoxDriver* BoxDriver::current_ = nullptr;

BoxDriver::BoxDriver(std::vector<Step> steps, ULONGLONG longestWait)
    : steps_(std::move(steps)), end_(GetTickCount64() + longestWait), timer_(SetTimer(nullptr, 0, kTick, OnTimer)) {
    current_ = this;
}

BoxDriver::~BoxDriver() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
    MSG quit{};
    if (hasAskedToQuit_) PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    EXPECT_EQ(next_, steps_.size()) << "steps done, and steps that there are";
}

void CALLBACK BoxDriver::OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept {
    if (current_) current_->Tick();
}

void BoxDriver::Tick() {
    const HWND box = ShownBox();
    if (GetTickCount64() > end_) {
        GiveUp(box);
        return;
    }
    if (!box || next_ == steps_.size()) return;
    // Counted first: the step may show a box of its own, on which the next steps run meanwhile.
    const std::size_t step = next_++;
    if (!steps_[step](box)) next_ = step;
}

void BoxDriver::GiveUp(HWND box) {
    if (!box) {
        if (hasAskedToQuit_) return;
        ADD_FAILURE() << "something still waits, without a box, in step " << next_;
        hasAskedToQuit_ = true;
        PostQuitMessage(kTimedOut);
        return;
    }
    ADD_FAILURE() << "a box is still open in step " << next_;
    if (IsSuiteBox(box)) PostMessageW(box, WM_CLOSE, 0, 0);
    if (IsSystemBox(box)) EndDialog(box, kTimedOut);
}

HWND ShownBox() {
    HWND box = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeBox, reinterpret_cast<LPARAM>(&box));
    return box;
}

runtime::String TextOf(HWND window) {
    runtime::String text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
    const int taken = GetWindowTextW(window, runtime::win32::Wide(text.data()), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(taken));
    return text;
}

BoxDriver::Step Press(int id) {
    return [id](HWND box) { return PostMessageW(GetDlgItem(box, id), BM_CLICK, 0, 0) != FALSE; };
}

BoxDriver::Step Type(WORD key) {
    return [key](HWND box) {
        const HWND focus = GetFocus();
        const bool isReady = focus == box || IsChild(box, focus);
        return isReady && PostMessageW(focus, WM_KEYDOWN, key, 1) && PostMessageW(focus, WM_KEYUP, key, 1);
    };
}

}  // namespace tests
