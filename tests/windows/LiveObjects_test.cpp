#include "tests/windows/LiveObjects.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {
namespace {

/// Creates a child window of `parent`. Creates a top-level window if `parent` is null.
HWND MakeWindow(HWND parent = nullptr) {
    return CreateWindowExW(0, L"STATIC", L"", parent ? WS_CHILD : WS_POPUP, 0, 0, 1, 1, parent, nullptr, nullptr,
                           nullptr);
}

TEST(LiveObjects, Count_IncludesGdiAndUserObjects) {
    const long gdi = GdiObjects();
    const long user = UserObjects();
    std::vector<HRGN> regions(100);
    std::vector<HMENU> menus(100);
    std::ranges::generate(regions, [] { return CreateRectRgn(0, 0, 1, 1); });
    std::ranges::generate(menus, [] { return CreateMenu(); });
    EXPECT_NEAR(GdiObjects() - gdi, 100, 10);
    EXPECT_NEAR(UserObjects() - user, 100, 10);
    for (const HRGN region : regions) DeleteObject(region);
    for (const HMENU menu : menus) DestroyMenu(menu);
}

TEST(LiveObjects, Count_IncludesChildWindows) {
    const HWND first = MakeWindow();
    const long user = UserObjects();
    const long windows = Windows();
    std::vector<HWND> made(50);
    std::ranges::generate(made, [] { return MakeWindow(); });
    for (int i = 0; i < 50; ++i) MakeWindow(first);
    EXPECT_NEAR(UserObjects() - user, 100, 10);
    EXPECT_EQ(Windows() - windows, 100);
    for (const HWND window : made) DestroyWindow(window);
    DestroyWindow(first);
}

TEST(LiveObjects, LeakOfOneObjectPerRound_FailsTheTest) {
    static std::vector<HRGN> lost;
    EXPECT_NONFATAL_FAILURE(ExpectNothingStays(40, [](int) { lost.push_back(CreateRectRgn(0, 0, 1, 1)); }),
                            "GdiObjects");
    for (const HRGN region : lost) DeleteObject(region);
    EXPECT_EQ(lost.size(), 50u);  // including the ten rounds of preparation
    ExpectNothingStays(40, [](int) { DestroyWindow(MakeWindow()); });
}

}  // namespace
}  // namespace tests
