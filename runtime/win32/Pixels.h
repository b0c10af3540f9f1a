// Twips to pixels and back, by the resolution of the screen that there is.
#pragma once

#include "runtime/Geometry.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// Dots per inch of the screen.
int ScreenDpi();

/// To the nearest pixel.
int ToPixels(Twips twips);
Twips ToTwips(int pixels);
/// Right and bottom are those of the rounded place plus the rounded size, so that equal sizes stay equal.
RECT ToPixels(const Rect& rect);
Rect ToTwips(const RECT& rect);

}  // namespace runtime::win32
