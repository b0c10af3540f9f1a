#include "tests/windows/LiveObjects.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"
#include "tests/support/Rounds.h"

namespace tests {
namespace {

/// Returns the number of live objects of one kind. `told` is the system's count, or 0 if the system cannot count. If
/// `told` is 0, the function creates objects, which first fill the gaps in the handle table. The function stops when
/// 256 objects in a row have extended the table, or at 10,000 objects. Then it subtracts the number of created objects
/// from the last place.
template <typename Handle>
long LiveObjects(DWORD told, Handle (*make)(), BOOL (*destroy)(Handle), int handlesPerPlace) {
    if (told != 0) return static_cast<long>(told);
    constexpr int kRun = 256;
    constexpr std::size_t kMaxObjects = 10'000;
    std::vector<Handle> made;
    long highest = 0;
    for (int run = 0; run < kRun && made.size() < kMaxObjects;) {
        made.push_back(make());
        const long place = static_cast<long>(LOWORD(reinterpret_cast<std::uintptr_t>(made.back()))) / handlesPerPlace;
        run = place == highest + 1 ? run + 1 : 0;
        highest = std::max(highest, place);
    }
    for (const Handle handle : made) destroy(handle);
    return highest - static_cast<long>(made.size());
}

BOOL CALLBACK CountOne(HWND, LPARAM into) noexcept {
    ++*reinterpret_cast<long*>(into);
    return TRUE;
}

BOOL CALLBACK CountWithChildren(HWND window, LPARAM into) noexcept {
    EnumChildWindows(window, CountOne, into);
    return CountOne(window, into);
}

void Run(int rounds, const std::function<void(int)>& round) {
    for (int i = 0; i < rounds && !testing::Test::HasFatalFailure(); ++i) round(i);
}

}  // namespace

long GdiObjects() {
    return LiveObjects<HRGN>(
        GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), [] { return CreateRectRgn(0, 0, 1, 1); },
        [](HRGN region) { return DeleteObject(region); }, 1);
}

long UserObjects() {
    return LiveObjects<HMENU>(
        GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), [] { return CreateMenu(); },
        [](HMENU menu) { return DestroyMenu(menu); }, 2);
}

long Windows() {
    long count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountWithChildren, reinterpret_cast<LPARAM>(&count));
    return count;
}

void ExpectNothingStays(int fullRounds, const std::function<void(int)>& round) {
    constexpr double kSlack = 20;  // the number of the system's own objects varies
    constexpr int kMinRounds = 40;
    constexpr int kFirstRounds = 10;
    const int rounds = Rounds(fullRounds, kMinRounds);
    Run(kFirstRounds, round);
    const long gdi = GdiObjects();
    const long user = UserObjects();
    const long windows = Windows();
    Run(rounds, round);
    EXPECT_NEAR(static_cast<double>(GdiObjects()), static_cast<double>(gdi), kSlack);
    EXPECT_NEAR(static_cast<double>(UserObjects()), static_cast<double>(user), kSlack);
    EXPECT_EQ(Windows(), windows);
}

}  // namespace tests
