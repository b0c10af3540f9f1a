// Converts between twips and pixels. All back ends round with these functions.
#pragma once

#include "runtime/Geometry.h"

namespace runtime {

class PixelGrid {
 public:
    /// `dpi` is the screen's dots per inch.
    explicit PixelGrid(int dpi) : dpi_(static_cast<Twips>(dpi)) {}

    /// Rounds to the nearest pixel, halves away from zero. The result is limited to -32767..32767, the range of window
    /// coordinates.
    int ToPixels(Twips twips) const;
    Twips ToTwips(int pixels) const { return static_cast<Twips>(pixels) * kTwipsPerInch / dpi_; }
    /// Returns `twips` rounded to whole pixels.
    Twips Whole(Twips twips) const { return ToTwips(ToPixels(twips)); }
    /// Rounds position and size separately, so that equal sizes stay equal.
    Rect Whole(const Rect& rect) const;

 private:
    Twips dpi_;
};

}  // namespace runtime
