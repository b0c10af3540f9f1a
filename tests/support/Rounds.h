// How often tests that look for what is lost repeat their work.
#pragma once

#include <algorithm>
#include <cstdlib>

namespace tests {

/// `full` when the environment variable K4T_FULL_ROUNDS is set; otherwise a tenth, but at least `least` rounds.
inline int Rounds(int full, int least) {
    return std::getenv("K4T_FULL_ROUNDS") ? full : std::min(full, std::max(full / 10, least));
}

}  // namespace tests
