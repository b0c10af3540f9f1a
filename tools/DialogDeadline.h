// Sets a time limit for a dialog. When the time is up, DialogDeadline closes the dialog in the same way as the close
// button. A dialog whose thread is blocked does not close. DialogDeadline then ends the process.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "runtime/win32/WindowsHeaders.h"

namespace tools {

/// Create the object on the thread that shows the dialog, before any call that uses windows. Such a call blocks if the
/// display does not respond.
class DialogDeadline {
 public:
    /// Without `seconds` there is no limit. `giveUp` is called before the process is ended. The caller prints the
    /// default answer in `giveUp`. `giveUp` runs on another thread while the dialog's thread is blocked.
    DialogDeadline(std::optional<std::int32_t> seconds, std::function<void()> giveUp);
    DialogDeadline(const DialogDeadline&) = delete;
    DialogDeadline& operator=(const DialogDeadline&) = delete;
    ~DialogDeadline() { Stop(); }

    /// Removes the limit. Returns true if the time was up already.
    bool Stop();

 private:
    void Watch(std::int32_t seconds);
    /// Waits for `duration`. Returns true if the limit was removed.
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
