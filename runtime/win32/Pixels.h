// Converts between twips and the pixels of the screen.
#pragma once

#include "runtime/Geometry.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Returns the dots per inch of the screen, as the thread sees the screen now. A program may change a thread's DPI
/// awareness at any time, so do not keep the result.
int ScreenDpi();

/// Rounds to the nearest pixel.
int ToPixels(Twips twips);
Twips ToTwips(int pixels);
/// Rounds position and size separately, so that equal sizes stay equal.
RECT ToPixels(const Rect& rect);
Rect ToTwips(const RECT& rect);

}  // namespace runtime::win32
