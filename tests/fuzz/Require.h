// How a fuzzer says which law an input broke.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace tests {

/// Ends the process unless `isTrue`, which makes the fuzzer keep the input.
inline void Require(bool isTrue, const char* law) {
    if (isTrue) return;
    std::fprintf(stderr, "broken: %s\n", law);
    std::abort();
}

}  // namespace tests
