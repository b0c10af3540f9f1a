// The main form comes and goes with its clients' instances: nothing of the window system may stay behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "host/frmBackProcessMain.h"
#include "runtime/win32/WindowsHeaders.h"
#include "tests/support/ComponentFixture.h"

namespace host {
namespace {

constexpr int kRounds = 2000;
/// Far below one object a round, and above what the system itself may come to hold.
constexpr DWORD kSlack = 100;

struct Resources {
    DWORD userObjects = 0;
    DWORD gdiObjects = 0;
    DWORD windowPlace = 0;
    DWORD regionPlace = 0;
};

DWORD PlaceOf(const void* handle) {
    return LOWORD(reinterpret_cast<ULONG_PTR>(handle));
}

/// The numbers of objects as the system counts them; Wine counts none. Hence also the highest places in the system's
/// tables that a few new objects get: freed places are taken first, so that these rise only when objects are lost.
Resources Measure() {
    constexpr int kProbes = 16;
    Resources now{GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS),
                  GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), 0, 0};
    std::vector<HWND> windows;
    std::vector<HRGN> regions;
    for (int i = 0; i < kProbes; ++i) {
        windows.push_back(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr));
        regions.push_back(CreateRectRgn(0, 0, 1, 1));
        now.windowPlace = std::max(now.windowPlace, PlaceOf(windows.back()));
        now.regionPlace = std::max(now.regionPlace, PlaceOf(regions.back()));
    }
    for (const HWND window : windows) DestroyWindow(window);
    for (const HRGN region : regions) DeleteObject(region);
    return now;
}

using MainFormResources = tests::ComponentTest;

TEST_F(MainFormResources, StayFlatOverThousandsOfLoadsAndUnloads) {
    frmBackProcessMain& form = MainForm();
    const auto loadAndUnload = [&form](int rounds) {
        for (int i = 0; i < rounds; ++i) {
            form.EditMsgLine(u"text");
            form.DeviceContext();
            form.Unload();
        }
    };
    loadAndUnload(50);
    const Resources before = Measure();
    loadAndUnload(kRounds);
    const Resources after = Measure();
    EXPECT_LE(after.userObjects, before.userObjects + kSlack);
    EXPECT_LE(after.gdiObjects, before.gdiObjects + kSlack);
    EXPECT_LE(after.windowPlace, before.windowPlace + kSlack);
    EXPECT_LE(after.regionPlace, before.regionPlace + kSlack);
}

}  // namespace
}  // namespace host
