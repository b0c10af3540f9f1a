#include "tools/DialogDeadline.h"

#include <chrono>
#include <utility>

#include "tools/Verb.h"

namespace tools {

namespace {

using namespace std::chrono_literals;

/// A dialog that is still open after these attempts is considered blocked.
constexpr int kCloseAttempts = 20;
constexpr auto kCloseInterval = 100ms;

/// A dialog has a title bar. Other windows, such as the open list of a combo box, have no title bar.
BOOL CALLBACK CloseIfDialog(HWND window, LPARAM) noexcept {
    const bool hasTitleBar = (GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
    if (hasTitleBar && IsWindowVisible(window)) PostMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
}

}  // namespace

DialogDeadline::DialogDeadline(std::optional<std::int32_t> seconds, std::function<void()> giveUp)
    : giveUp_(std::move(giveUp)) {
    if (seconds) watcher_ = std::thread([this, limit = *seconds] { Watch(limit); });
}

bool DialogDeadline::Stop() {
    {
        const std::lock_guard lock(mutex_);
        isStopped_ = true;
    }
    changed_.notify_one();
    if (watcher_.joinable()) watcher_.join();
    return isOver_;
}

template <typename Duration>
bool DialogDeadline::IsStoppedWithin(Duration duration) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, duration, [this] { return isStopped_; });
}

void DialogDeadline::Watch(std::int32_t seconds) {
    if (IsStoppedWithin(std::chrono::seconds(seconds))) return;
    isOver_ = true;
    // Post the message repeatedly, because the dialog may not be visible yet.
    for (int i = 0; i < kCloseAttempts; ++i) {
        EnumThreadWindows(dialogThread_, CloseIfDialog, 0);
        if (IsStoppedWithin(kCloseInterval)) return;
    }
    giveUp_();
    TerminateProcess(GetCurrentProcess(), kDialogTimedOut);
}

}  // namespace tools
