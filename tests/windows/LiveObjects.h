// Counts what the process has of the window system, so that a test can see what is left behind.
#pragma once

#include <functional>

namespace tests {

long GdiObjects();
long UserObjects();
/// Of this thread, with those inside others.
long Windows();

/// Runs `round`, which gets its number, a few times and then Rounds(fullRounds) times more. The latter must leave
/// nothing behind but the 20 objects that the system itself keeps more or less; 40 rounds show the loss of one object a
/// round.
void ExpectNothingStays(int fullRounds, const std::function<void(int)>& round);

}  // namespace tests
