// Turns a thrown error into a number that a test can compare with another number.
#pragma once

#include <cstdint>
#include <functional>

#include "runtime/Error.h"

namespace tests {

/// Returns the number of the error that `action` throws, or 0.
inline std::int32_t ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const runtime::Error& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace tests
