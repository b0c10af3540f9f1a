// Counts the process's window system objects. With the counts, a test detects leaks.
#pragma once

#include <functional>

namespace tests {

long GdiObjects();
long UserObjects();
/// Returns the number of this thread's windows, including child windows.
long Windows();

/// Runs `round` ten times as preparation, and then Rounds(fullRounds, 40) times. The later rounds must leave no object
/// behind. The tolerance is 20 objects, because the system creates objects, too. A leak of one object per round is
/// therefore found. `round` gets its index.
void ExpectNothingStays(int fullRounds, const std::function<void(int)>& round);

}  // namespace tests
