#include "runtime/PixelGrid.h"

#include <algorithm>
#include <cmath>

namespace runtime {

int PixelGrid::ToPixels(Twips twips) const {
    constexpr Twips kMaxDistance = 32767;
    const Twips pixels = twips * dpi_ / kTwipsPerInch;
    return static_cast<int>(std::lround(std::clamp(pixels, -kMaxDistance, kMaxDistance)));
}

Rect PixelGrid::Whole(const Rect& rect) const {
    return {Whole(rect.left), Whole(rect.top), Whole(rect.width), Whole(rect.height)};
}

}  // namespace runtime
