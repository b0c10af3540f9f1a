// Reads the positions of windows in pixels.
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
/// Returns the rectangle relative to the client area of `parent`.
Place PlaceIn(HWND parent, HWND child);

/// Fails the test unless the window is centred. Tolerates half a pixel, and allows positions off the screen.
void ExpectCentred(HWND window);

}  // namespace tests
