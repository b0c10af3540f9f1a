// A screen's pixels as lengths: the one rule by which every back end rounds the twips that a form asks for.
#pragma once

#include "runtime/Geometry.h"

namespace runtime {

class PixelGrid {
 public:
    /// Dots per inch of the screen.
    explicit PixelGrid(int dpi) : dpi_(static_cast<Twips>(dpi)) {}

    /// To the nearest pixel, halves away from zero; within what a window system can place and size.
    int ToPixels(Twips twips) const;
    Twips ToTwips(int pixels) const { return static_cast<Twips>(pixels) * kTwipsPerInch / dpi_; }
    /// The nearest whole pixels, in twips.
    Twips Whole(Twips twips) const { return ToTwips(ToPixels(twips)); }
    /// Place and size are rounded on their own, so that equal sizes stay equal.
    Rect Whole(const Rect& rect) const;

 private:
    Twips dpi_;
};

}  // namespace runtime
