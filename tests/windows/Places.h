// Reads the positions and sizes of windows, in pixels.
#pragma once

#include <ostream>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

struct Place {
    long left;
    long top;
    long width;
    long height;
    bool operator==(const Place&) const = default;
};

void PrintTo(const Place& place, std::ostream* out);

/// Returns the window's rectangle on the screen, including the frame.
Place PlaceOf(HWND window);
/// Returns the rectangle of `child` relative to the client area of `parent`.
Place PlaceIn(HWND parent, HWND child);

/// Fails the test unless the window is centred on the primary screen. Tolerates one pixel. The window may extend beyond
/// the screen.
void ExpectCentred(HWND window);

}  // namespace tests
