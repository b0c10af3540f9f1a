// The windows through which a thread takes input, for the time of a question that keeps them from it: a handler of
// theirs could run into the question that is open.
#pragma once

#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Those of this thread that take input when it is made. At its end they do so again, whoever kept them from it, unless
/// they were enabled before: what happens to them from then on is their owners' affair.
class InputWindows {
 public:
    /// `question` is not among them; null leaves none out.
    explicit InputWindows(HWND question);
    InputWindows(const InputWindows&) = delete;
    InputWindows& operator=(const InputWindows&) = delete;
    ~InputWindows() { Enable(); }

    /// Windows are told of it, and their handlers may do anything.
    void Disable();
    /// Once; none is left then.
    void Enable();
    /// Null when none of them is visible.
    HWND FirstVisible() const;

 private:
    static BOOL CALLBACK Remember(HWND window, LPARAM self) noexcept;

    const HWND question_;
    std::vector<HWND> windows_;
};

}  // namespace runtime::win32
