// What a test puts into the system's input queue, as the user's devices do, and what it takes out of the thread's.
#pragma once

#include <optional>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

/// Presses and releases the keys, the last one released first; false when the system refuses them.
bool SendKeys(const std::vector<WORD>& keys);
/// Keeps a key down while it lives.
class HeldKey {
 public:
    explicit HeldKey(WORD key);
    ~HeldKey();
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

 private:
    WORD key_;
};
/// Clicks with the left button at a place on the screen; false when the system refuses it.
bool SendClick(POINT place);

/// Takes back a request to quit that still waits: its code, nothing without one.
std::optional<int> TakeQuit();

}  // namespace tests
