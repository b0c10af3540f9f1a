// Puts input into the system's queue, as the user's devices do. Also removes a quit message from the thread's queue.
#pragma once

#include <optional>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

/// Presses the keys in order and releases the keys in reverse order. Returns false if the system refuses the input.
bool SendKeys(const std::vector<WORD>& keys);
/// Holds a key down. The destructor releases the key.
class HeldKey {
 public:
    explicit HeldKey(WORD key);
    ~HeldKey();
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

 private:
    WORD key_;
};
/// Clicks the left button at a position on the screen. Returns false if the system refuses the click.
bool SendClick(POINT place);

/// Removes a waiting quit message from the queue. Returns the message's exit code, or no value if no quit message
/// waits.
std::optional<int> TakeQuit();

}  // namespace tests
