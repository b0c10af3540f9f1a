// Turns a thrown error into a value that a test can compare.
#pragma once

#include <cstdint>
#include <functional>

#include "runtime/Error.h"

namespace tests {

/// The number of the error that `action` raises; 0 for none.
inline std::int32_t ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const runtime::Error& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace tests
