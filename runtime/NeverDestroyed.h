// Process-wide objects that are never destroyed. When static destructors run, other modules may already be unloaded and
// a window may still refer to the object. The system frees the memory when the process ends.
#pragma once

namespace runtime {

/// Creates an object that exists until the process ends.
template <typename Object>
Object& NeverDestroyed() {
    return *new Object;
}

}  // namespace runtime
