// Makes process-wide objects that are never destroyed. When static destructors run, other DLLs may already be unloaded
// and a window may still refer to the object. The system frees the memory when the process ends.
#pragma once

#include <utility>

namespace runtime {

/// Creates an object that exists until the process ends.
template <typename Object, typename... Arguments>
Object& NeverDestroyed(Arguments&&... arguments) {
    return *new Object(std::forward<Arguments>(arguments)...);
}

}  // namespace runtime
