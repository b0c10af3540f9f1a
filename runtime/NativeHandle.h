// Defines the type of platform handles.
#pragma once

#include <cstdint>

namespace runtime {

/// A platform handle (window, device context, font) as a number. It has 32 bits in the component. 0 means no handle.
using NativeHandle = std::intptr_t;

}  // namespace runtime
