#include "runtime/Picture.h"

namespace runtime {
namespace {

// The classic colour functions' order: 0 black, 1 blue, … 7 white (dull), 8 grey, 9..15 bright.
constexpr std::uint32_t kColours[] = {
    0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
    0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF,
};

}  // namespace

std::optional<std::uint32_t> PictureColour(char pixel) {
    if (pixel >= '0' && pixel <= '9') return kColours[pixel - '0'];
    if (pixel >= 'A' && pixel <= 'F') return kColours[pixel - 'A' + 10];
    return std::nullopt;
}

}  // namespace runtime
