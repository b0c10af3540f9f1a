// The screen as forms see it: its size, and the pointer's shape.
#pragma once

#include <cstdint>

#include "runtime/Geometry.h"

namespace runtime {

/// Pointer shapes in use, in the classic runtime's numbers.
enum MousePointerShape : std::int16_t { kDefaultPointer = 0, kHourglassPointer = 11 };

Size ScreenSize();
std::int16_t MousePointer();
/// 0..15 or 99; else error 380.
void SetMousePointer(std::int16_t shape);

}  // namespace runtime
