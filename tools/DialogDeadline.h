// The time limit of a dialog. When the time is up, the dialog is closed as by its title bar. If it does not close,
// because its thread is blocked, the process is ended.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "runtime/win32/WindowsHeaders.h"

namespace tools {

/// Created on the thread that shows the dialog, before anything that could wait for the display.
class DialogDeadline {
 public:
    /// Without `seconds` there is no limit. `giveUp` prints the answer before the process is ended; it runs on another
    /// thread while the thread of the dialog is blocked.
    DialogDeadline(std::optional<std::int32_t> seconds, std::function<void()> giveUp);
    DialogDeadline(const DialogDeadline&) = delete;
    DialogDeadline& operator=(const DialogDeadline&) = delete;
    ~DialogDeadline() { Stop(); }

    /// Ends the limit. True if the time was up before.
    bool Stop();

 private:
    void Watch(std::int32_t seconds);
    /// Waits; true if the limit was ended.
    template <typename Duration>
    bool IsStoppedWithin(Duration duration);

    const DWORD dialogThread_ = GetCurrentThreadId();
    const std::function<void()> giveUp_;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isStopped_ = false;
    bool isOver_ = false;
    std::thread watcher_;
};

}  // namespace tools
