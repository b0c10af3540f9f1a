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

/// The default pointer for the time of a question, whose own pointers a caller's busy one would hide; then the caller's
/// again.
class DefaultPointer {
 public:
    DefaultPointer();
    ~DefaultPointer();
    DefaultPointer(const DefaultPointer&) = delete;
    DefaultPointer& operator=(const DefaultPointer&) = delete;

 private:
    std::int16_t former_;
};

}  // namespace runtime
