// Puts input into the system's queue, as the user's devices do, and takes messages out of the thread's queue.
#pragma once

#include <optional>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

/// Presses the keys in order and releases them in reverse order. Returns false if the system refuses them.
bool SendKeys(const std::vector<WORD>& keys);
/// Holds a key down until it is destroyed.
class HeldKey {
 public:
    explicit HeldKey(WORD key);
    ~HeldKey();
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

 private:
    WORD key_;
};
/// Clicks the left button at a position on the screen. Returns false if the system refuses it.
bool SendClick(POINT place);

/// Removes a waiting quit message from the queue. Returns its exit code, or none if there is no such message.
std::optional<int> TakeQuit();

}  // namespace tests
