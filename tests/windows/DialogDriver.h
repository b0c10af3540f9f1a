// Answers the dialogs that the thread shows, the system's and the suite's own, from inside their modal loops: a list of
// steps, which run one after the other on the innermost dialog. Dialogs that are still open after the time given are
// closed, and the test fails; when none is shown then, the loop that still waits is ended by a request to quit.
#pragma once

#include <functional>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

class DialogDriver {
 public:
    /// True when it is done; else it is run again a little later.
    using Step = std::function<bool(HWND dialog)>;

    /// `longestWait` in milliseconds.
    explicit DialogDriver(std::vector<Step> steps, ULONGLONG longestWait = 30'000);
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;
    /// Fails the test unless every step has run.
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

/// The innermost dialog of this thread: visible and enabled; null when there is none.
HWND ShownDialog();

}  // namespace tests
