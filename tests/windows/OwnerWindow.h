// A window in front, which owns the dialogs that a test or a benchmark opens, and tells what messages it gets.
#pragma once

#include <functional>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

class OwnerWindow {
 public:
    /// Called before the system's own handling; must not throw.
    using Listener = std::function<void(UINT message, WPARAM wParam, LPARAM lParam)>;

    /// Visible and active, `size` in pixels.
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
