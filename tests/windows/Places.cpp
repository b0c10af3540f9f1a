#include "tests/windows/Places.h"

#include <gtest/gtest.h>

namespace tests {

void PrintTo(const Place& place, std::ostream* out) {
    *out << place.left << ", " << place.top << ", " << place.width << " x " << place.height;
}

Place PlaceOf(HWND window) {
    RECT outer{};
    GetWindowRect(window, &outer);
    return {outer.left, outer.top, outer.right - outer.left, outer.bottom - outer.top};
}

Place PlaceIn(HWND parent, HWND child) {
    Place place = PlaceOf(child);
    POINT corner{place.left, place.top};
    ScreenToClient(parent, &corner);
    place.left = corner.x;
    place.top = corner.y;
    return place;
}

void ExpectCentred(HWND window) {
    const Place place = PlaceOf(window);
    EXPECT_NEAR(place.left, (GetSystemMetrics(SM_CXSCREEN) - place.width) / 2.0, 1);
    EXPECT_NEAR(place.top, (GetSystemMetrics(SM_CYSCREEN) - place.height) / 2.0, 1);
}

}  // namespace tests
