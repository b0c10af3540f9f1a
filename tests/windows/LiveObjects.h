// Counts the process's window system objects, so that a test can detect leaks.
#pragma once

#include <functional>

namespace tests {

long GdiObjects();
long UserObjects();
/// The windows of this thread, including child windows.
long Windows();

/// Runs `round` ten times as preparation, and then Rounds(fullRounds) times, which is at least 40. The later rounds
/// must leave no object behind. The tolerance is 20 objects, for the system's own use, so a leak of one object per
/// round is found. `round` gets its index.
void ExpectNothingStays(int fullRounds, const std::function<void(int)>& round);

}  // namespace tests
