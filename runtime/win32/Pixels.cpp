#include "runtime/win32/Pixels.h"

#include "runtime/PixelGrid.h"
#include "runtime/win32/UserEntry.h"

namespace runtime::win32 {
namespace {

int ReadScreenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = screen ? GetDeviceCaps(screen, LOGPIXELSX) : 0;
    if (screen) ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

PixelGrid Screen() {
    return PixelGrid(ScreenDpi());
}

}  // namespace

int ScreenDpi() {
    static const auto dpiOfThread = UserEntry<UINT WINAPI()>("GetDpiForSystem");
    if (dpiOfThread) return static_cast<int>(dpiOfThread());
    // On systems without the function, the whole process has one resolution.
    static const int dpiOfProcess = ReadScreenDpi();
    return dpiOfProcess;
}

int ToPixels(Twips twips) {
    return Screen().ToPixels(twips);
}

Twips ToTwips(int pixels) {
    return Screen().ToTwips(pixels);
}

RECT ToPixels(const Rect& rect) {
    const PixelGrid grid = Screen();
    const int left = grid.ToPixels(rect.left);
    const int top = grid.ToPixels(rect.top);
    return {left, top, left + grid.ToPixels(rect.width), top + grid.ToPixels(rect.height)};
}

Rect ToTwips(const RECT& rect) {
    const PixelGrid grid = Screen();
    return {grid.ToTwips(static_cast<int>(rect.left)), grid.ToTwips(static_cast<int>(rect.top)),
            grid.ToTwips(static_cast<int>(rect.right - rect.left)),
            grid.ToTwips(static_cast<int>(rect.bottom - rect.top))};
}

}  // namespace runtime::win32
