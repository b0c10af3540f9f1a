// Answers the message boxes that the thread shows, the system's and the suite's own, from inside their modal loops: a
// list of steps, which run one after the other on the innermost box. Boxes that are still open after the time given are
// closed, and the test fails; when none is shown then, the loop that still waits is ended by a request to quit.
#pragma once

#include <functional>
#include <vector>

#include "runtime/Text.h"
#include "runtime/win32/WindowsHeaders.h"

namespace tests {

class BoxDriver {
 public:
    /// True when it is done; else it is run again a little later.
    using Step = std::function<bool(HWND box)>;

    /// `longestWait` in milliseconds.
    explicit BoxDriver(std::vector<Step> steps, ULONGLONG longestWait = 30'000);
    BoxDriver(const BoxDriver&) = delete;
    BoxDriver& operator=(const BoxDriver&) = delete;
    /// Fails the test unless every step has run.
    ~BoxDriver();

 private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept;
    void Tick();
    void GiveUp(HWND box);

    static BoxDriver* current_;

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    bool hasAskedToQuit_ = false;
    ULONGLONG end_;
    UINT_PTR timer_;
};

/// The innermost message box of this thread: visible and enabled; null when there is none.
HWND ShownBox();
/// The text of a window of any length.
runtime::String TextOf(HWND window);

/// Clicks the button with the identifier `id`.
BoxDriver::Step Press(int id);
/// Types a key into the box, through its message queue.
BoxDriver::Step Type(WORD key);

}  // namespace tests
