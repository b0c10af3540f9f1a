// Chooses the number of repetitions for tests that look for leaks or races.
#pragma once

#include <algorithm>
#include <cstdlib>

namespace tests {

/// Returns `full` if the environment variable K4T_FULL_ROUNDS is set. Otherwise returns a tenth of `full`, but at least
/// `least` and at most `full`.
inline int Rounds(int full, int least) {
    return std::getenv("K4T_FULL_ROUNDS") ? full : std::min(full, std::max(full / 10, least));
}

}  // namespace tests
