// Counts the process's GDI and USER objects and the thread's windows. Tests use the counts to find leaks.
#pragma once

#include <functional>

namespace tests {

long GdiObjects();
long UserObjects();
/// Returns the number of this thread's windows, including child windows.
long Windows();

/// Runs `round` ten times as preparation, and then Rounds(fullRounds, 40) times. The later rounds must leave no window
/// behind, and at most 20 GDI and 20 USER objects. This tolerance is for the system's own objects. 40 rounds are enough
/// to find a leak of one object per round. `round` gets the index of the round. The index of the later rounds begins at
/// 0 again.
void ExpectNothingStays(int fullRounds, const std::function<void(int)>& round);

}  // namespace tests
