#include "runtime/win32/Pixels.h"

#include <algorithm>
#include <cmath>

namespace runtime::win32 {
namespace {

int ReadScreenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = screen ? GetDeviceCaps(screen, LOGPIXELSX) : 0;
    if (screen) ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

}  // namespace

int ScreenDpi() {
    static const int dpi = ReadScreenDpi();
    return dpi;
}

int ToPixels(Twips twips) {
    // What the window system can place and size.
    constexpr Twips kFarthest = 32767;
    const Twips pixels = twips * static_cast<Twips>(ScreenDpi()) / kTwipsPerInch;
    return static_cast<int>(std::lround(std::clamp(pixels, -kFarthest, kFarthest)));
}

Twips ToTwips(int pixels) {
    return static_cast<Twips>(pixels) * kTwipsPerInch / static_cast<Twips>(ScreenDpi());
}

RECT ToPixels(const Rect& rect) {
    const int left = ToPixels(rect.left);
    const int top = ToPixels(rect.top);
    return {left, top, left + ToPixels(rect.width), top + ToPixels(rect.height)};
}

Rect ToTwips(const RECT& rect) {
    return {ToTwips(static_cast<int>(rect.left)), ToTwips(static_cast<int>(rect.top)),
            ToTwips(static_cast<int>(rect.right - rect.left)), ToTwips(static_cast<int>(rect.bottom - rect.top))};
}

}  // namespace runtime::win32
