// Reports the law that an input breaks.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace tests {

/// Unless `isTrue`, prints the law and aborts, so that the fuzzer keeps the input.
inline void Require(bool isTrue, const char* law) {
    if (isTrue) return;
    std::fprintf(stderr, "broken: %s\n", law);
    std::abort();
}

}  // namespace tests
