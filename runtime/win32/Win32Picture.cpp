#include "runtime/win32/Win32Picture.h"

#include <vector>

namespace runtime::win32 {
namespace {

/// The picture's colours, black where it is transparent.
GdiBitmap MakeColours(const Picture& picture) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = picture.Width();
    info.bmiHeader.biHeight = -picture.Height();  // from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    GdiBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap) return bitmap;
    auto* pixel = static_cast<std::uint32_t*>(bits);
    for (const std::string_view row : picture.rows) {
        for (const char character : row) *pixel++ = PictureColour(character).value_or(0);
    }
    return bitmap;
}

/// One bit a pixel, set where the picture is transparent; each row fills whole 16-bit words.
GdiBitmap MakeMask(const Picture& picture) {
    const std::size_t rowBytes = (static_cast<std::size_t>(picture.Width()) + 15) / 16 * 2;
    std::vector<std::uint8_t> bits(rowBytes * static_cast<std::size_t>(picture.Height()));
    for (std::size_t y = 0; y < picture.rows.size(); ++y) {
        for (std::size_t x = 0; x < picture.rows[y].size(); ++x) {
            if (!PictureColour(picture.rows[y][x]))
                bits[y * rowBytes + x / 8] |= static_cast<std::uint8_t>(0x80 >> x % 8);
        }
    }
    return GdiBitmap(CreateBitmap(picture.Width(), picture.Height(), 1, 1, bits.data()));
}

}  // namespace

Icon MakeIcon(const Picture& picture) {
    const GdiBitmap colours = MakeColours(picture);
    const GdiBitmap mask = MakeMask(picture);
    ICONINFO info{};
    info.fIcon = TRUE;
    info.hbmColor = colours.Get();
    info.hbmMask = mask.Get();
    return Icon(CreateIconIndirect(&info));
}

}  // namespace runtime::win32
