// Returns the size of the screen. Reads and sets the shape of the mouse pointer.
#pragma once

#include <cstdint>

#include "runtime/Error.h"
#include "runtime/Geometry.h"
#include "runtime/ScopeGuard.h"

namespace runtime {

/// The pointer shapes that the component uses. The values are those of the classic runtime.
enum MousePointerShape : std::int16_t { kDefaultPointer = 0, kHourglassPointer = 11 };

Size ScreenSize();
std::int16_t MousePointer();
/// Raises error 380 if `shape` is neither in 0..15 nor 99.
void SetMousePointer(std::int16_t shape);

/// Shows the default pointer while a dialog is open, because a caller's busy pointer would hide the dialog's own
/// pointers. The guard restores the caller's pointer.
[[nodiscard]] inline auto DefaultPointerForScope() {
    const std::int16_t former = MousePointer();
    SetMousePointer(kDefaultPointer);
    return ScopeGuard([former] { IgnoreErrors([former] { SetMousePointer(former); }); });
}

}  // namespace runtime
