// Counts what the process has of the window system, so that a test can see what is left behind.
#pragma once

#include <functional>

namespace tests {

long GdiObjects();
long UserObjects();
/// Of this thread, with those inside others.
long Windows();

/// Runs `round`, which gets its number, some times and then `rounds` times more; the latter must leave nothing behind.
/// Thousands of rounds tell a rare loss from the few objects that the system itself keeps more or less.
void ExpectNothingStays(int rounds, const std::function<void(int)>& round);

}  // namespace tests
