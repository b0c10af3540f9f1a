// Counts the process's window system objects, so that a test can detect leaks.
#pragma once

#include <functional>

namespace tests {

long GdiObjects();
long UserObjects();
/// The windows of this thread, including child windows.
long Windows();

/// Runs `round` ten times as preparation, and then Rounds(fullRounds) times. The latter rounds must leave no object
/// behind, with a tolerance of 20 objects of the system. They number at least 40, so a leak of one object per round is
/// found. `round` gets its index.
void ExpectNothingStays(int fullRounds, const std::function<void(int)>& round);

}  // namespace tests
