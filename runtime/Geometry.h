// Defines lengths, positions and colours of forms. Every length is in twips (1/1440 inch). Only the back ends use
// pixels.
#pragma once

#include <cstdint>

namespace runtime {

/// 1/1440 inch, in single precision as in the classic forms runtime.
using Twips = float;
inline constexpr Twips kTwipsPerInch = 1440.0F;

struct Size {
    Twips width = 0;
    Twips height = 0;
    bool operator==(const Size&) const = default;
};

struct Rect {
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;
    bool operator==(const Rect&) const = default;
    runtime::Size Size() const { return {width, height}; }
};

/// 0x00BBGGRR, or 0x80000000 + index of a system colour.
using Colour = std::uint32_t;
inline constexpr Colour kLightGrey = 0x00C0C0C0;
inline constexpr Colour kButtonFace = 0x8000000F;

}  // namespace runtime
