// An active window that owns the dialogs of a test or benchmark. Once the window is active, it reports the messages
// that it receives.
#pragma once

#include <functional>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

class OwnerWindow {
 public:
    /// The window calls the listener before the default handling of a message. The listener must not throw.
    using Listener = std::function<void(UINT message, WPARAM wParam, LPARAM lParam)>;

    /// Creates a visible and active window. `size` is in pixels.
    explicit OwnerWindow(Listener listener, SIZE size = {300, 200});
    OwnerWindow(const OwnerWindow&) = delete;
    OwnerWindow& operator=(const OwnerWindow&) = delete;
    ~OwnerWindow();

    HWND Handle() const { return handle_; }

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    Listener listener_;
    HWND handle_;
};

}  // namespace tests
