// The type of platform handles.
#pragma once

#include <cstdint>

namespace runtime {

/// A platform handle (window, device context, font) as a number; 32 bits wide in the component, 0 for none.
using NativeHandle = std::intptr_t;

}  // namespace runtime
