// Process-wide objects. They live until the process ends and are never destroyed: when static destructors run, other
// modules may be unloaded already, a window may still refer to them, and the system takes everything back anyway.
#pragma once

namespace runtime {

/// A new object for the rest of the process.
template <typename Object>
Object& NeverDestroyed() {
    return *new Object;
}

}  // namespace runtime
