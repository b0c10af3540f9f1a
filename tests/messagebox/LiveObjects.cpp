#include "tests/messagebox/LiveObjects.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "runtime/win32/WindowsHeaders.h"

namespace tests {
namespace {

/// The live objects of one kind, where the system does not tell their number: with more new ones than there are free
/// places in the table of handles, the highest place used tells it.
template <typename Handle>
long LiveObjects(DWORD told, Handle (*make)(), BOOL (*destroy)(Handle), int perPlace) {
    if (told != 0) return static_cast<long>(told);
    constexpr long kMade = 2000;
    long highest = 0;
    std::vector<Handle> made;
    for (long i = 0; i < kMade; ++i) {
        made.push_back(make());
        highest = std::max(highest, static_cast<long>(LOWORD(reinterpret_cast<std::uintptr_t>(made.back()))));
    }
    for (const Handle handle : made) destroy(handle);
    return highest / perPlace - kMade;
}

BOOL CALLBACK CountOne(HWND, LPARAM into) noexcept {
    ++*reinterpret_cast<long*>(into);
    return TRUE;
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
    EnumThreadWindows(GetCurrentThreadId(), CountOne, reinterpret_cast<LPARAM>(&count));
    return count;
}

}  // namespace tests
