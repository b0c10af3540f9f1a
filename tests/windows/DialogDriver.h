// Operates the system's and the suite's dialogs of the current thread from inside their modal loops. The driver runs a
// list of steps on the innermost dialog. When the time limit has passed, the driver closes the open dialogs and fails
// the test. If no dialog is open then, the driver ends the waiting loop with a quit message.
#pragma once

#include <functional>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

class DialogDriver {
 public:
    /// A step returns true when it is done. Otherwise the driver calls it again a little later.
    using Step = std::function<bool(HWND dialog)>;

    /// `longestWait` is the time limit for all steps together, in milliseconds.
    explicit DialogDriver(std::vector<Step> steps, ULONGLONG longestWait = 30'000);
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;
    /// Fails the test if a step is not done.
    ~DialogDriver();

 private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept;
    void Tick();
    void GiveUp(HWND dialog);

    static DialogDriver* current_;

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    bool hasAskedToQuit_ = false;
    ULONGLONG end_;
    UINT_PTR timer_;
};

/// Returns the innermost visible and enabled dialog of this thread, or null.
HWND ShownDialog();

}  // namespace tests
