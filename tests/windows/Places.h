// Where windows stand, in pixels.
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

/// On the screen, with the frame.
Place PlaceOf(HWND window);
/// From the corner of the client area of `parent`.
Place PlaceIn(HWND parent, HWND child);

/// Half a pixel may go either way; positions off the screen count, too.
void ExpectCentred(HWND window);

}  // namespace tests
