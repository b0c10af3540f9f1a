// Declares Require, which reports the rule that an input breaks.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace tests {

/// If `isTrue` is false, prints the rule `law` and aborts. The fuzzer then keeps the input.
inline void Require(bool isTrue, const char* law) {
    if (isTrue) return;
    std::fprintf(stderr, "broken: %s\n", law);
    std::abort();
}

}  // namespace tests
